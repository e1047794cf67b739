#include "ui/entry_kinds.h"

#include "tests/printing.h"
#include "tests/support/scripted_terminal.h"
#include "ui/edit_templates.h"

#include <algorithm>

namespace {

using ui::EditRequest;
using ui::EntryKind;

TEST(EntryKinds, TheKindFollowsTypeSubtypeAndChoices) {
  const std::vector<WideString> none;
  const std::vector<WideString> flags = {u"TRUE", u"FALSE"};
  const std::vector<WideString> lowerFlags = {u"false", u"true"};
  const std::vector<WideString> three = {u"TRUE", u"FALSE", u"Other"};
  const std::vector<WideString> two = {u"On", u"FALSE"};
  const struct {
    const char16_t* type;
    const char16_t* subType;
    const std::vector<WideString>& choices;
    EntryKind kind;
  } cases[] = {
      {u"", u"", none, EntryKind::kNone},
      {u"None", u"", two, EntryKind::kNone},
      {u"ReaderCmd", u"", two, EntryKind::kNone},
      {u"Counter", u"", none, EntryKind::kNone},

      {u"Integer", u"", none, EntryKind::kNumber},
      {u"INTEGER", u"", none, EntryKind::kNumber},
      {u"Integer", u"", two, EntryKind::kChoices},
      {u"Integer", u"", flags, EntryKind::kChoices},
      {u"Integer", u"Date", none, EntryKind::kDate},
      {u"Integer", u"date", two, EntryKind::kDate},  // even with choices
      {u"Integer", u"Time", two, EntryKind::kTime},
      {u"Integer", u"Funk", none, EntryKind::kNumber},

      {u"Bool", u"", none, EntryKind::kTrueFalse},
      {u"Bool", u"", flags, EntryKind::kTrueFalse},
      {u"Bool", u"", two, EntryKind::kChoices},

      {u"Octet String", u"", none, EntryKind::kText},
      {u"octet string", u"Date", none, EntryKind::kText},  // only numbers are dates
      {u"Octet String", u"", flags, EntryKind::kTrueFalse},
      {u"Octet String", u"", lowerFlags, EntryKind::kTrueFalse},
      {u"Octet String", u"", two, EntryKind::kChoices},  // the first is neither
      {u"Octet String", u"", three, EntryKind::kChoices},
      {u"Hex", u"", none, EntryKind::kHex},
      {u"Hex", u"", three, EntryKind::kChoices},
      {u"Hex", u"", flags, EntryKind::kTrueFalse},
      {u"Hex32", u"", none, EntryKind::kHex32},
      {u"Hex32", u"", two, EntryKind::kChoices},
      {u"Hex32", u"", flags, EntryKind::kTrueFalse},

      {u"IP Address", u"", two, EntryKind::kAddress},
      {u"Password", u"", two, EntryKind::kText},
  };
  for (const auto& c : cases) {
    EditRequest request;
    request.editorType = c.type;
    request.subType = c.subType;
    request.choices = c.choices;
    EXPECT_EQ(c.kind, ui::ChooseEntryKind(request))
        << base::ToUtf8(c.type) << " " << base::ToUtf8(c.subType) << " " << c.choices.size();
  }
}

TEST(EntryKinds, EveryKindHasItsControlInBothTemplates) {
  for (const EntryKind kind :
       {EntryKind::kText, EntryKind::kNumber, EntryKind::kHex, EntryKind::kHex32, EntryKind::kChoices,
        EntryKind::kTrueFalse, EntryKind::kDate, EntryKind::kTime, EntryKind::kAddress}) {
    const int id = ui::EntryControlId(kind);
    for (const platform::DialogTemplate* layout : {&ui::kSmallEditDialog, &ui::kLargeEditDialog}) {
      EXPECT_TRUE(std::any_of(layout->controls.begin(), layout->controls.end(),
                              [id](const platform::DialogControl& control) { return control.id == id; }))
          << static_cast<int>(kind);
    }
  }
  EXPECT_EQ(0, ui::EntryControlId(EntryKind::kNone));
}

// Brings a text whenever something is pasted.
class Clipboard final : public platform::MessageHandler {
 public:
  explicit Clipboard(WideStringView text) : text_(text) {}
  std::optional<platform::LResult> OnMessage(platform::WindowHandle window,
                                             const platform::Message& received) override {
    if (received.id != platform::message::kPaste) return std::nullopt;
    platform::EditField(window).ReplaceSelection(text_);
    return 0;
  }

 private:
  WideString text_;
};

TEST(EntryKinds, WhatIsNoNumberCannotBePastedIntoOne) {
  const struct {
    EntryKind kind;
    WideStringView pasted;
    WideStringView after;
  } cases[] = {
      {EntryKind::kNumber, u"77", u"77"},
      {EntryKind::kNumber, u"7x", u"5"},
      {EntryKind::kNumber, u"1234567", u"5"},  // longer than the mask
      {EntryKind::kText, u"7x", u"7x"},
  };
  const tests::ScriptedTerminal terminal;
  for (const auto& c : cases) {
    const platform::WindowHandle field =
        platform::MakeWindow({.className = u"Edit", .style = platform::style::kVisible, .width = 100, .height = 20});
    Clipboard clipboard(c.pasted);
    const platform::Subclass beneath(field, clipboard);
    ui::InsertFlag flag;
    const auto entry = ui::MakeEntryControl(c.kind, field, flag);
    EditRequest request;
    request.text = u"5";
    if (c.kind == EntryKind::kNumber) request.mask = u"######";
    entry->Fill(request);
    platform::Send(field, platform::message::kPaste);
    EXPECT_EQ(c.after, platform::TextOf(field));
  }
}

}  // namespace
