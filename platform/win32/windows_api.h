// The one door to the Windows headers, with the conversions between the program's types and the system's.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include "base/wide_string.h"
#include "platform/window.h"

#include <string>

namespace platform::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "both are UTF-16 units");

inline const wchar_t* ToApi(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }
inline wchar_t* ToApi(char16_t* text) { return reinterpret_cast<wchar_t*>(text); }
inline const wchar_t* ToApi(const WideString& text) { return ToApi(text.c_str()); }
inline wchar_t* ToApi(WideString& text) { return ToApi(text.data()); }
inline const char16_t* FromApi(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

inline HWND ToApi(WindowHandle window) { return reinterpret_cast<HWND>(window); }
inline WindowHandle FromApi(HWND window) { return reinterpret_cast<WindowHandle>(window); }

inline Rect FromApi(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}
inline RECT ToApi(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

}  // namespace platform::win32
