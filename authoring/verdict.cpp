// What decided how a line is shown, from what was traced.
#include "authoring/verdict.h"
#include "authoring/items.h"

#include <algorithm>

namespace authoring {

using model::DisplayState;

Verdict VerdictOf(const RuleTrace& trace, const model::MenuItem& item) {
  Verdict verdict;
  verdict.path = ShownPathOf(item);
  verdict.title = base::Trim(item.Title());
  verdict.state = item.State();
  verdict.rules = trace.RulesOf(item.Key());
  for (std::size_t i = 0; i < verdict.rules.size(); ++i) {
    if (verdict.rules[i].state) verdict.winner = i;
  }
  const WideStringView oid = OidOf(item);
  for (const SeenWireless& change : trace.Wireless()) {
    if (oid.empty() || change.oid != oid) continue;
    verdict.wireless.push_back(change);
    using Kind = rules::WirelessChange::Kind;
    if (change.kind == Kind::kShown || change.kind == Kind::kHidden) verdict.byWireless = true;
  }
  if (verdict.byWireless) verdict.winner.reset();
  return verdict;
}

void RulesThatCount::Add(const Verdict& verdict) {
  rules.insert(rules.end(), verdict.rules.begin(), verdict.rules.end());
  wireless = wireless || !verdict.wireless.empty();
}

std::vector<Verdict> HiddenLines(RuleTrace& trace, model::MenuItem& menu) {
  std::vector<Verdict> hidden;
  for (const auto& child : menu.Children()) {
    const DisplayState state = child->State();
    if (state == DisplayState::kNotDisplayed || state == DisplayState::kBlank) {
      hidden.push_back(VerdictOf(trace, *child));
    }
  }
  return hidden;
}

}  // namespace authoring
