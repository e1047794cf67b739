#include "ui/edit_dialog.h"

#include "base/number.h"
#include "model/menu_item.h"
#include "platform/controls.h"
#include "platform/host/desktop.h"
#include "tests/ui_unit/property_bench.h"
#include "ui/edit_templates.h"
#include "ui/ip_address_control.h"
#include "ui/private_messages.h"
#include "values/submission.h"

#include <iterator>
#include <random>
#include <string>

namespace {

namespace host = platform::host;
namespace message = platform::message;

using platform::WindowHandle;
using Strings = std::vector<std::string>;

std::string Quoted(WideStringView text) { return '"' + base::ToUtf8(text) + '"'; }

// One visible control: id, class, contents and, of an edit field, the selection.
std::string Describe(WindowHandle window) {
  const std::string id = std::to_string(platform::IdOf(window)) + " ";
  switch (host::KindOf(window)) {
    case host::WindowKind::kEdit: {
      const auto selection = platform::EditField(window).GetSelection();
      return id + "edit " + Quoted(platform::TextOf(window)) + " " + std::to_string(selection.start) + "-" +
             std::to_string(selection.end);
    }
    case host::WindowKind::kListBox: {
      const platform::ListBox list(window);
      std::string lines;
      for (int i = 0; i < list.Count(); ++i) {
        lines += (i == list.Selected() ? " >" : " ") + base::ToUtf8(list.Line(i));
      }
      return id + "list" + lines;
    }
    case host::WindowKind::kDateTimePicker: return id + "picker " + Quoted(host::PickerStateOf(window)->shown);
    case host::WindowKind::kButton: return id + "button " + Quoted(platform::TextOf(window));
    case host::WindowKind::kCustom: {
      std::string fields;
      for (const WindowHandle field : host::ChildrenOf(window)) fields += " " + Quoted(platform::TextOf(field));
      return id + "ip" + fields;
    }
    default: return id + "static " + Quoted(platform::TextOf(window));
  }
}

// A main window with a list, and everything that an edit touches.
class EditBench : public ui_test::PropertyBench {
 public:
  EditBench() {
    ui::RegisterAddressControl(terminal.boxes, insertFlag);
    owner = platform::MakeWindow({.className = u"Static",
                                  .text = u"Main",
                                  .style = platform::style::kVisible | platform::style::kPopup,
                                  .width = 240,
                                  .height = 300});
    list = platform::MakeWindow({.className = u"ListBox",
                                 .style = platform::style::kVisible | platform::style::kChild,
                                 .width = 100,
                                 .height = 100,
                                 .parent = owner,
                                 .id = 1002});
    platform::Activate(owner);
    platform::Focus(list);
  }

  // The line of a property, as it is built.
  model::MenuItem& Line(values::PropertyDescriptor& descriptor) {
    model::MenuItem& item = root_.AddChild(u"P", u"Thing", u"Thing");
    item.SetDescriptor(&descriptor);
    item.SetSuffix(u"  <old>");
    device.TakeLog();
    return item;
  }
  model::MenuItem& LineOf(WideStringView type, WideStringView value, tests::KeyValues more = {}) {
    return Line(Make(type, value, std::move(more)));
  }

  void Press(const std::string& keys) { terminal.display.Press(keys); }
  void Look(std::function<void()> action) { terminal.display.Then(std::move(action)); }
  void ExpectScreen(const Strings& controls) {
    Look([controls] { EXPECT_EQ(controls, Screen()); });
  }
  bool Edit(model::MenuItem& item, bool large = false) {
    const ui::EditContext context{editors, committer, actions, view, insertFlag};
    const bool saved = ui::RunEditDialog(context, item, large, owner);
    EXPECT_TRUE(terminal.display.PlayedToItsEnd());
    return saved;
  }

  // The visible controls of the active window.
  static Strings Screen() {
    Strings controls;
    for (const WindowHandle child : host::ChildrenOf(platform::ActiveWindow())) {
      if (platform::IsVisible(child)) controls.push_back(Describe(child));
    }
    return controls;
  }
  static WindowHandle Control(int id) { return platform::ControlOf(platform::ActiveWindow(), id); }

  // What went to the device and what was run afterwards, in order.
  Strings TakeLog() { return std::exchange(log_, {}); }
  Strings TakeSets() {
    Strings sets;
    for (const WideString& line : device.TakeLog()) {
      if (line.starts_with(u"set")) sets.push_back(base::ToUtf8(line));
    }
    return sets;
  }

  class Actions final : public ui::EditActions, private values::SubmitHost {
   public:
    explicit Actions(EditBench& bench) : bench_(bench) {}
    bool ApplyChanges() override {
      bench_.log_.push_back("apply");
      appliedUnderTheWaitCursor = host::IsWaitCursorShown();
      int status = 0;
      return values::SnmpSetChanges(
                 bench_.changes, status,
                 {bench_.access, bench_.descriptors, bench_.terminal.boxes, *this, bench_.valueWritten}) == 0;
    }
    void RunPostEditAction(WideStringView command, model::MenuItem& item) override {
      bench_.log_.push_back("run " + base::ToUtf8(command) + " on " + base::ToUtf8(item.DisplayName()));
    }
    bool appliedUnderTheWaitCursor = false;

