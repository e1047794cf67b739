#include "rules/single_value.h"

#include "base/format.h"
#include "base/string_table.h"
#include "config/registry_key_reader.h"
#include "platform/debug.h"

namespace rules {

using platform::ResultCode;

ResultCode SingleValues::SetSingleValue(const WideString& oid, const WideString& type, const WideString& value,
                                        const model::MenuItem* item) {
  if (values::IsPseudoOid(oid)) return platform::kOk;
  const ResultCode result = Send(oid, type, value);
  if (result < 0) {
    const WideString own = GetErrorText(item);
    context_.boxes.Show(own.empty() ? LoadText(TextId::kChangeNotSaved) : WideStringView(own), u"Error",
                        values::kWarningBox);
  }
  return result;
}

ResultCode SingleValues::Send(const WideString& oid, const WideString& type, const WideString& value) {
  try {
    const values::PropertyDescriptor* descriptor = context_.model.FindDescriptor(oid);
    const WideString deviceOid = descriptor == nullptr ? oid : context_.device.FillOid(oid, descriptor->Attributes());
    return context_.device.Set(deviceOid, type, value);
  } catch (...) {
    platform::DebugOutput(base::Format(u"EXCEPTION: SNMPSet OID[%s]\r\n", oid));
    return platform::kFailed;
  }
}

WideString SingleValues::GetErrorText(const model::MenuItem* item) const {
  const config::ConfigKey* key = item == nullptr ? nullptr : context_.model.FindKey(item->Path());
  if (key == nullptr) return {};
  const WideStringView text = key->Value(TextId::kOnError);
  if (!text.starts_with(LoadText(TextId::kHkey))) return WideString(text);

  const std::size_t lastBackslash = text.rfind(u'\\');
  if (lastBackslash == WideStringView::npos) return {};
  return config::ReadValueAsText(text.substr(0, lastBackslash), text.substr(lastBackslash + 1)).value_or(WideString());
}

WideString SingleValues::ErrorTextOf(WideStringView oid) {
  const values::PropertyDescriptor* descriptor = context_.model.FindDescriptor(oid);
  return descriptor == nullptr ? WideString() : GetErrorText(context_.model.ItemOf(*descriptor));
}

}  // namespace rules
