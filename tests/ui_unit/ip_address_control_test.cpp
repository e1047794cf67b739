#include "ui/ip_address_control.h"

#include "platform/canvas.h"
#include "platform/dialog.h"
#include "platform/host/desktop.h"
#include "tests/printing.h"
#include "tests/support/scripted_terminal.h"
#include "ui/private_messages.h"

#include <array>
#include <memory>
#include <string>

namespace {

namespace address_message = ui::address_message;
namespace host = platform::host;
namespace message = platform::message;
namespace style = platform::style;

using platform::EditField;
using platform::Message;
using platform::WindowHandle;
using tests::ScriptedTerminal;

constexpr int kControlId = 1012;
constexpr int kOtherId = 1035;

// Puts the address and the caret into the fields. "19|2.168..1" has the caret in the first field, "192.[168]..1" the
// second field selected.
void Arrange(WindowHandle control, std::string picture) {
  const std::vector<WindowHandle> fields = host::ChildrenOf(control);
  ASSERT_EQ(4u, fields.size());
  picture += '.';
  for (const WindowHandle field : fields) {
    std::string text = picture.substr(0, picture.find('.'));
    picture.erase(0, text.size() + 1);
    int start = -1;
    int end = -1;
    std::string digits;
    for (const char character : text) {
      if (character == '|' || character == '[') start = static_cast<int>(digits.size());
      if (character == '|' || character == ']') end = static_cast<int>(digits.size());
      if (base::IsDigit(static_cast<unsigned char>(character))) digits += character;
    }
    platform::SetText(field, base::FromUtf8(digits));
    if (start < 0) continue;
    platform::Focus(field);
    EditField(field).Select(start, end);
  }
}

// The picture of the fields as Arrange() reads it.
std::string Picture(WindowHandle control) {
  std::string picture;
  for (const WindowHandle field : host::ChildrenOf(control)) {
    std::string text = base::ToUtf8(platform::TextOf(field));
    if (platform::FocusedWindow() == field) {
      const EditField::Selection selection = EditField(field).GetSelection();
      const auto start = static_cast<std::size_t>(selection.start);
      const auto end = static_cast<std::size_t>(selection.end);
      if (start == end) {
        text.insert(start, "|");
      } else {
        text.insert(end, "]");
        text.insert(start, "[");
      }
    }
    picture += (picture.empty() ? "" : ".") + text;
    if (picture.empty()) picture = " ";  // an empty first field
  }
  if (picture.starts_with(' ')) picture.erase(0, 1);
  return picture;
}

// A dialog with an address control and an edit field, which writes down what the control tells it.
class AddressDialog final : public platform::MessageHandler {
 public:
  explicit AddressDialog(style::Bits controlStyle = 0) {
    controls_ = {{{.id = kControlId,
                   .className = ui::kAddressClassName,
                   .text = u"",
                   .style = style::kVisible | style::kTabStop | controlStyle,
                   .x = 5,
                   .y = 24,
                   .width = 85,
                   .height = 11},
                  {.id = kOtherId,
                   .className = u"EDIT",
                   .text = u"",
                   .style = style::kVisible | style::kTabStop,
                   .x = 5,
                   .y = 40,
                   .width = 85,
                   .height = 11}}};
    ui::RegisterAddressControl(terminal.boxes, insertFlag);
  }

  // Runs the dialog through the script; its steps look at `control`. Every script ends the dialog.
  void Run(bool withOwner = true) {
    WindowHandle owner = nullptr;
    if (withOwner) owner = platform::MakeWindow({.className = u"Static", .text = u"Main", .style = style::kVisible});
    terminal.display.Then([this] { platform::Post(dialog, message::kClose); });
    platform::RunDialog({.style = style::kPopup | style::kCaption,
                         .width = 99,
                         .height = 58,
                         .fontFace = u"Tahoma",
                         .fontPoints = 8,
                         .controls = controls_},
                        owner, *this);
    EXPECT_TRUE(terminal.display.PlayedToItsEnd());
    platform::Destroy(owner);
  }

