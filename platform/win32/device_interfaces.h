// The device's two configuration objects as COM knows them. Clients and servers share these declarations.
#pragma once

#include "platform/win32/windows_api.h"

#include <objbase.h>
#include <oleauto.h>

namespace platform::win32 {

// {B12CD332-AF57-11D2-A541-00C04F8F3EBB}
inline constexpr CLSID kSnmpConfigClass = {
    0xB12CD332, 0xAF57, 0x11D2, {0xA5, 0x41, 0x00, 0xC0, 0x4F, 0x8F, 0x3E, 0xBB}};

// {B12CD331-AF57-11D2-A541-00C04F8F3EBB}
inline constexpr IID kSnmpConfigInterface = {
    0xB12CD331, 0xAF57, 0x11D2, {0xA5, 0x41, 0x00, 0xC0, 0x4F, 0x8F, 0x3E, 0xBB}};

// Settings by OID, type text and value text. The caller owns every string, a returned one too.
struct SnmpConfigInterface : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Set(BSTR oid, BSTR type, BSTR value) = 0;
  virtual HRESULT STDMETHODCALLTYPE Get(BSTR oid, BSTR type, BSTR* value) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetSpecial(BSTR oid, BSTR type, BSTR value) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetSpecial(BSTR oid, BSTR type, BSTR* value) = 0;

 protected:
  ~SnmpConfigInterface() = default;
};

// {5BC80DE4-D333-40B8-9AB8-DCD19958CE14}
inline constexpr IID kConfigPropertyInterface = {
    0x5BC80DE4, 0xD333, 0x40B8, {0x9A, 0xB8, 0xDC, 0xD1, 0x99, 0x58, 0xCE, 0x14}};

struct ConfigPropertyInterface : IUnknown {
  // `value` is the caller's to free with CoTaskMemFree().
  virtual HRESULT STDMETHODCALLTYPE GetTableValue(const wchar_t* table, const wchar_t* key, wchar_t** value) = 0;

 protected:
  ~ConfigPropertyInterface() = default;
};

}  // namespace platform::win32
