#include "app/main_dialog.h"

#include "app/dialog_templates.h"
#include "platform/host/desktop.h"
#include "tests/app/recording_actions.h"
#include "tests/printing.h"
#include "tests/support/named_items.h"
#include "tests/support/scripted_terminal.h"
#include "ui/private_messages.h"

#include <stdexcept>

namespace {

using platform::WindowHandle;
using namespace ui::private_message;

// The screen over a root menu of 12 entries; the first is a menu itself.
class MainDialogTest : public testing::Test {
 protected:
  MainDialogTest() {
    for (char16_t name = u'a'; name < u'm'; ++name) Add(root_, WideString(1, name));
    Add(*root_.Children().front(), u"inner");
  }

  static void Add(model::MenuItem& menu, const WideString& name) { tests::AddNamed(menu, name); }

  void Run(bool largeLayout = true) {
    dialog_.Run(root_, largeLayout);
    EXPECT_TRUE(terminal_.display.PlayedToItsEnd());
  }

  WideString Title() const { return platform::TextOf(Control(app::control_id::kTitle)); }
  WindowHandle Control(int id) const { return platform::ControlOf(window_, id); }
  void Click(int id) const {
    platform::Send(window_, platform::message::kCommand, static_cast<platform::WParam>(id),
                   platform::ToLParam(Control(id)));
  }
  int VisibleBars() const {
    int count = 0;
    for (const WindowHandle child : platform::host::ChildrenOf(window_)) {
      count +=
          platform::host::KindOf(child) == platform::host::WindowKind::kCustom && platform::IsVisible(child) ? 1 : 0;
    }
    return count;
  }

