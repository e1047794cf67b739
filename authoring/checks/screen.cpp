// Checks of what has room on the terminal's screens, measured with its fonts on both layouts.
#include "authoring/checks/lists.h"

#include "base/string_table.h"
#include "base/utf8.h"
#include "platform/host/text_metrics.h"
#include "values/attributes.h"

#include <algorithm>
#include <array>

namespace authoring::checks {
namespace {

using platform::host::Font;

struct Line {
  const char* layout;
  const Font& (*font)();
  int widthPx;
  int mostLines;
};

const Font& MenuFont() {
  static const Font& font = platform::host::FontFor(u"Courier", 13, 0);
  return font;
}
const Font& SmallTitleFont() {
  static const Font& font = platform::host::FontFor(u"System", 15, 600);
  return font;
}
const Font& LargeTitleFont() {
  static const Font& font = platform::host::FontFor(u"System", 20, 600);
  return font;
}
const Font& EditFont() {
  static const Font& font = platform::host::FontForPoints(u"Tahoma", 8);
  return font;
}

// Of the menu list, the title line, and the edit dialog's list and description. The narrower layout comes first.
constexpr std::array<Line, 2> kMenuLines = {{{"small", MenuFont, 152, 1}, {"large", MenuFont, 210, 1}}};
constexpr std::array<Line, 2> kTitleLines = {{{"small", SmallTitleFont, 163, 1}, {"large", LargeTitleFont, 242, 1}}};
constexpr std::array<Line, 1> kChoiceLines = {{{"small", EditFont, 144, 1}}};
constexpr std::array<Line, 1> kDescriptionLines = {{{"both", EditFont, 135, 2}}};

// How many lines a text takes where it is broken at blanks.
int LinesOf(const Font& font, WideStringView text, int widthPx) {
  int lines = 1;
  WideString line;
  while (!text.empty()) {
    const std::size_t blank = text.find(u' ');
    const WideStringView word = text.substr(0, blank);
    text = blank == WideStringView::npos ? WideStringView() : text.substr(blank + 1);
    const WideString longer = line.empty() ? WideString(word) : line + u" " + WideString(word);
    if (WidthOf(font, longer) <= widthPx || line.empty()) {
      line = longer;
    } else {
      ++lines;
      line = word;
    }
  }
  return lines;
}

bool Fits(const Line& line, WideStringView text) {
  const Font& font = line.font();
  if (line.mostLines == 1) return WidthOf(font, text) <= line.widthPx;
  return LinesOf(font, text, line.widthPx) <= line.mostLines;
}

template <std::size_t count>
const Line* FirstTooNarrow(const std::array<Line, count>& lines, WideStringView text) {
  const auto found = std::find_if(lines.begin(), lines.end(), [text](const Line& line) { return !Fits(line, text); });
  return found == lines.end() ? nullptr : &*found;
}

WideString TitleOf(const Subject& subject) {
  return subject.All().Source().Symbols().TextOf(subject.Get(Attribute::kDisplayName));
}

}  // namespace

void LineTooWide(const Subject& subject, Findings& findings) {
  const WideString title = TitleOf(subject);
  if (subject.MenuEntry().parent == nullptr || title.empty()) return;
  const Line* narrow = FirstTooNarrow(kMenuLines, u"1  " + title);
  if (narrow == nullptr) return;
  findings.Add(
      subject, Attribute::kDisplayName,
      "The name " + Quoted(title) + " is wider than the " + narrow->layout + " layout's menu: its end is cut off.",
      "Shorten it to " + std::to_string(narrow->widthPx / 8 - 3) + " characters.");
}

void TitleTooWide(const Subject& subject, Findings& findings) {
  if (!subject.IsMenu()) return;
  const WideString title = TitleOf(subject);
  const Line* narrow = FirstTooNarrow(kTitleLines, title);
  if (narrow == nullptr) return;
  findings.Add(
      subject, Attribute::kDisplayName,
      "The title " + Quoted(title) + " is wider than the " + narrow->layout + " layout's screen: it is cut off.",
      "Shorten it.");
}

void DescriptionTooWide(const Subject& subject, Findings& findings) {
  const WideStringView text = subject.Get(Attribute::kShortDesc);
  if (FirstTooNarrow(kDescriptionLines, text) == nullptr) return;
  findings.Add(subject, Attribute::kShortDesc,
               "The ShortDesc takes more than the two lines above the entry field: its end is not seen.",
               "Shorten it.");
}

void ChoiceTooWide(const Subject& subject, Findings& findings) {
  if (subject.ChoiceText() == values::kUnresolved) return;
  for (const auto& choice : subject.Choices().Entries()) {
    if (FirstTooNarrow(kChoiceLines, choice.text) == nullptr) continue;
    findings.Add(subject, Attribute::kChoiceFmt,
                 "The choice " + Quoted(choice.text) + " is wider than the small layout's list: its end is cut off.",
                 "Shorten it.");
  }
}

}  // namespace authoring::checks
