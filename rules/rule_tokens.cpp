#include "rules/rule_tokens.h"

namespace rules {

RuleToken NextRuleToken(WideStringView& rest) {
  RuleToken token;
  rest = base::Trim(rest);
  if (rest.starts_with(u'(') || rest.starts_with(u')')) {
    token.text.push_back(rest.front());
    rest.remove_prefix(1);
  }
  const bool quote = rest.starts_with(u'"');
  if (quote) rest.remove_prefix(1);
  token.quoted = quote && token.text.empty();

  const std::size_t end = rest.find_first_of(quote ? u"\")" : u" )");
  token.text.append(rest.substr(0, end));
  if (end == WideStringView::npos) {
    rest = {};
  } else {
    rest.remove_prefix(rest[end] == u')' ? end : end + 1);
  }
  return token;
}

FlagRule ReadFlagRule(WideStringView rule) {
  const auto next = [&rule] {
    const std::size_t bar = rule.find(u'|');
    const WideStringView field = rule.substr(0, bar);
    rule = bar == WideStringView::npos ? WideStringView() : rule.substr(bar + 1);
    return field;
  };
  FlagRule parts{next(), next(), next(), next()};
  if (base::EqualsIgnoringCase(parts.wanted, kEmptyName)) parts.wanted = {};
  return parts;
}

}  // namespace rules
