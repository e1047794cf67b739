// Handlers that change the desktop while the platform is changing it: what they did last holds.
#include "platform/canvas.h"
#include "tests/platform/host_fixture.h"

#include <gtest/gtest.h>

#include <array>

namespace platform {
namespace {

using namespace host;

class InterferenceTest : public HostTest {
 protected:
  // Another child of the frame, beside the control that MakeControl() made.
  WindowHandle Beside(const char16_t* className = u"Edit", style::Bits bits = style::kVisible) {
    WindowSpec spec;
    spec.className = className;
    spec.style = style::kChild | bits;
    spec.parent = frameWindow;
    spec.id = 8;
    return MakeWindow(spec);
  }

  WindowHandle TopLevel(style::Bits bits = style::kVisible) {
    WindowSpec spec;
    spec.className = u"Static";
    spec.style = style::kPopup | bits;
    return MakeWindow(spec);
  }

  // Does something once, when a window gets a message.
  void When(WindowHandle window, std::uint32_t id, std::function<void()> action) {
    tables_.push_back(std::make_unique<MessageTable>());
    tables_.back()->On(id, [action, done = false](WindowHandle, const Message&) mutable -> std::optional<LResult> {
      if (!std::exchange(done, true)) action();
      return std::nullopt;
    });
    subclasses_.push_back(std::make_unique<Subclass>(window, *tables_.back()));
  }

