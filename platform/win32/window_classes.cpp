#include "platform/win32/window_classes.h"

#include "platform/win32/window_procedure.h"

#include <list>

namespace platform {

namespace {

struct OwnClass {
  WideString name;
  std::function<std::unique_ptr<MessageHandler>(WindowHandle)> make;
};

std::list<OwnClass>& OwnClasses() {
  static std::list<OwnClass> classes;
  return classes;
}

const OwnClass* Find(WideStringView name) {
  for (const OwnClass& candidate : OwnClasses()) {
    if (base::EqualsIgnoringCase(candidate.name, name)) return &candidate;
  }
  return nullptr;
}

WideString ClassNameOf(HWND window) {
  constexpr int kLongest = 256;
  WideString name(kLongest, u'\0');
  const int length = GetClassNameW(window, win32::ToApi(name), kLongest);
  name.resize(static_cast<std::size_t>(length));
  return name;
}

}  // namespace

void RegisterWindowClass(const WindowClassSpec& spec) {
  if (Find(spec.name) != nullptr) return;
  const OwnClass& added = OwnClasses().emplace_back(OwnClass{WideString(spec.name), spec.make});
  WNDCLASSW windowClass = {};
  windowClass.style = spec.doubleClicks ? CS_DBLCLKS : 0;
  windowClass.lpfnWndProc = win32::WindowProcedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  windowClass.lpszClassName = win32::ToApi(added.name);
  RegisterClassW(&windowClass);
}

namespace win32 {

std::unique_ptr<MessageHandler> MakeHandlerFor(HWND window) {
  const OwnClass* found = Find(ClassNameOf(window));
  return found != nullptr && found->make ? found->make(FromApi(window)) : nullptr;
}

}  // namespace win32
}  // namespace platform
