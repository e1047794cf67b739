#include "simulator/script.h"

#include "platform/messages.h"

#include <gtest/gtest.h>

namespace {

using namespace simulator;
using Kind = Command::Kind;

TEST(Script, EveryCommandIsRead) {
  const Script script = ParseScript(
      "\xEF\xBB\xBF# a comment\r\n"
      "\n"
      "  key Down 1 # ShiftTab\r\n"
      "type  192.168 \n"
      "press 1052 \n"
      "dump\n"
      "effects\n"
      "debug\n"
      "expect  \"1  Network\" \n"
      "wait");
  ASSERT_EQ(0u, script.brokenLine) << script.problem;
  ASSERT_EQ(8u, script.commands.size());
  const Command& keys = script.commands[0];
  EXPECT_EQ(Kind::kKey, keys.kind);
  EXPECT_EQ(3u, keys.line);
  EXPECT_EQ((std::vector<Key>{{platform::key::kDown}, {u'1', u'1'}, {0, u'#'}, {platform::key::kTab, u'\t', true}}),
            keys.keys);
  EXPECT_EQ(Kind::kType, script.commands[1].kind);
  EXPECT_EQ(9u, script.commands[1].keys.size());
  EXPECT_EQ((Key{u' ', u' '}), script.commands[1].keys.back());
  EXPECT_EQ(1052, script.commands[2].controlId);
  EXPECT_EQ(Kind::kDump, script.commands[3].kind);
  EXPECT_EQ(Kind::kEffects, script.commands[4].kind);
  EXPECT_EQ(Kind::kDebug, script.commands[5].kind);
  EXPECT_EQ(" \"1  Network\" ", script.commands[6].text);
  EXPECT_EQ(Kind::kWait, script.commands[7].kind);
}

TEST(Script, ABrokenLineIsReportedWithItsNumber) {
  const struct {
    const char* line;
    const char* problem;
  } cases[] = {
      {"bogus", "there is no command \"bogus\""},
      {"Key Down", "there is no command \"Key\""},
      {"key", "\"key\" needs at least one key"},
      {"type", "\"type\" needs a text"},
      {"type ", "\"type\" needs a text"},
      {"press", "\"press\" needs the number of a control"},
      {"press 12x", "\"press\" needs the number of a control"},
      {"dump all", "\"dump\" takes nothing after it"},
      {"expect", "\"expect\" needs a text"},
      {"wait 5", "\"wait\" takes nothing after it"},
  };
  for (const auto& c : cases) {
    const Script script = ParseScript(std::string("dump\n\n") + c.line + "\ndump\n");
    EXPECT_EQ(3u, script.brokenLine) << c.line;
    EXPECT_EQ(c.problem, script.problem);
    EXPECT_TRUE(script.commands.empty());
  }
  EXPECT_TRUE(
      ParseScript("key Downn").problem.starts_with("\"key\" does not know the key \"Downn\"; keys are Up Down"));
}

TEST(Keys, NamesAndCharactersArePressedAsOnTheKeypad) {
  const struct {
    const char* name;
    Key key;
  } cases[] = {
      {"Enter", {0x0D, u'\r'}}, {"Esc", {0x1B, 0x1B}}, {"Backspace", {0x08, u'\b'}}, {"F4", {0x73}},
      {"9", {u'9', u'9'}},      {"a", {u'A', u'a'}},   {"Z", {u'Z', u'Z', true}},    {".", {0, u'.'}},
      {"ü", {0, u'ü'}},         {"Home", {0x24}},      {"PageDown", {0x22}},
  };
  for (const auto& c : cases) EXPECT_EQ(c.key, KeyByName(c.name)) << c.name;
  for (const char* name : {"", "down", "F5", "12", "\U0001F600"}) EXPECT_FALSE(KeyByName(name)) << name;
}

}  // namespace
