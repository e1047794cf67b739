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

// A name in this form stands for the empty text, in any case.
inline constexpr WideStringView kEmptyName = u"Empty";

// A rule that is no condition: NAME|TYPE|VALUE|FLAG.
struct FlagRule {
  WideStringView name;
  WideStringView type;
  WideStringView wanted;  // empty for kEmptyName too
  WideStringView flag;
};
// Never fails: what is missing is empty, and what is too much is left out.
FlagRule ReadFlagRule(WideStringView rule);

}  // namespace rules
