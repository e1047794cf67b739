// An explanation in words, line by line.
#pragma once

#include "authoring/explanation.h"

namespace authoring {

struct TextLine {
  enum class Style { kPlain, kTitle, kWinner, kFaint };
  WideString text;
  Style style = Style::kPlain;
};

std::vector<TextLine> ToText(const Explanation& explanation);

// "hidden", "blank", "shown", "shown, not edited".
WideStringView WordFor(model::DisplayState state);
// What the line's state comes from, in a few words: "Dependency1", "the wireless rules".
WideString DecidedBy(const Verdict& verdict);
// "Mode (1.2.3) EQ "2": no, it is "1" (Infrastructure)".
WideString Sentence(const SeenComparison& comparison);
WideString Sentence(const SeenWireless& change);
// "To show it", "To have the choice "High" again".
WideString Heading(const Wish& wish);
// "set Mode (2-1) to Ad hoc (2)".
WideString Sentence(const Step& step);

}  // namespace authoring
