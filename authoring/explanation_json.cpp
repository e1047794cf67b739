#include "authoring/explanation_json.h"

#include "authoring/explanation_text.h"
#include "base/utf8.h"

#include <nlohmann/json.hpp>

namespace authoring {
namespace {

using nlohmann::ordered_json;

const char* NameOf(model::DisplayState state) {
  switch (state) {
    case model::DisplayState::kNotDisplayed: return "hidden";
    case model::DisplayState::kBlank: return "blank";
    case model::DisplayState::kNoEdit: return "locked";
    default: return "shown";
  }
}

const char* NameOf(rules::OperandOrigin origin) {
  switch (origin) {
    case rules::OperandOrigin::kProperty: return "property";
    case rules::OperandOrigin::kField: return "field";
    case rules::OperandOrigin::kDevice: return "device";
    default: return "nowhere";
  }
}

const char* NameOf(SeenRule::Form form) {
  switch (form) {
    case SeenRule::Form::kCondition: return "condition";
    case SeenRule::Form::kFlag: return "flag";
    default: return "malformed";
  }
}

const char* NameOf(Wish::Goal goal) {
  switch (goal) {
    case Wish::Goal::kShow: return "show";
    case Wish::Goal::kUnlock: return "unlock";
    case Wish::Goal::kRead: return "read";
    default: return "choice";
  }
}

const char* NameOf(rules::Comparison::Join join) {
  switch (join) {
    case rules::Comparison::Join::kAnd: return "and";
    case rules::Comparison::Join::kOr: return "or";
    default: return "first";
  }
}

ordered_json OfComparison(const SeenComparison& comparison) {
  return {{"join", NameOf(comparison.join)},
          {"name", base::ToUtf8(comparison.operand.name)},
          {"oid", base::ToUtf8(comparison.operand.oid)},
          {"property", base::ToUtf8(comparison.operand.property)},
          {"value", base::ToUtf8(comparison.operand.shown)},
          {"from", NameOf(comparison.operand.origin)},
          {"relation", comparison.wantsEqual ? "EQ" : "NEQ"},
          {"wanted", base::ToUtf8(comparison.wanted)},
          {"exact", comparison.exact},
          {"holds", comparison.holds},
          {"holdsSoFar", comparison.holdsSoFar}};
}

ordered_json OfRule(const SeenRule& rule, bool decides) {
  ordered_json json = {{"attribute", base::ToUtf8(rule.Attribute())},
                       {"text", base::ToUtf8(rule.text)},
                       {"form", NameOf(rule.form)},
                       {"comparisons", ordered_json::array()},
                       {"holds", rule.holds},
                       {"action", base::ToUtf8(rule.action)},
                       {"decides", decides}};
  for (const auto& comparison : rule.comparisons) json["comparisons"].push_back(OfComparison(comparison));
  if (rule.state) json["state"] = NameOf(*rule.state);
  if (rule.choices) json["choices"] = base::ToUtf8(*rule.choices);
  if (!rule.fallback.empty()) json["stored"] = base::ToUtf8(rule.fallback);
  return json;
}

ordered_json OfVerdict(const Verdict& verdict) {
  ordered_json json = {{"path", base::ToUtf8(verdict.path)}, {"name", base::ToUtf8(verdict.title)},
                       {"state", NameOf(verdict.state)},     {"decidedBy", base::ToUtf8(DecidedBy(verdict))},
                       {"rules", ordered_json::array()},     {"wireless", ordered_json::array()}};
  for (std::size_t i = 0; i < verdict.rules.size(); ++i) {
    json["rules"].push_back(OfRule(verdict.rules[i], verdict.winner == i));
  }
  for (const auto& change : verdict.wireless) json["wireless"].push_back(base::ToUtf8(Sentence(change)));
  return json;
}

ordered_json OfVerdicts(const std::vector<Verdict>& verdicts) {
  ordered_json json = ordered_json::array();
  for (const Verdict& verdict : verdicts) json.push_back(OfVerdict(verdict));
  return json;
}

ordered_json OfStep(const Step& step) {
  ordered_json json = {{"oid", base::ToUtf8(step.change.oid)}, {"value", base::ToUtf8(step.change.value)}};
  if (!step.name.empty()) json["name"] = base::ToUtf8(step.name);
  if (!step.text.empty()) json["text"] = base::ToUtf8(step.text);
  if (step.keys) json["keys"] = base::ToUtf8(*step.keys);
  return json;
}

ordered_json OfWish(const Wish& wish) {
  ordered_json json = {{"goal", NameOf(wish.goal)}};
  if (wish.goal == Wish::Goal::kChoice) json["choice"] = base::ToUtf8(wish.choice);
  json["ways"] = ordered_json::array();
  for (const auto& way : wish.ways) {
    ordered_json steps = ordered_json::array();
    for (const Step& step : way) steps.push_back(OfStep(step));
    json["ways"].push_back(std::move(steps));
  }
  json["impossible"] = wish.complete;
  return json;
}

}  // namespace

ordered_json ToJson(const Explanation& explanation) {
  ordered_json json = OfVerdict(explanation.line);
  json["line"] = base::ToUtf8(explanation.look.line);
  if (!explanation.oid.empty()) json["oid"] = base::ToUtf8(explanation.oid);
  if (!explanation.type.empty()) json["type"] = base::ToUtf8(explanation.type);
  if (explanation.keys) json["keys"] = base::ToUtf8(*explanation.keys);
  json["shown"] = explanation.look.IsShown();
  json["editable"] = explanation.look.IsEditable();
  json["remarks"] = ordered_json::array();
  for (const Remark& remark : explanation.remarks) {
    json["remarks"].push_back({{"id", remark.id}, {"sentence", base::ToUtf8(remark.sentence)}});
  }
  json["closedMenus"] = OfVerdicts(explanation.closedMenus);
  json["wishes"] = ordered_json::array();
  for (const Wish& wish : explanation.wishes) json["wishes"].push_back(OfWish(wish));
  json["hiddenLines"] = OfVerdicts(explanation.hiddenLines);
  json["hiddenBeside"] = OfVerdicts(explanation.hiddenBeside);
  return json;
}

}  // namespace authoring
