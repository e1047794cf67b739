// The signals that ask a program to end (Ctrl-C, kill, a window that closes), as a descriptor to wait for.
#pragma once

namespace simulator {

// While it lives they do not end the process. Made before any thread is started.
class EndingSignals {
 public:
  EndingSignals();
  ~EndingSignals();
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;

  // Can be read once one has come; -1 when the system gave none.
  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

}  // namespace simulator
