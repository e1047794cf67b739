#include "settings/refusal_reasons.h"

#include "authoring/explanation_text.h"
#include "authoring/verdict.h"
#include "base/utf8.h"
#include "rules/wireless_couplings.h"
#include "settings/catalogue.h"
#include "settings/rule_readers.h"

namespace settings {
namespace {

using authoring::SeenRule;
using authoring::Verdict;

void AddLevers(const SeenRule& rule, Reason& reason) {
  for (const authoring::SeenComparison& comparison : rule.comparisons) {
    if (!comparison.operand.oid.empty()) reason.levers.insert(SettingOf(comparison.operand.oid));
  }
}

void AddRule(const SeenRule& rule, Reason& reason) {
  for (const authoring::SeenComparison& comparison : rule.comparisons) {
    reason.because.push_back(base::ToUtf8(Sentence(comparison)));
  }
  AddLevers(rule, reason);
}

void AddWireless(const Verdict& verdict, Reason& reason) {
  namespace wireless = rules::wireless;
  for (const auto& change : verdict.wireless) reason.because.push_back("wireless rules: " + base::ToUtf8(Sentence(change)));
  for (const WideStringView oid : {wireless::kNetworkType, wireless::kAuthentication, wireless::kEncryption,
                                   wireless::kKeyIndex, wireless::kKeySetting, wireless::kMethod8021X}) {
    reason.levers.insert(WideString(oid));
  }
}

}  // namespace

Reason ReasonOfState(const authoring::RuleTrace& trace, const model::MenuItem& line, bool isMenu) {
  const Verdict verdict = VerdictOf(trace, line);
  Reason reason;
  reason.why = isMenu ? "the menu \"" + base::ToUtf8(NameOf(line)) + "\" is " : "it is ";
  const bool isLocked = line.State() == model::DisplayState::kNoEdit;
  reason.why += isLocked ? "locked" : base::ToUtf8(authoring::WordFor(line.State()));
  if (verdict.winner) {
    const SeenRule& rule = verdict.rules[*verdict.winner];
    reason.why += " by " + base::ToUtf8(rule.Attribute()) + ": " + base::ToUtf8(rule.text);
    AddRule(rule, reason);
    // Without the last word of this one an earlier rule would have had it.
    for (const SeenRule& other : verdict.rules) {
      if (other.state && *other.state != model::DisplayState::kNormal) AddLevers(other, reason);
    }
  } else {
    reason.why += " by the wireless rules";
    AddWireless(verdict, reason);
  }
  return reason;
}

Reason ReasonOfChoices(const authoring::RuleTrace& trace, const model::MenuItem& line, std::string why) {
  const Verdict verdict = VerdictOf(trace, line);
  Reason reason{std::move(why), {}, {}};
  for (const SeenRule& rule : verdict.rules) {
    if (!rule.choices) continue;
    reason.because.push_back(base::ToUtf8(rule.Attribute()) + ": " + base::ToUtf8(rule.text));
    AddRule(rule, reason);
  }
  if (!verdict.wireless.empty()) AddWireless(verdict, reason);
  return reason;
}

}  // namespace settings