  std::optional<platform::LResult> OnMessage(WindowHandle window, const Message& received) override {
    switch (received.id) {
      case message::kInitDialog:
        dialog = window;
        control = platform::ControlOf(window, kControlId);
        return 1;
      case message::kClose: platform::EndDialog(window, 1); return 0;
      case message::kCommand:
        if (platform::CommandId(received) == kControlId) told.push_back(NameOf(platform::CommandCode(received)));
        return 0;
      case ui::private_message::kEditKey:
        told.push_back("key " + std::to_string(received.wParam) + (received.lParam != 0 ? " with Control" : ""));
        return 1;
      case ui::private_message::kShowRootMenu: told.push_back("root menu"); return 0;
      default: return std::nullopt;
    }
  }

  void Look(std::function<void()> action) { terminal.display.Then(std::move(action)); }
  void Press(const std::string& keys) { terminal.display.Press(keys); }
  void ForgetTold() {
    Look([this] { told.clear(); });
  }
  void ExpectPicture(const std::string& picture) {
    Look([this, picture] { EXPECT_EQ(picture, Picture(control)); });
  }
  platform::LResult Tell(std::uint32_t id, platform::WParam wParam = 0, platform::LParam lParam = 0) const {
    return platform::Send(control, id, wParam, lParam);
  }

  ScriptedTerminal terminal;
  ui::InsertFlag insertFlag;
  WindowHandle dialog = nullptr;
  WindowHandle control = nullptr;
  std::vector<std::string> told;

 private:
  static std::string NameOf(int code) {
    switch (code) {
      case platform::notification::kEditSetFocus: return "focus";
      case platform::notification::kEditKillFocus: return "focus lost";
      case platform::notification::kEditChange: return "change";
      default: return std::to_string(code);
    }
  }

  std::array<platform::DialogControl, 2> controls_;
};

using Strings = std::vector<std::string>;

TEST(AddressControl, KeysMoveAndEditAsTheTableSays) {
  const struct {
    const char* before;
    const char* keys;
    const char* after;
    int beeps;
  } cases[] = {
      // digits
      {"|.168.0.1", "1", "1|.168.0.1", 0},
      {"12|.168.0.1", "7", "127.[168].0.1", 0},     // the field is full: on to the next
      {"12|.[168].0.1", "7", "12.7|.0.1", 0},       // (the later mark has the focus)
      {"192.168.0.12|", "7", "192.168.0.127|", 0},  // the last field is kept
      {"|92.168.0.1", "1", "1|92.168.0.1", 0},      // full, but the caret is not at the end
      {"192.[168].0.1", "10", "192.10|.0.1", 0},    // typing replaces the selection
      {"00|.168.0.1", "7", "7.[168].0.1", 0},       // leading zeros are dropped
      {"00|.168.0.1", "0", "0.[168].0.1", 0},
      // dot and blank
      {"192|.168.0.1", ".", "192.[168].0.1", 0},
      {"19|2.168.0.1", " ", "192.[168].0.1", 0},
      {"|192.168.0.1", ".", "|192.168.0.1", 0},  // swallowed at the start
      {"|.168.0.1", ".", "|.168.0.1", 0},
      {"[192].168.0.1", ".", "[192].168.0.1", 0},  // swallowed while text is selected
      {"1[9]2.168.0.1", " ", "1[9]2.168.0.1", 0},
      {"192.168.0.1|", ".", "192.168.0.1|", 1},    // nowhere to go
      {"192.168.05|.1", ".", "192.168.5.[1]", 0},  // the field that is left is tidied
      // backspace
      {"192.|168.0.1", "{Backspace}", "19|.168.0.1", 0},
      {".|168.0.1", "{Backspace}", "|.168.0.1", 0},  // nothing to delete
      {"|192.168.0.1", "{Backspace}", "|192.168.0.1", 0},
      {"192.1|68.0.1", "{Backspace}", "192.|68.0.1", 0},
      {"192.[168].0.1", "{Backspace}", "192.|.0.1", 0},
      // others
      {"192|.168.0.1", "x", "192|.168.0.1", 1},
      {"192|.168.0.1", "-,", "192|.168.0.1", 2},
      {"19|2.168.0.1", "\x7F", "19|2.168.0.1", 0},  // Ctrl+Backspace is a control character
      {"19|2.168.0.1", "{Delete}", "19|.168.0.1", 0},
      // moving
      {"|192.168.0.1", "{Left}", "|192.168.0.1", 0},
      {"192.|168.0.1", "{Left}", "192|.168.0.1", 0},
      {"192.1|68.0.1", "{Left}", "192.|168.0.1", 0},
      {"192|.168.0.1", "{Right}", "192.|168.0.1", 0},
      {"19|2.168.0.1", "{Right}", "192|.168.0.1", 0},
      {"192.168.0.1|", "{Right}", "192.168.0.1|", 0},
      {"192.168|.0.1", "{Down}", "192.168.[0].1", 0},
      {"192.168|.0.1", "{Up}", "[192].168.0.1", 0},
      {"19|2.168.0.1", "{Up}", "19|2.168.0.1", 0},
      {"192.168.0.1|", "{Down}", "192.168.0.1|", 0},
      {"192.168.0|.1", "{Home}", "|192.168.0.1", 0},
      {"19|2.168.0.1", "{Home}", "|192.168.0.1", 0},
      {"1|92.168.0.254", "{End}", "192.168.0.254|", 0},
      {"192.168.|.1", "{Up}{Up}", "[192].168..1", 0},
      // a whole address, typed as people do
      {"[10].0.0.0", "192.168.1.77", "192.168.1.77|", 0},
      {"[10].0.0.0", "192168100254", "192.168.100.254|", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.before) + "   " + c.keys);
    AddressDialog dialog;
    dialog.Look([&] { Arrange(dialog.control, c.before); });
    dialog.Press(c.keys);
    dialog.Look([&] {
      EXPECT_EQ(c.after, Picture(dialog.control));
      EXPECT_EQ(c.beeps, dialog.terminal.display.beeps);
    });
    dialog.Run();
    EXPECT_EQ(Strings{}, dialog.terminal.boxes.shown);
  }
}

