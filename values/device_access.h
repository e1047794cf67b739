// The way to the device: one connection, made when it is first needed and kept for the whole run.
#pragma once

#include "base/wide_string.h"
#include "platform/device.h"
#include "values/attributes.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace values {

class DeviceAccess {
 public:
  using Connector = std::function<std::unique_ptr<platform::ISnmpConfig>()>;

  explicit DeviceAccess(Connector connect = platform::ConnectSnmpConfig);

  // Null, after the user has been told, when the device cannot be had; the next call tries again.
  platform::ISnmpConfig* Interface();
  // Ends the connection; the next use makes a new one.
  void Release() { connection_.reset(); }

  // Says what is going to be read, as soon as there is a device to say it to; an empty function: that is over.
  using Settings = std::function<std::vector<platform::Setting>()>;
  void ReadAhead(Settings settings);

  // Reads by the ordinary operation. `value` is nothing, or the empty text, unless the device gave a text. kFalse
  // without a call when there is no device or `oid` or `type` is empty.
  platform::ResultCode DoSnmpGet(const WideString& oid, const WideString& type, std::optional<WideString>& value);
  platform::ResultCode DoSnmpGet(const WideString& oid, const WideString& type, WideString& value);

  // Both take the operation that belongs to the OID: the alternate one for the special OIDs. kFailed without a device.
  // What the device throws on a Get comes through.
  platform::ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value);
  // Nothing when the device broke down; that is logged.
  std::optional<platform::ResultCode> Set(const WideString& oid, const WideString& type, const WideString& value);

  // The OID as the device knows it: where the property's FillOID is "Profile", the active wireless profile stands for
  // the "*".
  WideString FillOid(WideString oid, const AttributeMap& attributes);

 private:
  void TellWhatIsRead();

  Connector connect_;
  Settings ahead_;
  std::unique_ptr<platform::ISnmpConfig> connection_;
};

// What is said to be read while this lives.
class ReadingAhead {
 public:
  ReadingAhead(DeviceAccess& device, DeviceAccess::Settings settings) : device_(device) {
    device_.ReadAhead(std::move(settings));
  }
  ~ReadingAhead() { device_.ReadAhead({}); }
  ReadingAhead(const ReadingAhead&) = delete;
  ReadingAhead& operator=(const ReadingAhead&) = delete;

 private:
  DeviceAccess& device_;
};

// The setting that says which wireless profile is in use.
platform::Setting ActiveProfile();

// The three OIDs that are read and written by the alternate operations; compared exactly.
bool IsSpecialOid(WideStringView oid);

// An OID with a leading "_" lives in the program alone and is never sent.
inline bool IsPseudoOid(WideStringView oid) { return oid.starts_with(u'_'); }

}  // namespace values
