// Leaving the program from the main menu.
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tests {
namespace {

// A value that the program holds itself is edited, and then the program is left.
struct Visit {
  std::vector<std::string> boxes;
  std::vector<std::string> calls;
};
Visit EditAndLeave(std::size_t failingFrom) {
  const TemporaryRoot root;
  root.Write("Windows/ovu.xml",
             "<GROUP name='R'><DisplayName>Main</DisplayName><_OnExit>CheckWEPKey</_OnExit><GROUP name='a'>"
             "<DisplayName>Local</DisplayName><OID>_Local</OID><Type>Integer</Type></GROUP></GROUP>");
  Keypad keypad;
  keypad.Press("17{Enter}");
  FailingCalls calls([failingFrom](std::size_t number) { return number >= failingFrom; });
  EXPECT_EQ("", RunUtilityOn({root.Path()}, keypad, calls));
  EXPECT_FALSE(keypad.IsStuck());
  return {keypad.Boxes(), calls.Calls()};
}

TEST(Leaving, RunsTheMainMenusExitHandlersAndAsksAboutWhatIsNotSaved) {
  const std::string handled = "Alert: Valid network key must be entered";
  const std::string asked = ": [ Discard changes] [ Save changes] [ Do not exit]";

  const Visit saved = EditAndLeave(10'000);
  EXPECT_EQ((std::vector<std::string>{handled}), saved.boxes);

  const auto connect = std::find(saved.calls.begin(), saved.calls.end(), "connect");
  ASSERT_NE(saved.calls.end(), connect);
  const Visit unsaved = EditAndLeave(static_cast<std::size_t>(connect - saved.calls.begin()) + 1);
  ASSERT_LE(2u, unsaved.boxes.size());
  EXPECT_EQ(handled, *(unsaved.boxes.end() - 2));
  EXPECT_EQ(asked, unsaved.boxes.back());
}

}  // namespace
}  // namespace tests