   private:
    WideString ErrorTextOf(WideStringView) override { return {}; }
    void Started() override {}
    void Settled(const values::PendingChange& change, bool taken) override {
      auto* property = values::FindDescriptor(bench_.descriptors, change.oid);
      taken ? property->SetTaken(change.value) : property->SetRefused(change.value);
    }
    EditBench& bench_;
  };

  class View final : public model::MenuView {
   public:
    explicit View(EditBench& bench) : bench_(bench) {}
    model::MenuItem* CurrentMenu() override { return &bench_.root_; }
    void LineChanged(model::MenuItem& item) override { bench_.log_.push_back("line " + base::ToUtf8(item.LineText())); }
    void Refill() override { bench_.log_.push_back("refill"); }
    void FocusList() override {}

   private:
    EditBench& bench_;
  };

  WindowHandle owner = nullptr;
  WindowHandle list = nullptr;
  ui::InsertFlag insertFlag;
  ui::EditorTable editors;
  values::ChangeList changes;
  values::EventNames events;
  values::EditState editState;
  values::ValueCommitter committer{descriptors, terminal.boxes, changes, events, editState};
  bool valueWritten = false;
  Actions actions{*this};
  View view{*this};

 private:
  model::MenuItem root_{nullptr, u"Root", u"Root", u"Root"};
  Strings log_;
};

const Strings kNothing;

// --- opening and closing ---

TEST(EditDialog, SavingANumberSendsItAndRewritesTheLine) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.ExpectScreen({"1035 edit \"5\" 0-1", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("42{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 42"}, bench.TakeSets());
  EXPECT_EQ((Strings{"apply", "line Thing  <42>", "refill"}), bench.TakeLog());
  EXPECT_EQ(u"Thing  <42>", item.LineText());
  EXPECT_EQ(42, item.Descriptor()->GetValue().AsInteger());
}

TEST(EditDialog, SavingWithoutAChangeWritesNothing) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Press("{Enter}");
  EXPECT_FALSE(bench.Edit(item));
  EXPECT_EQ(kNothing, bench.TakeSets());
  EXPECT_EQ(kNothing, bench.TakeLog());
  EXPECT_EQ(u"Thing  <old>", item.LineText());
}

TEST(EditDialog, WhatAControlRefusesOrHoldsAlreadyIsNoChange) {
  const struct {
    const char16_t* type;
    const char16_t* value;
    tests::KeyValues attributes;
    const char* keys;
  } cases[] = {
      {u"Octet String", u"abc", {{u"MaxChars", u"3"}}, "{End}x"},  // the field is full
      {u"Octet String", u"abc", {}, "{End}{Delete}"},
      {u"Octet String", u"abc", {}, "{Home}{Backspace}"},
      {u"Octet String", u"", {}, "{Backspace}"},
      {u"Integer", u"5", {}, "x"},
      {u"Integer", u"1", {{u"ChoiceFmt", u"1#A|2#B"}}, "{Up}"},
      {u"Integer", u"2", {{u"ChoiceFmt", u"1#A|2#B"}}, "{Down}"},
      {u"Bool", u"1", {}, "{Up}"},
  };
  for (const auto& c : cases) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(c.type, c.value, c.attributes);
    bench.Press(std::string(c.keys) + "{Enter}");
    EXPECT_FALSE(bench.Edit(item)) << c.keys;
    EXPECT_EQ(kNothing, bench.TakeSets()) << c.keys;
  }
}

TEST(EditDialog, AChangeThatIsTakenBackIsAnEditAllTheSame) {
  EditBench bench;
  bench.Press("{End}6{Backspace}{Enter}");
  EXPECT_TRUE(bench.Edit(bench.LineOf(u"Integer", u"5")));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 5"}, bench.TakeSets());
}

TEST(EditDialog, AChoiceWithoutATextIsAnotherThanNone) {
  EditBench bench;
  bench.Press("{Down}{Enter}");
  EXPECT_TRUE(bench.Edit(bench.LineOf(u"Integer", u"9", {{u"ChoiceFmt", u"7#|8#B"}})));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 7"}, bench.TakeSets());
}

TEST(EditDialog, TheWaitCursorIsShownUntilTheChangeIsApplied) {
  EditBench bench;
  bench.Look([] { EXPECT_FALSE(host::IsWaitCursorShown()); });
  bench.Press("6{Enter}");
  bench.Edit(bench.LineOf(u"Integer", u"5"));
  EXPECT_TRUE(bench.actions.appliedUnderTheWaitCursor);
  EXPECT_FALSE(host::IsWaitCursorShown());
}

TEST(EditDialog, CancellingAChangeWritesNothing) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Press("42{Esc}");
  EXPECT_FALSE(bench.Edit(item));
  EXPECT_EQ(kNothing, bench.TakeSets());
  EXPECT_EQ(kNothing, bench.TakeLog());
  EXPECT_EQ(5, item.Descriptor()->GetValue().AsInteger());
}

