#include "tests/platform/host_fixture.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using host::ListStateOf;

class ListBoxTest : public HostTest {
 protected:
  // Five lines of 16 pixels fit.
  ListBox MakeList(int lines, style::Bits style = style::kListNotify) {
    const ListBox list(MakeControl(u"LISTBOX", style, 100, 80));
    for (int i = 0; i < lines; ++i) list.Add(std::u16string(1, static_cast<char16_t>(u'a' + i)) + u" line");
    return list;
  }
};

TEST_F(ListBoxTest, KeysMoveTheSelectionAndScrollAsLittleAsNeeded) {
  const ListBox list = MakeList(12);
  const struct {
    std::uint16_t key;
    int selected;
    int top;
  } cases[] = {
      {key::kDown, 0, 0},  // the first key selects where the caret stands
      {key::kDown, 1, 0},  {key::kRight, 2, 0},  {key::kPageDown, 6, 2}, {key::kEnd, 11, 7},
      {key::kDown, 11, 7}, {key::kPageUp, 7, 7}, {key::kUp, 6, 6},       {key::kLeft, 5, 5},
      {key::kHome, 0, 0},  {key::kUp, 0, 0},     {key::kPageDown, 4, 0},
  };
  for (const auto& c : cases) {
    Press(list.Handle(), c.key);
    EXPECT_EQ(c.selected, list.Selected()) << "key " << c.key;
    EXPECT_EQ(c.top, list.Top()) << "key " << c.key;
  }
  EXPECT_EQ(std::size(cases), notifications.size());
  EXPECT_EQ(notification::kListSelectionChange, notifications.front());
}

TEST_F(ListBoxTest, WithoutTheNotifyStyleNothingIsReported) {
  const ListBox list = MakeList(3, 0);
  Press(list.Handle(), key::kDown);
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ListBoxTest, ACharacterSelectsTheNextLineThatBeginsWithItInEitherCase) {
  const ListBox list(MakeControl(u"listbox", 0, 100, 80));
  for (const char16_t* line : {u"Alpha", u"beta", u"another", u""}) list.Add(line);
  list.Select(0);
  Type(list.Handle(), u"A");
  EXPECT_EQ(2, list.Selected());
  Type(list.Handle(), u"a");
  EXPECT_EQ(0, list.Selected());
  Type(list.Handle(), u"B");
  EXPECT_EQ(1, list.Selected());
  Type(list.Handle(), u"x");
  EXPECT_EQ(1, list.Selected());
}

TEST_F(ListBoxTest, TheTopLineNeverLeavesAnEmptyPlaceBelowTheLastLine) {
  const ListBox list = MakeList(12);
  list.SetTop(9);
  EXPECT_EQ(7, list.Top());
  list.SetTop(3);
  EXPECT_EQ(3, list.Top());
  list.SetTop(50);
  EXPECT_EQ(3, list.Top());
}

TEST_F(ListBoxTest, SelectingScrollsTheLineIntoView) {
  const ListBox list = MakeList(12);
  list.Select(8);
  EXPECT_EQ(4, list.Top());
  list.Select(2);
  EXPECT_EQ(2, list.Top());
  list.Select(50);  // no such line: nothing changes
  EXPECT_EQ(2, list.Selected());
  list.Select(-1);
  EXPECT_EQ(-1, list.Selected());
  Press(list.Handle(), key::kDown);  // the caret has stayed
  EXPECT_EQ(2, list.Selected());
}

TEST_F(ListBoxTest, ItsParentIsAskedForItsColours) {
  const ListBox list = MakeList(1);
  MessageTable parent;
  parent.On(message::kControlColorListBox,
            [](WindowHandle, const Message& message) { return AnswerControlColors(message, kWhite, kBlack); });
  const Subclass subclass(frameWindow, parent);
  Invalidate(list.Handle());
  Update(list.Handle());
  EXPECT_EQ((host::ControlColors{kWhite, kBlack}), host::ControlColorsOf(list.Handle()));
}

TEST_F(ListBoxTest, ItemDataStaysWithItsLine) {
  const ListBox list = MakeList(2);
  int datum = 0;
  int first = 0;
  list.SetData(1, &datum);
  list.Insert(0, u"first");
  EXPECT_EQ(&datum, list.Data<int>(2));
  EXPECT_EQ(nullptr, list.Data<int>(0));
  list.SetData(0, &first);
  EXPECT_EQ(&first, list.Data<int>(0));
  EXPECT_EQ(nullptr, list.Data<int>(99));
  EXPECT_EQ(nullptr, list.Data<int>(-1));
  list.ReplaceLine(2, u"changed");
  EXPECT_EQ(&datum, list.Data<int>(2));
  EXPECT_EQ(u"changed", list.Line(2));
}

TEST_F(ListBoxTest, ReplacingALineKeepsSelectionAndTop) {
  const ListBox list = MakeList(12);
  list.Select(8);
  list.SetTop(5);
  list.ReplaceLine(8, u"new");
  EXPECT_EQ(8, list.Selected());
  EXPECT_EQ(5, list.Top());
  list.ReplaceLine(0, u"first");
  EXPECT_EQ(8, list.Selected());
  EXPECT_EQ(5, list.Top());
}

