#include "platform/kernel.h"
#include "tests/platform/host_fixture.h"

#include <gtest/gtest.h>

#include <array>

namespace platform {
namespace {

using namespace host;

constexpr style::Bits kShown = style::kVisible | style::kTabStop;

// Writes down what happens to dialogs and controls, in order.
class DialogTest : public HostTest {
 protected:
  struct Watched : MessageHandler {
    Watched(DialogTest& test, std::string name) : owner(test), label(std::move(name)) {}
    std::optional<LResult> OnMessage(WindowHandle, const Message& message) override {
      owner.Note(label, message);
      return std::nullopt;
    }
    DialogTest& owner;
    std::string label;
  };

  void Note(const std::string& who, const Message& message) {
    switch (message.id) {
      case message::kActivate: log.push_back(who + " activate " + std::to_string(message.wParam)); break;
      case message::kSetFocus: log.push_back(who + " focus"); break;
      case message::kKillFocus: log.push_back(who + " blur"); break;
      case message::kEnable: log.push_back(who + " enable " + std::to_string(message.wParam)); break;
      case message::kShowWindow: log.push_back(who + " show " + std::to_string(message.wParam)); break;
      case message::kInitDialog: log.push_back(who + " init"); break;
      case message::kDestroy: log.push_back(who + " destroy"); break;
      case message::kNonClientDestroy: log.push_back(who + " gone"); break;
      case message::kCommand:
        log.push_back(who + " command " + std::to_string(CommandId(message)) + " " +
                      std::to_string(CommandCode(message)));
        break;
      default: break;
    }
  }

  void Watch(WindowHandle window, std::string name) {
    watched_.push_back(std::make_unique<Watched>(*this, std::move(name)));
    subclasses_.push_back(std::make_unique<Subclass>(window, *watched_.back()));
  }

  std::vector<std::string> TakeLog() { return std::exchange(log, {}); }

  using Lines = std::vector<std::string>;
  std::vector<std::string> log;

