#include "simulator/curses_keys.h"

#include "platform/messages.h"

#include <curses.h>
#include <gtest/gtest.h>

namespace {

namespace key = platform::key;

TEST(CursesKeys, KeysOfAPcAreThoseOfTheKeypad) {
  const struct {
    unsigned code;
    bool isFunctionKey;
    std::uint16_t virtualKey;
    char16_t character;
    bool shift;
  } cases[] = {
      {KEY_UP, true, key::kUp, 0, false},
      {KEY_HOME, true, key::kHome, 0, false},
      {KEY_END, true, key::kEnd, 0, false},
      {KEY_IC, true, key::kInsert, 0, false},
      {KEY_DC, true, key::kDelete, 0, false},
      {KEY_NPAGE, true, key::kPageDown, 0, false},
      {KEY_BACKSPACE, true, key::kBackspace, u'\b', false},
      {KEY_BTAB, true, key::kTab, u'\t', true},
      {KEY_F(1), true, key::kF1, 0, false},
      {KEY_F(4), true, key::kF4, 0, false},
      {0x1B, false, key::kEscape, 0x1B, false},
      {'\r', false, key::kEnter, u'\r', false},
      {'\n', false, key::kEnter, u'\r', false},
      {0x7F, false, key::kBackspace, u'\b', false},
      {'7', false, u'7', u'7', false},
      {'a', false, u'A', u'a', false},
      {'A', false, u'A', u'A', true},
      {'.', false, 0, u'.', false},
      {0xFC, false, 0, u'ü', false},
  };
  for (const auto& c : cases) {
    const auto stroke = simulator::KeyStrokeOf(c.code, c.isFunctionKey);
    ASSERT_TRUE(stroke) << c.code;
    EXPECT_EQ(c.virtualKey, stroke->virtualKey) << c.code;
    EXPECT_EQ(c.character, stroke->character) << c.code;
    EXPECT_EQ(c.shift, stroke->shift) << c.code;
  }
}

TEST(CursesKeys, KeysThatTheKeypadLacksDoNothing) {
  EXPECT_FALSE(simulator::KeyStrokeOf(KEY_F(5), true));
  EXPECT_FALSE(simulator::KeyStrokeOf(KEY_RESIZE, true));
  EXPECT_FALSE(simulator::KeyStrokeOf(0, false));
  EXPECT_FALSE(simulator::KeyStrokeOf(0x1F600, false));
}

}  // namespace
