#include "simulator/text_panel.h"

#include "platform/messages.h"
#include "tests/printing.h"

namespace {

namespace key = platform::key;
using simulator::CellGrid;
using simulator::TextPanel;
using simulator::Wrapped;

std::string Painted(TextPanel& panel, int columns, int rows) {
  panel.Fit(columns, rows);
  CellGrid grid(columns, rows);
  grid.Fill(grid.Whole(), {U'.', simulator::CellStyle::kNormal}, grid.Whole());
  panel.Paint(grid);
  return grid.ToUtf8();
}

std::string Numbers(int last) {
  std::string text;
  for (int i = 1; i <= last; ++i) text += "line " + std::to_string(i) + "\n";
  return text;
}

TEST(TextPanel, LongLinesGoOnBelowFurtherIn) {
  using Lines = std::vector<WideString>;
  const struct {
    const char16_t* line;
    Lines wrapped;
  } cases[] = {
      {u"", {u""}},
      {u"just fits it", {u"just fits it"}},
      {u"the words are kept whole", {u"the words", u"  are kept", u"  whole"}},
      {u"  in by two words", {u"  in by two", u"    words"}},
      {u"abcdefghijklmnop", {u"abcdefghijkl", u"  mnop"}},
      {u"            x", {u"            ", u"      x"}},
      {u"abcdefghijk\U0001F600z", {u"abcdefghijk", u"  \U0001F600z"}},
  };
  for (const auto& c : cases) EXPECT_EQ(c.wrapped, Wrapped(c.line, 12));
}

TEST(TextPanel, TakesNoMoreThanItNeedsAndLeavesTheDeviceItsRows) {
  TextPanel panel;
  EXPECT_EQ(0, panel.Fit(80, 24));
  panel.Open(u"Title", "one\ntwo\n");
  EXPECT_EQ(4, panel.Fit(80, 24));
  panel.Open(u"Title", Numbers(100));
  EXPECT_EQ(14, panel.Fit(80, 24));
  EXPECT_EQ(6, panel.Fit(80, 16));
  EXPECT_EQ(15, panel.Fit(80, 15)) << "where both would be too small it has all";
}

TEST(TextPanel, ItsFrameSaysWhatItIsAndWhichKeysItHas) {
  TextPanel panel;
  panel.Open(u"Title", "one\ntwo\n");
  EXPECT_EQ(
      "....................\n"
      "┌─ Title ──────────┐\n"
      "│one               │\n"
      "│two               │\n"
      "└─ Esc close ──────┘\n",
      Painted(panel, 20, 5).substr(0));
  panel.Open(u"Title", Numbers(20));
  EXPECT_NE(std::string::npos, Painted(panel, 50, 10).find("8 of 20  Esc close")) << Painted(panel, 50, 10);
}

TEST(TextPanel, KeysScrollToBothEndsAndClose) {
  TextPanel panel;
  panel.Open(u"T", Numbers(30));
  const auto first = [&] {
    const std::string painted = Painted(panel, 40, 20);
    const std::size_t at = painted.find("line ");
    return painted.substr(at, painted.find(' ', at + 5) - at);
  };
  const auto press = [&](std::uint16_t virtualKey) { panel.Press({virtualKey, 0, false, false}); };
  EXPECT_EQ("line 1", first());
  const struct {
    std::uint16_t key;
    const char* first;
  } steps[] = {
      {key::kUp, "line 1"},      {key::kDown, "line 2"}, {key::kPageDown, "line 9"},
      {key::kUp, "line 8"},      {key::kEnd, "line 23"}, {key::kDown, "line 23"},
      {key::kPageUp, "line 16"}, {key::kHome, "line 1"}, {key::kEnter, "line 1"},
  };
  for (const auto& step : steps) {
    press(step.key);
    EXPECT_EQ(step.first, first());
  }
  EXPECT_TRUE(panel.IsOpen());
  press(key::kEscape);
  EXPECT_FALSE(panel.IsOpen());
  panel.Open(u"T", "x\n");
  panel.Press({'W', 0, false, true});
  EXPECT_FALSE(panel.IsOpen());
}

TEST(TextPanel, ANarrowerWindowKeepsTheTextInSight) {
  TextPanel panel;
  panel.Open(u"T", Numbers(30));
  panel.Fit(80, 20);
  panel.Press({key::kEnd, 0, false, false});
  panel.Fit(80, 40);
  EXPECT_NE(std::string::npos, Painted(panel, 80, 40).find("30 of 30"));
}

}  // namespace