TEST_F(ListBoxTest, TheSelectionFollowsItsLine) {
  const ListBox list = MakeList(4);
  list.Select(2);
  list.Insert(0, u"first");
  EXPECT_EQ(3, list.Selected());
  list.Remove(0);
  EXPECT_EQ(2, list.Selected());
  list.Remove(2);
  EXPECT_EQ(-1, list.Selected());
  list.Clear();
  EXPECT_EQ(0, list.Count());
  EXPECT_EQ(u"", list.Line(0));
}

TEST_F(ListBoxTest, TheHeightIsCutToWholeLinesUnlessTheStyleSaysOtherwise) {
  EXPECT_EQ(80, ClientRect(MakeControl(u"ListBox", 0, 100, 90)).Height());
  EXPECT_EQ(90, ClientRect(MakeControl(u"ListBox", style::kListNoIntegralHeight, 100, 90)).Height());
  EXPECT_EQ(10, ClientRect(MakeControl(u"ListBox", 0, 100, 10)).Height());
}

TEST_F(ListBoxTest, TheItemHeightIsThatOfTheFontOrTheOneThatWasSet) {
  const ListBox list = MakeList(12);
  EXPECT_EQ(16, list.ItemHeight());
  SetFont(list.Handle(), {u"Courier", 18, 400});
  EXPECT_EQ(13, list.ItemHeight());
  EXPECT_EQ(6, ListStateOf(list.Handle())->visibleLines);
  list.SetItemHeight(40);
  EXPECT_EQ(40, list.ItemHeight());
  EXPECT_EQ(2, ListStateOf(list.Handle())->visibleLines);
}

TEST_F(ListBoxTest, AClickSelectsTheLineUnderItAndTellsWhenReleased) {
  const ListBox list = MakeList(12);
  list.SetTop(2);
  Send(list.Handle(), message::kLeftButtonDown, 0, 20 << 16);
  EXPECT_EQ(3, list.Selected());
  EXPECT_TRUE(notifications.empty());
  Send(list.Handle(), message::kLeftButtonUp, 0, 20 << 16);
  EXPECT_EQ(std::vector{notification::kListSelectionChange}, notifications);
}

TEST_F(ListBoxTest, AListWithoutAWindowIsEmpty) {
  const ListBox none;
  EXPECT_EQ(-1, none.Selected());
  EXPECT_EQ(0, none.Count());
  EXPECT_EQ(u"", none.Line(0));
  EXPECT_EQ(nullptr, none.Data<int>(0));
}

TEST_F(ListBoxTest, WhatIsBeyondTheLastLineIsRefused) {
  const WindowHandle list = MakeList(2).Handle();
  char16_t buffer[8] = u"before";
  const struct {
    std::uint32_t id;
    WParam index;
    LParam data;
  } cases[] = {
      {message::kListGetText, 2, ToLParam(buffer)},
      {message::kListGetTextLength, 2, 0},
      {message::kListGetItemData, 2, 0},
      {message::kListSetItemData, 2, 5},
      {message::kListSetTopIndex, 2, 0},
      {message::kListDeleteString, 2, 0},
      {message::kListInsertString, 3, ToLParam(u"line")},
      {message::kListSetCurrentSelection, 2, 0},
      {message::kListSetCurrentSelection, static_cast<WParam>(-2), 0},
      {message::kListSetItemHeight, 0, 0},
      {message::kListSetItemHeight, 0, 256},
  };
  const int height = ListBox(list).ItemHeight();
  for (const auto& c : cases) EXPECT_EQ(-1, Send(list, c.id, c.index, c.data)) << c.id;
  EXPECT_EQ(u"before", WideString(buffer));
  EXPECT_EQ((std::vector<WideString>{u"a line", u"b line"}), ListStateOf(list)->lines);
  EXPECT_EQ(height, ListBox(list).ItemHeight());
  EXPECT_EQ(-1, ListBox(list).Selected());
}

TEST_F(ListBoxTest, AnInsertionAtMinusOneComesLast) {
  const ListBox list = MakeList(2);
  EXPECT_EQ(2, Send(list.Handle(), message::kListInsertString, static_cast<WParam>(-1), ToLParam(u"last")));
  EXPECT_EQ(u"last", list.Line(2));
}

TEST_F(ListBoxTest, WithoutItsLastLineItIsAsNew) {
  const ListBox list = MakeList(1);
  list.Select(0);
  list.Remove(0);
  EXPECT_EQ(0, list.Count());
  EXPECT_EQ(-1, list.Selected());
  list.Add(u"new");
  EXPECT_EQ(-1, list.Selected());
}

TEST_F(ListBoxTest, ADoubleClickTellsAtOnceAndAClickBesideTheLinesTellsNothing) {
  const ListBox list = MakeList(3);
  const auto at = [](int y) { return static_cast<LParam>(y) << 16; };
  Send(list.Handle(), message::kLeftButtonDoubleClick, 0, at(20));
  EXPECT_EQ(1, list.Selected());
  EXPECT_EQ(notification::kListDoubleClick, notifications.back());
  notifications.clear();
  Send(list.Handle(), message::kLeftButtonUp);  // the double click's
  for (const int outside : {60, -3}) {
    Send(list.Handle(), message::kLeftButtonDown, 0, at(outside & 0xFFFF));
    Send(list.Handle(), message::kLeftButtonUp);
    EXPECT_EQ(1, list.Selected()) << outside;
  }
  EXPECT_TRUE(notifications.empty());
}

}  // namespace
}  // namespace platform
