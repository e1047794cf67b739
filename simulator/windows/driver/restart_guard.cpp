#include "simulator/windows/driver/restart_guard.h"

#include <future>

namespace simulator {
namespace {

LRESULT CALLBACK RefuseToEnd(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return message == WM_QUERYENDSESSION ? FALSE : DefWindowProcW(window, message, wParam, lParam);
}

void GuardUntilQuit(std::promise<DWORD> ready) {
  constexpr wchar_t kClass[] = L"KEL_RestartGuard";
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = RefuseToEnd;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kClass;
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, kClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  ready.set_value(GetCurrentThreadId());
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  DestroyWindow(window);
}

}  // namespace

RestartGuard::RestartGuard() {
  std::promise<DWORD> ready;
  auto threadId = ready.get_future();
  thread_ = std::thread(GuardUntilQuit, std::move(ready));
  threadId_ = threadId.get();
}

RestartGuard::~RestartGuard() {
  PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
  thread_.join();
}

}  // namespace simulator
