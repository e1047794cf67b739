#include "tests/platform/host_fixture.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using host::EditStateOf;
using Selection = EditField::Selection;

constexpr style::Bits kLine = style::kEditAutoHorizontalScroll;
constexpr style::Bits kPage = style::kEditMultiLine | style::kEditAutoVerticalScroll;

class EditFieldTest : public HostTest {
 protected:
  EditField MakeEdit(style::Bits style, int width = 100, int height = 20) {
    return EditField(MakeControl(u"EDIT", style, width, height));
  }
};

TEST_F(EditFieldTest, TypingReplacesTheSelection) {
  const EditField edit = MakeEdit(kLine);
  Type(edit.Handle(), u"hello");
  EXPECT_EQ(u"hello", TextOf(edit.Handle()));
  edit.Select(1, 4);
  Type(edit.Handle(), u"X");
  EXPECT_EQ(u"hXo", TextOf(edit.Handle()));
  EXPECT_EQ((Selection{2, 2}), edit.GetSelection());
}

TEST_F(EditFieldTest, EditingKeys) {
  const struct {
    int start, end;
    std::uint16_t key;
    const char16_t* text;
    Selection selection;
  } cases[] = {
      {2, 2, key::kLeft, u"abcd", {1, 1}},  {2, 2, key::kRight, u"abcd", {3, 3}},  {0, 0, key::kLeft, u"abcd", {0, 0}},
      {4, 4, key::kRight, u"abcd", {4, 4}}, {2, 2, key::kHome, u"abcd", {0, 0}},   {2, 2, key::kEnd, u"abcd", {4, 4}},
      {2, 2, key::kDelete, u"abd", {2, 2}}, {4, 4, key::kDelete, u"abcd", {4, 4}}, {1, 3, key::kDelete, u"ad", {1, 1}},
      {1, 3, key::kLeft, u"abcd", {2, 2}},  {1, 3, key::kRight, u"abcd", {4, 4}},  {2, 2, key::kUp, u"abcd", {1, 1}},
      {2, 2, key::kDown, u"abcd", {3, 3}},
  };
  const EditField edit = MakeEdit(kLine);
  for (const auto& c : cases) {
    SetText(edit.Handle(), u"abcd");
    edit.Select(c.start, c.end);
    Press(edit.Handle(), c.key);
    EXPECT_EQ(c.text, TextOf(edit.Handle())) << c.key;
    EXPECT_EQ(c.selection, edit.GetSelection()) << c.key << " from " << c.start << "-" << c.end;
  }
}

TEST_F(EditFieldTest, BackspaceTakesTheCharacterBeforeTheCaretOrTheSelection) {
  const EditField edit = MakeEdit(kLine);
  SetText(edit.Handle(), u"abcd");
  edit.Select(2, 2);
  Type(edit.Handle(), u"\b");
  EXPECT_EQ(u"acd", TextOf(edit.Handle()));
  edit.Select(0, -1);
  Type(edit.Handle(), u"\b");
  EXPECT_EQ(u"", TextOf(edit.Handle()));
  notifications.clear();
  Type(edit.Handle(), u"\b");
  EXPECT_TRUE(notifications.empty());
}

TEST_F(EditFieldTest, ShiftStretchesTheSelection) {
  const EditField edit = MakeEdit(kLine);
  SetText(edit.Handle(), u"abcd");
  edit.Select(2, 2);
  MessageTable handler;
  Selection atEnd;
  handler.On(message::kInitDialog, [](WindowHandle, const Message&) { return 0; });
  display.Then([&] { Focus(edit.Handle()); })
      .Key(key::kLeft, true)
      .Key(key::kLeft, true)
      .Then([&] {
        EXPECT_EQ((Selection{0, 2}), edit.GetSelection());
      })
      .Key(key::kEnd, true)
      .Then([&] { atEnd = edit.GetSelection(); });
  RunDialog({}, nullptr, handler);
  EXPECT_EQ((Selection{2, 4}), atEnd);
}

