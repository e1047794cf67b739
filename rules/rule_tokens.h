// The words of a dependency rule: "IF ("Key Index" EQ 4) THEN NoEdit".
#pragma once

#include "base/wide_string.h"

namespace rules {

struct RuleToken {
  WideString text;      // without quotes
  bool quoted = false;  // the whole of it stood in quotes

  bool OpensGroup() const { return text.starts_with(u'('); }
  bool ClosesGroup() const { return text == u")"; }
};

// Removes the first token from `rest` and returns it; an empty text gives an empty token. A parenthesis in front stays
// part of the token: "(a" is one. A token ends at a blank or, when quoted, at the closing quote; and always before a
// ")", even within quotes.
RuleToken NextRuleToken(WideStringView& rest);

// Removes the text before the next bar, or all of it: a field of a rule that is no condition.
WideStringView NextRuleField(WideStringView& rest);

}  // namespace rules