TEST(EditDialog, TheFocusReturnsToWhereItWas) {
  for (const char* const keys : {"{Esc}", "{Enter}", "7{Enter}"}) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(u"Integer", u"5");
    bench.Look([] { EXPECT_EQ(EditBench::Control(ui::kTextEntryId), platform::FocusedWindow()); });
    bench.Press(keys);
    bench.Edit(item);
    EXPECT_EQ(bench.list, platform::FocusedWindow()) << keys;
    EXPECT_TRUE(platform::IsEnabled(bench.owner));
  }
}

TEST(EditDialog, TheFocusReturnsToTheWindowThatLostItToTheDialog) {
  EditBench bench;
  const WindowHandle other = platform::MakeWindow({.className = u"Edit",
                                                   .style = platform::style::kChild | platform::style::kVisible,
                                                   .width = 50,
                                                   .height = 20,
                                                   .parent = bench.owner});
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Look([other] {
    const WindowHandle dialog = platform::ActiveWindow();
    platform::Send(dialog, message::kSetFocus, platform::ToWParam(other));
    // Its own controls go with it.
    platform::Send(dialog, message::kSetFocus, platform::ToWParam(EditBench::Control(ui::kTextEntryId)));
  });
  bench.Press("{Esc}");
  bench.Edit(item);
  EXPECT_EQ(other, platform::FocusedWindow());
}

TEST(EditDialog, ItsEntryHasTheFocusWheneverItBecomesActive) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Look([] {
    const WindowHandle dialog = platform::ActiveWindow();
    platform::Focus(EditBench::Control(ui::kEditSaveId));
    platform::Send(dialog, message::kActivate, platform::kInactive);
    EXPECT_EQ(EditBench::Control(ui::kEditSaveId), platform::FocusedWindow());
    platform::Send(dialog, message::kActivate, platform::kActive);
    EXPECT_EQ(EditBench::Control(ui::kTextEntryId), platform::FocusedWindow());
  });
  bench.Press("{Esc}");
  bench.Edit(item, true);
}

TEST(EditDialog, TheLargeLayoutHasButtons) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.ExpectScreen({"1035 edit \"5\" 0-1", "1051 button \"Cancel\"", "1052 button \"Save\""});
  bench.Look([] {
    const platform::Rect place = platform::WindowRect(platform::ActiveWindow());
    EXPECT_EQ(15, place.left);
    EXPECT_EQ(35, place.top);
  });
  bench.Press("6");
  bench.Look([] { platform::Post(EditBench::Control(ui::kEditSaveId), message::kButtonClick); });
  EXPECT_TRUE(bench.Edit(item, true));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 6"}, bench.TakeSets());
}

TEST(EditDialog, TheCancelButtonCancels) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Press("6");
  bench.Look([] { platform::Post(EditBench::Control(ui::kEditCancelId), message::kButtonClick); });
  EXPECT_FALSE(bench.Edit(item, true));
  EXPECT_EQ(kNothing, bench.TakeSets());
}

TEST(EditDialog, ItStandsAtItsPlaceUnderTheDisplayName) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Look([] {
    EXPECT_EQ(u"Thing", platform::TextOf(platform::ActiveWindow()));
    const platform::Rect place = platform::WindowRect(platform::ActiveWindow());
    EXPECT_EQ(3, place.left);
    EXPECT_EQ(15, place.top);
  });
  bench.Press("{Esc}");
  bench.Edit(item);
}

TEST(EditDialog, TheSmallLayoutsHintIsSeenWhole) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Look([] {
    const WindowHandle hint = EditBench::Control(ui::kEditHintId);
    const platform::Rect place = platform::RectInParent(hint);
    EXPECT_LE(platform::MeasureText(hint, platform::TextOf(hint), {u"Tahoma", 13}), place.Width());
    EXPECT_LE(place.right, platform::ClientRect(platform::ActiveWindow()).right);
  });
  bench.Press("{Esc}");
  bench.Edit(item);
}

TEST(EditDialog, TheCaptionHasItsSymbolsReplaced) {
  EditBench bench;
  bench.symbols = values::SymbolTable(values::SymbolTable::Texts{{u"$thing", u"Network thing"}});
  bench.device.Put(u"1.2.3", u"5");
  model::MenuItem& item =
      bench.Line(bench.MakeFrom({{u"OID", u"1.2.3"}, {u"Type", u"Integer"}, {u"DisplayName", u"$thing"}}));
  bench.Look([] { EXPECT_EQ(u"Network thing", platform::TextOf(platform::ActiveWindow())); });
  bench.Press("{Esc}");
  bench.Edit(item);
}

TEST(EditDialog, PropertiesThatCannotBeEditedOpenNothing) {
  const tests::KeyValues reasons[] = {{{u"Security", u"1"}}, {{u"PropEditor", u"None"}}, {{u"CmdString", u"1,3"}}};
  for (const tests::KeyValues& reason : reasons) {
    EditBench bench;
    EXPECT_FALSE(bench.Edit(bench.LineOf(u"Integer", u"5", reason)));
  }
  EditBench bench;
  EXPECT_FALSE(bench.Edit(bench.LineOf(u"Counter", u"5")));
  EXPECT_FALSE(bench.Edit(bench.LineOf(u"ReaderCmd", u"5", {{u"ChoiceFmt", u"5#Five"}})));
  values::PropertyDescriptor& locked = bench.Make(u"Integer", u"5");
  locked.SetReadOnly(true);
  EXPECT_FALSE(bench.Edit(bench.Line(locked)));
  model::MenuItem menu(nullptr, u"R", u"Menu", u"Menu");
  EXPECT_FALSE(bench.Edit(menu));
}

