#include "values/attributes.h"

#include "base/format.h"
#include "config/config_key.h"
#include "platform/debug.h"
#include "platform/device.h"

namespace values {
namespace {

WideString TableText(const WideString& table, const WideString& key) {
  using Stage = platform::TableAnswer::Stage;
  static const WideString kServer = u"Valtorix.ConfigProperty";

  platform::TableAnswer answer = platform::GetTableValue(kServer, table, key);
  if (answer.stage == Stage::kNoServer) {
    platform::KernelDebugOutput(base::Format(u"CLSIDFromProgID returned 0x%08X.\r\n", answer.code));
  } else if (answer.stage == Stage::kNotCreated) {
    platform::KernelDebugOutput(base::Format(u"CreateInstance returned 0x%08X.\r\n", answer.code));
  } else if (answer.code >= 0) {
    return std::move(answer.text);
  }
  return {};
}

}  // namespace

WideStringView AttributeMap::Get(WideStringView name) const {
  if (const auto found = set_.find(name); found != set_.end()) return found->second;
  return key_ == nullptr ? WideStringView() : key_->Value(name);
}

void AttributeMap::Set(WideStringView name, WideString text) {
  set_.insert_or_assign(WideString(name), std::move(text));
}

WideString ResolveText(WideStringView text) {
  constexpr WideStringView kIndirect = u"Table,";

  if (!text.starts_with(kIndirect)) return WideString(text);

  const WideStringView entry = text.substr(kIndirect.size());
  const std::size_t comma = entry.find(u',');
  const WideStringView key = comma == WideStringView::npos ? WideStringView() : entry.substr(comma + 1);
  WideString resolved = TableText(WideString(entry.substr(0, comma)), WideString(key));
  return resolved.empty() ? WideString(kUnresolved) : resolved;
}

}  // namespace values
