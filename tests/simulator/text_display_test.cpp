// The text display as people have it: kelterm in text terminals of several kinds.
#include "tests/platform/temporary_root.h"
#include "tests/simulator/text_terminal.h"

#include <gtest/gtest.h>

#include <signal.h>

#include <algorithm>

namespace tests {
namespace {

constexpr const char* kEsc = "\x1B";
const TextTerminal::Variables kXterm = {{"TERM", "xterm"}, {"LC_ALL", "C.UTF-8"}, {"NO_COLOR", ""}, {"ESCDELAY", ""}};

TextTerminal::Variables With(TextTerminal::Variables more) {
  more.insert(kXterm.begin(), kXterm.end());
  return more;
}

class TextDisplayTest : public ::testing::Test {
 protected:
  void SetUp() override { Write("Below"); }

  void Write(const std::string& below) const {
    std::string menu;
    for (int i = 1; i <= 9; ++i) {
      const std::string name = "Line" + std::to_string(i);
      menu += "<GROUP name=\"" + name + "\"><DisplayName>" + name + "</DisplayName><GROUP name=\"X\"><DisplayName>" +
              below + std::to_string(i) + "</DisplayName></GROUP></GROUP>";
    }
    root.Write("Windows/ovu.xml", "<GROUP name=\"R\"><DisplayName>Start</DisplayName>" + menu + "</GROUP>");
  }

  std::vector<std::string> OnRoot(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"--root", root.Path().string()});
    return more;
  }

  TemporaryRoot root;
};

TEST_F(TextDisplayTest, ACursorKeyInPiecesIsNotEscOnAnyKindOfTerminal) {
  for (const char* kind : {"xterm-256color", "xterm", "screen", "linux", "vt220", "vt100", "rxvt", "tmux-256color"}) {
    TextTerminal terminal(OnRoot(), With({{"TERM", kind}, {"ESCDELAY", "5000"}}));
    ASSERT_TRUE(terminal.Shows("Line1")) << kind << terminal.Output();
    terminal.Send("2");
    ASSERT_TRUE(terminal.Shows("Below2")) << kind << terminal.Output();
    for (const std::string keys : {"[B", "OB"}) {
      terminal.Send(kEsc);
      terminal.Send(keys.substr(0, 1));
      terminal.Send(keys.substr(1));
    }
    // Any Esc would have gone back.
    EXPECT_TRUE(terminal.Shows("Below2")) << kind << terminal.Output();
  }
}

TEST_F(TextDisplayTest, ASequenceThatHasBegunIsWaitedForLongerThanEsc) {
  TextTerminal terminal(OnRoot(), With({{"ESCDELAY", "0"}}));
  ASSERT_TRUE(terminal.Shows("Line1")) << terminal.Output();
  terminal.Send("2");
  ASSERT_TRUE(terminal.Shows("Below2")) << terminal.Output();
  terminal.Send("\x1B[");
  terminal.Send("B");
  EXPECT_TRUE(terminal.Shows("Below2")) << terminal.Output();
}

TEST_F(TextDisplayTest, EscActsWithinFiftyMilliseconds) {
  TextTerminal terminal(OnRoot(), kXterm);
  ASSERT_TRUE(terminal.Shows("Line1")) << terminal.Output();
  // On a busy machine any one of them may take longer.
  TextTerminal::Milliseconds fastest{1000};
  for (int i = 0; i < 20; ++i) {
    terminal.Send("2");
    ASSERT_TRUE(terminal.Shows("Below2")) << terminal.Output();
    fastest = std::min(fastest, terminal.TimeFrom(kEsc, "Line3"));
    ASSERT_TRUE(terminal.Shows("Line1")) << terminal.Output();
  }
  EXPECT_GT(50, fastest.count());
  EXPECT_LE(30, fastest.count());
}

TEST_F(TextDisplayTest, TheWindowMayChangeItsSizeAtAnyTime) {
  TextTerminal terminal(OnRoot(), kXterm);
  ASSERT_TRUE(terminal.Shows("Keypad")) << terminal.Output();
  terminal.Resize(40, 10);
  EXPECT_TRUE(terminal.ShowsWithout("Line7", "Line9")) << terminal.Output();
  for (int i = 0; i < 8; ++i) terminal.Send("\x1B[B");
  EXPECT_TRUE(terminal.ShowsWithout("Line9", "Start")) << terminal.Output();
  terminal.Resize(30, 5);
  EXPECT_TRUE(terminal.Shows("40x10")) << terminal.Output();
  terminal.Resize(90, 30);
  EXPECT_TRUE(terminal.Shows("Start")) << terminal.Output();
}

TEST_F(TextDisplayTest, WithoutUtf8FramesAndMarksAreOfAscii) {
  TextTerminal terminal(OnRoot(), With({{"LC_ALL", "C"}, {"TERM", "vt100"}}));
  ASSERT_TRUE(terminal.Shows("+----")) << terminal.Output();
  ASSERT_TRUE(terminal.Shows("Line9")) << terminal.Output();
  EXPECT_EQ(std::string::npos, terminal.Output().find('?', terminal.Output().rfind("+----")));
}