TEST(EditDialog, AnUnavailablePropertyOpensNothing) {
  EditBench bench;
  model::MenuItem& item =
      bench.Line(bench.MakeFrom({{u"OID", u"9.9"}, {u"Type", u"Integer"}, {u"DisplayName", u"Gone"}}));
  EXPECT_FALSE(bench.Edit(item));
}

TEST(EditDialog, TheDescriptionStandsAboveTheEntry) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5", {{u"ShortDesc", u"How many"}});
  bench.ExpectScreen(
      {"1035 edit \"5\" 0-1", "1048 static \"How many\"", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Esc}");
  bench.Edit(item);
}

// Moves the top by 24 pixels; the small layout's list reaches down to one caption above the dialog's bottom, the large
// layout's to its buttons.
platform::Rect WithRoomForTheDescription(platform::Rect list, bool large) {
  list.top += 24;
  list.bottom = platform::ClientRect(platform::ActiveWindow()).bottom - platform::CaptionHeight();
  if (large) {
    const int buttons = platform::RectInParent(EditBench::Control(ui::kEditSaveId)).top;
    EXPECT_LT(buttons, list.bottom);
    list.bottom = buttons;
  }
  return list;
}

// A list box gives up what would show a part of a line.
platform::Rect OfWholeLines(platform::Rect place, WindowHandle list) {
  const int border = platform::RectInParent(list).Height() - platform::ClientRect(list).Height();
  place.bottom -= (place.Height() - border) % platform::ListBox(list).ItemHeight();
  return place;
}

TEST(EditDialog, AListMakesRoomForTheDescription) {
  platform::Rect plain;
  for (const bool large : {false, true}) {
    EditBench bench;
    const tests::KeyValues choices = {{u"ChoiceFmt", u"1#A|2#B"}};
    bench.Look([&] { plain = platform::RectInParent(EditBench::Control(ui::kChoiceListId)); });
    bench.Press("{Esc}");
    bench.Edit(bench.LineOf(u"Integer", u"1", choices), large);
    bench.Look([&] {
      const WindowHandle list = EditBench::Control(ui::kChoiceListId);
      const platform::Rect described = platform::RectInParent(list);
      EXPECT_EQ(OfWholeLines(WithRoomForTheDescription(plain, large), list), described);
      EXPECT_EQ(large ? 65 : 39, platform::ClientRect(list).Height());
    });
    bench.Press("{Esc}");
    tests::KeyValues more = choices;
    more.push_back({u"ShortDesc", u"Which"});
    bench.Edit(bench.LineOf(u"Integer", u"1", more), large);
  }
}

TEST(EditDialog, TheSmallLayoutIsWhite) {
  for (const bool large : {false, true}) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(u"Integer", u"5", {{u"ShortDesc", u"How many"}});
    bench.Look([&] {
      const WindowHandle line = EditBench::Control(ui::kShortDescriptionId);
      platform::Invalidate(line);
      platform::Update(line);
      const auto colors = host::ControlColorsOf(line);
      ASSERT_EQ(!large, colors.has_value());
      if (large) return;
      EXPECT_EQ((host::ControlColors{platform::kBlack, platform::kWhite}), *colors);
    });
    bench.Press("{Esc}");
    bench.Edit(item, large);
  }
}

TEST(EditDialog, KeysPassedUpByAControlCountAsAnEdit) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  bench.Look([] {
    const WindowHandle dialog = platform::ActiveWindow();
    EXPECT_EQ(0, platform::Send(dialog, ui::private_message::kEditKey, platform::key::kLeft));
    EXPECT_EQ(1, platform::Send(dialog, ui::private_message::kEditKey, platform::key::kEnter));
  });
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 5"}, bench.TakeSets());
}

// --- each control ---

TEST(EditDialog, AChoiceIsChosenInAList) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"2", {{u"ChoiceFmt", u"1#Open|2#Shared|4#WPA"}});
  bench.ExpectScreen({"1037 list Open >Shared WPA", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Down}");
  bench.ExpectScreen({"1037 list Open Shared >WPA", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 4"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <WPA>", item.LineText());
}

TEST(EditDialog, AValueThatIsNoChoiceLeavesTheListUnselected) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"3", {{u"ChoiceFmt", u"1#A|2#B"}});
  bench.ExpectScreen({"1037 list A B", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Enter}");
  EXPECT_FALSE(bench.Edit(item));
  EXPECT_EQ(kNothing, bench.TakeSets());
}

