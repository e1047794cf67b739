#include "simulator/screen_painter.h"

#include "base/number.h"
#include "platform/canvas.h"
#include "tests/platform/host_fixture.h"

namespace {

namespace style = platform::style;
using platform::DialogControl;
using platform::DialogTemplate;
using platform::WindowHandle;

// A bar as the utility draws its own.
class BarPainter : public platform::MessageHandler {
 public:
  std::optional<platform::LResult> OnMessage(WindowHandle window, const platform::Message& message) override {
    if (message.id != platform::message::kPaint) return std::nullopt;
    const auto canvas = platform::BeginPaint(window);
    canvas->Fill(platform::ClientRect(window), {175, 175, 175});
    canvas->Fill({0, 0, platform::ClientRect(window).right, 40}, platform::kBlack);
    return 0;
  }
};

class ScreenPainter : public ::testing::Test {
 protected:
  // Runs a dialog of these controls and paints it when it has settled; terminals of other sizes must do, too.
  std::string Show(const std::vector<DialogControl>& controls, MessageTable& messages) {
    tests::ScriptedDisplay display;
    platform::host::Environment environment;
    environment.display = &display;
    const platform::host::InstalledEnvironment installed(environment);
    platform::RegisterWindowClass({u"Bar", false, [](WindowHandle) { return std::make_unique<BarPainter>(); }});
    DialogTemplate dialog;
    dialog.caption = u"Title";
    dialog.style = style::kPopup | style::kVisible | style::kDialogSetFont;
    dialog.width = 139;
    dialog.height = 133;
    dialog.fontFace = u"System";
    dialog.fontPoints = 8;
    dialog.controls = controls;
    std::string text;
    display.Then([&] {
      painted = simulator::PaintScreen(columns_, rows_, {.inserts = inserts, .name = name});
      for (int columns = -1; columns < 90; columns += 7) {
        for (int rows = -1; rows < 30; rows += 5) simulator::PaintScreen(columns, rows, {});
      }
      text = painted->grid.ToUtf8();
    });
    platform::RunDialog(dialog, nullptr, messages);
    return text;
  }

