// Keys that are pressed while the worker still builds the full tree.
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include "platform/messages.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

using platform::host::KeyStroke;

constexpr int kStarts = 50;
constexpr KeyStroke kEnter{platform::key::kEnter, u'\r', false, false};
constexpr KeyStroke kDown{platform::key::kDown, 0, false, false};
constexpr KeyStroke kHome{platform::key::kHome, 0, false, false};

void StartAndPressAtOnce(const std::vector<KeyStroke>& keys) {
  const TemporaryRoot root;
  std::filesystem::copy(KEL_DEMONSTRATION, root.Path(), std::filesystem::copy_options::recursive);
  for (int start = 0; start < kStarts; ++start) {
    auto next = keys.begin();
    Keypad keypad([&]() -> std::optional<KeyStroke> {
      if (next == keys.end()) return std::nullopt;
      return *next++;
    });
    keypad.waitsForWorker = false;
    ASSERT_EQ("", RunUtilityOn({root.Path()}, keypad));
    ASSERT_FALSE(keypad.IsStuck());
    ASSERT_EQ(std::vector<std::string>(), keypad.Boxes());
  }
}

TEST(StartUp, EntersAMenuWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce({kEnter, kEnter}); }

TEST(StartUp, MovesAndGoesHomeWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce({kDown, kDown, kEnter, kHome, kEnter}); }

TEST(StartUp, EndsWhileTheTreeIsBeingBuilt) { StartAndPressAtOnce({}); }

}  // namespace
}  // namespace tests
