#include "authoring/explanation_text.h"

#include "authoring/items.h"
#include "base/format.h"
#include "rules/rule_actions.h"

namespace authoring {
namespace {

using model::DisplayState;
using rules::OperandOrigin;
using Style = TextLine::Style;

WideString Quoted(const WideString& text) { return u"\"" + text + u"\""; }

WideString OriginOf(const SeenOperand& operand) {
  switch (operand.origin) {
    case OperandOrigin::kProperty:
      return u" (" + (operand.property == base::Trim(operand.name) ? operand.oid : operand.property) + u")";
    case OperandOrigin::kField: return u" (a field of " + operand.property + u")";
    case OperandOrigin::kDevice: return u" (no entry has it: asked of the device)";
    default: return operand.oid.empty() ? WideString(u" (stands for nothing)") : u" (" + operand.oid + u")";
  }
}

WideString Outcome(const SeenRule& rule) {
  if (rule.form == SeenRule::Form::kMalformed) return u"malformed, so nothing is done";
  WideString text = rule.form == SeenRule::Form::kFlag ? (rule.holds ? u"equal" : u"not equal")
                                                       : (rule.holds ? u"holds" : u"does not hold");
  if (rule.action.empty()) return text + u": nothing is done";
  if (!rule.knownAction) return text + u": there is no action " + Quoted(rule.action);
  if (rule.state) return text + u": " + WideString(WordFor(*rule.state));
  if (rule.choices) {
    text += u": the choices become " + Quoted(*rule.choices);
    if (!rule.fallback.empty()) text += u", and " + Quoted(rule.fallback) + u" is stored";
    return text;
  }
  const rules::FlagRow* flag = rule.form == SeenRule::Form::kFlag ? rules::FindFlag(rule.action) : nullptr;
  if (flag != nullptr && !rule.holds && flag->otherwise == rules::Effect::kNothing) return text + u": nothing is done";
  return text + u": " + rule.action;
}

class Writer {
 public:
  explicit Writer(const Explanation& explanation) : it_(explanation) {}

  std::vector<TextLine> Write() && {
    Head();
    for (const Verdict& menu : it_.closedMenus) {
      Add(u"");
      Add(u"The menu " + Quoted(menu.title) + u" above it is " + WideString(WordFor(menu.state)) + DecidedText(menu),
          Style::kTitle);
      Rules(menu);
    }
    if (!it_.line.rules.empty() || !it_.line.wireless.empty()) {
      Add(u"");
      Rules(it_.line);
    }
    for (const Wish& wish : it_.wishes) Ways(wish);
    Hidden(u"Hidden lines of this menu:", it_.hiddenLines);
    Hidden(u"Hidden lines of the menu it is in:", it_.hiddenBeside);
    return std::move(lines_);
  }

 private:
  void Add(WideString text, Style style = Style::kPlain) { lines_.push_back({std::move(text), style}); }

  static WideString DecidedText(const Verdict& verdict) {
    const WideString by = DecidedBy(verdict);
    return by.empty() ? WideString() : u", by " + by;
  }

  void Head() {
    Add(it_.look.line.empty() ? it_.line.title : WideString(base::Trim(it_.look.line)), Style::kTitle);
    Add(u"  path   " + (it_.line.path.empty() ? WideString(u"the main menu") : it_.line.path));
    if (!it_.oid.empty()) Add(u"  OID    " + it_.oid + (it_.type.empty() ? WideString() : u"  (" + it_.type + u")"));
    if (!it_.keys) {
      Add(u"  keys   none: it cannot be reached now");
    } else if (!it_.keys->empty()) {
      Add(u"  keys   " + KeysInWords(*it_.keys));
    }
    WideString now = u"  now    " + WideString(WordFor(it_.line.state)) + DecidedText(it_.line);
    if (it_.line.rules.empty() && it_.line.wireless.empty()) now += u"; it has no rules";
    Add(std::move(now));
    for (const Remark& remark : it_.remarks) Add(u"         " + remark.sentence);
  }

  void Rules(const Verdict& verdict) {
    for (std::size_t i = 0; i < verdict.rules.size(); ++i) {
      const SeenRule& rule = verdict.rules[i];
      const bool wins = verdict.winner == i;
      Add(rule.Attribute() + u"  " + rule.text, wins ? Style::kWinner : Style::kPlain);
      for (const SeenComparison& comparison : rule.comparisons) Add(u"    " + Sentence(comparison), Style::kFaint);
      WideString outcome = u"    " + Outcome(rule);
      const bool overridden = rule.state && !wins;
      if (wins) outcome += u"  <- this decides";
      if (overridden)
        outcome += verdict.byWireless ? u"  (the wireless rules override it)" : u"  (a later rule overrides it)";
      Add(std::move(outcome), wins ? Style::kWinner : Style::kPlain);
    }
    for (const SeenWireless& change : verdict.wireless) Add(u"Wireless rules: " + Sentence(change));
  }

