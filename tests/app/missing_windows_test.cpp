// A walk through every kind of screen, once for each of its windows and controls, which cannot be made then.
#include "tests/app/every_screen.h"
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tests {
namespace {

constexpr const char* kKeys = "1 3{Enter} 2 {Down}{Enter} 3 {Up}{Enter} 4 7{Enter} 5 {Down}{Esc} 6 {Enter}";

class MissingWindows : public testing::TestWithParam<int> {
 protected:
  // What the device has been given and what was said, when the window of that number cannot be made; 0: all can be.
  struct Walk {
    std::size_t windows = 0;
    std::vector<std::string> boxes;
    std::map<std::string, std::string> stored;
  };
  static Walk WalkWithout(std::size_t missing) {
    const TemporaryRoot root;
    root.Write("Windows/ovu.xml", kEveryScreen);
    root.Write("device.txt", kEveryScreensDevice);
    Keypad keypad;
    keypad.Press(kKeys);
    Walk walk;
    FailingCalls calls([&](std::size_t) {
      const bool isWindow = calls.Calls().back().starts_with("window ");
      return isWindow && ++walk.windows == missing;
    });
    calls.windowsToo = true;
    EXPECT_EQ("", RunUtilityOn({.root = root.Path(), .heightPx = GetParam()}, keypad, calls));
    EXPECT_FALSE(keypad.IsStuck());
    walk.boxes = keypad.Boxes();
    walk.stored = calls.Stored();
    return walk;
  }
};

TEST_P(MissingWindows, NeverEndNorBlockTheUtilityNorStoreAnythingElse) {
  const Walk whole = WalkWithout(0);
  ASSERT_EQ(4u, whole.stored.size());
  ASSERT_LT(50u, whole.windows);
  std::ptrdiff_t withoutList = 0;
  for (std::size_t missing = 1; missing <= whole.windows; ++missing) {
    SCOPED_TRACE(missing);
    const Walk walk = WalkWithout(missing);
    for (const auto& [oid, value] : walk.stored) EXPECT_TRUE(whole.stored.contains(oid)) << oid << " " << value;
    withoutList += std::ranges::count_if(
        walk.boxes, [](const std::string& box) { return box.starts_with("Initialization Error: "); });
  }
  EXPECT_EQ(1, withoutList);
}

INSTANTIATE_TEST_SUITE_P(Layouts, MissingWindows, testing::Values(320, 160),
                         [](const auto& parameter) { return parameter.param == 320 ? "Large" : "Small"; });

}  // namespace
}  // namespace tests
