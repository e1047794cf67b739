#include "rules/operands.h"

#include "base/number.h"
#include "base/string_table.h"
#include "rules/rule_tokens.h"

namespace rules {

WideString Operands::ResolveOperand(WideStringView displayName) {
  const WideString oid = context_.model.OidByName(displayName);
  // A display name of a property whose OID reads "this" or "Empty" goes the way of those names.
  return Read(displayName, OidOfName(oid, nullptr), context_.model.TypeByOid(oid));
}

WideString Operands::OidOfName(WideStringView name, const config::ConfigKey* node) {
  if (base::EqualsIgnoringCase(name, kEmptyName)) return {};
  if (!base::EqualsIgnoringCase(name, kNodeItself)) return WideString(name);
  if (node == nullptr) return {};
  const WideStringView oid = node->Value(TextId::kOid);
  return WideString(oid.empty() ? node->Value(TextId::kCmdOid) : oid);
}

WideString Operands::CommandOf(WideStringView oid) const {
  if (const auto* property = context_.model.FindDescriptor(oid)) {
    const auto field = property->GetCommandField();
    return field ? field->commandOid : WideString();
  }
  const std::size_t colon = oid.find(u':');
  const WideStringView command = oid.substr(0, colon);
  const bool isField = colon != WideStringView::npos && context_.model.FindDescriptor(command) != nullptr;
  return isField ? WideString(command) : WideString();
}

WideString Operands::GetOperandValue(WideStringView name, WideStringView type, const config::ConfigKey* node) const {
  return Read(name, OidOfName(name, node), type);
}

WideString Operands::Read(WideStringView name, const WideString& oid, WideStringView type) const {
  Found found = Find(oid, type);
  if (context_.listener != nullptr) {
    context_.listener->OnOperand({name, oid, found.value, found.origin, found.property});
  }
  return std::move(found.value);
}

Operands::Found Operands::Find(const WideString& oid, WideStringView type) const {
  if (oid.empty()) return {};
  if (const auto* property = context_.model.FindDescriptor(oid)) {
    return {property->GetValue().AsText(), OperandOrigin::kProperty, property};
  }

  if (const WideString commandOid = CommandOf(oid); !commandOid.empty()) {
    const auto* command = context_.model.FindDescriptor(commandOid);
    const values::FieldWidthList* layout = command->CommandLayout();
    const std::int32_t number = base::ToLong(WideStringView(oid).substr(commandOid.size() + 1));
    if (layout == nullptr || number < 1) return {};
    return {layout->Field(command->GetValue().AsText(), number - 1).value_or(WideString()), OperandOrigin::kField,
            command};
  }

  if (values::IsPseudoOid(oid)) return {};
  Found found{{}, OperandOrigin::kDevice, nullptr};
  context_.device.DoSnmpGet(oid, WideString(type), found.value);
  return found;
}

}  // namespace rules
