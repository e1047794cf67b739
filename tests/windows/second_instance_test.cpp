// The program started twice. KEL_PROGRAM names it; the current folder is an empty one at the root of a drive.
#include "platform/win32/owned_handle.h"
#include "platform/win32/windows_api.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using platform::win32::OwnedHandle;

constexpr ULONGLONG kPatienceMs = 30'000;

// Lets this thread's windows answer until `condition` holds; false when that takes too long.
template <typename Condition>
bool WaitUntil(Condition condition) {
  constexpr DWORD kPollMs = 10;
  for (const ULONGLONG end = GetTickCount64() + kPatienceMs; GetTickCount64() < end;) {
    if (condition()) return true;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMs, QS_ALLINPUT);
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  return false;
}

struct Program {
  OwnedHandle process;
  OwnedHandle thread;
  DWORD id = 0;

  bool HasEnded() const { return WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0; }
  DWORD ExitStatus() const {
    DWORD status = STILL_ACTIVE;
    GetExitCodeProcess(process.Get(), &status);
    return status;
  }
};

Program StartUtility() {
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION information = {};
  if (!CreateProcessW(_wgetenv(L"KEL_PROGRAM"), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &information)) {
    return {};
  }
  return {OwnedHandle(information.hProcess), OwnedHandle(information.hThread), information.dwProcessId};
}

BOOL CALLBACK AddUtilityWindow(HWND window, LPARAM list) {
  wchar_t text[64] = {};
  GetWindowTextW(window, text, 64);
  if (IsWindowVisible(window) && std::wstring_view(text) == L"Configuration Utility") {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

std::vector<HWND> UtilityWindows() {
  std::vector<HWND> windows;
  EnumWindows(AddUtilityWindow, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

class WindowsSecondInstance : public testing::Test {
 protected:
  WindowsSecondInstance() {
    std::filesystem::create_directory("Windows");
    std::ofstream("Windows/ovu.xml", std::ios::binary)
        << "<GROUP name=\"CONFIGAPP\"><DisplayName>Main</DisplayName>"
           "<GROUP name=\"Tools\"><DisplayName>Tools</DisplayName></GROUP></GROUP>\n";
  }
  ~WindowsSecondInstance() override { std::filesystem::remove("Windows/ovu.xml"); }
};

TEST_F(WindowsSecondInstance, BringsTheFirstToTheFrontShowsNothingAndEnds) {
  const Program first = StartUtility();
  ASSERT_TRUE(first.process);
  ASSERT_TRUE(WaitUntil([] { return !UtilityWindows().empty(); }));
  const HWND firstWindow = UtilityWindows().front();

  // Another program is worked with meanwhile.
  const HWND other = CreateWindowExW(0, L"Static", L"another program", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                     nullptr, nullptr, nullptr);
  ASSERT_TRUE(WaitUntil([&] {
    if (GetForegroundWindow() != other) SetForegroundWindow(other);
    return GetForegroundWindow() == other;
  }));

  const Program second = StartUtility();
  ASSERT_TRUE(second.process);
  EXPECT_TRUE(WaitUntil([&] { return second.HasEnded(); }));
  EXPECT_EQ(0u, second.ExitStatus());
  EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == firstWindow; }));
  EXPECT_EQ(std::vector<HWND>{firstWindow}, UtilityWindows());
  EXPECT_FALSE(first.HasEnded());

  DestroyWindow(other);
  TerminateProcess(first.process.Get(), 0);
  WaitForSingleObject(first.process.Get(), INFINITE);
}

}  // namespace
