#include "platform/canvas.h"
#include "platform/events.h"
#include "tests/platform/host_fixture.h"
#include "tests/support/test_terminal.h"

#include <gtest/gtest.h>

#include <random>

namespace platform {
namespace {

using namespace host;

class WindowTest : public HostTest {};

// Appends its name to a log and, told so, passes the message on.
class Naming : public MessageHandler {
 public:
  Naming(std::string& log, char name) : log_(log), name_(name) {}
  std::optional<LResult> OnMessage(WindowHandle, const Message& message) override {
    if (message.id != message::kUser) return std::nullopt;
    log_ += name_;
    if (previous) {
      previous->CallPrevious(message);
      return 1;
    }
    return std::nullopt;
  }
  Subclass* previous = nullptr;

 private:
  std::string& log_;
  char name_;
};

TEST_F(WindowTest, SubclassesStackAndLeaveInAnyOrder) {
  const WindowHandle window = MakeControl(u"Static", 0);
  std::string log;
  Naming a(log, 'a'), b(log, 'b'), c(log, 'c');
  auto first = std::make_unique<Subclass>(window, a);
  auto second = std::make_unique<Subclass>(window, b);
  auto third = std::make_unique<Subclass>(window, c);
  Send(window, message::kUser);
  EXPECT_EQ("cba", std::exchange(log, ""));
  second.reset();
  Send(window, message::kUser);
  EXPECT_EQ("ca", std::exchange(log, ""));
  c.previous = third.get();
  Send(window, message::kUser);
  EXPECT_EQ("ca", std::exchange(log, ""));
  first.reset();
  third.reset();
  EXPECT_EQ(0, Send(window, message::kUser));
  EXPECT_EQ("", log);
}

// Fails at a message; what it sends itself before that has been answered.
class Failing : public MessageHandler {
 public:
  std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
    if (message.id == message::kUser) throw std::bad_alloc();
    if (message.id != message::kUser + 1) return std::nullopt;
    Send(window, message::kUser);
    return 7;
  }
};

TEST(FailingHandler, IsLoggedAndPassedOver) {
  tests::TestTerminal terminal;
  const WindowHandle window = MakeWindow({.className = u"Static"});
  const WideString line = u"EXCEPTION: MessageHandler::OnMessage()\r\n";
  std::string log;
  Naming behind(log, 'b');
  const Subclass second(window, behind);
  Failing failing;
  const Subclass first(window, failing);
  EXPECT_EQ(0, Send(window, message::kUser));
  EXPECT_EQ((std::vector<WideString>{line}), terminal.TakeDebugLines());
  EXPECT_EQ("", log);
  EXPECT_EQ(7, Send(window, message::kUser + 1));
  EXPECT_EQ((std::vector<WideString>{line}), terminal.TakeDebugLines());
}

TEST_F(WindowTest, ASubclassOutlivesItsWindow) {
  const WindowHandle window = MakeControl(u"Static", 0);
  std::string log;
  Naming a(log, 'a');
  Subclass subclass(window, a);
  Destroy(window);
  EXPECT_EQ(0, subclass.CallPrevious({message::kUser}));
  EXPECT_EQ(0, Send(window, message::kUser));
  EXPECT_EQ("", log);
}

TEST_F(WindowTest, AWindowMayDestroyItselfWhileItHandlesAMessage) {
  struct Ending : MessageHandler {
    explicit Ending(std::string& text) : log(text) {}
    ~Ending() override { log += "freed "; }
    std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
      if (message.id == message::kNonClientDestroy) log += "last ";
      if (message.id != message::kUser) return std::nullopt;
      Destroy(window);
      log += "after ";  // the handler lives on until its message is done
      return 7;
    }
    std::string& log;
  };
  std::string log;
  RegisterWindowClass({u"Ending", false, [&](WindowHandle) { return std::make_unique<Ending>(log); }});
  WindowSpec spec;
  spec.className = u"ENDING";
  spec.style = style::kPopup;
  const WindowHandle window = MakeWindow(spec);
  Post(window, message::kUser + 1);
  EXPECT_EQ(7, Send(window, message::kUser));
  EXPECT_EQ("last after freed ", log);
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(u"", TextOf(window));
}

