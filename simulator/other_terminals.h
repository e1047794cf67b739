// The terminals that run on the same storage: the program sees their windows as those of another program.
#pragma once

#include "base/wide_string.h"

#include <vector>

namespace simulator {

class OtherTerminals {
 public:
  virtual ~OtherTerminals() = default;

  // Of the windows of the other one, the topmost first.
  virtual std::vector<WideString> OtherTitles() const = 0;
  virtual void BringOtherForward() const = 0;

  // Lets others know the titles of this terminal's windows, the topmost first. Cheap while they stay the same.
  virtual void Publish(const std::vector<WideString>& titles) = 0;
};

// On a storage that is nobody else's.
class NoOtherTerminals final : public OtherTerminals {
 public:
  std::vector<WideString> OtherTitles() const override { return {}; }
  void BringOtherForward() const override {}
  void Publish(const std::vector<WideString>&) override {}
};

}  // namespace simulator
