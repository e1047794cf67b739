#include "settings/rule_readers.h"

namespace settings {

WideString SettingOf(WideStringView oid) { return WideString(oid.substr(0, oid.find(u':'))); }

const std::vector<model::MenuItem*>& RuleReaders::Of(const WideString& oid) const {
  static const std::vector<model::MenuItem*> kNone;
  const auto found = readers_.find(oid);
  return found == readers_.end() ? kNone : found->second.items;
}

void RuleReaders::OnNode(const config::ConfigKey& node, const model::MenuItem* item) {
  trace_.OnNode(node, item);
  // Told by whoever evaluates an item that may be changed.
  item_ = const_cast<model::MenuItem*>(item);  // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

void RuleReaders::OnOperand(const rules::OperandReading& reading) {
  trace_.OnOperand(reading);
  if (item_ == nullptr || reading.oid.empty()) return;
  Readers& readers = readers_[SettingOf(reading.oid)];
  if (readers.known.insert(item_).second) readers.items.push_back(item_);
}

}  // namespace settings