TEST_F(EditFieldTest, SelectionsAreCutToTheText) {
  const EditField edit = MakeEdit(kLine);
  SetText(edit.Handle(), u"abcd");
  const struct {
    int start, end;
    Selection selection;
  } cases[] = {{0, -1, {0, 4}}, {1, 99, {1, 4}}, {3, 1, {1, 3}}, {99, 99, {4, 4}}};
  for (const auto& c : cases) {
    edit.Select(c.start, c.end);
    EXPECT_EQ(c.selection, edit.GetSelection()) << c.start << ", " << c.end;
  }
  edit.Select(1, 3);
  edit.Select(-1, 0);
  EXPECT_EQ((Selection{3, 3}), edit.GetSelection());
  edit.Select(3, 1);  // the caret stands at the end that is named last
  edit.Select(-1, 0);
  EXPECT_EQ((Selection{1, 1}), edit.GetSelection());
}

TEST_F(EditFieldTest, TheLimitHoldsForTypingButNotForTheProgram) {
  const EditField edit = MakeEdit(kLine);
  edit.LimitText(3);
  Type(edit.Handle(), u"abcde");
  EXPECT_EQ(u"abc", TextOf(edit.Handle()));
  SetText(edit.Handle(), u"abcdef");
  EXPECT_EQ(u"abcdef", TextOf(edit.Handle()));
  edit.LimitText(0);
  edit.Select(6, 6);
  Type(edit.Handle(), u"g");
  EXPECT_EQ(u"abcdefg", TextOf(edit.Handle()));
}

TEST_F(EditFieldTest, AReplacementIsReportedEvenWhenTheLimitLeavesNothingOfIt) {
  constexpr int kTextTooLong = 0x0501;
  const EditField edit = MakeEdit(kLine);
  edit.LimitText(2);
  Type(edit.Handle(), u"ab");
  notifications.clear();
  Type(edit.Handle(), u"c");
  EXPECT_EQ((std::vector{kTextTooLong, notification::kEditUpdate, notification::kEditChange}), notifications);
  notifications.clear();
  edit.ReplaceSelection(u"");
  EXPECT_TRUE(notifications.empty());
}

TEST_F(EditFieldTest, AFieldThatDoesNotScrollTakesWhatItCanShow) {
  const EditField edit = MakeEdit(0, 20, 20);  // two digits of eight pixels
  Type(edit.Handle(), u"12345");
  EXPECT_EQ(u"12", TextOf(edit.Handle()));
}

TEST_F(EditFieldTest, DigitsOnlyDropsOtherCharactersThatAreTyped) {
  const EditField edit = MakeEdit(kLine | style::kEditDigitsOnly);
  Type(edit.Handle(), u"1a-2 3");
  EXPECT_EQ(u"123", TextOf(edit.Handle()));
  Type(edit.Handle(), u"\b");
  EXPECT_EQ(u"12", TextOf(edit.Handle()));
}

TEST_F(EditFieldTest, ReadOnlyKeepsTheTextButMovesTheCaret) {
  const EditField edit = MakeEdit(kLine | style::kEditReadOnly);
  SetText(edit.Handle(), u"abc");
  Type(edit.Handle(), u"x\b");
  Press(edit.Handle(), key::kDelete);
  Press(edit.Handle(), key::kEnd);
  EXPECT_EQ(u"abc", TextOf(edit.Handle()));
  EXPECT_EQ((Selection{3, 3}), edit.GetSelection());
  edit.SetReadOnly(false);
  Type(edit.Handle(), u"d");
  EXPECT_EQ(u"abcd", TextOf(edit.Handle()));
  EXPECT_FALSE(EditStateOf(edit.Handle())->readOnly);
}

TEST_F(EditFieldTest, ChangesAreReportedAndATextThatIsSetOnlyByOneLine) {
  const std::vector<int> change{notification::kEditUpdate, notification::kEditChange};
  const EditField line = MakeEdit(kLine);
  Type(line.Handle(), u"a");
  EXPECT_EQ(change, notifications);
  notifications.clear();
  SetText(line.Handle(), u"b");
  EXPECT_EQ(change, notifications);

  const EditField page = MakeEdit(kPage);
  SetText(page.Handle(), u"b");
  EXPECT_TRUE(notifications.empty());
  page.ReplaceSelection(u"c");
  EXPECT_EQ(change, notifications);
}

TEST_F(EditFieldTest, FocusIsReported) {
  const EditField edit = MakeEdit(kLine);
  Focus(frameWindow);
  Focus(edit.Handle());
  EXPECT_EQ((std::vector{notification::kEditKillFocus, notification::kEditSetFocus}), notifications);
}

