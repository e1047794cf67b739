// Wakes a thread that waits by poll(), from other threads and from signal handlers.
#pragma once

namespace simulator {

class WakePipe {
 public:
  WakePipe();
  ~WakePipe();
  WakePipe(const WakePipe&) = delete;
  WakePipe& operator=(const WakePipe&) = delete;

  bool IsOpen() const { return readEnd_ >= 0; }
  int ReadEnd() const { return readEnd_; }    // can be read while it is filled
  int WriteEnd() const { return writeEnd_; }  // any byte fills it

  void Fill() const;
  void Empty() const;

 private:
  int readEnd_ = -1;
  int writeEnd_ = -1;
};

}  // namespace simulator