TEST(AddressControl, SettingAnAddressShowsItsBytesInOrder) {
  AddressDialog dialog;
  dialog.Look([&] {
    dialog.Tell(address_message::kSet, 0, static_cast<platform::LParam>(0xC0A80001));
    EXPECT_EQ("|192.168.0.1", Picture(dialog.control));
  });
  dialog.Run();
}

TEST(AddressControl, ClearingEmptiesAllFields) {
  AddressDialog dialog;
  dialog.Look([&] {
    dialog.Tell(address_message::kSet, 0, 0x01020304);
    dialog.Tell(address_message::kClear);
    EXPECT_EQ("|...", Picture(dialog.control));
  });
  dialog.Run();
}

TEST(AddressControl, AnEmptyFieldReadsAsZeroAndIsNotCounted) {
  AddressDialog dialog;
  dialog.Look([&] {
    Arrange(dialog.control, "192.168..1");
    std::uint32_t address = 0;
    EXPECT_EQ(3, dialog.Tell(address_message::kGet, 0, platform::ToLParam(&address)));
    EXPECT_EQ(0xC0A80001u, address);
    dialog.Tell(address_message::kClear);
    EXPECT_EQ(0, dialog.Tell(address_message::kGet, 0, platform::ToLParam(&address)));
    EXPECT_EQ(0u, address);
  });
  dialog.Run();
}

TEST(AddressControl, EveryAddressReadsBackAsItWasSet) {
  AddressDialog dialog;
  dialog.Look([&] {
    for (const std::uint32_t set : {0u, 1u, 0x7F000001u, 0x80000000u, 0xFFFFFFFFu, 0x0A00FF63u}) {
      dialog.Tell(address_message::kSet, 0, static_cast<platform::LParam>(set));
      std::uint32_t address = 0;
      EXPECT_EQ(4, dialog.Tell(address_message::kGet, 0, platform::ToLParam(&address)));
      EXPECT_EQ(set, address);
    }
  });
  dialog.Run();
}

