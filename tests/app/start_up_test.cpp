// Keys that are pressed while the worker still builds the full tree.
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

constexpr int kStarts = 50;

void StartAndPressAtOnce(std::string_view keys) {
  const TemporaryRoot root;
  std::filesystem::copy(KEL_DEMONSTRATION, root.Path(), std::filesystem::copy_options::recursive);
  for (int start = 0; start < kStarts; ++start) {
    Keypad keypad;
    keypad.Press(keys);
    keypad.waitsForWorker = false;
    ASSERT_EQ("", RunUtilityOn({root.Path()}, keypad));
    ASSERT_FALSE(keypad.IsStuck());
    ASSERT_EQ(std::vector<std::string>(), keypad.Boxes());
  }
}

TEST(StartUp, EntersAMenuWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce("{Enter}{Enter}"); }

TEST(StartUp, MovesAndGoesHomeWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce("{Down}{Down}{Enter}{Home}{Enter}"); }

TEST(StartUp, EndsWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce(""); }

}  // namespace
}  // namespace tests
