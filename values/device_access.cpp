#include "values/device_access.h"

#include "base/format.h"
#include "platform/debug.h"
#include "platform/window.h"

#include <algorithm>
#include <utility>

namespace values {

using platform::ResultCode;

bool IsSpecialOid(WideStringView oid) {
  static constexpr WideStringView kSpecialOids[] = {
      u"1.3.6.1.4.1.4242.10.5.1.2.0",
      u"1.3.6.1.4.1.4242.10.5.1.6.0",
      u"1.3.6.1.4.1.4242.10.5.1.3.0",
  };
  return std::find(std::begin(kSpecialOids), std::end(kSpecialOids), oid) != std::end(kSpecialOids);
}

DeviceAccess::DeviceAccess(Connector connect) : connect_(std::move(connect)) {}

platform::ISnmpConfig* DeviceAccess::Interface() {
  if (connection_ == nullptr) {
    connection_ = connect_();
    if (ahead_) TellWhatIsRead();
  }
  if (connection_ == nullptr) platform::ShowSystemMessage(u"Cannot get SNMP Interface", u"Error");
  return connection_.get();
}

void DeviceAccess::ReadAhead(Settings settings) {
  ahead_ = std::move(settings);
  TellWhatIsRead();
}

// Without this all is read as well, only later.
void DeviceAccess::TellWhatIsRead() {
  try {
    if (connection_ != nullptr) connection_->ReadAhead(ahead_);
  } catch (...) {
    platform::DebugOutput(u"EXCEPTION: DeviceAccess::ReadAhead()\r\n");
  }
}

platform::Setting ActiveProfile() { return {u"cfg|80211PM|ActiveProfile", WideString(LoadText(TextId::kOctetString))}; }

ResultCode DeviceAccess::DoSnmpGet(const WideString& oid, const WideString& type, std::optional<WideString>& value) {
  value.reset();
  platform::ISnmpConfig* device = Interface();
  if (device == nullptr || oid.empty() || type.empty()) return platform::kFalse;

  try {
    const ResultCode result = device->Get(oid, type, value);
    if (result < 0) value.reset();
    if (!value) {
      platform::DebugOutput(base::Format(u"FAILED: CKelConfigApp::DoSnmpGet %s %s\r\n", oid, type));
    }
    return result;
  } catch (...) {
    platform::DebugOutput(base::Format(u"EXCEPTION: CKelConfigApp::DoSnmpGet %s %s\r\n", oid, type));
    value.reset();
    return platform::kFalse;
  }
}

ResultCode DeviceAccess::DoSnmpGet(const WideString& oid, const WideString& type, WideString& value) {
  std::optional<WideString> answer;
  const ResultCode result = DoSnmpGet(oid, type, answer);
  value = std::move(answer).value_or(WideString());
  return result;
}

ResultCode DeviceAccess::Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) {
  value.reset();
  platform::ISnmpConfig* device = Interface();
  if (device == nullptr) return platform::kFailed;
  return IsSpecialOid(oid) ? device->GetSpecial(oid, type, value) : device->Get(oid, type, value);
}

std::optional<ResultCode> DeviceAccess::Set(const WideString& oid, const WideString& type, const WideString& value) {
  platform::ISnmpConfig* device = Interface();
  if (device == nullptr) return platform::kFailed;
  try {
    return IsSpecialOid(oid) ? device->SetSpecial(oid, type, value) : device->Set(oid, type, value);
  } catch (...) {
    platform::KernelDebugOutput(base::Format(u"EXCEPTION: SNMPSet OID[%s]\r\n", oid));
    return std::nullopt;
  }
}

WideString DeviceAccess::FillOid(WideString oid, const AttributeMap& attributes) {
  const std::size_t star = oid.find(u'*');
  if (star == WideString::npos || ResolveAttribute(attributes, TextId::kFillOid) != u"Profile") return oid;
  WideString profile;
  const platform::Setting active = ActiveProfile();
  DoSnmpGet(active.oid, active.type, profile);
  return oid.replace(star, 1, profile);
}

}  // namespace values