TEST(AddressControl, AFieldBeyondAByteNeverSpillsIntoItsNeighbour) {
  AddressDialog dialog;
  dialog.Look([&] {
    Arrange(dialog.control, "1.2.3.999");
    std::uint32_t address = 0;
    dialog.Tell(address_message::kGet, 0, platform::ToLParam(&address));
    EXPECT_EQ(0x010203FFu, address);
  });
  dialog.Run();
}

TEST(AddressControl, FocusGoesToTheFieldAskedFor) {
  const struct {
    const char* fields;
    platform::WParam index;
    const char* after;
  } cases[] = {
      {"1.2.3.4", 2, "1.2.[3].4"},
      {"1..3.4", 0, "[1]..3.4"},
      {"1.2..4", 4, "1.2.|.4"},      // the first empty one
      {"1.2.3.4", 99, "[1].2.3.4"},  // none is empty
  };
  for (const auto& c : cases) {
    AddressDialog dialog;
    dialog.Look([&] {
      Arrange(dialog.control, c.fields);
      dialog.Tell(address_message::kSetFocus, c.index);
      EXPECT_EQ(c.after, Picture(dialog.control));
    });
    dialog.Run();
  }
}

TEST(AddressControl, OwnFocusAndClicksGoToTheFirstField) {
  AddressDialog dialog;
  dialog.Look([&] {
    Arrange(dialog.control, "1.2.3.4|");
    platform::Focus(dialog.control);
    EXPECT_EQ("[1].2.3.4", Picture(dialog.control));
    Arrange(dialog.control, "1.2.3.4|");
    dialog.Tell(message::kLeftButtonDown);
    EXPECT_EQ("[1].2.3.4", Picture(dialog.control));
  });
  dialog.Run();
}

TEST(AddressControl, ItAsksTheDialogForAllKeys) {
  AddressDialog dialog;
  dialog.Look([&] { EXPECT_EQ(135, dialog.Tell(message::kGetDialogCode)); });
  dialog.Run();
}

TEST(AddressControl, AValueOutOfBoundsIsExplainedAndStaysSelected) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "[10].0.0.0"); });
  dialog.Press("300");
  dialog.ExpectPicture("[300].0.0.0");
  dialog.Run();
  EXPECT_EQ(
      Strings{"Invalid IP Address: 300 is not a valid entry. Specify a value between 0 and 255 for this field. (48)"},
      dialog.terminal.boxes.shown);
}

TEST(AddressControl, ARefusedFieldIsNotLeft) {
  for (const char* const keys : {".", "{Right}", "{Left}", "{Up}", "{Down}", "{Home}", "{End}", "{Enter}", "{Tab}"}) {
    SCOPED_TRACE(keys);
    AddressDialog dialog;
    const bool goesLeft = std::string(keys) == "{Left}";
    dialog.Look([&] { Arrange(dialog.control, goesLeft ? "1.|300.3.4" : "1.300|.3.4"); });
    dialog.ForgetTold();
    dialog.Press(keys);
    dialog.ExpectPicture("1.[300].3.4");
    dialog.Look([&] { EXPECT_EQ(Strings{}, dialog.told); });
    dialog.Run();
    EXPECT_EQ(1u, dialog.terminal.boxes.shown.size());
  }
}

TEST(AddressControl, TheCheckOfAllFieldsRefusesTheFirstThatIsOutOfBounds) {
  AddressDialog dialog;
  dialog.Look([&] {
    Arrange(dialog.control, "1.300.3.400|");
    platform::Focus(platform::ControlOf(dialog.dialog, kOtherId));
    EXPECT_EQ(0, dialog.Tell(address_message::kCheck));
    EXPECT_EQ("1.[300].3.400", Picture(dialog.control));
    Arrange(dialog.control, "1..3.255|");
    EXPECT_EQ(1, dialog.Tell(address_message::kCheck));
  });
  dialog.Run();
  EXPECT_EQ(
      Strings{"Invalid IP Address: 300 is not a valid entry. Specify a value between 0 and 255 for this field. (48)"},
      dialog.terminal.boxes.shown);
}