 private:
  std::vector<std::unique_ptr<MessageTable>> tables_;
  std::vector<std::unique_ptr<Subclass>> subclasses_;
};

TEST_F(InterferenceTest, WhoLosesTheFocusMayGiveItToAnother) {
  const WindowHandle first = MakeControl(u"Edit", 0);
  const WindowHandle second = Beside();
  const WindowHandle third = Beside();
  When(first, message::kKillFocus, [&] { Focus(third); });
  Focus(second);
  EXPECT_EQ(third, FocusedWindow());
}

TEST_F(InterferenceTest, WhoLosesTheFocusMayDestroyTheOneThatGetsIt) {
  const WindowHandle first = MakeControl(u"Edit", 0);
  const WindowHandle second = Beside();
  When(first, message::kKillFocus, [&] { Destroy(second); });
  Focus(second);
  EXPECT_FALSE(IsWindow(second));
  EXPECT_NE(second, FocusedWindow());
}

TEST_F(InterferenceTest, WhoIsDeactivatedMayActivateAnother) {
  MakeControl(u"Edit", 0);
  const WindowHandle second = TopLevel(0);
  const WindowHandle third = TopLevel(0);
  When(frameWindow, message::kActivate, [&] { Activate(third); });
  Activate(second);
  EXPECT_EQ(third, ActiveWindow());
  EXPECT_EQ(third, FocusedWindow());
}

TEST_F(InterferenceTest, WhoIsDeactivatedMayDestroyTheOneThatIsActivated) {
  MakeControl(u"Edit", 0);
  const WindowHandle second = TopLevel(0);
  When(frameWindow, message::kActivate, [&] { Destroy(second); });
  Activate(second);
  EXPECT_EQ(frameWindow, ActiveWindow());
}

TEST_F(InterferenceTest, AWindowMayGoWhileItIsShownOrHidden) {
  MakeControl(u"Edit", 0);
  const WindowHandle shown = Beside(u"Static", 0);
  When(shown, message::kShowWindow, [&] { Destroy(shown); });
  Show(shown);
  EXPECT_FALSE(IsWindow(shown));
  const WindowHandle hidden = Beside(u"Static");
  When(hidden, message::kShowWindow, [&] { Destroy(hidden); });
  Hide(hidden);
  EXPECT_FALSE(IsWindow(hidden));
}

TEST_F(InterferenceTest, AWindowThatGoesWhileItIsMadeIsNone) {
  for (const std::uint32_t id : {message::kCreate, message::kShowWindow}) {
    const WideString name = u"Going" + WideString(1, static_cast<char16_t>(u'0' + id));
    RegisterWindowClass({name, false, [id](WindowHandle) {
                           auto handler = std::make_unique<MessageTable>();
                           handler->On(id, [](WindowHandle window, const Message&) {
                             Destroy(window);
                             return 0;
                           });
                           return handler;
                         }});
    WindowSpec spec;
    spec.className = name;
    spec.style = style::kPopup | style::kVisible;
    EXPECT_EQ(nullptr, MakeWindow(spec)) << id;
  }
  EXPECT_TRUE(TopLevelFromBottom().empty());
}

TEST_F(InterferenceTest, AWindowMayGoWhileItIsPainted) {
  MakeControl(u"Edit", 0);
  const WindowHandle window = Beside(u"Static");
  When(window, message::kPaint, [&] { Destroy(window); });
  PauseMs(0);
  EXPECT_FALSE(IsWindow(window));
  EXPECT_TRUE(IsIdle());
}

TEST_F(InterferenceTest, ASubclassMayGoWhileAnotherHandles) {
  const WindowHandle window = MakeControl(u"Edit", 0);
  MessageTable lower;
  int asked = 0;
  lower.On(message::kUser, [&](WindowHandle, const Message&) { return ++asked; });
  auto subclass = std::make_unique<Subclass>(window, lower);
  When(window, message::kUser, [&] { subclass.reset(); });
  EXPECT_EQ(0, Send(window, message::kUser));
  EXPECT_EQ(0, asked);
}

TEST_F(InterferenceTest, TheParentMayChangeATextThatIsTooLong) {
  constexpr int kTextTooLong = 0x0501;
  const EditField edit(MakeControl(u"Edit", style::kEditAutoHorizontalScroll));
  SetText(edit.Handle(), u"abcdef");
  edit.LimitText(3);
  edit.Select(6, 6);
  notifications.clear();
  Type(edit.Handle(), u"x");  // longer than the limit already
  EXPECT_EQ(u"abcdef", TextOf(edit.Handle()));
  EXPECT_EQ(kTextTooLong, notifications.front());
  MessageTable emptying;
  emptying.On(message::kCommand, [&](WindowHandle, const Message& message) -> std::optional<LResult> {
    if (CommandCode(message) == kTextTooLong) SetText(edit.Handle(), u"");
    return std::nullopt;
  });
  const Subclass subclass(frameWindow, emptying);
  edit.Select(6, 6);
  Type(edit.Handle(), u"x");
  EXPECT_EQ(u"", TextOf(edit.Handle()));
}

TEST_F(InterferenceTest, HidingTheActiveWindowActivatesWhatCanBe) {
  MakeControl(u"Edit", 0);
  const WindowHandle hidden = TopLevel(0);
  const WindowHandle disabled = TopLevel();
  Enable(disabled, false);
  const WindowHandle shown = TopLevel();
  Activate(shown);
  EXPECT_EQ(shown, ActiveWindow());
  Hide(shown);
  EXPECT_EQ(frameWindow, ActiveWindow());
  Hide(frameWindow);
  EXPECT_EQ(nullptr, ActiveWindow());
  EXPECT_FALSE(IsVisible(hidden));
}

TEST_F(InterferenceTest, MessagesWithoutAPlaceForTheirAnswerAreHarmless) {
  const WindowHandle edit = MakeControl(u"Edit", 0);
  SetText(edit, u"ab");
  EditField(edit).Select(1, 2);
  EXPECT_EQ(2 << 16 | 1, Send(edit, message::kEditGetSelection));
  EXPECT_EQ(0, Send(edit, message::kGetText, 10));
  char16_t buffer[4] = u"xyz";
  EXPECT_EQ(0, Send(edit, message::kGetText, 0, ToLParam(buffer)));
  EXPECT_EQ(u'x', buffer[0]);
  EXPECT_EQ(1, Send(edit, message::kGetText, 2, ToLParam(buffer)));
  EXPECT_EQ(u"a", WideString(buffer));
  Send(edit, message::kSetText);
  EXPECT_EQ(u"", TextOf(edit));
  const DateTimePicker picker(MakeControl(u"SysDateTimePick32", 0));
  EXPECT_EQ(0, Send(picker.Handle(), message::kPickerGetSystemTime));
  EXPECT_EQ(0, Send(picker.Handle(), message::kPickerSetSystemTime));
  EXPECT_EQ(1, AnswerControlColors({}, kBlack, kWhite));
}

TEST_F(InterferenceTest, AWindowOfTheDefaultPlaceKeepsTheSizeThatIsSaid) {
  WindowSpec spec;
  spec.className = u"Static";
  spec.style = style::kPopup;
  spec.x = spec.y = kUseDefault;
  spec.width = 30;
  spec.height = 20;
  EXPECT_EQ((Rect{0, 0, 30, 20}), WindowRect(MakeWindow(spec)));
}

TEST_F(InterferenceTest, ADialogWithoutAControlThatCanBeReachedHasTheFocusItself) {
  constexpr std::array<DialogControl, 1> kControls{{{9, u"Static", u"", style::kDisabled, -4, -4, 10, 10}}};
  DialogTemplate dialog;
  dialog.style = style::kPopup | style::kVisible;
  dialog.width = dialog.height = 50;
  dialog.controls = kControls;
  MessageTable handler;
  handler.On(message::kInitDialog, [](WindowHandle, const Message&) { return 1; });
  WindowHandle window = nullptr;
  display.Then([&] { window = ActiveWindow(); }).Press("{Down}{Tab}{Enter}").Then([&] {
    EXPECT_EQ(window, FocusedWindow());
    EXPECT_GT(0, RectInParent(ControlOf(window, 9)).left);
  });
  RunDialog(dialog, nullptr, handler);
  EXPECT_NE(nullptr, window);
}

TEST_F(InterferenceTest, TheSystemMessageListensToItsButtonAlone) {
  display.Then([] { Send(ActiveWindow(), message::kCommand, 77); }).Press("{Enter}");
  ShowSystemMessage(u"text", u"caption");
  EXPECT_TRUE(display.PlayedToItsEnd());
}

TEST_F(InterferenceTest, AWindowOfAnotherProgramThatCannotBeBroughtForwardStays) {
  CurrentEnvironment().otherWindows = {u"Shell"};
  MakeControl(u"Edit", 0);
  BringToForeground(TopLevelWindows().back());
  EXPECT_EQ(frameWindow, ActiveWindow());
}

TEST_F(InterferenceTest, LettersOfWesternEuropeHaveTheirOwnWidths) {
  const WindowHandle window = MakeControl(u"Static", 0);
  const FontSpec font{u"Tahoma", 13, 400};
  EXPECT_LT(MeasureText(window, u"\u00EE", font), MeasureText(window, u"\u00C6", font));
  EXPECT_EQ(MeasureText(window, u"\u4E00", font), MeasureText(window, u"\u0416", font));
  EXPECT_EQ(0, Send(window, message::kSetFont, 12345));  // no font: the system's
  EXPECT_EQ(FontOf(nullptr).linePx, FontOf(window).linePx);
}

}  // namespace
}  // namespace platform
