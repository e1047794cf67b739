// Every function that takes a window answers for none, and for one that is gone, as for an empty one.
#include "platform/canvas.h"
#include "tests/platform/host_fixture.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using namespace host;

// Nothing, and a window that has been destroyed.
class GoneWindowTest : public HostTest, public ::testing::WithParamInterface<bool> {
 protected:
  WindowHandle Gone() {
    if (!GetParam()) return nullptr;
    const WindowHandle window = MakeControl(u"Static", 0);
    Destroy(window);
    return window;
  }
};

TEST_P(GoneWindowTest, AnswersNothingOfWhatTheProgramAsks) {
  const WindowHandle gone = Gone();
  EXPECT_EQ(u"", TextOf(gone));
  EXPECT_EQ(0, Send(gone, message::kUser));
  EXPECT_EQ(0, DefaultHandling(gone, {message::kGetTextLength}));
  EXPECT_FALSE(IsVisible(gone));
  EXPECT_FALSE(IsEnabled(gone));
  EXPECT_EQ((Rect{}), ClientRect(gone));
  EXPECT_EQ((Rect{}), WindowRect(gone));
  EXPECT_EQ((Rect{}), RectInParent(gone));
  EXPECT_EQ(nullptr, ParentOf(gone));
  EXPECT_EQ(nullptr, ControlOf(gone, 7));
  EXPECT_EQ(0, IdOf(gone));
  EXPECT_EQ(0U, StyleOf(gone));
  EXPECT_EQ(0, MeasureText(gone, u"text"));
  EXPECT_EQ(0, MeasureText(gone, u"text", {u"Tahoma", 13, 400}));
  EXPECT_EQ(0, LineHeight(gone, {u"Tahoma", 13, 400}));
}

TEST_P(GoneWindowTest, AnswersNothingOfWhatDisplaysAsk) {
  const WindowHandle gone = Gone();
  EXPECT_FALSE(IsWindow(gone));
  EXPECT_EQ(WindowKind::kNone, KindOf(gone));
  EXPECT_EQ(u"", ClassOf(gone));
  EXPECT_TRUE(ChildrenOf(gone).empty());
  EXPECT_EQ(nullptr, OwnerOf(gone));
  EXPECT_EQ(0U, ExtendedStyleOf(gone));
  EXPECT_FALSE(HasVisibleStyle(gone));
  EXPECT_EQ((Rect{}), ClientRectOnScreen(gone));
  EXPECT_FALSE(ListStateOf(gone));
  EXPECT_FALSE(EditStateOf(gone));
  EXPECT_FALSE(PickerStateOf(gone));
  EXPECT_FALSE(ButtonStateOf(gone));
  EXPECT_FALSE(ComboLinesOf(gone));
  EXPECT_FALSE(ProgressStateOf(gone));
  EXPECT_TRUE(DrawingsOf(gone).empty());
  EXPECT_FALSE(ControlColorsOf(gone));
  EXPECT_EQ(FontOf(nullptr).linePx, FontOf(gone).linePx);
}

TEST_P(GoneWindowTest, TakesNoChange) {
  const WindowHandle gone = Gone();
  const WindowHandle other = MakeControl(u"Edit", 0);
  display.Forget();
  PauseMs(0);
  for (const auto& change : std::vector<std::function<void()>>{
           [&] { SetText(gone, u"text"); }, [&] { Show(gone); }, [&] { Hide(gone); }, [&] { Enable(gone, true); },
           [&] { Enable(gone, false); },
           [&] {
             Move(gone, {1, 2, 3, 4});
           },
           [&] { Invalidate(gone); }, [&] { Update(gone); }, [&] { Focus(gone); }, [&] { Activate(gone); },
           [&] { BringToForeground(gone); }, [&] { SetStyle(gone, style::kVisible); },
           [&] {
             SetFont(gone, {u"Tahoma", 13, 400});
           },
           [&] { EndDialog(gone, 1); }, [&] { Destroy(gone); },
           [&] {
             BeginPaint(gone)->Fill({0, 0, 1, 1}, kBlack);
           }}) {
    change();
    EXPECT_EQ(other, FocusedWindow());
    EXPECT_EQ(frameWindow, ActiveWindow());
    EXPECT_TRUE(IsIdle());
  }
}

TEST_P(GoneWindowTest, ASubclassOfItDoesNothing) {
  MessageTable handler;
  int asked = 0;
  handler.On(message::kUser, [&](WindowHandle, const Message&) { return ++asked; });
  const WindowHandle gone = Gone();
  Subclass subclass(gone, handler);
  EXPECT_EQ(0, Send(gone, message::kUser));
  EXPECT_EQ(0, subclass.CallPrevious({message::kUser}));
  EXPECT_EQ(0, asked);
}

TEST_P(GoneWindowTest, NothingIsMadeInIt) {
  WindowSpec child;
  child.className = u"Static";
  child.style = style::kChild;
  child.parent = Gone();
  EXPECT_EQ(nullptr, MakeWindow(child));
}

TEST_P(GoneWindowTest, WhatIsPostedToItIsLost) {
  Post(Gone(), message::kUser);
  MessageTable handler;
  handler.On(message::kInitDialog, [](WindowHandle, const Message&) { return 1; });
  RunDialog({}, nullptr, handler);
  EXPECT_TRUE(display.waits > 0);
  EXPECT_FALSE(AreMessagesWaiting());
}

INSTANTIATE_TEST_SUITE_P(Windows, GoneWindowTest, ::testing::Bool(),
                         [](const auto& parameter) { return parameter.param ? "Destroyed" : "Null"; });

// A control without a window answers like an empty one.
TEST_F(HostTest, ControlsWithoutAWindowAreEmpty) {
  EXPECT_EQ(-1, ComboBox().Selected());
  EXPECT_EQ(u"", ComboBox().Line(0));
  EXPECT_FALSE(Button().IsChecked());
  EXPECT_EQ((EditField::Selection{}), EditField().GetSelection());
  EXPECT_EQ(0, EditField().LineCount());
  EXPECT_EQ((SystemTime{}), DateTimePicker().Time());
  EXPECT_FALSE(DateTimePicker().SetTime({2024, 3, 5, 15, 0, 0, 0, 0}));
  ListBox().ReplaceLine(0, u"line");
  EXPECT_EQ(0, ListBox().Count());
}

}  // namespace
}  // namespace platform