TEST(AddressControl, BoundsAreThoseOfTheField) {
  AddressDialog dialog;
  dialog.Look([&] {
    dialog.Tell(address_message::kSetRange, 1, 0x140A);  // 10 to 20
    dialog.Tell(address_message::kSetRange, 4, 0x0000);  // there is no such field
    Arrange(dialog.control, "1.|.3.4");
  });
  dialog.Press("9.");
  dialog.ExpectPicture("1.[9].3.4");
  dialog.Press("20.");
  dialog.ExpectPicture("1.20.[3].4");
  dialog.Run();
  EXPECT_EQ(
      Strings{"Invalid IP Address: 9 is not a valid entry. Specify a value between 10 and 20 for this field. (48)"},
      dialog.terminal.boxes.shown);
}

TEST(AddressControl, WithoutAGrandparentTheHighBoundTakesTheValuesPlace) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "[10].0.0.0"); });
  dialog.Press("300");
  dialog.ExpectPicture("255.[0].0.0");
  dialog.Run(false);
  EXPECT_EQ(Strings{}, dialog.terminal.boxes.shown);
}

TEST(AddressControl, AMessageTakesAndReturnsTheFocusUnreported) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "[10].0.0.0"); });
  dialog.ForgetTold();
  dialog.terminal.boxes.whileShown = [&] { platform::Focus(platform::ControlOf(dialog.dialog, kOtherId)); };
  dialog.Press("300");
  dialog.ExpectPicture("[300].0.0.0");
  dialog.Look([&] { EXPECT_EQ((Strings{"change", "change"}), dialog.told); });
  dialog.Run();
}

TEST(AddressControl, WhileAMessageIsShownNoFieldIsCheckedAgain) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "[10].0.0.0"); });
  int answers = 0;
  dialog.terminal.boxes.whileShown = [&] {
    if (++answers > 1) return;
    EXPECT_EQ(0, dialog.Tell(address_message::kCheck));
  };
  dialog.Press("300");
  dialog.Run();
  EXPECT_EQ(1, answers);
}

TEST(AddressControl, FocusIsReportedOnceForAllFourFields) {
  AddressDialog dialog;
  dialog.Look([&] { platform::Focus(platform::ControlOf(dialog.dialog, kOtherId)); });
  dialog.ForgetTold();
  dialog.Look([&] { platform::Focus(dialog.control); });
  dialog.Press("{Down}{Down}{Up}");
  dialog.Look([&] { EXPECT_EQ(Strings{"focus"}, dialog.told); });
  dialog.Look([&] {
    platform::Focus(platform::ControlOf(dialog.dialog, kOtherId));
    EXPECT_EQ((Strings{"focus", "focus lost"}), dialog.told);
  });
  dialog.Run();
}

TEST(AddressControl, TypingIsReportedWhileTheFieldIsWithinItsBounds) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "|.0.0.0"); });
  dialog.ForgetTold();
  dialog.Press("300");
  dialog.Look([&] { EXPECT_EQ((Strings{"change", "change"}), dialog.told); });  // 3 and 30, not 300
  dialog.Run();
}

TEST(AddressControl, WhatTheProgramSetsIsNotReported) {
  AddressDialog dialog;
  dialog.ForgetTold();
  dialog.Look([&] {
    dialog.Tell(address_message::kSet, 0, 0x01020304);
    dialog.Tell(address_message::kClear);
    EXPECT_EQ(Strings{}, dialog.told);
  });
  dialog.Run();
}

TEST(AddressControl, EnterAndEscAreGivenToTheParent) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "1.2.3.4|"); });
  dialog.ForgetTold();
  dialog.Press("{Enter}{Esc}");
  dialog.Look([&] { EXPECT_EQ((Strings{"key 13", "key 27"}), dialog.told); });
  dialog.ExpectPicture("1.2.3.4|");
  dialog.Run();
}

TEST(AddressControl, TabIsGivenToTheParentWithTheStateOfControl) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "1.2.3.4|"); });
  dialog.ForgetTold();
  dialog.Press("{Tab}{C-Tab}");
  dialog.Look([&] { EXPECT_EQ((Strings{"key 9", "key 9 with Control"}), dialog.told); });
  dialog.Run();
}

