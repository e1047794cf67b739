// Message boxes that answer by themselves.
#pragma once

#include "values/message_boxes.h"

#include "base/number.h"

#include <utility>
#include <vector>

namespace tests {

class FakeBoxes final : public values::MessageBoxes {
 public:
  int answer = 0;

  int Show(WideStringView text, WideStringView caption, int kind) override {
    shown_.push_back(WideString(caption) + u": " + WideString(text) + u" [" + base::ToText(kind) + u"]");
    return answer;
  }

  // "CAPTION: TEXT [KIND]" of each box.
  std::vector<WideString> TakeShown() { return std::exchange(shown_, {}); }

 private:
  std::vector<WideString> shown_;
};

}  // namespace tests