TEST_F(WindowTest, AClassMayRefuseToMakeAWindow) {
  struct Refusing : MessageHandler {
    std::optional<LResult> OnMessage(WindowHandle, const Message& message) override {
      if (message.id == message::kCreate) return -1;
      return std::nullopt;
    }
  };
  RegisterWindowClass({u"Refusing", false, [](WindowHandle) { return std::make_unique<Refusing>(); }});
  WindowSpec spec;
  spec.className = u"Refusing";
  spec.style = style::kPopup;
  EXPECT_EQ(nullptr, MakeWindow(spec));
  spec.className = u"Unknown";
  EXPECT_EQ(nullptr, MakeWindow(spec));
  EXPECT_TRUE(TopLevelFromBottom().empty());
}

TEST_F(WindowTest, NoWindowAnswersNothing) {
  EXPECT_EQ(u"", TextOf(nullptr));
  EXPECT_EQ(0, Send(nullptr, message::kUser));
  EXPECT_EQ((Rect{}), ClientRect(nullptr));
  EXPECT_FALSE(IsVisible(nullptr));
  EXPECT_FALSE(IsEnabled(nullptr));
  EXPECT_EQ(nullptr, ParentOf(nullptr));
  EXPECT_EQ(nullptr, ControlOf(nullptr, 1));
  EXPECT_EQ(0, MeasureText(nullptr, u"text"));
  Show(nullptr);
  Destroy(nullptr);
  SetText(nullptr, u"text");
  EXPECT_EQ(WindowKind::kNone, KindOf(nullptr));
}

TEST_F(WindowTest, TheDefaultSizeOfATopLevelWindowIsTheScreen) {
  WindowSpec spec;
  spec.className = u"Edit";
  spec.style = style::kCaption;
  spec.width = kUseDefault;
  spec.height = kUseDefault;
  EXPECT_EQ((Rect{0, 0, 240, 320}), WindowRect(MakeWindow(spec)));
}

TEST_F(WindowTest, VisibilityAsksAllParents) {
  const WindowHandle window = MakeControl(u"Static", 0);
  EXPECT_TRUE(IsVisible(window));
  Hide(frameWindow);
  EXPECT_FALSE(IsVisible(window));
  EXPECT_TRUE(HasVisibleStyle(window));
}

TEST_F(WindowTest, OtherProgramsWindowsCanBeSeenAndBroughtForward) {
  std::optional<std::size_t> brought;
  CurrentEnvironment().otherWindows = {u"Shell", u"Other"};
  CurrentEnvironment().bringOtherForward = [&](std::size_t index) { brought = index; };
  MakeControl(u"Static", 0);
  const std::vector<WindowHandle> windows = TopLevelWindows();
  ASSERT_EQ(3u, windows.size());
  EXPECT_EQ(frameWindow, windows[0]);
  EXPECT_EQ(u"Shell", TextOf(windows[1]));
  EXPECT_EQ(WindowKind::kForeign, KindOf(windows[2]));
  BringToForeground(windows[2]);
  EXPECT_EQ(1u, brought);
  EXPECT_EQ(windows, TopLevelWindows());
}

TEST_F(WindowTest, TextIsMeasuredInTheSystemFontWhateverFontTheWindowHas) {
  const WindowHandle window = MakeControl(u"Static", 0);
  SetFont(window, {u"Courier", 13, 400});
  EXPECT_EQ(8 * 4, MeasureText(window, u"1234"));
  EXPECT_EQ(4, MeasureText(window, u"."));
  const FontState font = FontOf(window);
  EXPECT_EQ(u"Courier", font.face);
  EXPECT_EQ(13, font.heightPx);
  EXPECT_EQ(400, font.weight);
  EXPECT_EQ(19, CaptionHeight());
}

TEST_F(WindowTest, PaintingIsRecordedAndDueOnlyOnce) {
  struct Painting : MessageHandler {
    std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
      if (message.id != message::kPaint) return std::nullopt;
      const auto canvas = BeginPaint(window);
      canvas->Fill(ClientRect(window), kWhite);
      canvas->Frame({1, 1, 9, 9}, kBlack, kWhite);
      canvas->Text({2, 3}, u".", kBlack);
      return 0;
    }
  };
  RegisterWindowClass({u"Painting", false, [](WindowHandle) { return std::make_unique<Painting>(); }});
  const WindowHandle window = MakeControl(u"Painting", style::kBorder, 20, 10);
  EXPECT_TRUE(DrawingsOf(window).empty());
  EXPECT_FALSE(IsIdle());
  PauseMs(700);
  EXPECT_EQ(std::chrono::milliseconds(700), display.paused);
  const std::vector<Drawing> expected{{Drawing::Kind::kFill, {0, 0, 18, 8}, kWhite, {}, {}},
                                      {Drawing::Kind::kFrame, {1, 1, 9, 9}, kBlack, kWhite, {}},
                                      {Drawing::Kind::kText, {2, 3, 2, 3}, kBlack, {}, u"."}};
  EXPECT_EQ(expected, DrawingsOf(window));
  EXPECT_TRUE(IsIdle());
  Invalidate(window);
  EXPECT_FALSE(IsIdle());
  Update(window);
  EXPECT_EQ(expected, DrawingsOf(window));
  EXPECT_TRUE(IsIdle());
}