TEST_F(EditFieldTest, PasswordsAreKeptAndHidden) {
  const EditField edit = MakeEdit(kLine | style::kEditPassword);
  Type(edit.Handle(), u"secret");
  EXPECT_EQ(u"secret", TextOf(edit.Handle()));
  EXPECT_EQ(u'*', EditStateOf(edit.Handle())->passwordChar);
}

TEST_F(EditFieldTest, LinesEndAtLineEndsAndWrapAtBlanks) {
  const EditField edit = MakeEdit(kPage, 60, 64);
  SetText(edit.Handle(), u"one\r\n\r\nfour five six\nseven");
  const std::vector<std::u16string> expected{u"one", u"", u"four five ", u"six", u"seven"};
  EXPECT_EQ(expected, EditStateOf(edit.Handle())->lines);
  EXPECT_EQ(5, edit.LineCount());
}

TEST_F(EditFieldTest, APageScrollsNoFurtherThanItsLastLine) {
  const EditField edit = MakeEdit(kPage, 200, 64);  // four lines
  SetText(edit.Handle(), u"1\r\n2\r\n3\r\n4\r\n5\r\n6");
  edit.ScrollLines(1);
  EXPECT_EQ(1, edit.FirstVisibleLine());
  edit.ScrollLines(50);
  EXPECT_EQ(2, edit.FirstVisibleLine());
  edit.ScrollLines(-50);
  EXPECT_EQ(0, edit.FirstVisibleLine());
}

TEST_F(EditFieldTest, TheCaretMovesThroughLinesAndScrolls) {
  const EditField edit = MakeEdit(kPage, 200, 32);  // two lines
  SetText(edit.Handle(), u"abc\r\nd\r\nefg");
  edit.Select(2, 2);
  const struct {
    std::uint16_t key;
    int caret;
    int firstLine;
  } cases[] = {
      {key::kDown, 6, 0}, {key::kDown, 9, 1},  {key::kEnd, 11, 1},   {key::kHome, 8, 1},
      {key::kLeft, 6, 1}, {key::kRight, 8, 1}, {key::kPageUp, 0, 0}, {key::kPageDown, 8, 1},
  };
  for (const auto& c : cases) {
    Press(edit.Handle(), c.key);
    EXPECT_EQ(c.caret, edit.GetSelection().start) << c.key;
    EXPECT_EQ(c.firstLine, edit.FirstVisibleLine()) << c.key;
  }
}

TEST_F(EditFieldTest, DeleteWithShiftTakesTheCharacterBeforeAndWithControlTheRestOfTheLine) {
  const EditField edit = MakeEdit(kPage, 100, 60);
  MessageTable handler;
  handler.On(message::kInitDialog, [](WindowHandle, const Message&) { return 0; });
  const auto begin = [&] {
    SetText(edit.Handle(), u"abcd\r\nef");
    Focus(edit.Handle());
    edit.Select(2, 2);
  };
  display.Then(begin)
      .Press({.virtualKey = key::kDelete, .shift = true})
      .Then([&] {
        EXPECT_EQ(u"acd\r\nef", TextOf(edit.Handle()));
        begin();
      })
      .Press({.virtualKey = key::kDelete, .control = true})
      .Then([&] { EXPECT_EQ(u"ab\r\nef", TextOf(edit.Handle())); })
      .Press({.virtualKey = key::kEnd, .control = true})
      .Then([&] {
        EXPECT_EQ((Selection{6, 6}), edit.GetSelection());
      });
  RunDialog({}, nullptr, handler);
  EXPECT_EQ(u"ab\r\nef", TextOf(edit.Handle()));
}

TEST_F(EditFieldTest, TellsItsLimitAndItsPasswordCharacter) {
  constexpr std::uint32_t kGetPasswordChar = 0x00D2;
  constexpr std::uint32_t kGetLimit = 0x00D5;
  const WindowHandle edit = MakeEdit(kLine).Handle();
  EXPECT_EQ(30000, Send(edit, kGetLimit));
  EditField(edit).LimitText(4);
  EXPECT_EQ(4, Send(edit, kGetLimit));
  for (const WParam none : {WParam{0}, WParam{0x7FFFFFFF}}) {
    Send(edit, message::kEditLimitText, none);
    EXPECT_EQ(0x7FFFFFFE, Send(edit, kGetLimit));
  }
  EXPECT_EQ(0, Send(edit, kGetPasswordChar));
  Send(edit, message::kEditSetPasswordChar, u'#');
  EXPECT_EQ(u'#', Send(edit, kGetPasswordChar));
  EXPECT_EQ(u'#', EditStateOf(edit)->passwordChar);
}

