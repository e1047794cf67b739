// Owners for what COM hands out.
#pragma once

#include "platform/win32/windows_api.h"

#include <objbase.h>
#include <oleauto.h>

#include <memory>
#include <optional>

namespace platform::win32 {

struct ReleaseInterface {
  void operator()(IUnknown* pointer) const { pointer->Release(); }
};
template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ReleaseInterface>;

// A copy of a text as an automation string.
class AutomationString {
 public:
  explicit AutomationString(WideStringView text)
      : text_(SysAllocStringLen(ToApi(text.data()), static_cast<UINT>(text.size()))) {}
  ~AutomationString() { SysFreeString(text_); }
  AutomationString(const AutomationString&) = delete;
  AutomationString& operator=(const AutomationString&) = delete;
  BSTR Get() const { return text_; }

 private:
  BSTR text_;
};

// Room for an automation string that a call hands out.
class ReturnedAutomationString {
 public:
  ReturnedAutomationString() = default;
  ~ReturnedAutomationString() { SysFreeString(text_); }
  ReturnedAutomationString(const ReturnedAutomationString&) = delete;
  ReturnedAutomationString& operator=(const ReturnedAutomationString&) = delete;

  BSTR* Out() { return &text_; }
  std::optional<WideString> Text() const {
    if (text_ == nullptr) return std::nullopt;
    return WideString(FromApi(text_), SysStringLen(text_));
  }

 private:
  BSTR text_ = nullptr;
};

}  // namespace platform::win32