TEST(EditDialog, OfDuplicateKeysEitherChoiceStoresTheSame) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"1", {{u"ChoiceFmt", u"1#A|1#B"}});
  bench.ExpectScreen({"1037 list A >B", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Up}{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 1"}, bench.TakeSets());
}

TEST(EditDialog, AFlagIsTrueOrFalseAndSavedAsANumber) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Bool", u"1");
  bench.ExpectScreen({"1037 list >TRUE FALSE", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Down}{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Bool 0"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <FALSE>", item.LineText());

  bench.Press("{Up}{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Bool 1"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <TRUE>", item.LineText());
}

TEST(EditDialog, AFlagWithChoicesSavesTheirKeys) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Bool", u"1", {{u"ChoiceFmt", u"1#On|0#Off"}});
  bench.ExpectScreen({"1037 list >On Off", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Down}{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Bool 0"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <Off>", item.LineText());
}

TEST(EditDialog, TrueAndFalseOfAChoiceListSaveTheirKeys) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Octet String", u"no", {{u"ChoiceFmt", u"yes#TRUE|no#FALSE"}});
  bench.ExpectScreen({"1037 list TRUE >FALSE", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Up}{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Octet String yes"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <TRUE>", item.LineText());
}

TEST(EditDialog, ATextIsTypedAndMayBecomeEmpty) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Octet String", u"old");
  bench.Press("New name{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Octet String New name"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <New name>", item.LineText());

  bench.Press("{Backspace}{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Octet String "}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <>", item.LineText());
}

TEST(EditDialog, TextsAreLimitedByMaskAndMaxChars) {
  const struct {
    const char16_t* type;
    tests::KeyValues attributes;
    const char* keys;
    const char* text;
  } cases[] = {
      {u"Octet String", {{u"MaxChars", u"3"}}, "abcdef", "abc"},
      {u"Octet String", {{u"TextFmt", u"AA-AA"}}, "abcdefgh", "abcde"},
      {u"Octet String", {{u"TextFmt", u"AA-AA"}, {u"MaxChars", u"2"}}, "abcdefgh", "ab"},
      {u"Octet String", {{u"MaxChars", u"0"}}, "abcdef", "abcdef"},
      {u"Octet String", {{u"MaxChars", u"-4"}}, "abcdef", "abcdef"},
      {u"Password", {{u"MaxChars", u"2"}}, "abcdef", "ab"},
      {u"Integer", {}, "12345678", "123456"},  // the mask of every integer
      {u"Integer", {{u"Range", u"0-255"}}, "12345678", "123"},
      {u"Integer", {{u"MaxChars", u"2"}}, "12345678", "12"},
      {u"Integer", {{u"TextFmt", u"##.##"}}, "12345678", "12345"},  // another mask limits the length
      {u"Integer", {}, "1a-2 .3", "123"},
      {u"Hex", {}, "0x12xyz34", "0x1234"},
      {u"Hex", {}, "abcdefghijklmnop", "abcdefghijklm"},
      {u"Hex32", {}, "\\Xzz00", "\\X00"},
  };
  for (const auto& c : cases) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(c.type, u"1", c.attributes);
    bench.Press(c.keys);
    bench.Look([&] { EXPECT_EQ(base::FromUtf8(c.text), platform::TextOf(EditBench::Control(ui::kTextEntryId))); });
    bench.Press("{Esc}");
    bench.Edit(item);
  }
}

TEST(EditDialog, TypingOverwritesUntilInsertIsPressed) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Octet String", u"abc");
  const auto expectText = [&](const char* text) {
    bench.Look([text] { EXPECT_EQ(base::FromUtf8(text), platform::TextOf(EditBench::Control(ui::kTextEntryId))); });
  };
  bench.Press("{Home}X");
  expectText("Xbc");
  bench.Press("{Insert}Y");
  expectText("XYbc");
  bench.Press("{Insert}ZQW");
  expectText("XYZQW");
  bench.Press("{Esc}");
  bench.Edit(item);
  EXPECT_FALSE(bench.insertFlag.inserts);
}

TEST(EditDialog, AWepKeyIsSentAsBareDigits) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Hex", u"", {{u"WEP", u"Enter Key"}});
  bench.Press("0x12345abcde{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Hex 12345ABCDE"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <Enter Key>", item.LineText());
}

TEST(EditDialog, AKeyThatBreaksItsRulesIsExplainedAndNotSent) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Hex", u"", {{u"WEP", u"Enter Key"}});
  bench.Press("abcd{Enter}");
  EXPECT_FALSE(bench.Edit(item));
  EXPECT_EQ(kNothing, bench.TakeSets());
  ASSERT_EQ(1u, bench.terminal.boxes.shown.size());
  EXPECT_NE(std::string::npos, bench.terminal.boxes.shown[0].find("WEP Key must be 5 or 13 characters. (48)"));
  EXPECT_EQ(u"Thing  <old>", item.LineText());
}

TEST(EditDialog, APassPhraseIsSentInHexadecimal) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Hex32", u"", {{u"WEP", u"Enter Key"}});
  bench.Press("password{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Hex32 70617373776f7264"}, bench.TakeSets());
}

