// Keeps a restart of the machine, which the driven program may ask for, from happening.
#pragma once

#include <windows.h>

#include <thread>

namespace simulator {

// While it lives a hidden window answers that the session cannot end.
class RestartGuard {
 public:
  RestartGuard();
  ~RestartGuard();
  RestartGuard(const RestartGuard&) = delete;
  RestartGuard& operator=(const RestartGuard&) = delete;

 private:
  std::thread thread_;
  DWORD threadId_ = 0;
};

}  // namespace simulator