 private:
  std::vector<std::unique_ptr<Watched>> watched_;
  std::vector<std::unique_ptr<Subclass>> subclasses_;
};

constexpr std::array<DialogControl, 2> kMainControls{{
    {10, u"Static", u"title", style::kVisible, 0, 0, 50, 10},
    {11, u"ListBox", u"", kShown | style::kListNotify, 0, 20, 50, 40},
}};
constexpr std::array<DialogControl, 4> kInnerControls{{
    {20, u"Edit", u"text", kShown, 0, 0, 50, 10},
    {21, u"Button", u"one", kShown, 0, 20, 50, 10},
    {22, u"Button", u"two", kShown, 0, 30, 50, 10},
    {23, u"Static", u"hint", style::kVisible, 0, 40, 50, 10},
}};

DialogTemplate MainTemplate() {
  DialogTemplate dialog;
  dialog.caption = u"main";
  dialog.style = style::kPopup | style::kVisible;
  dialog.width = 139;
  dialog.height = 133;
  dialog.fontFace = u"TAHOMA";
  dialog.fontPoints = 10;
  dialog.controls = kMainControls;
  return dialog;
}

DialogTemplate InnerTemplate() {
  DialogTemplate dialog;
  dialog.caption = u"inner";
  dialog.style = style::kPopup | style::kCaption | style::kDialogModalFrame;
  dialog.width = 73;
  dialog.height = 50;
  dialog.fontFace = u"Tahoma";
  dialog.fontPoints = 8;
  dialog.controls = kInnerControls;
  return dialog;
}

TEST_F(DialogTest, ModalDialogsTellFocusAndActivationInOrder) {
  MessageTable mainHandler;
  MessageTable innerHandler;
  WindowHandle mainDialog = nullptr;
  innerHandler.On(message::kInitDialog, [&](WindowHandle window, const Message& message) {
    Watch(window, "inner");
    Watch(ControlOf(window, 20), "edit");
    EXPECT_EQ(ControlOf(window, 20), FromParam<WindowObject>(message.wParam));
    EXPECT_EQ((Rect{0, 0, 110, 81}), ClientRect(window));
    EXPECT_EQ((Rect{0, 0, 116, 106}), WindowRect(window));
    EXPECT_FALSE(IsEnabled(mainDialog));
    return 1;
  });
  innerHandler.On(message::kCommand, [&](WindowHandle window, const Message& message) -> std::optional<LResult> {
    if (CommandId(message) != kIdOk) return std::nullopt;
    log.push_back("end");
    EndDialog(window, 5);
    EXPECT_FALSE(IsVisible(window));
    return 1;
  });
  LResult result = 0;
  mainHandler.On(message::kInitDialog, [&](WindowHandle window, const Message&) {
    mainDialog = window;
    Watch(window, "main");
    Watch(ControlOf(window, 11), "list");
    Focus(ControlOf(window, 11));
    Post(window, message::kUser + 50);
    return 0;
  });
  mainHandler.On(message::kUser + 50, [&](WindowHandle window, const Message&) {
    EXPECT_EQ((Lines{"main activate 1", "list focus", "main command 11 4", "main show 1"}), TakeLog());
    result = RunDialog(InnerTemplate(), window, innerHandler);
    log.push_back("returned");
    return 0;
  });
  display.Key(key::kEnter);
  RunDialog(MainTemplate(), nullptr, mainHandler);
  EXPECT_EQ(5, result);
  const Lines expected{"main enable 0",
                       "main activate 0",
                       "inner activate 1",
                       "list blur",
                       "main command 11 5",
                       "edit focus",
                       "inner command 20 256",
                       "inner show 1",
                       "inner command 1 0",
                       "end",
                       "main enable 1",
                       "edit blur",
                       "inner command 20 512",
                       "inner focus",
                       "inner activate 0",
                       "main activate 1",
                       "inner blur",
                       "list focus",
                       "main command 11 4",
                       "inner destroy",
                       "edit destroy",
                       "edit gone",
                       "inner gone",
                       "returned",
                       "main activate 0",
                       "list blur",
                       "main command 11 5",
                       "main destroy",
                       "list destroy",
                       "list gone",
                       "main gone"};
  EXPECT_EQ(expected, TakeLog());
}

// Runs the inner dialog alone and does something with it once it is shown.
class OneDialogTest : public DialogTest {
 protected:
  LResult Run(const DialogTemplate& dialog = InnerTemplate()) {
    handler.On(message::kInitDialog, [this](WindowHandle window, const Message&) {
      shown = window;
      return 1;
    });
    return RunDialog(dialog, nullptr, handler);
  }
  WindowHandle Control(int id) const { return ControlOf(shown, id); }
  int FocusedId() const { return IdOf(FocusedWindow()); }