TEST(EditDialog, APasswordShowsStarsWhileItIsTypedAndOnItsLine) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Password", u"old", {{u"PassWordChar", u"*"}});
  bench.Look([] { EXPECT_EQ(u'*', host::EditStateOf(EditBench::Control(ui::kTextEntryId))->passwordChar); });
  bench.Press("12345{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Password 12345"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <*****>", item.LineText());
}

TEST(EditDialog, AnAddressIsTypedFieldByField) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"IP Address", u"192.168.0.1");
  bench.ExpectScreen({"1012 ip \"192\" \"168\" \"0\" \"1\"", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("10.0.0.77{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 IP Address 10.0.0.77"}, bench.TakeSets());
  EXPECT_EQ(u"Thing  <10.0.0.77>", item.LineText());
}

TEST(EditDialog, EnterInAnAddressSavesItEvenUnchanged) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"IP Address", u"192.168.0.1");
  bench.Press("{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 IP Address 192.168.0.1"}, bench.TakeSets());
}

TEST(EditDialog, ATextThatIsNoAddressOpensAsEmptyFieldsAndEnterOnThemSavesNothing) {
  for (const bool byKey : {true, false}) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(u"Octet String", u"by DHCP", {{u"PropEditor", u"IP Address"}});
    bench.Look([] { EXPECT_EQ("1012 ip \"\" \"\" \"\" \"\"", EditBench::Screen().front()); });
    if (byKey) {
      bench.Press("{Enter}");
    } else {
      bench.Look([] { platform::Post(EditBench::Control(ui::kEditSaveId), message::kButtonClick); });
    }
    EXPECT_FALSE(bench.Edit(item, true));
    EXPECT_EQ(kNothing, bench.TakeSets());
  }
}

TEST(EditDialog, ZerosTypedIntoEmptyFieldsAreAnAddress) {
  for (const bool byKey : {true, false}) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(u"Octet String", u"", {{u"PropEditor", u"IP Address"}});
    bench.Press("0");
    if (byKey) {
      bench.Press("{Enter}");
    } else {
      bench.Look([] { platform::Post(EditBench::Control(ui::kEditSaveId), message::kButtonClick); });
    }
    EXPECT_TRUE(bench.Edit(item, true));
    EXPECT_EQ(Strings{"set 1.2.3 Octet String 0.0.0.0"}, bench.TakeSets());
  }
}

TEST(EditDialog, BlanksAroundAnAddressAreNoPartOfIt) {
  EditBench bench;
  bench.Look([] { EXPECT_EQ("1012 ip \"10\" \"1\" \"2\" \"3\"", EditBench::Screen().front()); });
  bench.Press("{Esc}");
  bench.Edit(bench.LineOf(u"IP Address", u" 10.1.2.3 "));
}

TEST(EditDialog, EscInAnAddressCancels) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"IP Address", u"192.168.0.1");
  bench.Press("10.{Esc}");
  EXPECT_FALSE(bench.Edit(item));
  EXPECT_EQ(kNothing, bench.TakeSets());
}

TEST(EditDialog, ARefusedAddressStaysInTheDialog) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"IP Address", u"192.168.0.1");
  bench.Press("300{Enter}");
  bench.ExpectScreen({"1012 ip \"300\" \"168\" \"0\" \"1\"", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("30.{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 IP Address 30.168.0.1"}, bench.TakeSets());
  EXPECT_EQ(2u, bench.terminal.boxes.shown.size());
}

TEST(EditDialog, TheSaveButtonSavesNoAddressThatIsOutOfBounds) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"IP Address", u"192.168.0.1");
  bench.Press("300");
  const auto press = [](int id) { platform::Post(EditBench::Control(id), message::kButtonClick); };
  bench.Look([press] { press(ui::kEditSaveId); });
  bench.ExpectScreen({"1012 ip \"300\" \"168\" \"0\" \"1\"", "1051 button \"Cancel\"", "1052 button \"Save\""});
  bench.Look([press] { press(ui::kEditCancelId); });
  EXPECT_FALSE(bench.Edit(item, true));
  EXPECT_EQ(2U, bench.terminal.boxes.shown.size());  // typed, and saved
  EXPECT_EQ(kNothing, bench.TakeSets());
}

TEST(EditDialog, TabLeavesTheAddressForTheButtons) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"IP Address", u"192.168.0.1");
  bench.Press("{Tab}");
  bench.Look([] { EXPECT_EQ(EditBench::Control(ui::kEditCancelId), platform::FocusedWindow()); });
  bench.Press("{Enter}");
  EXPECT_FALSE(bench.Edit(item, true));
  EXPECT_EQ(kNothing, bench.TakeSets());
}

TEST(EditDialog, TheSelectedChoiceIsInViewBesideADescriptionToo) {
  for (const bool large : {false, true}) {
    for (const int selected : {0, 3, 5, 6}) {
      EditBench bench;
      model::MenuItem& item =
          bench.LineOf(u"Integer", base::ToText(selected),
                       {{u"ShortDesc", u"Which"}, {u"ChoiceFmt", u"0#Zero|1#One|2#Two|3#Three|4#Four|5#Five|6#Six"}});
      bench.Look([selected] {
        const platform::ListBox list(EditBench::Control(ui::kChoiceListId));
        const int lines = platform::ClientRect(list.Handle()).Height() / list.ItemHeight();
        EXPECT_EQ(selected, list.Selected());
        EXPECT_LE(list.Top(), selected);
        EXPECT_GT(list.Top() + lines, selected);
      });
      bench.Press("{Esc}");
      EXPECT_FALSE(bench.Edit(item, large));
    }
  }
}

