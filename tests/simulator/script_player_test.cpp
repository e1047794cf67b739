#include "simulator/script_player.h"

#include <gtest/gtest.h>

namespace {

using namespace simulator;
using Step = ScriptPlayer::Step;

// A program of one button that notes what it is given.
class Program : public ScriptDriver {
 public:
  bool IsRunning() override { return running; }
  void Press(const Key& key) override { notes += "press " + std::to_string(key.virtualKey) + "\n"; }
  void Type(const Key& key) override { notes += std::string("type ") + static_cast<char>(key.character) + "\n"; }
  bool Click(int controlId) override { return controlId == 1052; }
  bool HasSettled() override { return settled; }
  ScreenPicture Screen() override { return {{{u"Main", true, {}}}, std::nullopt}; }
  std::vector<std::string> TakeEffects() override { return {"pulse A", "exit 0"}; }
  std::vector<WideString> TakeDebugLines() override { return {u"one\r\n", u"two \"quoted\"\r\nmore\r\n", u"three"}; }

  bool running = true;
  bool settled = true;
  std::string notes;
};

struct Played {
  explicit Played(const char* text)
      : player(ParseScript(text), "test.script", program, [this](const std::string& shown) { printed += shown; }) {}

  void PlayAll() {
    while (player.Next() != Step::kFinished) {
    }
  }

  Program program;
  std::string printed;
  ScriptPlayer player;
};

TEST(ScriptPlayer, EveryKeyIsOneStepAndPrintingGoesOnAtOnce) {
  Played played("key Down 1\ntype ab\npress 1052\ndump\n");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(Step::kInput, played.player.Next());
  EXPECT_EQ("press 40\npress 49\ntype a\ntype b\n", played.program.notes);
  EXPECT_EQ(Step::kRan, played.player.Next());
  EXPECT_EQ("window \"Main\"\nfocus none\n", played.printed);
  EXPECT_EQ(Step::kFinished, played.player.Next());
  EXPECT_EQ("", played.player.Failure());
}

TEST(ScriptPlayer, EffectsAndDebugLinesArePrintedOneALine) {
  Played played("effects\ndebug\n");
  played.PlayAll();
  EXPECT_EQ("pulse A\nexit 0\none\ntwo \"quoted\"\\r\\nmore\nthree\n", played.printed);
}

TEST(ScriptPlayer, ExpectLooksAtTheLastThingPrinted) {
  Played played("dump\nexpect \"Main\"\neffects\nexpect pulse\nexpect \"Main\"\ndump\n");
  played.PlayAll();
  EXPECT_EQ("test.script:5: expected \"\"Main\"\"", played.player.Failure());
  EXPECT_EQ("window \"Main\"\nfocus none\npulse A\nexit 0\n", played.printed);
}

TEST(ScriptPlayer, NothingPrintedContainsNothing) {
  Played played("expect x\n");
  played.PlayAll();
  EXPECT_EQ("test.script:1: expected \"x\"", played.player.Failure());
}

TEST(ScriptPlayer, AButtonThatIsNotThereFails) {
  Played played("press 1049\n");
  played.PlayAll();
  EXPECT_EQ("test.script:1: there is no button 1049 to click", played.player.Failure());
}

TEST(ScriptPlayer, WaitHoldsUntilTheProgramHasSettled) {
  Played played("wait\ndump\n");
  played.program.settled = false;
  EXPECT_EQ(Step::kWaits, played.player.Next());
  EXPECT_EQ(Step::kWaits, played.player.Next());
  played.program.settled = true;
  EXPECT_EQ(Step::kRan, played.player.Next());
  EXPECT_EQ(Step::kRan, played.player.Next());
  EXPECT_EQ(Step::kFinished, played.player.Next());
}

TEST(ScriptPlayer, NoCommandRunsWhileTheProgramStillWorks) {
  for (const char* const command : {"dump\n", "effects\n", "key 1\n", "type a\n", "press 1052\n"}) {
    Played played(command);
    played.program.settled = false;
    EXPECT_EQ(Step::kWaits, played.player.Next()) << command;
    EXPECT_EQ("", played.printed + played.program.notes) << command;
    played.program.settled = true;
    EXPECT_NE(Step::kWaits, played.player.Next()) << command;
    EXPECT_EQ(Step::kFinished, played.player.Next()) << command;
  }
}

TEST(ScriptPlayer, AProgramThatHasEndedTakesNoKeysButStillHasEffects) {
  Played played("effects\nkey Esc\n");
  played.program.running = false;
  played.PlayAll();
  EXPECT_EQ("pulse A\nexit 0\n", played.printed);
  EXPECT_EQ("test.script:2: the program has ended", played.player.Failure());
}

}  // namespace
