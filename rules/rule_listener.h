// Told what the rules see and do while they run, for those who explain a configuration: of each node its rules in their
// order, of each rule what it reads and compares, whether it holds, and what it asks for. The program itself has none.
#pragma once

#include "base/wide_string.h"
#include "model/menu_item.h"
#include "rules/wireless_couplings.h"

#include <optional>

namespace config {
class ConfigKey;
}

namespace rules {

enum class OperandOrigin {
  kNowhere,   // the name stands for nothing, or for the empty text
  kProperty,  // the program holds the value, read from the device or edited since
  kField,     // the program holds the command that the value is cut out of
  kDevice,    // asked of the device now
};

// Texts and pointers are those of the call.
struct OperandReading {
  WideStringView name;  // as the rule has it: a display name, an OID, "this"
  WideStringView oid;   // which it stands for; empty: none
  WideStringView value;
  OperandOrigin origin = OperandOrigin::kNowhere;
  const values::PropertyDescriptor* property = nullptr;  // of kField the command
};

struct Comparison {
  enum class Join { kFirst, kAnd, kOr };
  Join join = Join::kFirst;
  WideStringView name;
  WideStringView value;   // that the name stands for
  WideStringView wanted;  // what the rule has on the right
  bool wantsEqual = true;
  bool exact = false;       // a flag rule's comparison; else case does not count
  bool holds = false;       // by itself
  bool holdsSoFar = false;  // with all before it
};

struct RuleAction {
  WideStringView text;  // the action or flag, as the rule has it; empty: the rule asks for nothing now
  bool known = false;   // it is one that does something
  std::optional<model::DisplayState> state;  // which it gives the line
};

// A change that the wireless rules make to an item because of settings.
struct WirelessChange {
  enum class Kind { kChoices, kType, kValue, kShown, kHidden };
  WideStringView oid;
  Kind kind = Kind::kChoices;
  WideStringView text;  // the choices, the type or the value
  const wireless::Settings& settings;
};

class RuleListener {
 public:
  virtual ~RuleListener() = default;

  // The rules of a node begin. `item` is null when only the verdict on the key is wanted.
  virtual void OnNode(const config::ConfigKey&, const model::MenuItem* /*item*/) {}
  // A rule begins: 0 for `Dependency`, 1 for `Dependency1` and so on.
  virtual void OnRule(int /*number*/, WideStringView /*text*/) {}
  virtual void OnOperand(const OperandReading&) {}
  virtual void OnComparison(const Comparison&) {}
  // The rule is decided. Without it a rule that begins with IF is malformed; it is then decided as a flag rule.
  virtual void OnDecided(bool /*isCondition*/, bool /*holds*/) {}
  virtual void OnAction(const RuleAction&) {}
  // An action has narrowed the item's choices and stored the fallback, empty where it stored none.
  virtual void OnChoices(const model::MenuItem&, WideStringView /*choices*/, WideStringView /*fallback*/) {}
  virtual void OnWireless(const WirelessChange&) {}
};

}  // namespace rules
