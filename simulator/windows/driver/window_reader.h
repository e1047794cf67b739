// Reads the windows of another process.
#pragma once

#include "simulator/dump.h"

#include <windows.h>

#include <vector>

namespace simulator {

// The visible top-level windows of a process, topmost first.
std::vector<HWND> VisibleWindowsOf(DWORD processId);

// What the thread of the windows has in focus and active.
GUITHREADINFO ThreadState(DWORD threadId);

ScreenPicture TakeScreenPicture(DWORD processId, DWORD threadId);

}  // namespace simulator