TEST_F(EditFieldTest, APasswordTakesWhatItCanShowAsStars) {
  const WindowHandle edit = MakeEdit(style::kEditPassword, 12).Handle();
  Type(edit, u"..........");  // narrow, but each is shown as a star
  const std::size_t taken = TextOf(edit).size();
  EXPECT_LT(0U, taken);
  EXPECT_GT(10U, taken);
}

TEST_F(EditFieldTest, TheProgramClearsTheSelectionAndNothingIsPasted) {
  constexpr std::uint32_t kClear = 0x0303;
  const EditField edit = MakeEdit(kLine);
  SetText(edit.Handle(), u"abcd");
  Send(edit.Handle(), kClear);
  EXPECT_EQ(u"abcd", TextOf(edit.Handle()));
  edit.Select(1, 3);
  Send(edit.Handle(), message::kPaste);
  EXPECT_EQ(u"abcd", TextOf(edit.Handle()));
  Send(edit.Handle(), kClear);
  EXPECT_EQ(u"ad", TextOf(edit.Handle()));
}

TEST_F(EditFieldTest, WhatCanBeReadOnlyCanBeEditedAgain) {
  const EditField edit = MakeEdit(kLine);
  edit.SetReadOnly(true);
  EXPECT_TRUE(EditStateOf(edit.Handle())->readOnly);
  Type(edit.Handle(), u"a\b");
  Press(edit.Handle(), key::kDelete);
  EXPECT_EQ(u"", TextOf(edit.Handle()));
  edit.SetReadOnly(false);
  Type(edit.Handle(), u"a");
  EXPECT_EQ(u"a", TextOf(edit.Handle()));
}

TEST_F(EditFieldTest, OnlyPagesScroll) {
  const EditField line = MakeEdit(kLine);
  SetText(line.Handle(), u"text");
  line.ScrollLines(3);
  line.ScrollPage(true);
  EXPECT_EQ(0, line.FirstVisibleLine());
  const EditField page = MakeEdit(kPage, 100, 2 * 16 + 2);
  SetText(page.Handle(), u"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7");
  const int lines = static_cast<int>(page.LineCount());
  EXPECT_EQ(7, lines);
  page.ScrollPage(true);
  const int down = page.FirstVisibleLine();
  EXPECT_LT(0, down);
  page.ScrollPage(true);
  EXPECT_EQ(2 * down, page.FirstVisibleLine());
  page.ScrollPage(false);
  EXPECT_EQ(down, page.FirstVisibleLine());
  Send(page.Handle(), message::kEditScroll, 0);  // one line up: not of the terminal's
  EXPECT_EQ(down, page.FirstVisibleLine());
  EXPECT_EQ((Selection{0, 0}), page.GetSelection());
}

TEST_F(EditFieldTest, LineEndsAndTabsAreTypedIntoPagesOnly) {
  const EditField page = MakeEdit(kPage, 100, 60);
  Type(page.Handle(), u"a\rb\nc\td");
  EXPECT_EQ(u"a\r\nb\r\nc\td", TextOf(page.Handle()));
  page.SetReadOnly(true);
  Type(page.Handle(), u"\r\n\t");
  EXPECT_EQ(u"a\r\nb\r\nc\td", TextOf(page.Handle()));
  const EditField line = MakeEdit(kLine);
  Type(line.Handle(), u"a\rb\nc\td\x7F\x01");
  EXPECT_EQ(u"abcd", TextOf(line.Handle()));
}

TEST_F(EditFieldTest, AClickTakesTheFocus) {
  const WindowHandle edit = MakeEdit(kLine).Handle();
  Focus(frameWindow);
  Send(edit, message::kLeftButtonDown);
  EXPECT_EQ(edit, FocusedWindow());
}

}  // namespace
}  // namespace platform
