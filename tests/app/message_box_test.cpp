#include "app/message_box.h"

#include "app/dialog_templates.h"
#include "platform/host/desktop.h"
#include "tests/printing.h"
#include "tests/support/scripted_terminal.h"

namespace {

using platform::WindowHandle;
using values::kErrorBox;
using values::kExitChoiceBox;
using values::kMessageBox;
using values::kWarningBox;
using values::kYesNoBox;

class MessageBoxTest : public testing::Test {
 protected:
  void SetUp() override {
    main_ = platform::MakeWindow({.className = u"Static",
                                  .text = u"Main",
                                  .style = platform::style::kPopup | platform::style::kVisible,
                                  .width = 240,
                                  .height = 300});
    platform::Focus(main_);
    box_.SetOwner(main_);
  }

  int Answer(int kind, const std::string& keys) {
    terminal_.display.Press(keys);
    const int result = box_.Show(u"Text", u"Caption", kind);
    EXPECT_TRUE(terminal_.display.PlayedToItsEnd());
    return result;
  }

  tests::ScriptedTerminal terminal_;
  WindowHandle main_ = nullptr;
  app::MessageBox box_;
};

TEST_F(MessageBoxTest, EveryKindAnswersEnterAndEscInItsWay) {
  const struct {
    int kind;
    const char* keys;
    int result;
  } cases[] = {
      {kMessageBox, "{Enter}", 0},
      {kMessageBox, "{Esc}", -1},
      {kYesNoBox, "{Enter}", 6},
      {kYesNoBox, "{Down}{Enter}", 7},
      {kYesNoBox, "{Down}{Up}{Enter}", 6},
      {kYesNoBox, "{Down}{Esc}", -1},
      {kExitChoiceBox, "{Enter}", 102},
      {kExitChoiceBox, "{Down}{Enter}", 101},
      {kExitChoiceBox, "{Down}{Down}{Enter}", 2},
      {kExitChoiceBox, "{Esc}", -1},
      {kErrorBox, "{Esc}", -1},
      {kWarningBox, "{Esc}", -1},
  };
  for (const auto& c : cases) EXPECT_EQ(c.result, Answer(c.kind, c.keys)) << c.kind << " " << c.keys;
}

TEST_F(MessageBoxTest, ATextBoxShowsCaptionTextAndPressEnter) {
  terminal_.display.Then([this] {
    const WindowHandle box = platform::ActiveWindow();
    EXPECT_EQ(u"Caption", platform::TextOf(box));
    EXPECT_EQ(u"Text", platform::TextOf(platform::ControlOf(box, app::control_id::kMessage)));
    EXPECT_TRUE(platform::IsVisible(platform::ControlOf(box, app::control_id::kPressEnter)));
    EXPECT_FALSE(platform::IsVisible(platform::ControlOf(box, app::control_id::kAnswers)));
    EXPECT_FALSE(platform::IsEnabled(main_));
    EXPECT_EQ(10, platform::WindowRect(box).left);
    EXPECT_EQ(5, platform::WindowRect(box).top);
  });
  Answer(kErrorBox, "{Enter}");
}

TEST_F(MessageBoxTest, AQuestionOffersYesThenNo) {
  terminal_.display.Then([] {
    const WindowHandle box = platform::ActiveWindow();
    const auto list = platform::host::ListStateOf(platform::ControlOf(box, app::control_id::kAnswers));
    ASSERT_TRUE(list);
    EXPECT_EQ((std::vector<WideString>{u"Yes", u"No"}), list->lines);
    EXPECT_EQ(0, list->selected);
    EXPECT_FALSE(platform::IsVisible(platform::ControlOf(box, app::control_id::kPressEnter)));
  });
  Answer(kYesNoBox, "{Enter}");
}

TEST_F(MessageBoxTest, TheExitChoiceShowsNothingButItsThreeLines) {
  terminal_.display.Then([] {
    const WindowHandle box = platform::ActiveWindow();
    EXPECT_EQ(1u, platform::host::ChildrenOf(box).size());
    const auto list = platform::host::ListStateOf(platform::ControlOf(box, app::control_id::kExitChoices));
    ASSERT_TRUE(list);
    EXPECT_EQ((std::vector<WideString>{u" Discard changes", u" Save changes", u" Do not exit"}), list->lines);
    EXPECT_EQ(35, platform::WindowRect(box).top);
  });
  Answer(kExitChoiceBox, "{Esc}");
}

TEST_F(MessageBoxTest, TheFocusReturnsToWhereItWas) {
  const WindowHandle field = platform::MakeWindow({.className = u"Edit",
                                                   .style = platform::style::kChild | platform::style::kVisible,
                                                   .width = 80,
                                                   .height = 20,
                                                   .parent = main_});
  platform::Focus(field);
  Answer(kMessageBox, "{Enter}");
  EXPECT_EQ(field, platform::FocusedWindow());
  Answer(kMessageBox, "{Esc}");
  EXPECT_EQ(field, platform::FocusedWindow());
  EXPECT_TRUE(platform::IsEnabled(main_));
}

TEST_F(MessageBoxTest, AnOwnerThatWasDisabledForAnEditDialogStaysSo) {
  for (const char* const key : {"{Enter}", "{Esc}"}) {
    platform::Enable(main_, false);
    Answer(kWarningBox, key);
    EXPECT_FALSE(platform::IsEnabled(main_)) << key;
  }
}

TEST_F(MessageBoxTest, NoWaitCursorIsShownWhileItStands) {
  const platform::WaitCursor outer(main_);
  const platform::WaitCursor inner(main_);
  bool shown = true;
  terminal_.display.Then([&] { shown = platform::host::IsWaitCursorShown(); });
  Answer(kMessageBox, "{Enter}");
  EXPECT_FALSE(shown);
  EXPECT_TRUE(platform::host::IsWaitCursorShown());
}

TEST_F(MessageBoxTest, BoxesWorkWithoutAMainWindow) {
  box_.SetOwner(nullptr);
  EXPECT_EQ(0, Answer(kMessageBox, "{Enter}"));
}

TEST(MessageBoxTemplate, ATextTwiceAsWideAsTheMainWindowTakesTheTallOne) {
  EXPECT_EQ(113, app::TemplateFor(kMessageBox, 399, 200).id);
  EXPECT_EQ(114, app::TemplateFor(kMessageBox, 400, 200).id);
  EXPECT_EQ(114, app::TemplateFor(kYesNoBox, 1000, 200).id);
  EXPECT_EQ(115, app::TemplateFor(kExitChoiceBox, 1000, 200).id);
}

}  // namespace