TEST(AddressControl, PageUpAsksForTheRootMenu) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "1.2.3.4|"); });
  dialog.ForgetTold();
  dialog.Press("{PageUp}");
  dialog.Look([&] { EXPECT_EQ(Strings{"root menu"}, dialog.told); });
  dialog.Run();
}

TEST(AddressControl, InsertFlipsTheSharedFlag) {
  AddressDialog dialog;
  dialog.Look([&] { Arrange(dialog.control, "1|.2.3.4"); });
  dialog.Press("{Insert}");
  dialog.ExpectPicture("1|.2.3.4");
  dialog.Run();
  EXPECT_TRUE(dialog.insertFlag.inserts);
}

TEST(AddressControl, APasteIsFollowedByTheCheck) {
  AddressDialog dialog;
  dialog.Look([&] {
    Arrange(dialog.control, "1.[2].3.4");
    const WindowHandle field = host::ChildrenOf(dialog.control)[1];
    EditField(field).ReplaceSelection(u"007");
    platform::Send(field, message::kPaste);
    EXPECT_EQ("1.7|.3.4", Picture(dialog.control));
  });
  dialog.Run();
}

TEST(AddressControl, TheStyleWithLeadingZerosKeepsThreeDigits) {
  const struct {
    const char* before;
    const char* keys;
    const char* after;
  } cases[] = {
      {"|.0.0.0", "007", "007.[0].0.0"},
      {"|.0.0.0", "7.", "007.[0].0.0"},
      {"|.0.0.0", "12{Right}", "012.|0.0.0"},
      {"|.0.0.0", ".", "|.0.0.0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keys);
    AddressDialog dialog(ui::address_style::kLeadingZeros);
    dialog.Look([&] { Arrange(dialog.control, c.before); });
    dialog.Press(c.keys);
    dialog.ExpectPicture(c.after);
    dialog.Run();
  }
}

TEST(AddressControl, AFieldThatLosesTheFocusIsTidied) {
  AddressDialog dialog(ui::address_style::kLeadingZeros);
  dialog.Look([&] {
    Arrange(dialog.control, "1.7|.3.4");
    platform::Focus(platform::ControlOf(dialog.dialog, kOtherId));
    EXPECT_EQ(u"007", platform::TextOf(host::ChildrenOf(dialog.control)[1]));
  });
  dialog.Run();
}

TEST(AddressControl, FieldsStandSideBySideWithRoomForTheDots) {
  AddressDialog dialog;
  dialog.Look([&] {
    const int width = platform::ClientRect(dialog.control).Width();
    const int height = platform::ClientRect(dialog.control).Height();
    const std::vector<WindowHandle> fields = host::ChildrenOf(dialog.control);
    const int fieldWidth = platform::RectInParent(fields[0]).Width();
    const int step = platform::RectInParent(fields[1]).left - platform::RectInParent(fields[0]).left;
    const int separator = step - fieldWidth;
    EXPECT_GT(separator, 0);
    EXPECT_EQ((width - 3 * separator - 4) / 4, fieldWidth);
    int left = 2;
    for (const WindowHandle field : fields) {
      EXPECT_EQ((platform::Rect{left, 2, left + fieldWidth, height - 2}), platform::RectInParent(field));
      EXPECT_EQ(style::kEditMultiLine | style::kEditDigitsOnly,
                platform::StyleOf(field) & (style::kEditMultiLine | style::kEditDigitsOnly));
      left += step;
    }
  });
  dialog.Run();
}

TEST(AddressControl, AlignmentFollowsTheStyle) {
  const struct {
    style::Bits controlStyle;
    style::Bits alignment;
  } cases[] = {
      {0, 0},
      {ui::address_style::kRight, style::kEditRight},
      {ui::address_style::kCentre, style::kEditCentre},
      {ui::address_style::kRight | ui::address_style::kCentre, style::kEditRight},
  };
  for (const auto& c : cases) {
    AddressDialog dialog(c.controlStyle);
    dialog.Look([&] {
      for (const WindowHandle field : host::ChildrenOf(dialog.control)) {
        EXPECT_EQ(c.alignment, platform::StyleOf(field) & (style::kEditRight | style::kEditCentre));
      }
    });
    dialog.Run();
  }
}

std::vector<host::Drawing> ExpectedDrawings(WindowHandle control, platform::Color text) {
  const std::vector<WindowHandle> fields = host::ChildrenOf(control);
  const platform::Rect first = platform::RectInParent(fields[0]);
  const int step = platform::RectInParent(fields[1]).left - first.left;
  std::vector<host::Drawing> drawings = {{.kind = host::Drawing::Kind::kFrame,
                                          .rect = platform::ClientRect(control),
                                          .color = platform::kBlack,
                                          .inside = platform::ColorOf(platform::SystemColor::kWindow),
                                          .text = {}}};
  for (int separator = 0; separator < 3; ++separator) {
    const int left = first.Width() + 2 + separator * step;
    host::Drawing dot;
    dot.kind = host::Drawing::Kind::kText;
    dot.rect.left = left;
    dot.rect.top = 2;
    dot.color = text;
    dot.text = u".";
    drawings.push_back(dot);
  }
  return drawings;
}

void ExpectSameDrawings(const std::vector<host::Drawing>& expected, const std::vector<host::Drawing>& drawn) {
  ASSERT_EQ(expected.size(), drawn.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(expected[i].kind, drawn[i].kind) << i;
    EXPECT_EQ(expected[i].rect.left, drawn[i].rect.left) << i;
    EXPECT_EQ(expected[i].rect.top, drawn[i].rect.top) << i;
    EXPECT_EQ(expected[i].color, drawn[i].color) << i;
    EXPECT_EQ(expected[i].inside, drawn[i].inside) << i;
    EXPECT_EQ(expected[i].text, drawn[i].text) << i;
  }
}

TEST(AddressControl, AFrameAndThreeDotsArePainted) {
  AddressDialog dialog;
  dialog.Look([&] {
    platform::Update(dialog.control);
    ExpectSameDrawings(ExpectedDrawings(dialog.control, platform::ColorOf(platform::SystemColor::kWindowText)),
                       host::DrawingsOf(dialog.control));
  });
  dialog.Run();
}

// Whoever is told alone is not repainted by the system.
TEST(AddressControl, ThatWasPaintedPaintsItselfAnewWhenToldThatItIsDisabled) {
  AddressDialog dialog;
  dialog.Look([&] {
    platform::Update(dialog.control);
    platform::Send(dialog.control, message::kEnable, 0);
  });
  dialog.Look([&] {
    ExpectSameDrawings(ExpectedDrawings(dialog.control, platform::ColorOf(platform::SystemColor::kGrayText)),
                       host::DrawingsOf(dialog.control));
  });
  dialog.Run();
}

TEST(AddressControl, DisablingItGraysTheDotsAndDisablesTheFields) {
  AddressDialog dialog;
  dialog.Look([&] {
    platform::Update(dialog.control);
    platform::Enable(dialog.control, false);
    for (const WindowHandle field : host::ChildrenOf(dialog.control)) EXPECT_FALSE(platform::IsEnabled(field));
    EXPECT_EQ(0u, platform::StyleOf(dialog.control) & style::kTabStop);
  });
  dialog.Look([&] {
    ExpectSameDrawings(ExpectedDrawings(dialog.control, platform::ColorOf(platform::SystemColor::kGrayText)),
                       host::DrawingsOf(dialog.control));
    platform::Enable(dialog.control, true);
    for (const WindowHandle field : host::ChildrenOf(dialog.control)) EXPECT_TRUE(platform::IsEnabled(field));
    EXPECT_EQ(style::kTabStop, platform::StyleOf(dialog.control) & style::kTabStop);
  });
  dialog.Run();
}

TEST(AddressControl, AFontGoesToTheFields) {
  AddressDialog dialog;
  dialog.Look([&] {
    platform::SetFont(dialog.control, {.face = u"System", .heightPx = 13, .weight = 400});
    for (const WindowHandle field : host::ChildrenOf(dialog.control)) {
      EXPECT_EQ(u"System", host::FontOf(field).face);
    }
  });
  dialog.Run();
}

}  // namespace
