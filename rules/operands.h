// The current values that rules compare, edits that are not yet applied among them.
#pragma once

#include "rules/context.h"
#include "rules/rule_condition.h"

namespace rules {

// Stands for the node's own OID, in any case.
inline constexpr WideStringView kNodeItself = u"this";

class Operands final : public OperandSource {
 public:
  explicit Operands(const Context& context) : context_(context) {}

  // The value of the property with this `DisplayName`.
  WideString ResolveOperand(WideStringView displayName) override;

  // The value of an OID, of a field ("OID:number") of a command in the model, or of "this", the node itself. What the
  // model does not hold is read from the device. Empty when nothing is found.
  WideString GetOperandValue(WideStringView name, WideStringView type, const config::ConfigKey* node = nullptr) const;

  // The same of an OID, and no listener is told.
  WideString ValueOf(const WideString& oid, WideStringView type) const { return Find(oid, type).value; }

  // The command that an OID ("OID:number") is a field of, as the model has it; empty for none.
  WideString CommandOf(WideStringView oid) const;

  // The OID that an operand's name stands for; empty for none.
  static WideString OidOfName(WideStringView name, const config::ConfigKey* node);

 private:
  struct Found {
    WideString value;
    OperandOrigin origin = OperandOrigin::kNowhere;
    const values::PropertyDescriptor* property = nullptr;
  };
  Found Find(const WideString& oid, WideStringView type) const;
  WideString Read(WideStringView name, const WideString& oid, WideStringView type) const;

  Context context_;
};

}  // namespace rules
