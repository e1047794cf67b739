#include "simulator/wake_pipe.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace simulator {

WakePipe::WakePipe() {
  std::array<int, 2> ends = {-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  readEnd_ = ends[0];
  writeEnd_ = ends[1];
}

WakePipe::~WakePipe() {
  if (!IsOpen()) return;
  close(readEnd_);
  close(writeEnd_);
}

void WakePipe::Fill() const {
  const char byte = 'W';
  // A full pipe is as good as one more byte in it.
  [[maybe_unused]] const auto written = write(writeEnd_, &byte, 1);
}

void WakePipe::Empty() const {
  std::array<char, 64> bytes = {};
  while (read(readEnd_, bytes.data(), bytes.size()) > 0) {
  }
}

}  // namespace simulator