TEST_F(WindowTest, AWindowThatInvalidatesItselfWhilePaintingDoesNotStopTheKeys) {
  struct Restless : MessageHandler {
    std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
      if (message.id != message::kPaint) return std::nullopt;
      BeginPaint(window);
      Invalidate(window);
      return 0;
    }
  };
  RegisterWindowClass({u"Restless", false, [](WindowHandle) { return std::make_unique<Restless>(); }});
  MakeControl(u"Restless", 0);
  MessageTable handler;
  RunDialog({}, nullptr, handler);  // the display quits when it is asked for a key
  EXPECT_EQ(1, display.waits);
}

TEST_F(WindowTest, KeysArriveAsDownCharacterAndUpWithTheirModifiers) {
  const WindowHandle window = MakeControl(u"Static", 0);
  std::string log;
  MessageTable keys;
  const auto note = [&log](const char* what) {
    return [&log, what](WindowHandle, const Message& message) {
      log += what + std::to_string(message.wParam) + (IsKeyDown(key::kShift) ? "s " : " ");
      return 0;
    };
  };
  keys.On(message::kKeyDown, note("down")).On(message::kChar, note("char")).On(message::kKeyUp, note("up"));
  const Subclass subclass(window, keys);
  MessageTable handler;
  handler.On(message::kInitDialog, [&](WindowHandle, const Message&) { return 0; });
  display.Then([&] { Focus(window); })
      .Key(key::kF1)
      .Key(key::kTab, true)
      .Key(u'5')
      .Press({.character = u'x'})
      .Then([&] { EXPECT_FALSE(IsKeyDown(key::kShift)); });
  RunDialog({}, nullptr, handler);
  EXPECT_EQ("down112 up112 down9s char9s up9 down53 char53 up53 char120 ", log);
}

TEST_F(WindowTest, PostsFromAnotherThreadWakeTheDisplayAndArriveInOrder) {
  std::string log;
  MessageTable handler;
  std::unique_ptr<Thread> thread;
  handler.On(message::kInitDialog, [&](WindowHandle window, const Message&) {
    thread = std::make_unique<Thread>([window] {
      for (int i = 0; i < 100; ++i) Post(window, message::kUser, static_cast<WParam>(i));
    });
    return 1;
  });
  WParam expected = 0;
  handler.On(message::kUser, [&](WindowHandle window, const Message& message) {
    EXPECT_EQ(expected++, message.wParam);
    if (expected == 100) EndDialog(window, 3);
    return 0;
  });
  // The display waits as a real one does, until it is woken.
  struct WaitingDisplay : Display {
    std::optional<KeyStroke> NextKey() override {
      woken.Wait();
      woken.Reset();
      return std::nullopt;
    }
    void Wake() override { woken.Set(); }
    void Pause(std::chrono::milliseconds) override {}
    void Beep() override {}
    void ComeForward() override {}
    Event woken{u"", false};
  } waiting;
  CurrentEnvironment().display = &waiting;
  EXPECT_EQ(3, RunDialog({}, nullptr, handler));
  thread.reset();
  EXPECT_FALSE(AreThreadsRunning());
  CurrentEnvironment().display = &display;
}

TEST_F(WindowTest, ARunningThreadKeepsTheTerminalFromBeingIdle) {
  Event go(u"", false);
  {
    const Thread thread([&go] { go.Wait(); });
    EXPECT_TRUE(AreThreadsRunning());
    EXPECT_FALSE(IsIdle());
    go.Set();
  }
  EXPECT_TRUE(IsIdle());
  EXPECT_EQ(1, display.wakes);
}

TEST_F(WindowTest, MessagesOfAWindowThatIsGoneAreForgotten) {
  const WindowHandle window = MakeControl(u"Static", 0);
  PauseMs(0);
  Post(window, message::kUser);
  EXPECT_FALSE(IsIdle());
  Destroy(window);
  EXPECT_TRUE(IsIdle());
}

