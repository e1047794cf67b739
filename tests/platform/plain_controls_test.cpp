// Buttons, drop-down lists and progress bars: what their keys, clicks and messages do.
#include "tests/platform/host_fixture.h"

#include <gtest/gtest.h>

#include <array>

namespace platform {
namespace {

using namespace host;

class ComboBoxTest : public HostTest {
 protected:
  ComboBox MakeCombo(std::initializer_list<const char16_t*> lines) {
    const ComboBox combo(MakeControl(u"ComboBox", style::kComboDropDownList));
    for (const char16_t* line : lines) combo.Add(line);
    return combo;
  }
};

TEST_F(ComboBoxTest, LinesAreThoseThatWereAdded) {
  const ComboBox combo = MakeCombo({u"one", u"", u"three"});
  EXPECT_EQ((std::vector<WideString>{u"one", u"", u"three"}), ComboLinesOf(combo.Handle()));
  EXPECT_EQ(u"three", combo.Line(2));
  EXPECT_EQ(u"", combo.Line(1));
  EXPECT_EQ(u"", combo.Line(3));
  EXPECT_EQ(u"", combo.Line(-1));
  char16_t buffer[8] = u"before";
  EXPECT_EQ(-1, Send(combo.Handle(), message::kComboGetText, 3, ToLParam(buffer)));
  EXPECT_EQ(u"before", WideString(buffer));
}

TEST_F(ComboBoxTest, TheTextIsTheSelectedLineAndCannotBeSet) {
  const ComboBox combo = MakeCombo({u"one", u"two"});
  EXPECT_EQ(u"", TextOf(combo.Handle()));
  combo.Select(1);
  SetText(combo.Handle(), u"other");
  EXPECT_EQ(u"two", TextOf(combo.Handle()));
  for (const int none : {-1, 2}) {
    combo.Select(1);
    EXPECT_EQ(-1, Send(combo.Handle(), message::kComboSetCurrentSelection, static_cast<WParam>(none)));
    EXPECT_EQ(-1, combo.Selected());
    EXPECT_EQ(u"", TextOf(combo.Handle()));
  }
}

TEST_F(ComboBoxTest, ACharacterSelectsTheNextLineThatBeginsWithIt) {
  const ComboBox combo = MakeCombo({u"alpha", u"", u"beta", u"Aleph"});
  const struct {
    char16_t typed;
    int selected;
  } cases[] = {{u'b', 2}, {u'a', 3}, {u'a', 0}, {u'A', 3}, {u'x', 3}};
  for (const auto& c : cases) {
    Type(combo.Handle(), WideString(1, c.typed));
    EXPECT_EQ(c.selected, combo.Selected()) << static_cast<int>(c.typed);
  }
  EXPECT_EQ(std::vector<int>(4, notification::kComboSelectionChange), notifications);
}

TEST_F(ComboBoxTest, AnEmptyOneKnowsNoKeys) {
  const ComboBox combo = MakeCombo({});
  for (const auto key : {key::kUp, key::kDown, key::kHome, key::kEnd, key::kTab}) Press(combo.Handle(), key);
  Type(combo.Handle(), u"a");
  EXPECT_EQ(-1, combo.Selected());
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ComboBoxTest, AClickTakesTheFocusAndTheArrowsAreItsOwn) {
  const ComboBox combo = MakeCombo({u"one"});
  Focus(frameWindow);
  Send(combo.Handle(), message::kLeftButtonDown);
  EXPECT_EQ(combo.Handle(), FocusedWindow());
  EXPECT_EQ(dialog_code::kWantArrows | dialog_code::kWantChars, Send(combo.Handle(), message::kGetDialogCode));
}

TEST_F(ComboBoxTest, ItIsPaintedOnceAfterAChange) {
  const ComboBox combo = MakeCombo({u"one"});
  PauseMs(0);
  EXPECT_TRUE(IsIdle());
  combo.Select(0);
  EXPECT_FALSE(IsIdle());
  PauseMs(0);
  EXPECT_TRUE(IsIdle());
}

class ButtonTest : public HostTest {};

TEST_F(ButtonTest, EachTypeAnswersTheDialogAsWhatItIs) {
  const struct {
    style::Bits type;
    LResult code;
    bool isDefault;
  } cases[] = {{0, 0x2020, false},
               {style::kButtonDefault, 0x2010, true},
               {style::kButtonCheckBox, 0x2000, false},
               {style::kButtonRadio, 0x2040, false}};
  for (const auto& c : cases) {
    const WindowHandle button = MakeControl(u"Button", c.type);
    EXPECT_EQ(c.code, Send(button, message::kGetDialogCode)) << c.type;
    EXPECT_EQ(c.isDefault, ButtonStateOf(button)->isDefault) << c.type;
  }
}

TEST_F(ButtonTest, OnlyWhatHasAMarkCanBeChecked) {
  for (const auto& [type, checked] : {std::pair{style::Bits{0}, false}, std::pair{style::kButtonDefault, false},
                                      std::pair{style::kButtonCheckBox, true}, std::pair{style::kButtonRadio, true}}) {
    const Button button(MakeControl(u"Button", type));
    button.SetChecked(true);
    EXPECT_EQ(checked, button.IsChecked()) << type;
    EXPECT_EQ(checked, ButtonStateOf(button.Handle())->checked) << type;
  }
}

TEST_F(ButtonTest, SpacePressesAndItsReleaseTells) {
  const WindowHandle button = MakeControl(u"Button", 0);
  Send(button, message::kKeyUp, key::kSpace);
  EXPECT_TRUE(notifications.empty());  // was not pressed here
  Press(button, key::kHome);
  Send(button, message::kKeyUp, key::kSpace);
  EXPECT_TRUE(notifications.empty());
  Press(button, key::kSpace);
  Send(button, message::kKeyUp, key::kHome);
  EXPECT_TRUE(notifications.empty());
  Send(button, message::kKeyUp, key::kSpace);
  EXPECT_EQ(std::vector<int>{notification::kButtonClicked}, notifications);
}

TEST_F(ButtonTest, LosingTheFocusTakesThePressBack) {
  const WindowHandle button = MakeControl(u"Button", 0);
  Press(button, key::kSpace);
  Focus(frameWindow);
  Send(button, message::kLeftButtonUp);
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ButtonTest, ARadioButtonThatIsReachedTellsUnlessItIsChecked) {
  const Button button(MakeControl(u"Button", style::kButtonRadio));
  Focus(frameWindow);
  Focus(button.Handle());
  EXPECT_EQ(std::vector<int>{notification::kButtonClicked}, std::exchange(notifications, {}));
  button.SetChecked(true);
  Focus(frameWindow);
  Focus(button.Handle());
  EXPECT_TRUE(notifications.empty());
  button.SetChecked(false);
  Focus(frameWindow);
  Send(button.Handle(), message::kButtonClick);
  EXPECT_EQ(std::vector<int>{notification::kButtonClicked}, notifications);  // once, by the click
}

class ProgressBarTest : public HostTest {};

TEST_F(ProgressBarTest, ThePositionStaysInItsRangeAndTheOneBeforeIsAnswered) {
  constexpr std::uint32_t kSetRange = message::kUser + 1;
  const WindowHandle bar = MakeControl(u"msctls_progress32", 0);
  EXPECT_EQ(0, ProgressStateOf(bar)->position);
  EXPECT_EQ(100, ProgressStateOf(bar)->maximum);
  EXPECT_EQ(0, Send(bar, message::kProgressSetPosition, 40));
  EXPECT_EQ(40, Send(bar, message::kProgressSetPosition, 140));
  EXPECT_EQ(100, ProgressStateOf(bar)->position);
  Send(bar, kSetRange, 0, 30 << 16 | 10);
  EXPECT_EQ(30, ProgressStateOf(bar)->position);
  EXPECT_EQ(30, ProgressStateOf(bar)->maximum);
  EXPECT_EQ(30, Send(bar, message::kProgressSetPosition, 0));
  EXPECT_EQ(10, ProgressStateOf(bar)->position);
  PauseMs(0);
  EXPECT_TRUE(IsIdle());
  Send(bar, message::kProgressSetPosition, 20);
  EXPECT_FALSE(IsIdle());
}

// Two groups of radio buttons, as in a dialog: the arrows stay in a group and choose.
TEST_F(ButtonTest, ArrowsChooseAmongTheRadioButtonsOfAGroup) {
  constexpr style::Bits kRadio = style::kVisible | style::kButtonRadio;
  const std::array<DialogControl, 5> controls{{
      {1, u"Button", u"a", kRadio | style::kGroup | style::kTabStop, 0, 0, 10, 10},
      {2, u"Button", u"b", kRadio, 0, 10, 10, 10},
      {3, u"Button", u"c", kRadio | style::kGroup, 0, 20, 10, 10},
      {4, u"Button", u"d", kRadio | style::kDisabled, 0, 30, 10, 10},
      {5, u"Button", u"e", kRadio, 0, 40, 10, 10},
  }};
  DialogTemplate dialog;
  dialog.style = style::kPopup | style::kVisible;
  dialog.width = dialog.height = 100;
  dialog.controls = controls;
  MessageTable handler;
  std::string chosen;
  handler.On(message::kCommand, [&](WindowHandle, const Message& message) {
    chosen += std::to_string(CommandId(message));
    return 1;
  });
  handler.On(message::kInitDialog, [](WindowHandle, const Message&) { return 1; });
  WindowHandle window = nullptr;
  display.Then([&] { window = ActiveWindow(); })
      .Press("{Down}{Down}{Up}")
      .Then([&] {
        EXPECT_EQ("1212", std::exchange(chosen, ""));  // the first by the focus it begins with
        Focus(ControlOf(window, 3));
      })
      .Press("{Right}{Left}");
  RunDialog(dialog, nullptr, handler);
  EXPECT_EQ("353", chosen);
}

}  // namespace
}  // namespace platform
