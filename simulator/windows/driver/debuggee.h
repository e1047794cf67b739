// The utility's process, run under a debugger of the driver's own: so its debug output, its threads, the programs that
// it starts and the events that it pulses are seen in the order in which they happen.
#pragma once

#include "base/wide_string.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace simulator {

struct DebuggeeSpec {
  std::wstring program;    // the path of the executable
  WideString commandLine;  // what follows the program's name
  std::wstring deviceLog;  // where the device server writes what is asked of it
};

class Debuggee {
 public:
  // The process runs when this returns, or has ended: see Failure().
  explicit Debuggee(DebuggeeSpec spec);
  ~Debuggee();  // ends the process if it still runs
  Debuggee(const Debuggee&) = delete;
  Debuggee& operator=(const Debuggee&) = delete;

  // Empty, or why the process could not be started or watched.
  std::string Failure() const;

  DWORD ProcessId() const;
  DWORD MainThreadId() const;
  bool IsRunning() const;
  std::optional<DWORD> ExitStatus() const;  // nothing while it runs
  // Whether the first thread, that of the windows, has found its queue of messages empty and waits.
  bool WaitsForMessages() const;
  // Threads that the program itself started, without its first one.
  int WorkerThreads() const;

  std::vector<std::string> TakeEffects();  // device calls, pulses and starts in one order
  std::vector<WideString> TakeDebugLines();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace simulator
