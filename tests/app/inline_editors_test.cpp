#include "app/inline_editors.h"

#include "tests/app/recording_actions.h"
#include "tests/printing.h"
#include "tests/support/scripted_terminal.h"
#include "ui/ip_address_control.h"

namespace {

using platform::Message;
using platform::WindowHandle;

// Answers the messages of an inline value field.
class ValueField final : public platform::MessageHandler {
 public:
  std::optional<platform::LResult> OnMessage(WindowHandle, const Message& message) override {
    if (message.id == platform::message::kUser + 101) given = message.lParam;
    if (message.id == platform::message::kUser + 102) *platform::FromParam<WideString>(message.lParam) = u"field";
    return std::nullopt;
  }
  static inline platform::LParam given = 0;
};

class InlineEditorsTest : public testing::Test {
 protected:
  void SetUp() override {
    main_ = Make(u"Static", nullptr, 0);
    platform::RegisterWindowClass(
        {.name = u"ValueField", .make = [](WindowHandle) { return std::make_unique<ValueField>(); }});
    ui::RegisterAddressControl(terminal_.boxes, insertFlag_);
    for (std::size_t i = 0; i < 3; ++i) {
      editors_.radioButtons[i] =
          platform::Button(Make(u"Button", main_, app::kInlineRadioIds[i], platform::style::kButtonRadio));
    }
    editors_.checkBox =
        platform::Button(Make(u"Button", main_, app::kInlineCheckBoxId, platform::style::kButtonCheckBox));
    editors_.choices = platform::ComboBox(Make(u"ComboBox", main_, 2001, platform::style::kComboDropDownList));
    editors_.valueField = Make(u"ValueField", main_, 2002);
    editors_.addressField = Make(ui::kAddressClassName, main_, 2003);
    editors_.valueEditors = {Make(u"Edit", main_, 2004), Make(u"Edit", main_, 2005)};
    editors_.initialFieldValue = 77;
  }

  static WindowHandle Make(WideStringView className, WindowHandle parent, int id, platform::style::Bits style = 0) {
    const auto kind = parent == nullptr ? platform::style::kPopup : platform::style::kChild;
    return platform::MakeWindow({.className = className,
                                 .style = kind | platform::style::kVisible | style,
                                 .width = 120,
                                 .height = 20,
                                 .parent = parent,
                                 .id = id});
  }

  bool Notify(WindowHandle control, int code) {
    const auto wParam = static_cast<platform::WParam>((code << 16) | platform::IdOf(control));
    return editors_.OnCommand({platform::message::kCommand, wParam, platform::ToLParam(control)}, &item_, actions_);
  }

  tests::ScriptedTerminal terminal_;
  ui::InsertFlag insertFlag_;
  WindowHandle main_ = nullptr;
  app::InlineEditors editors_;
  tests::RecordingActions actions_;
  model::MenuItem item_{nullptr, u"R\\a", u"Item", u"Item"};
};

constexpr int kClick = platform::notification::kButtonClicked;
constexpr int kChange = platform::notification::kEditChange;

TEST_F(InlineEditorsTest, TheValueFieldGetsItsValueAndHides) {
  editors_.Initialise();
  EXPECT_EQ(77, ValueField::given);
  EXPECT_FALSE(platform::IsVisible(editors_.valueField));
  EXPECT_TRUE(platform::IsEnabled(editors_.valueField));
}

TEST_F(InlineEditorsTest, ARadioButtonChecksItselfAloneAndReportsTheEditorBesideIt) {
  platform::SetText(editors_.valueEditors[0], u"first");
  platform::SetText(editors_.valueEditors[1], u"second");
  for (const platform::Button& button : editors_.radioButtons) {
    EXPECT_TRUE(Notify(button.Handle(), kClick));
    for (const platform::Button& other : editors_.radioButtons) {
      EXPECT_EQ(other.Handle() == button.Handle(), other.IsChecked());
    }
  }
  EXPECT_EQ("Item=field;Item=first;Item=second;", actions_.log);
}

TEST_F(InlineEditorsTest, TheCheckBoxReportsItsState) {
  editors_.checkBox.SetChecked(true);
  Notify(editors_.checkBox.Handle(), kClick);
  editors_.checkBox.SetChecked(false);
  Notify(editors_.checkBox.Handle(), kClick);
  EXPECT_EQ("Item on;Item off;", actions_.log);
}

TEST_F(InlineEditorsTest, OnlyTheDropDownListReportsAChoice) {
  editors_.choices.Add(u"A");
  editors_.choices.Add(u"B");
  editors_.choices.Select(1);
  Notify(editors_.choices.Handle(), platform::notification::kComboSelectionChange);
  EXPECT_EQ("Item#B;", actions_.log);
}

TEST_F(InlineEditorsTest, TheFieldsReportTheirTexts) {
  platform::SetText(editors_.valueEditors[1], u"typed");
  platform::Send(editors_.addressField, ui::address_message::kSet, 0, 0x0A000001);
  actions_.log.clear();
  Notify(editors_.valueField, kClick);
  Notify(editors_.valueEditors[1], kChange);
  Notify(editors_.addressField, kChange);
  EXPECT_EQ("Item=field;Item=typed;Item=10.0.0.1;", actions_.log);
}

TEST_F(InlineEditorsTest, WhatTheProgramItselfChangesIsNotReported) {
  editors_.suppressed = true;
  EXPECT_TRUE(Notify(editors_.checkBox.Handle(), kClick));
  EXPECT_TRUE(Notify(editors_.valueEditors[0], kChange));
  EXPECT_EQ("", actions_.log);
}

TEST_F(InlineEditorsTest, OtherNotificationsAndOtherControlsAreNotTheirs) {
  EXPECT_FALSE(Notify(editors_.valueEditors[0], platform::notification::kEditSetFocus));
  EXPECT_FALSE(Notify(Make(u"Edit", main_, 3000), kChange));
  EXPECT_EQ("", actions_.log);
}

TEST_F(InlineEditorsTest, EachControlListensToItsOwnNotificationAlone) {
  for (const WindowHandle control : {editors_.radioButtons[1].Handle(), editors_.checkBox.Handle(), editors_.valueField,
                                     editors_.choices.Handle(), editors_.addressField}) {
    EXPECT_FALSE(Notify(control, platform::notification::kEditSetFocus));
  }
  EXPECT_FALSE(Notify(nullptr, kClick));
  EXPECT_EQ("", actions_.log);
}

TEST_F(InlineEditorsTest, WithoutASelectedItemNothingIsReported) {
  const Message click{platform::message::kCommand, 0, platform::ToLParam(editors_.radioButtons[2].Handle())};
  EXPECT_TRUE(editors_.OnCommand(click, nullptr, actions_));
  EXPECT_TRUE(editors_.radioButtons[2].IsChecked());
  EXPECT_EQ("", actions_.log);
}

}  // namespace