  void Hidden(WideString heading, const std::vector<Verdict>& lines) {
    if (lines.empty()) return;
    Add(u"");
    Add(std::move(heading), Style::kTitle);
    for (const Verdict& line : lines) {
      Add(u"  " + line.title + u"  " + WideString(WordFor(line.state)) + DecidedText(line));
    }
  }

  void Ways(const Wish& wish) {
    Add(u"");
    Add(Heading(wish) + (wish.ways.empty() ? u":" : wish.ways.size() == 1 ? u":" : u", one of:"), Style::kTitle);
    if (wish.ways.empty()) {
      Add(wish.complete ? u"  no change of up to three of the settings that count does it"
                        : u"  no small change was found; not all could be tried");
    }
    for (const auto& way : wish.ways) {
      WideString text;
      for (const Step& step : way) text += (text.empty() ? u"  - " : u", and ") + Sentence(step);
      Add(std::move(text));
    }
  }

  const Explanation& it_;
  std::vector<TextLine> lines_;
};

}  // namespace

std::vector<TextLine> ToText(const Explanation& explanation) { return Writer(explanation).Write(); }

WideStringView WordFor(DisplayState state) {
  switch (state) {
    case DisplayState::kNotDisplayed: return u"hidden";
    case DisplayState::kBlank: return u"blank";
    case DisplayState::kNoEdit: return u"shown, not edited";
    default: return u"shown";
  }
}

WideString DecidedBy(const Verdict& verdict) {
  if (verdict.byWireless) return u"the wireless rules";
  return verdict.winner ? verdict.rules[*verdict.winner].Attribute() : WideString();
}

WideString Sentence(const SeenComparison& comparison) {
  static constexpr WideStringView kJoins[] = {u"", u"AND ", u"OR "};
  const WideStringView join = kJoins[static_cast<std::size_t>(comparison.join)];
  WideString text = WideString(join) + comparison.operand.name + OriginOf(comparison.operand);
  text += comparison.wantsEqual ? u" EQ " : u" NEQ ";
  text += Quoted(comparison.wanted) + u": " + (comparison.holds ? u"yes" : u"no") + u", it is " +
          Quoted(comparison.operand.shown);
  if (!comparison.operand.choice.empty() && comparison.operand.choice != comparison.operand.shown) {
    text += u" (" + comparison.operand.choice + u")";
  }
  if (comparison.join != rules::Comparison::Join::kFirst) {
    text += comparison.holdsSoFar ? u"; so far yes" : u"; so far no";
  }
  return text;
}

WideString Sentence(const SeenWireless& change) {
  using Kind = rules::WirelessChange::Kind;
  const auto setting = [](char16_t character) {
    return character == 0 ? WideString(u"none") : WideString(1, character);
  };
  const auto& s = change.settings;
  const WideString because = u" (network type " + setting(s.networkType) + u", authentication " +
                             setting(s.authentication) + u", encryption " + setting(s.encryption) + u", key index " +
                             setting(s.keyIndex) + u", 802.1X " + setting(s.method8021X) + u")";
  switch (change.kind) {
    case Kind::kChoices: return u"the choices become " + Quoted(change.text) + because;
    case Kind::kType: return u"the type becomes " + Quoted(change.text) + because;
    case Kind::kValue: return u"the value becomes " + Quoted(change.text) + because;
    case Kind::kShown: return u"shown" + because;
    default: return u"hidden" + because;
  }
}

WideString Heading(const Wish& wish) {
  switch (wish.goal) {
    case Wish::Goal::kShow: return u"To show it";
    case Wish::Goal::kUnlock: return u"To unlock it";
    case Wish::Goal::kRead: return u"To have a value";
    default: return u"To have the choice " + Quoted(wish.choice);
  }
}

WideString Sentence(const Step& step) {
  WideString text = step.keys ? u"set " : u"let the device give ";
  text += step.name.empty() ? step.change.oid : step.name;
  if (step.keys) text += u" (keys " + KeysInWords(*step.keys) + u")";
  text += step.keys ? u" to " : u" the value ";
  if (step.text.empty() || step.text == step.change.value) return text + Quoted(step.change.value);
  return text + step.text + u" (" + step.change.value + u")";
}

}  // namespace authoring
