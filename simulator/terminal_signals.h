// Signals while a text terminal is taken over: those that end the process first put the terminal back.
#pragma once

#include <string>

namespace simulator {

class TerminalSignals {
 public:
  // Remembers how the terminal is now. `restore` is written to it when a signal ends the process; `wakeDescriptor` gets
  // a byte when the terminal's size has changed and when another terminal asks this one to come forward.
  TerminalSignals(const std::string& restore, int wakeDescriptor);
  ~TerminalSignals();
  TerminalSignals(const TerminalSignals&) = delete;
  TerminalSignals& operator=(const TerminalSignals&) = delete;

  // Whether it was asked since the last call.
  static bool TakeForwardRequest();
};

}  // namespace simulator