// Each would underline the letter behind it.
TEST(EditDialog, ADescriptionMayHoldAmpersands) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5", {{u"ShortDesc", u"Size & rate"}});
  bench.Look([] {
    const WindowHandle description = EditBench::Control(ui::kShortDescriptionId);
    EXPECT_EQ(u"Size & rate", platform::TextOf(description));
    EXPECT_TRUE((platform::StyleOf(description) & platform::style::kStaticNoPrefix) != 0);
  });
  bench.Press("{Esc}");
  EXPECT_FALSE(bench.Edit(item));
}

TEST(EditDialog, ADateIsShownAndSavedAsItsDigits) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"20050131", {{u"SubType", u"Date"}, {u"ChoiceFmt", u"1#A|2#B"}});
  bench.ExpectScreen({"1047 picker \"Jan 31, 2005\"", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Up}{Enter}");  // the month
  EXPECT_TRUE(bench.Edit(item));
  const Strings sets = bench.TakeSets();
  ASSERT_EQ(1u, sets.size());
  EXPECT_EQ("set 1.2.3 Integer 200502", sets[0].substr(0, 24));
}

TEST(EditDialog, ATimeKeepsItsLeadingZeros) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"93005", {{u"SubType", u"Time"}});
  bench.ExpectScreen({"1047 picker \"09:30:05 AM\"", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Up}{Enter}");  // the hour
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(u"Thing  <103005>", item.LineText());
}

TEST(EditDialog, ATimeHalfTypedIsSavedToo) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"93005", {{u"SubType", u"Time"}});
  bench.Press("7{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(u"Thing  <073005>", item.LineText());
}

TEST(EditDialog, AnUnchangedDateOrTimeSavesNothing) {
  for (const WideStringView subType : {u"Date", u"Time"}) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(u"Integer", u"999999999", {{u"SubType", WideString(subType)}});
    bench.Press("{Enter}");
    EXPECT_FALSE(bench.Edit(item));
    EXPECT_EQ(kNothing, bench.TakeSets());
  }
}

TEST(EditDialog, WhatIsNoDateShowsToday) {
  for (const WideStringView value : {u"20050231", u"20051301", u"0", u"123456789", u"-5", u"soon"}) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(u"Integer", value, {{u"SubType", u"Date"}});
    bench.Look([&] {
      const platform::SystemTime today = platform::LocalTime();
      const platform::SystemTime shown = platform::DateTimePicker(EditBench::Control(ui::kDateTimeEntryId)).Time();
      EXPECT_EQ(today.year, shown.year) << base::ToUtf8(value);
      EXPECT_EQ(today.month, shown.month);
    });
    bench.Press("{Esc}");
    bench.Edit(item);
  }
}

TEST(EditDialog, WhatIsNoTimeShowsMidnight) {
  for (const WideStringView value : {u"250000", u"126000", u"1234567", u"-5", u"now"}) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(u"Integer", value, {{u"SubType", u"Time"}});
    bench.Look([&] {
      const platform::SystemTime shown = platform::DateTimePicker(EditBench::Control(ui::kDateTimeEntryId)).Time();
      EXPECT_EQ(0, shown.hour) << base::ToUtf8(value);
      EXPECT_EQ(0, shown.minute);
      EXPECT_EQ(0, shown.second);
    });
    bench.Press("{Esc}");
    bench.Edit(item);
  }
}

// --- saving ---

TEST(EditDialog, AValueOutOfRangeIsExplainedAndMayBeCorrected) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5", {{u"Range", u"1,99"}, {u"TextFmt", u"###"}});
  bench.Press("100{Enter}");
  bench.Look([&] {
    EXPECT_EQ(Strings{"Error: Value 100 is out of range {1,99} (1)"}, bench.terminal.boxes.shown);
    EXPECT_EQ(u"100", platform::TextOf(EditBench::Control(ui::kTextEntryId)));
    EXPECT_EQ(kNothing, bench.TakeLog());
  });
  bench.Press("{Backspace}{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 1.2.3 Integer 10"}, bench.TakeSets());
}

TEST(EditDialog, ARefusedChangeLeavesTheLineAndOffersTheValueAgain) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5", {{u"_OnExit", u"FlagChanges"}});
  bench.device[ui_test::kOid].setResult = platform::kFailed;
  bench.Press("42{Enter}");
  EXPECT_FALSE(bench.Edit(item));
  EXPECT_EQ(Strings{"Error: An error occurred.  Change was not saved. (48)"}, bench.terminal.boxes.shown);
  EXPECT_EQ((Strings{"apply", "refill"}), bench.TakeLog());  // no handler runs
  EXPECT_EQ(u"Thing  <old>", item.LineText());

  bench.device[ui_test::kOid].setResult = platform::kOk;
  bench.ExpectScreen({"1035 edit \"42\" 0-2", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("{Esc}");
  bench.Edit(item);
}

TEST(EditDialog, ExitHandlersRunInOrderUpToTheFirstMissing) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5",
                                       {{u"_OnExit", u"FlagChanges"},
                                        {u"_OnExit1", u"VerifyNetUI"},
                                        {u"_OnExit2", u"Refresh"},
                                        {u"_OnExit4", u"PromptWarmBoot"}});
  bench.Press("6{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ((Strings{"apply", "line Thing  <6>", "run FlagChanges on Thing", "run VerifyNetUI on Thing",
                     "run Refresh on Thing", "refill"}),
            bench.TakeLog());
}

