#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

constexpr message::Id kSetRange = message::kUser + 1;  // lParam: the low bound below, the high bound above

class ProgressBar : public ProgressBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    switch (message.id) {
      case kSetRange:
        minimum_ = static_cast<int>(message.lParam & 0xFFFF);
        maximum_ = static_cast<int>((message.lParam >> 16) & 0xFFFF);
        position_ = std::clamp(position_, minimum_, std::max(minimum_, maximum_));
        window.needsPaint = true;
        return 0;
      case message::kProgressSetPosition: {
        const int previous = position_;
        position_ = std::clamp(static_cast<int>(message.wParam), minimum_, std::max(minimum_, maximum_));
        window.needsPaint = true;
        return previous;
      }
      default: return HandlePlainMessage(window, message);
    }
  }

  ProgressState State() const override { return {position_, maximum_}; }

 private:
  int minimum_ = 0;
  int maximum_ = 100;
  int position_ = 0;
};

}  // namespace

std::unique_ptr<ProgressBehaviour> MakeProgressBar() { return std::make_unique<ProgressBar>(); }

}  // namespace platform::host