  MessageTable handler;
  WindowHandle shown = nullptr;
};

TEST_F(OneDialogTest, TheFirstTabStopHasTheFocusAndItsTextIsSelected) {
  display.Then([this] {
    EXPECT_EQ(20, FocusedId());
    EXPECT_EQ((EditField::Selection{0, 4}), EditField(Control(20)).GetSelection());
  });
  Run();
}

TEST_F(OneDialogTest, TabAndArrowsMoveTheFocus) {
  const struct {
    std::uint16_t key;
    bool shift;
    int focused;
  } cases[] = {
      {key::kTab, false, 21},   {key::kTab, false, 22},   {key::kTab, false, 20},   {key::kTab, true, 22},
      {key::kTab, true, 21},    {key::kDown, false, 22},  {key::kRight, false, 23},  // arrows stop at texts as well
      {key::kRight, false, 20}, {key::kRight, false, 20},                            // the field's
      {key::kTab, false, 21},   {key::kUp, false, 20},
  };
  for (const auto& c : cases) {
    display.Key(c.key, c.shift).Then([this, c] { EXPECT_EQ(c.focused, FocusedId()) << c.key; });
  }
  Run();
}

TEST_F(OneDialogTest, HiddenAndDisabledControlsAreNoTabStops) {
  display.Then([this] { Hide(Control(21)); }).Key(key::kTab).Then([this] {
    EXPECT_EQ(22, FocusedId());
    Enable(Control(20), false);
  });
  display.Key(key::kTab).Then([this] { EXPECT_EQ(22, FocusedId()); });
  Run();
}

TEST_F(OneDialogTest, HidingTheFocusedControlGivesTheFocusToTheFirstOne) {
  display.Key(key::kTab).Then([this] {
    Hide(Control(21));
    EXPECT_EQ(20, FocusedId());
    Hide(Control(20));
    EXPECT_EQ(22, FocusedId());
  });
  Run();
}

TEST_F(OneDialogTest, DisablingTheFocusedControlLeavesNobodyWithTheFocusAndKeysAreLost) {
  display
      .Then([this] {
        Enable(Control(20), false);
        EXPECT_EQ(nullptr, FocusedWindow());
      })
      .Key(key::kTab)
      .Key(key::kEscape)
      .Then([this] {
        EXPECT_EQ(nullptr, FocusedWindow());
        EXPECT_EQ(shown, ActiveWindow());
      });
  handler.On(message::kCommand, [](WindowHandle, const Message& message) -> std::optional<LResult> {
    EXPECT_NE(kIdCancel, CommandId(message));
    return std::nullopt;
  });
  Run();
}

TEST_F(OneDialogTest, DestroyingTheFocusedControlGivesTheFocusToTheFirstOne) {
  display.Key(key::kTab).Then([this] {
    Destroy(Control(21));
    EXPECT_EQ(20, FocusedId());
    EXPECT_EQ(nullptr, Control(21));
  });
  Run();
}

TEST_F(OneDialogTest, EnterPressesTheFocusedButtonElseMeansOk) {
  std::vector<int> commands;
  handler.On(message::kCommand, [&](WindowHandle, const Message& message) -> std::optional<LResult> {
    if (CommandCode(message) == 0) commands.push_back(CommandId(message));
    return std::nullopt;
  });
  display.Press("{Enter}{Tab}{Enter}{Esc} ");
  Run();
  EXPECT_EQ((std::vector{kIdOk, 21, kIdCancel, 21}), commands);
}

TEST_F(OneDialogTest, EnterPressesTheDefaultButtonUnlessItIsDisabled) {
  constexpr std::array<DialogControl, 2> kControls{{
      {30, u"Edit", u"", kShown, 0, 0, 50, 10},
      {31, u"Button", u"", kShown | style::kButtonDefault, 0, 20, 50, 10},
  }};
  DialogTemplate dialog = InnerTemplate();
  dialog.controls = kControls;
  std::vector<int> commands;
  handler.On(message::kCommand, [&](WindowHandle, const Message& message) -> std::optional<LResult> {
    if (CommandCode(message) == 0) commands.push_back(CommandId(message));
    return std::nullopt;
  });
  display.Key(key::kEnter).Then([this] { Enable(Control(31), false); }).Key(key::kEnter);
  Run(dialog);
  EXPECT_EQ(std::vector{31}, commands);
}

TEST_F(OneDialogTest, AControlThatWantsAllKeysGetsThem) {
  std::vector<std::uint32_t> seen;
  MessageTable greedy;
  greedy.On(message::kGetDialogCode, [](WindowHandle, const Message&) { return dialog_code::kWantAllKeys; });
  greedy.On(message::kKeyDown, [&](WindowHandle, const Message& message) {
    seen.push_back(static_cast<std::uint32_t>(message.wParam));
    return 0;
  });
  greedy.On(message::kChar, [&](WindowHandle, const Message& message) {
    seen.push_back(0x1000u + static_cast<std::uint32_t>(message.wParam));
    return 0;
  });
  std::unique_ptr<Subclass> subclass;
  display.Then([&] { subclass = std::make_unique<Subclass>(Control(20), greedy); }).Press("{Enter}{Esc}{Tab}{Down}5");
  Run();
  EXPECT_EQ((std::vector<std::uint32_t>{key::kEnter, 0x100D, key::kEscape, 0x101B, key::kTab, 0x1009, key::kDown, u'5',
                                        0x1035}),
            seen);
}

TEST_F(OneDialogTest, KeysThatTheProgramPostsTypeTheirCharacterToo) {
  display.Then([this] { Post(Control(20), message::kKeyDown, u'7', 1); }).Then([this] {
    EXPECT_EQ(u"7", TextOf(Control(20)));
  });
  Run();
}

TEST_F(OneDialogTest, AFieldOfSeveralLinesGivesEscAndTabBack) {
  constexpr std::array<DialogControl, 2> kControls{{
      {40, u"Edit", u"", kShown | style::kEditMultiLine | style::kEditReadOnly, 0, 0, 50, 30},
      {41, u"Button", u"", kShown, 0, 40, 50, 10},
  }};
  DialogTemplate dialog = InnerTemplate();
  dialog.controls = kControls;
  std::vector<int> commands;
  handler.On(message::kCommand, [&](WindowHandle, const Message& message) -> std::optional<LResult> {
    if (CommandCode(message) == 0) commands.push_back(CommandId(message));
    return std::nullopt;
  });
  display.Press("{Enter}{Esc}{Tab}").Then([this] { EXPECT_EQ(41, FocusedId()); });
  Run(dialog);
  EXPECT_EQ(std::vector{kIdCancel}, commands);
}

TEST_F(OneDialogTest, EnterInAFieldOfSeveralLinesPressesTheDefaultButtonAndShiftTabGoesBack) {
  constexpr std::array<DialogControl, 3> kControls{{
      {41, u"Button", u"", kShown, 0, 40, 50, 10},
      {40, u"Edit", u"", kShown | style::kEditMultiLine, 0, 0, 50, 30},
      {42, u"Button", u"", kShown | style::kButtonDefault, 0, 50, 50, 10},
  }};
  DialogTemplate dialog = InnerTemplate();
  dialog.controls = kControls;
  std::vector<int> commands;
  handler.On(message::kCommand, [&](WindowHandle, const Message& message) -> std::optional<LResult> {
    if (CommandCode(message) == 0) commands.push_back(CommandId(message));
    return std::nullopt;
  });
  display.Then([this] { Focus(Control(40)); })
      .Key(key::kTab, true)
      .Then([this] {
        EXPECT_EQ(41, FocusedId());
        Focus(Control(40));
      })
      .Press("{Enter}")
      .Then([this] { EXPECT_EQ(42, FocusedId()); });
  Run(dialog);
  EXPECT_EQ(std::vector{42}, commands);
}

TEST_F(OneDialogTest, AControlThatWantsTabsGetsThem) {
  MessageTable greedy;
  int tabs = 0;
  greedy.On(message::kGetDialogCode, [](WindowHandle, const Message&) { return dialog_code::kWantTab; });
  greedy.On(message::kKeyDown, [&](WindowHandle, const Message& message) {
    tabs += message.wParam == key::kTab ? 1 : 0;
    return 0;
  });
  std::unique_ptr<Subclass> subclass;
  display.Then([&] { subclass = std::make_unique<Subclass>(Control(20), greedy); }).Press("{Tab}").Then([&] {
    EXPECT_EQ(20, FocusedId());
  });
  Run();
  EXPECT_EQ(1, tabs);
}

TEST_F(OneDialogTest, KeysThatNoDisplayNamedTypeLettersByThemselves) {
  const auto letter = [](bool shift, bool control) {
    return platform::host::KeyStroke{.virtualKey = u'G', .shift = shift, .control = control};
  };
  std::string typed;
  MessageTable listening;
  listening.On(message::kChar, [&](WindowHandle, const Message& message) {
    typed += std::to_string(message.wParam) + " ";
    return 0;
  });
  std::unique_ptr<Subclass> subclass;
  display.Then([&] { subclass = std::make_unique<Subclass>(Control(20), listening); })
      .Press(letter(false, false))
      .Press(letter(true, false))
      .Press(letter(false, true))
      .Key(key::kSpace);
  Run();
  EXPECT_EQ("103 71 7 32 ", typed);
}

TEST_F(OneDialogTest, WithoutADisplayADialogEndsAtOnce) {
  CurrentEnvironment().display = nullptr;
  handler.On(message::kUser, [](WindowHandle window, const Message&) {
    EndDialog(window, 5);
    return 0;
  });
  EXPECT_EQ(0, Run());
  Beep();
  PauseMs(10);
  CurrentEnvironment().display = &display;
  EXPECT_EQ(0, display.beeps);
  Beep();
  EXPECT_EQ(1, display.beeps);
}

TEST_F(OneDialogTest, APlainWindowThatIsClosedGoes) {
  display.Then([this] {
    EXPECT_NE(0, Send(Control(20), message::kGetFont));
    EXPECT_EQ(1, Send(Control(23), message::kEraseBackground));
    Send(Control(23), message::kClose);
    EXPECT_EQ(nullptr, Control(23));
  });
  Run();
}

TEST_F(OneDialogTest, ADialogThatEndsWhileItIsInitialisedIsNeverShown) {
  bool everShown = false;
  MessageTable ending;
  ending.On(message::kInitDialog, [](WindowHandle window, const Message&) {
    EndDialog(window, -1);
    return 1;
  });
  ending.On(message::kShowWindow, [&](WindowHandle, const Message&) {
    everShown = true;
    return std::nullopt;
  });
  EXPECT_EQ(-1, RunDialog(InnerTemplate(), nullptr, ending));
  EXPECT_FALSE(everShown);
  EXPECT_TRUE(TopLevelFromBottom().empty());
  EXPECT_EQ(nullptr, ActiveWindow());
}

TEST_F(OneDialogTest, ADialogThatIsDestroyedReturnsZeroAndEnablesItsOwner) {
  MakeControl(u"Edit", 0);
  MessageTable destroying;
  destroying.On(message::kInitDialog, [](WindowHandle window, const Message&) {
    Post(window, message::kUser);
    return 1;
  });
  destroying.On(message::kUser, [](WindowHandle window, const Message&) {
    Destroy(window);
    return 0;
  });
  EXPECT_EQ(0, RunDialog(InnerTemplate(), frameWindow, destroying));
  EXPECT_TRUE(IsEnabled(frameWindow));
}

TEST_F(OneDialogTest, AnUnknownControlClassMakesNoDialog) {
  constexpr std::array<DialogControl, 1> kControls{{{50, u"NoSuchClass", u"", kShown, 0, 0, 1, 1}}};
  DialogTemplate dialog = InnerTemplate();
  dialog.controls = kControls;
  MakeControl(u"Edit", 0);
  EXPECT_EQ(-1, RunDialog(dialog, frameWindow, handler));
  EXPECT_TRUE(IsEnabled(frameWindow));
  EXPECT_EQ(1u, TopLevelFromBottom().size());
}

TEST_F(OneDialogTest, QuittingEndsEveryDialogWithZero) {
  std::vector<LResult> results;
  int depth = 0;
  MessageTable nesting;
  nesting.On(message::kInitDialog, [](WindowHandle window, const Message&) {
    Post(window, message::kUser);
    return 1;
  });
  nesting.On(message::kUser, [&](WindowHandle window, const Message&) {
    if (++depth < 3) {
      results.push_back(RunDialog(InnerTemplate(), window, nesting));
    } else {
      PostQuit(0);
      Post(window, message::kUser + 1);  // what is posted is still handled before the end
    }
    return 0;
  });
  int after = 0;
  nesting.On(message::kUser + 1, [&](WindowHandle, const Message&) {
    ++after;
    return 0;
  });
  results.push_back(RunDialog(InnerTemplate(), nullptr, nesting));
  EXPECT_EQ((std::vector<LResult>{0, 0, 0}), results);
  EXPECT_EQ(1, after);
}

TEST_F(OneDialogTest, TheSystemMessageIsAnsweredByEnterAndByEsc) {
  for (const std::uint16_t answer : {key::kEnter, key::kEscape}) {
    bool seen = false;
    display.Then([&] {
      const WindowHandle box = ActiveWindow();
      seen = true;
      EXPECT_EQ(u"Error", TextOf(box));
      EXPECT_EQ(u"Cannot do it", TextOf(ControlOf(box, 65535)));
      EXPECT_EQ(u"OK", TextOf(ControlOf(box, kIdCancel)));
      EXPECT_EQ(kIdCancel, FocusedId());
      EXPECT_EQ(nullptr, OwnerOf(box));
    });
    display.Key(answer);
    ShowSystemMessage(u"Cannot do it", u"Error");
    EXPECT_TRUE(seen);
    EXPECT_TRUE(TopLevelFromBottom().empty());
  }
}

TEST_F(OneDialogTest, ABoxOfThePlatformIsNoWiderThanTheScreen) {
  const WideString text = u"Certificates were successfully imported.";
  for (const int width : {160, 240}) {
    CurrentEnvironment().screenWidthPx = width;
    bool seen = false;
    display.Then([&] {
      seen = true;
      const Rect place = WindowRect(ActiveWindow());
      EXPECT_LE(0, place.left);
      EXPECT_LE(place.right, width);
      const WindowHandle line = ControlOf(ActiveWindow(), 65535);
      const int lines = ClientRect(line).Height() / FontOf(line).linePx;
      EXPECT_LE(TextWidthIn(line, text), ClientRect(line).Width() * lines);
      EXPECT_EQ(width == 160 ? 2 : 1, lines);
    });
    display.Key(key::kEnter);
    ShowSystemMessage(text, u"Success");
    EXPECT_TRUE(seen);
  }
}

TEST_F(OneDialogTest, DialogUnitsFollowTheFont) {
  MessageTable looking;
  std::vector<Rect> clients;
  looking.On(message::kInitDialog, [&](WindowHandle window, const Message&) {
    clients.push_back(ClientRect(window));
    EndDialog(window, 0);
    return 1;
  });
  DialogTemplate dialog = InnerTemplate();
  dialog.width = 100;
  dialog.height = 80;
  for (const auto& [face, points] : {std::pair{u"Tahoma", 8}, {u"Tahoma", 10}, {u"System", 8}}) {
    dialog.fontFace = face;
    dialog.fontPoints = points;
    RunDialog(dialog, nullptr, looking);
  }
  EXPECT_EQ((std::vector<Rect>{{0, 0, 150, 130}, {0, 0, 175, 160}, {0, 0, 200, 160}}), clients);
}

TEST_F(OneDialogTest, ButtonsThatAreClickedTakeTheFocusAndTell) {
  std::vector<int> commands;
  handler.On(message::kCommand, [&](WindowHandle, const Message& message) -> std::optional<LResult> {
    if (CommandCode(message) == 0) commands.push_back(CommandId(message));
    return std::nullopt;
  });
  display.Then([this] { Post(Control(22), message::kButtonClick); }).Then([this] { EXPECT_EQ(22, FocusedId()); });
  Run();
  EXPECT_EQ(std::vector{22}, commands);
}

TEST_F(OneDialogTest, TheParentIsAskedForTheColoursOfItsControls) {
  handler.On(message::kControlColorStatic,
             [](WindowHandle, const Message& message) { return AnswerControlColors(message, kWhite, kBlack); });
  display.Then([this] {
    EXPECT_EQ((ControlColors{kWhite, kBlack}), ControlColorsOf(Control(23)));
    EXPECT_EQ(std::nullopt, ControlColorsOf(Control(20)));
  });
  Run();
}

TEST_F(OneDialogTest, AfterAWarmResetNothingRunsAnyMore) {
  display.Then([] { WarmReset(); });
  EXPECT_EQ(0, Run());
  EXPECT_TRUE(IsWarmReset());
  const int waits = display.waits;
  EXPECT_EQ(0, RunDialog(InnerTemplate(), nullptr, handler));
  ShowSystemMessage(u"text", u"caption");
  EXPECT_EQ(waits, display.waits);
}

}  // namespace
}  // namespace platform
