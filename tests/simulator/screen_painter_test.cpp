#include "simulator/screen_painter.h"

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

class ScreenPainter : public HostTest {
 protected:
  // Runs a dialog of these controls and paints it when it has settled; terminals of other sizes must do, too.
  std::string Show(const std::vector<DialogControl>& controls, MessageTable& messages) {
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
      painted = simulator::PaintScreen(80, 24, 240, 320);
      for (int columns = -1; columns < 90; columns += 7) {
        for (int rows = -1; rows < 30; rows += 5) simulator::PaintScreen(columns, rows, 240, 320);
      }
      text = painted->grid.ToUtf8();
    });
    platform::RunDialog(dialog, nullptr, messages);
    return text;
  }

  std::optional<simulator::PaintedScreen> painted;
};

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

TEST(Wrap, BreaksAtBlanksAndAtLineEnds) {
  using Lines = std::vector<WideString>;
  EXPECT_EQ((Lines{u"An error", u"occurred."}), simulator::Wrap(u"An error occurred.", 10));
  EXPECT_EQ((Lines{u"abcdefghij", u"k"}), simulator::Wrap(u"abcdefghijk", 10));
  EXPECT_EQ((Lines{u"", u"", u"Saved"}), simulator::Wrap(u"\n\nSaved", 10));
  EXPECT_EQ((Lines{u"a", u"b"}), simulator::Wrap(u"a\r\nb", 10));
  EXPECT_EQ((Lines{u"a", u"b"}), simulator::Wrap(u"ab", 0));
  EXPECT_EQ(Lines{}, simulator::Wrap(u"", 10));
}

}  // namespace