TEST_F(TextDisplayTest, NoColorIsHonoured) {
  const char* colour = "\x1B[36m";
  {
    TextTerminal coloured(OnRoot(), kXterm);
    EXPECT_TRUE(coloured.Shows(colour)) << coloured.Output();
  }
  TextTerminal plain(OnRoot(), With({{"NO_COLOR", "1"}}));
  ASSERT_TRUE(plain.Shows("Line9")) << plain.Output();
  EXPECT_EQ(std::string::npos, plain.Output().find(colour));
}

TEST_F(TextDisplayTest, AKindOfTerminalThatCannotShowItIsRefusedInOneLine) {
  const struct {
    const char* kind;
    const char* line;
  } cases[] = {
      {"dumb", "kelterm: a terminal of the kind \"dumb\" cannot show the text display; is TERM right?\r\n"},
      {"nosuch", "kelterm: the text display does not know terminals of the kind \"nosuch\"; is TERM right?\r\n"},
      {"", "kelterm: the text display needs TERM to name the kind of terminal; use --script without one\r\n"},
  };
  for (const auto& c : cases) {
    TextTerminal terminal(OnRoot(), With({{"TERM", c.kind}}));
    EXPECT_EQ(2, terminal.Wait());
    EXPECT_EQ(c.line, terminal.Output());
  }
}

TEST_F(TextDisplayTest, ASecondOneOnTheSameStorageSaysThatItGaveWay) {
  TextTerminal first(OnRoot(), kXterm);
  ASSERT_TRUE(first.Shows("Line9")) << first.Output();
  TextTerminal second(OnRoot(), kXterm);
  EXPECT_EQ(0, second.Wait());
  const std::string line =
      "kelterm: this terminal already runs, as process " + std::to_string(first.ProcessId()) + "; it was rung\r\n";
  EXPECT_TRUE(second.Output().ends_with(line)) << second.Output();
  EXPECT_TRUE(first.Shows("Line9"));
}

TEST_F(TextDisplayTest, CtrlCEndsItAndPutsTheTerminalBack) {
  TextTerminal terminal(OnRoot(), kXterm);
  ASSERT_TRUE(terminal.Shows("Line9")) << terminal.Output();
  terminal.Send("\x03");
  EXPECT_EQ(-SIGINT, terminal.Wait());
  EXPECT_NE(std::string::npos, terminal.Output().find("\x1B[?1049l")) << terminal.Output();
}

TEST_F(TextDisplayTest, CtrlWExplainsTheSelectedLineInWindowsOfAnySize) {
  for (const auto& [columns, height] : {std::pair(80, 24), std::pair(120, 50), std::pair(40, 10)}) {
    TextTerminal terminal(OnRoot(), kXterm, columns, height);
    ASSERT_TRUE(terminal.Shows("Line1")) << terminal.Output();
    terminal.Send("\x1B[B\x17");
    EXPECT_TRUE(terminal.Shows("path   Line2")) << columns << "x" << height << terminal.Output();
    terminal.Send("\x17");
    EXPECT_TRUE(terminal.ShowsWithout("Line3", "path")) << columns << "x" << height << terminal.Output();
  }
}

TEST_F(TextDisplayTest, AWatchedTerminalStartsAgainWhereItWasWhenItsStorageChanges) {
  TextTerminal terminal(OnRoot({"--watch"}), kXterm);
  ASSERT_TRUE(terminal.Shows("Line1")) << terminal.Output();
  terminal.Send("2");
  ASSERT_TRUE(terminal.Shows("Below2")) << terminal.Output();
  Write("Deep");
  EXPECT_TRUE(terminal.Shows("Deep2")) << terminal.Output();
  root.Write("Windows/ovu.xml", "<GROUP name=\"R\"><GROUP></GROUP");
  EXPECT_TRUE(terminal.Shows("ovu.xml:1:")) << terminal.Output();
  EXPECT_TRUE(terminal.Shows("Deep2")) << terminal.Output();
  Write("Low");
  EXPECT_TRUE(terminal.ShowsWithout("Low2", "ovu.xml:1:")) << terminal.Output();
}

TEST_F(TextDisplayTest, AWatchedTerminalWaitsUntilItsStorageCanBeUsed) {
  root.Write("device.txt", "broken\n");
  TextTerminal terminal(OnRoot({"--watch"}), kXterm);
  EXPECT_TRUE(terminal.Shows("device.txt:1:")) << terminal.Output();
  root.Write("device.txt", "");
  EXPECT_TRUE(terminal.Shows("Line1")) << terminal.Output();
  root.Write("device.txt", "broken\n");
  EXPECT_TRUE(terminal.Shows("device.txt:1:")) << terminal.Output();
}

}  // namespace
}  // namespace tests
