// A COM object with one interface of its own, counted and destroyed by its last Release().
#pragma once

#include "platform/win32/com.h"

#include <atomic>

namespace simulator {

// Objects that live; the library may be unloaded at none.
inline std::atomic<long> liveObjects = 0;

template <typename Interface, const IID& kInterfaceId>
class ComObject : public Interface {
 public:
  ComObject() { ++liveObjects; }
  virtual ~ComObject() { --liveObjects; }
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, kInterfaceId)) return E_NOINTERFACE;
    *out = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) std::unique_ptr<ComObject> last(this);
    return left;
  }

 private:
  std::atomic<ULONG> references_ = 1;
};

}  // namespace simulator