  void OnTerminalOf(int columns, int rows) {
    columns_ = columns;
    rows_ = rows;
  }
  static bool Has(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

  std::optional<simulator::PaintedScreen> painted;
  bool inserts = false;
  WideString name = u"A terminal";

 private:
  int columns_ = 80;
  int rows_ = 24;
};

MessageTable ListWithLines(int lines, int selected) {
  MessageTable messages;
  messages.On(platform::message::kInitDialog, [lines, selected](WindowHandle dialog, const platform::Message&) {
    const platform::ListBox list(platform::ControlOf(dialog, 2));
    for (int i = 1; i <= lines; ++i) list.Add(u"line " + base::ToText(i) + u".");
    list.Select(selected);
    platform::Focus(list.Handle());
    return 0;
  });
  return messages;
}

constexpr style::Bits kShown = style::kChild | style::kVisible;

TEST_F(ScreenPainter, AMenuIsShownLineByLineWithItsTitleCentred) {
  MessageTable messages;
  messages.On(platform::message::kInitDialog, [](WindowHandle dialog, const platform::Message&) {
    const platform::ListBox list(platform::ControlOf(dialog, 2));
    list.SetItemHeight(20);
    list.Add(u"1  Network");
    list.Add(u"2  Wireless");
    list.Select(1);
    return 1;
  });
  const std::string text = Show({{1, u"Static", u"Main Menu", kShown | style::kStaticCentre, 0, 0, 138, 11},
                                 {2, u"ListBox", u"", kShown | style::kListNoIntegralHeight, 10, 15, 100, 60},
                                 {3, u"Static", u"Exit [Esc]          Select [Enter]", kShown, 2, 124, 136, 8}},
                                messages);
  EXPECT_NE(std::string::npos, text.find("                Main Menu"));
  EXPECT_NE(std::string::npos, text.find("1  Network"));
  EXPECT_NE(std::string::npos, text.find("2  Wireless"));
  EXPECT_NE(std::string::npos, text.find("Exit [Esc]          Select [Enter]"));
  EXPECT_NE(std::string::npos, text.find("Keypad"));
  EXPECT_NE(std::string::npos, text.find("─ A terminal ─"));
  bool inverse = false;
  for (int row = 0; row < 24; ++row) {
    for (int column = 0; column < 80; ++column) {
      if (painted->grid.At(column, row).style != simulator::CellStyle::kInverse) continue;
      inverse = true;
      EXPECT_NE(U'1', painted->grid.At(column, row).character);
    }
  }
  EXPECT_TRUE(inverse);
  EXPECT_FALSE(painted->caret);
}

TEST_F(ScreenPainter, AListLeavesTheLinesAboveItInSight) {
  for (int top = 0; top < 8; ++top) {
    MessageTable messages = ListWithLines(3, 0);
    const std::string text = Show({{1, u"Static", u"The first line\nthe second", kShown, 3, top, 90, 20},
                                   {2, u"ListBox", u"", kShown | style::kListNoIntegralHeight, 0, top + 14, 135, 40}},
                                  messages);
    EXPECT_TRUE(Has(text, "The first line") && Has(text, "the second") && Has(text, "line 1.")) << top << text;
  }
}

TEST_F(ScreenPainter, ABarIsShownAsItDrewItself) {
  MessageTable messages;
  const std::string text = Show({{1, u"Bar", u"", kShown | style::kBorder, 100, 10, 8, 60}}, messages);
  EXPECT_NE(std::string::npos, text.find("█")) << text;
  EXPECT_NE(std::string::npos, text.find("░"));
}

TEST_F(ScreenPainter, TheCaretStandsInTheFieldThatHasTheFocus) {
  MessageTable messages;
  messages.On(platform::message::kInitDialog, [](WindowHandle dialog, const platform::Message&) {
    platform::SetText(platform::ControlOf(dialog, 1), u"192.168");
    platform::Focus(platform::ControlOf(dialog, 1));
    platform::EditField(platform::ControlOf(dialog, 1)).Select(3, 3);
    return 0;
  });
  Show({{1, u"Edit", u"", kShown | style::kTabStop, 8, 20, 100, 14}}, messages);
  ASSERT_TRUE(painted->caret);
  EXPECT_EQ(U'.', painted->grid.At(painted->caret->column, painted->caret->row).character);
  EXPECT_EQ(simulator::CellStyle::kField, painted->grid.At(painted->caret->column, painted->caret->row).style);
}

TEST_F(ScreenPainter, TextsThatAreTooLongStayWithinTheirWindow) {
  MessageTable messages;
  const std::string text = Show({{1, u"Static", WideString(500, u'Z'), kShown, 0, 0, 138, 30},
                                 {2, u"Button", WideString(500, u'y'), kShown, 8, 50, 40, 14}},
                                messages);
  for (int row = 0; row < 24; ++row) {
    for (int column = 59; column < 80; ++column) EXPECT_NE(U'Z', painted->grid.At(column, row).character);
  }
  EXPECT_NE(std::string::npos, text.find("ZZZ"));
}

// The lists' font has characters of 8 pixels.
TEST_F(ScreenPainter, ALineIsCutAtTheCharacterAtWhichTheDeviceCutsIt) {
  MessageTable messages;
  messages.On(platform::message::kInitDialog, [](WindowHandle dialog, const platform::Message&) {
    const platform::ListBox list(platform::ControlOf(dialog, 2));
    platform::SetFont(list.Handle(), {.face = u"Courier", .heightPx = 12});
    platform::Move(list.Handle(), {0, 0, 84, 60});
    list.Add(u"1234567890abc");  // 10 and a half characters
    platform::SetText(platform::ControlOf(dialog, 3), u"one wordwordwordwordwordword two");
    return 0;
  });
  const std::string text = Show({{2, u"ListBox", u"", kShown | style::kListNoIntegralHeight, 0, 0, 1, 1},
                                 {3, u"Static", u"", kShown, 0, 60, 40, 24}},
                                messages);
  EXPECT_TRUE(Has(text, "1234567890a ")) << text;
  EXPECT_FALSE(Has(text, "1234567890ab")) << text;
  EXPECT_TRUE(Has(text, "│one  ")) << text;
  EXPECT_FALSE(Has(text, "one word")) << text;
  EXPECT_FALSE(Has(text, "wordwordwordwordwordword")) << text;
  EXPECT_TRUE(Has(text, "│two  ")) << text;
}

TEST_F(ScreenPainter, ALongChoiceListShowsAtWhichEndThereIsMore) {
  const std::vector<DialogControl> longList = {
      {2, u"ListBox", u"", kShown | style::kVerticalScroll | style::kTabStop, 0, 2, 96, 43}};
  const struct {
    int lines;
    int selected;
    bool above;
    bool below;
  } cases[] = {{3, 2, false, false}, {20, 0, false, true}, {20, 10, true, true}, {20, 19, true, false}};
  for (const auto& c : cases) {
    MessageTable messages = ListWithLines(c.lines, c.selected);
    const std::string text = Show(longList, messages);
    EXPECT_EQ(c.above, Has(text, "▲")) << text;
    EXPECT_EQ(c.below, Has(text, "▼")) << text;
    EXPECT_TRUE(Has(text, ("line " + std::to_string(c.selected + 1) + ".").c_str())) << text;
  }
}

TEST_F(ScreenPainter, ASmallTerminalFollowsTheSelectedLineTheButtonAndTheCaret) {
  const std::vector<DialogControl> controls = {
      {2, u"ListBox", u"", kShown | style::kListNoIntegralHeight | style::kTabStop, 0, 0, 60, 112},
      {3, u"Button", u"Save", kShown | style::kTabStop, 70, 112, 48, 14},
      {4, u"Edit", u"", kShown | style::kTabStop, 80, 60, 58, 14}};
  OnTerminalOf(40, 10);
  MessageTable first = ListWithLines(12, 0);
  std::string text = Show(controls, first);
  EXPECT_TRUE(Has(text, "line 1.")) << text;
  EXPECT_FALSE(Has(text, "line 12.")) << text;
  MessageTable last = ListWithLines(12, 11);
  text = Show(controls, last);
  EXPECT_FALSE(Has(text, "line 1.")) << text;
  EXPECT_TRUE(Has(text, "line 12.")) << text;
  EXPECT_FALSE(Has(text, "[ Save ]")) << text;
  MessageTable button;
  button.On(platform::message::kInitDialog, [](WindowHandle dialog, const platform::Message&) {
    platform::Focus(platform::ControlOf(dialog, 3));
    return 0;
  });
  text = Show(controls, button);
  EXPECT_TRUE(Has(text, "[ Save ]")) << text;
  MessageTable field;
  field.On(platform::message::kInitDialog, [](WindowHandle dialog, const platform::Message&) {
    const platform::EditField edit(platform::ControlOf(dialog, 4));
    platform::SetText(edit.Handle(), u"0123456");
    platform::Focus(edit.Handle());
    edit.Select(7, 7);
    return 0;
  });
  text = Show(controls, field);
  EXPECT_TRUE(Has(text, "0123456")) << text;
  ASSERT_TRUE(painted->caret);
  EXPECT_EQ(U'6', painted->grid.At(painted->caret->column - 1, painted->caret->row).character);
}

TEST_F(ScreenPainter, ATerminalThatIsTooSmallIsToldHowLargeItShouldBe) {
  for (const auto& [columns, rows] : {std::pair(39, 24), std::pair(80, 9)}) {
    OnTerminalOf(columns, rows);
    MessageTable messages = ListWithLines(3, 0);
    const std::string text = Show({{2, u"ListBox", u"", kShown, 0, 0, 60, 60}}, messages);
    EXPECT_TRUE(Has(text, "Too small: 40x10 is needed")) << text;
    EXPECT_FALSE(Has(text, "line 1.")) << text;
  }
}

TEST_F(ScreenPainter, TheLegendSaysWhatTheKeysDoWhereTheFocusIs) {
  MessageTable list = ListWithLines(3, 0);
  std::string text = Show({{2, u"ListBox", u"", kShown | style::kTabStop, 0, 0, 60, 60}}, list);
  EXPECT_TRUE(Has(text, "↑ ↓    choose\n")) << text;
  EXPECT_FALSE(Has(text, "Insert now")) << text;
  const std::vector<DialogControl> fields = {{1, u"Edit", u"", kShown | style::kTabStop, 8, 20, 100, 14},
                                             {2, u"Button", u"Save", kShown | style::kTabStop, 8, 60, 40, 14}};
  MessageTable none;
  text = Show(fields, none);
  EXPECT_TRUE(Has(text, "Insert now: overtype\n")) << text;
  EXPECT_TRUE(Has(text, "Tab    the buttons\n")) << text;
  inserts = true;
  MessageTable again;
  text = Show(fields, again);
  EXPECT_TRUE(Has(text, "Insert now: insert\n")) << text;
}

}  // namespace