TEST(EditDialog, NumberedHandlersAloneDoNotRun) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5", {{u"_OnExit1", u"VerifyNetUI"}});
  bench.Press("6{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ((Strings{"apply", "line Thing  <6>", "refill"}), bench.TakeLog());
}

TEST(EditDialog, AMarkedLineKeepsItsMark) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  item.SetFirstColumn(u'*');
  bench.Press("6{Enter}");
  bench.Edit(item);
  EXPECT_EQ(u"*hing  <6>", item.LineText());
}

TEST(EditDialog, ALineRewrittenAsAWholeGetsItsNameBack) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5");
  item.SetLineText(u"Thing, <5>");
  bench.Press("6{Enter}");
  bench.Edit(item);
  EXPECT_EQ(u"Thing  <6>", item.LineText());
}

TEST(EditDialog, AnEventIsNotedForTheApply) {
  EditBench bench;
  model::MenuItem& item = bench.LineOf(u"Integer", u"5", {{u"Event", u"NetChanged"}});
  bench.Press("6{Enter}");
  bench.Edit(item);
  EXPECT_EQ(std::vector<WideString>{u"NetChanged"}, bench.events.Names());
}

TEST(EditDialog, AFieldOfACommandSendsTheCommand) {
  EditBench bench;
  bench.device.Put(u"7.7", u"0042ab");
  bench.MakeFrom({{u"OID", u"7.7"}, {u"Type", u"ReaderCmd"}, {u"CmdString", u"2,4,2"}, {u"DisplayName", u"Command"}});
  values::PropertyDescriptor& field =
      bench.MakeFrom({{u"CmdOID", u"7.7:1"}, {u"Ordinal", u"1"}, {u"Type", u"Integer"}, {u"DisplayName", u"Thing"}});
  model::MenuItem& item = bench.Line(field);
  bench.ExpectScreen({"1035 edit \"42\" 0-2", "1040 static \"Cancel [Esc]   Save [Enter]\""});
  bench.Press("7{Enter}");
  EXPECT_TRUE(bench.Edit(item));
  EXPECT_EQ(Strings{"set 7.7 ReaderCmd 0007ab"}, bench.TakeSets());
}

// --- whatever is pressed ---

TEST(EditDialog, RandomKeysAlwaysLeadBackToTheMenu) {
  const struct {
    const char16_t* type;
    const char16_t* value;
    tests::KeyValues attributes;
  } properties[] = {
      {u"Integer", u"5", {{u"Range", u"0-255"}}},
      {u"Integer", u"2", {{u"ChoiceFmt", u"1#A|2#B|3#C"}}},
      {u"Integer", u"20050131", {{u"SubType", u"Date"}}},
      {u"Integer", u"93005", {{u"SubType", u"Time"}}},
      {u"Bool", u"1", {}},
      {u"Octet String", u"abc", {{u"MaxChars", u"5"}}},
      {u"Hex", u"", {{u"WEP", u"Key"}}},
      {u"Hex32", u"", {{u"WEP", u"Key"}}},
      {u"IP Address", u"192.168.0.1", {}},
      {u"Password", u"secret", {{u"PassWordChar", u"*"}}},
  };
  const char* const keys[] = {"{Left}",   "{Right}",    "{Up}",     "{Down}",   "{Home}", "{End}",
                              "{PageUp}", "{PageDown}", "{Insert}", "{Delete}", "{Tab}",  "{Backspace}",
                              "{Enter}",  "0",          "1",        "2",        "5",      "9",
                              ".",        " ",          "x",        "F",        "-"};
  std::mt19937 random(20050131);
  for (const auto& property : properties) {
    EditBench bench;
    model::MenuItem& item = bench.LineOf(property.type, property.value, property.attributes);
    for (int session = 0; session < 60; ++session) {
      bench.device[ui_test::kOid].setResult = session % 10 == 9 ? platform::kFailed : platform::kOk;
      for (int i = 0; i < 30; ++i) bench.Press(keys[random() % std::size(keys)]);
      bench.Press("{Esc}");
      const ui::EditContext context{bench.editors, bench.committer, bench.actions, bench.view, bench.insertFlag};
      ui::RunEditDialog(context, item, session % 2 == 0, bench.owner);
      bench.terminal.display.Forget();
      EXPECT_EQ(bench.list, platform::FocusedWindow());
      EXPECT_EQ(1u, host::TopLevelFromBottom().size());
    }
  }
}

}  // namespace