TEST_F(WindowTest, TheWaitCursorIsShownWhileItsObjectLives) {
  EXPECT_FALSE(IsWaitCursorShown());
  {
    const WaitCursor cursor(nullptr);
    EXPECT_TRUE(IsWaitCursorShown());
  }
  EXPECT_FALSE(IsWaitCursorShown());
}

TEST_F(WindowTest, RadioButtonsAndCheckBoxesLeaveTheirMarksToTheProgram) {
  for (const style::Bits kind : {style::kButtonCheckBox, style::kButtonRadio}) {
    const Button button(MakeControl(u"Button", kind));
    Send(button.Handle(), message::kButtonClick);
    EXPECT_EQ(std::vector{notification::kButtonClicked}, notifications);
    EXPECT_FALSE(button.IsChecked());
    button.SetChecked(true);
    EXPECT_TRUE(button.IsChecked());
  }
}

TEST_F(WindowTest, DropDownListsMoveWithTheKeysAndTell) {
  const ComboBox combo(MakeControl(u"ComboBox", style::kComboDropDownList));
  combo.Add(u"one");
  combo.Add(u"two");
  EXPECT_EQ(-1, combo.Selected());
  combo.Select(0);
  EXPECT_TRUE(notifications.empty());
  Press(combo.Handle(), key::kDown);
  Press(combo.Handle(), key::kDown);
  EXPECT_EQ(1, combo.Selected());
  EXPECT_EQ(std::vector{notification::kComboSelectionChange}, notifications);
  EXPECT_EQ(u"two", combo.Line(1));
  EXPECT_EQ(u"two", TextOf(combo.Handle()));
}

// Whatever is done to windows in whatever order: nothing breaks, and what is left is a consistent tree.
TEST_F(WindowTest, RandomOperationsLeaveAConsistentDesktop) {
  constexpr const char16_t* kClasses[] = {u"Edit", u"ListBox", u"Button", u"Static", u"ComboBox", u"SysDateTimePick32"};
  constexpr std::uint16_t kKeys[] = {key::kUp,  key::kDown,  key::kLeft,   key::kRight,  key::kHome,     key::kEnd,
                                     key::kTab, key::kEnter, key::kDelete, key::kEscape, key::kPageDown, u'7'};
  std::mt19937 random(7);
  const auto below = [&random](std::size_t count) { return static_cast<std::size_t>(random() % count); };
  MakeControl(u"Edit", style::kTabStop);
  std::vector<WindowHandle> windows{frameWindow};
  for (int step = 0; step < 20000; ++step) {
    const WindowHandle window = windows[below(windows.size())];
    switch (below(12)) {
      case 0: {
        WindowSpec spec;
        spec.className = kClasses[below(std::size(kClasses))];
        spec.style = random() & (style::kVisible | style::kTabStop | style::kBorder | 0x285u);
        spec.style |= below(4) != 0 ? style::kChild : style::kPopup;
        spec.width = static_cast<int>(below(90));
        spec.height = static_cast<int>(below(90));
        spec.parent = window;
        spec.id = step;
        const WindowHandle made = MakeWindow(spec);
        if (made != nullptr) windows.push_back(made);
        break;
      }
      case 1: Destroy(below(3) == 0 ? window : nullptr); break;
      case 2: Show(window); break;
      case 3: Hide(window); break;
      case 4: Enable(window, below(2) == 0); break;
      case 5: Focus(window); break;
      case 6: Activate(window); break;
      case 7: Press(window, kKeys[below(std::size(kKeys))]); break;
      case 8: Type(window, u"a1\b\r"); break;
      case 9: ListBox(window).Add(u"line"); break;
      case 10: SetText(window, u"some text\r\nin two lines"); break;
      case 11: EditField(window).Select(static_cast<int>(below(20)) - 2, static_cast<int>(below(20)) - 2); break;
    }
    std::erase_if(windows, [](WindowHandle each) { return !IsWindow(each); });
    if (windows.empty()) {
      MakeControl(u"Edit", 0);
      windows.push_back(frameWindow);
    }
    ASSERT_TRUE(FocusedWindow() == nullptr || IsWindow(FocusedWindow()));
    ASSERT_TRUE(ActiveWindow() == nullptr || IsWindow(ActiveWindow()));
    for (const WindowHandle top : TopLevelFromBottom()) ASSERT_TRUE(IsWindow(top));
    for (const WindowHandle child : ChildrenOf(window)) ASSERT_EQ(window, ParentOf(child));
  }
}

}  // namespace
}  // namespace platform
