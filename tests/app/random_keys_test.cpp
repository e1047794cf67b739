// Random keys against the whole utility with the demonstration terminal, whose every tenth call fails. No secret of it
// is shown or logged where it does not belong.
#include "tests/app/random_keys.h"

#include "base/utf8.h"
#include "tests/app/canary.h"
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include <gtest/gtest.h>

#include <random>

namespace tests {
namespace {

constexpr int kKeys = 5000;

struct Child {
  std::uint32_t seed;
  int widthPx;
  int heightPx;
};

class RandomKeys : public ::testing::TestWithParam<Child> {};

TEST_P(RandomKeys, HarmNeitherTheUtilityNorTheStorage) {
  const Child& child = GetParam();
  const TemporaryRoot root;
  std::filesystem::copy(KEL_DEMONSTRATION, root.Path(), std::filesystem::copy_options::recursive);
  std::set<std::string> titles = DisplayNamesIn(root.Read("Windows/ovu.xml"));
  titles.insert("Scanner");  // the text of a symbol
  ASSERT_EQ("", PlantSecrets(root.Path()));

  std::mt19937 random(child.seed);
  FailingCalls calls([](std::size_t number) { return number % 10 == 0; });
  int keysLeft = kKeys;
  int starts = 0;
  int edits = 0;
  int boxes = 0;
  // Whoever presses Esc in the main menu leaves; then it is started again.
  while (keysLeft > 0) {
    ASSERT_LE(++starts, kKeys);
    Keypad keypad([&]() -> std::optional<platform::host::KeyStroke> {
      if (keysLeft == 0) return std::nullopt;
      --keysLeft;
      return KeyFor(static_cast<std::uint32_t>(random()));
    });
    keypad.answersBoxes = false;
    std::string problem;
    std::string secret;
    keypad.beforeEachKey = [&] {
      if (problem.empty()) problem = ProblemOfTheScreen(titles);
      if (secret.empty()) secret = SecretOnScreen();
      edits += WhatIsInFront() == Front::kEditDialog ? 1 : 0;
      boxes += WhatIsInFront() == Front::kBox ? 1 : 0;
    };
    simulator::DebugLog debug(true);
    PlantSecretsAgain(root.Path());
    ASSERT_EQ("", RunUtilityOn({root.Path(), "", child.widthPx, child.heightPx, &debug}, keypad, calls));
    ASSERT_EQ("", secret) << keysLeft << " keys were left, start " << starts;
    for (const WideString& line : debug.TakeLines()) ASSERT_FALSE(HasSecret(line)) << base::ToUtf8(line);
    ASSERT_EQ("", problem) << keysLeft << " keys were left, start " << starts;
    ASSERT_FALSE(keypad.IsStuck()) << keysLeft << " keys were left, start " << starts;
  }
  // The keys have led somewhere.
  EXPECT_LT(kKeys / 50, edits);
  EXPECT_LT(kKeys / 100, boxes);
  EXPECT_LT(10U, calls.Stored().size());
}

INSTANTIATE_TEST_SUITE_P(Children, RandomKeys,
                         ::testing::Values(Child{1, 240, 320}, Child{2, 240, 320}, Child{3, 240, 320},
                                           Child{4, 160, 160}, Child{5, 160, 160}, Child{6, 320, 240}),
                         [](const auto& parameter) { return "Seed" + std::to_string(parameter.param.seed); });

}  // namespace
}  // namespace tests
