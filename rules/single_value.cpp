#include "rules/single_value.h"

#include "base/string_table.h"
#include "config/registry_key_reader.h"
#include "values/submission.h"

namespace rules {

using platform::ResultCode;

ResultCode SingleValues::SetSingleValue(const WideString& oid, const WideString& type, const WideString& value,
                                        const model::MenuItem* item) {
  if (values::IsPseudoOid(oid)) return platform::kOk;
  const WideString deviceOid = values::DeviceOid(context_.model.Descriptors(), context_.device, oid);
  const ResultCode result = context_.device.Set(deviceOid, type, value).value_or(platform::kFailed);
  if (result < 0) values::ShowNotStored(context_.boxes, GetErrorText(item));
  return result;
}

WideString SingleValues::GetErrorText(const model::MenuItem* item) const {
  const config::ConfigKey* key = item == nullptr ? nullptr : item->Key();
  if (key == nullptr) return {};
  const WideStringView text = key->Value(TextId::kOnError);
  if (!text.starts_with(LoadText(TextId::kHkey))) return WideString(text);

  const std::size_t lastBackslash = text.rfind(u'\\');
  if (lastBackslash == WideStringView::npos) return {};
  return config::ReadValueAsText(text.substr(0, lastBackslash), text.substr(lastBackslash + 1)).value_or(WideString());
}

WideString SingleValues::ErrorTextOf(WideStringView oid) const {
  const values::PropertyDescriptor* descriptor = context_.model.FindDescriptor(oid);
  return descriptor == nullptr ? WideString() : GetErrorText(context_.model.ItemOf(*descriptor));
}

}  // namespace rules