  tests::ScriptedTerminal terminal_;
  tests::RecordingActions actions_;
  model::MenuItem root_{nullptr, u"R", u"Root", u"Root"};
  WindowHandle window_ = nullptr;
  app::MainDialog dialog_{actions_, terminal_.boxes, [this](WindowHandle window) { window_ = window; }};
};

TEST_F(MainDialogTest, TheSelectAndExitButtonsAreEnterAndEsc) {
  terminal_.display.Then([&] {
    Click(app::control_id::kSelectButton);
    EXPECT_EQ(u"a", Title());
    Click(app::control_id::kSelectButton);
    EXPECT_EQ("activate inner;", std::exchange(actions_.log, {}));
    Click(app::control_id::kExitButton);
    EXPECT_EQ(u"Root", Title());
    Click(app::control_id::kExitButton);
  });
  Run();
  EXPECT_EQ("leaving root;", actions_.log);
}

TEST_F(MainDialogTest, TheDialogsOwnOkAndCancelAreEnterAndEsc) {
  const auto command = [&](int id) {
    return [this, id] { platform::Send(window_, platform::message::kCommand, static_cast<platform::WParam>(id)); };
  };
  terminal_.display.Then(command(platform::kIdOk)).Then([&] { EXPECT_EQ(u"a", Title()); });
  terminal_.display.Then(command(platform::kIdCancel)).Then([&] { EXPECT_EQ(u"Root", Title()); });
  terminal_.display.Then(command(4711)).Then([&] { EXPECT_EQ(u"Root", Title()); });
  terminal_.display.Then(command(platform::kIdCancel));
  Run();
  EXPECT_EQ("leaving root;", actions_.log);
}

TEST_F(MainDialogTest, ASecondEditWhileOneRunsIsIgnored) {
  int first = 0;
  int second = 0;
  terminal_.display.Then([&] {
    const auto edit = [&](WindowHandle) {
      ++first;
      dialog_.RunEdit([&](WindowHandle) {
        ++second;
        return false;
      });
      return false;
    };
    dialog_.RunEdit(edit);
    dialog_.RunEdit(edit);
  });
  terminal_.display.Press("{Esc}");
  Run();
  EXPECT_EQ(2, first);
  EXPECT_EQ(0, second);
}

TEST_F(MainDialogTest, AnEditThatBreaksDownLeavesRoomForTheNext) {
  int second = 0;
  terminal_.display.Then([&] {
    EXPECT_THROW(dialog_.RunEdit([](WindowHandle) -> bool { throw std::runtime_error("no memory"); }),
                 std::runtime_error);
    dialog_.RunEdit([&](WindowHandle) {
      ++second;
      return false;
    });
  });
  terminal_.display.Press("{Esc}");
  Run();
  EXPECT_EQ(1, second);
}

// A dialog that Esc closes.
class Waiting final : public platform::MessageHandler {
 public:
  std::optional<platform::LResult> OnMessage(WindowHandle window, const platform::Message& message) override {
    if (message.id != platform::message::kCommand) return std::nullopt;
    platform::EndDialog(window, 0);
    return 1;
  }
};

TEST_F(MainDialogTest, ATreeThatComesWhileADialogIsOpenReplacesTheItemsWhenTheDialogIsClosed) {
  bool isThere = false;
  actions_.whileBroughtUpToDate = [&] {
    actions_.log += isThere ? "replace;" : "";
    if (!std::exchange(isThere, false)) return;
    dialog_.ReplaceItems([&] {
      root_.RemoveChildren();
      Add(root_, u"new");
      for (char16_t name = u'a'; name < u'm'; ++name) Add(root_, WideString(1, name));
    });
  };
  actions_.whileActive = [&] {
    isThere = true;
    platform::Post(window_, kRelayToList, kTreeReplaced);
    dialog_.RunEdit([&](WindowHandle owner) {
      Waiting waiting;
      platform::RunDialog({.style = platform::style::kPopup, .width = 20, .height = 20}, owner, waiting);
      actions_.log += "closed;";
      return false;
    });
  };
  terminal_.display.Press("93");  // the second page, then its third line
  terminal_.display.Then([&] {
    EXPECT_EQ("activate j;", actions_.log);
    EXPECT_NE(window_, platform::ActiveWindow());
  });
  terminal_.display.Press("{Esc}");
  terminal_.display.Then([&] {
    EXPECT_EQ("activate j;closed;replace;", std::exchange(actions_.log, {}));
    const platform::ListBox box(Control(ui::kMenuListId));
    EXPECT_EQ(9, box.Top());
    EXPECT_EQ(u"4  j", box.Line(box.Selected()));
  });
  terminal_.display.Press("{Esc}");
  Run();
}

TEST_F(MainDialogTest, HomeForgetsWhereTheMenuThatIsLeftStood) {
  for (const WideStringView name : {u"second", u"third"}) Add(*root_.Children().front(), WideString(name));
  terminal_.display.Press("{Enter}{Down}{Down}{Enter}{Home}");  // Enter makes it remember the line
  terminal_.display.Then([&] {
    EXPECT_EQ(u"Root", Title());
    EXPECT_EQ(0, platform::ListBox(Control(ui::kMenuListId)).Selected());
  });
  terminal_.display.Press("{Enter}");
  terminal_.display.Then([&] { EXPECT_EQ(0, platform::ListBox(Control(ui::kMenuListId)).Selected()); });
  // So it does with the root menu's own page.
  terminal_.display.Press("{Esc}{Up}{Home}");
  terminal_.display.Then([&] { EXPECT_EQ(0, platform::ListBox(Control(ui::kMenuListId)).Selected()); });
  terminal_.display.Press("{Esc}");
  Run();
}

TEST_F(MainDialogTest, HomeTakesOverATreeThatHasComeMeanwhile) {
  terminal_.display.Then([&] { actions_.broughtUpToDate = 0; });
  terminal_.display.Press("{Home}");
  terminal_.display.Then([&] { EXPECT_EQ(1, actions_.broughtUpToDate); });
  terminal_.display.Press("{Esc}");
  Run();
}

// The item that is activated is one of those that the replacement ends.
TEST_F(MainDialogTest, ATreeThatComesWhileAnItemIsActiveIsTakenOverOnceItIsNot) {
  actions_.whileActive = [&] {
    actions_.broughtUpToDate = 0;
    platform::Send(Control(ui::kMenuListId), kTreeReplaced);
    EXPECT_EQ(0, actions_.broughtUpToDate);
  };
  terminal_.display.Press("2");
  terminal_.display.Then([&] {
    EXPECT_EQ("activate b;", std::exchange(actions_.log, {}));
    EXPECT_EQ(1, actions_.broughtUpToDate);
  });
  terminal_.display.Press("{Esc}");
  Run();
  EXPECT_EQ(1, actions_.broughtUpToDate);  // and only once
}

TEST_F(MainDialogTest, WhenItIsMadeActiveItIsTheActiveWindow) {
  terminal_.display.Then([&] {
    const WindowHandle other = platform::MakeWindow({.className = u"Static",
                                                     .style = platform::style::kPopup | platform::style::kVisible,
                                                     .width = 20,
                                                     .height = 20});
    // The control that had the focus is gone, so that none can bring the window back with it.
    const WindowHandle field = platform::MakeWindow({.className = u"Edit",
                                                     .style = platform::style::kChild | platform::style::kVisible,
                                                     .width = 20,
                                                     .height = 20,
                                                     .parent = window_});
    platform::Focus(field);
    platform::Activate(other);
    platform::Destroy(field);
    platform::Send(window_, platform::message::kActivate, platform::kInactive);
    EXPECT_EQ(other, platform::ActiveWindow());
    platform::Send(window_, platform::message::kActivate, platform::kActive);
    EXPECT_EQ(window_, platform::ActiveWindow());
    platform::Destroy(other);
  });
  terminal_.display.Press("{Esc}");
  Run();
}

// A window that goes while it is set up takes its list with it.
TEST(MainDialogWithoutAList, SaysSoAndEnds) {
  tests::ScriptedTerminal terminal;
  tests::RecordingActions actions;
  model::MenuItem root(nullptr, u"R", u"Root", u"Root");
  app::MainDialog dialog(actions, terminal.boxes, [](WindowHandle window) { platform::Destroy(window); });
  EXPECT_EQ(0, dialog.Run(root, true));
  EXPECT_EQ(
      std::vector<std::string>{"Initialization Error: Error getting configuration data. Warm boot and try again. (1)"},
      terminal.boxes.shown);
  EXPECT_EQ("", actions.log);
}

TEST_F(MainDialogTest, AMessageShowsTheRootMenuAgain) {
  terminal_.display.Press("{Enter}");
  terminal_.display.Then([&] {
    EXPECT_EQ(u"a", Title());
    platform::Send(window_, kShowRootMenu);
    EXPECT_EQ(u"Root", Title());
  });
  terminal_.display.Press("{Esc}");
  Run();
}

TEST_F(MainDialogTest, ARequestToTheInlineAddressFieldThatIsNotThereIsAnsweredWithNothing) {
  terminal_.display.Then([&] {
    platform::LResult answer = 7;
    EXPECT_EQ(0, platform::Send(window_, kAddressFieldRequest, platform::message::kGetTextLength,
                                platform::ToLParam(&answer)));
    EXPECT_EQ(0, answer);
  });
  terminal_.display.Press("{Esc}");
  Run();
}

TEST_F(MainDialogTest, AMessageEndsIt) {
  terminal_.display.Then([&] { platform::Send(window_, kEndDialog); });
  EXPECT_EQ(0, dialog_.Run(root_, true));
  EXPECT_EQ("", actions_.log);
}

TEST_F(MainDialogTest, FiveKeysOfAnInlineEditorWorkOnTheList) {
  using namespace platform::key;
  terminal_.display.Then([&] {
    EXPECT_EQ(0, platform::Send(window_, kEditKey, kLeft));
    EXPECT_EQ(0, platform::Send(window_, kEditKey, kHome));
    for (const std::uint16_t key : {kDown, kTab, kUp, kEnter}) EXPECT_EQ(1, platform::Send(window_, kEditKey, key));
  });
  terminal_.display.Then([&] { EXPECT_EQ("activate b;", std::exchange(actions_.log, {})); });
  terminal_.display.Then([&] { EXPECT_EQ(1, platform::Send(window_, kEditKey, kEscape)); });
  Run();
  EXPECT_EQ("leaving root;", actions_.log);
}

TEST_F(MainDialogTest, WhatTheProgramChangesInAnInlineEditorIsNotReported) {
  terminal_.display.Then([&] {
    app::InlineEditors& editors = dialog_.Inline();
    editors.checkBox = platform::Button(platform::MakeWindow(
        {.className = u"Button",
         .style = platform::style::kChild | platform::style::kVisible | platform::style::kButtonCheckBox,
         .width = 20,
         .height = 20,
         .parent = window_,
         .id = app::kInlineCheckBoxId}));
    const auto notify = [&] { Click(app::kInlineCheckBoxId); };
    editors.suppressed = true;
    notify();
    EXPECT_EQ("", actions_.log);
    editors.suppressed = false;
    notify();
    EXPECT_EQ("a off;", std::exchange(actions_.log, {}));
  });
  terminal_.display.Press("{Esc}");
  Run();
}

TEST_F(MainDialogTest, TheTextPageHasItsOwnScrollBarInThePlaceOfTheLists) {
  terminal_.display.Then([&] {
    EXPECT_EQ(1, VisibleBars());
    const ui::ScrollThumb ofTheList = ui::CurrentScrollThumb();
    dialog_.ShowTextPage({u"one line"});
    EXPECT_EQ(0, VisibleBars());
    platform::Send(window_, kCloseTextPage);
    EXPECT_EQ(1, VisibleBars());
    dialog_.ShowTextPage(std::vector<WideString>(100, u"line"));
    EXPECT_EQ(1, VisibleBars());
    EXPECT_EQ(0, ui::CurrentScrollThumb().top);
    platform::Send(Control(app::control_id::kTextPage), platform::message::kKeyDown, platform::key::kEnd);
    const platform::Rect page = platform::RectInParent(Control(app::control_id::kTextPage));
    const ui::ScrollThumb atTheEnd = ui::CurrentScrollThumb();
    EXPECT_NEAR(page.Height(), atTheEnd.top + atTheEnd.length, 2);
    platform::Send(window_, kCloseTextPage);
    EXPECT_EQ(1, VisibleBars());
    EXPECT_EQ(ofTheList.length, ui::CurrentScrollThumb().length);
  });
  terminal_.display.Press("{Esc}");
  Run();
}

TEST_F(MainDialogTest, TheTextPageKeepsEmptyLinesWhereverTheyStand) {
  terminal_.display.Then([&] {
    dialog_.ShowTextPage({u"", u"a", u"", u"b", u""});
    EXPECT_EQ(u"\r\na\r\n\r\nb\r\n", platform::TextOf(Control(app::control_id::kTextPage)));
    platform::Send(window_, kCloseTextPage);
  });
  terminal_.display.Press("{Esc}");
  Run();
}

TEST_F(MainDialogTest, AnEmptyTextPageIsEmpty) {
  terminal_.display.Then([&] {
    dialog_.ShowTextPage({});
    EXPECT_EQ(u"", platform::TextOf(Control(app::control_id::kTextPage)));
  });
  terminal_.display.Press("{Esc}{Esc}");
  Run();
}

TEST_F(MainDialogTest, TheSmallScreensNavigationLineStandsBelowTheLastLineOfTheList) {
  auto& environment = platform::host::CurrentEnvironment();
  environment.screenWidthPx = environment.screenHeightPx = 160;
  terminal_.display.Then([&] {
    const platform::ListBox list(Control(ui::kMenuListId));
    const platform::Rect place = platform::RectInParent(list.Handle());
    const platform::Rect line = platform::RectInParent(Control(app::control_id::kNavigation));
    constexpr int kLinesOfAPage = 9;
    EXPECT_LE(place.top + kLinesOfAPage * list.ItemHeight(), line.top);
    EXPECT_LE(line.bottom, environment.screenHeightPx);
    const WideString text = platform::TextOf(Control(app::control_id::kNavigation));
    EXPECT_LE(platform::MeasureText(window_, text, {u"System", 13}), line.Width());
  });
  terminal_.display.Press("{Esc}");
  Run(false);
}

}  // namespace
