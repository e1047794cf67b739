// A device whose values live in memory: what is set is gone with it. Options of a storage's device ("readonly",
// "set=...") hold here too; delays do not.
#pragma once

#include "authoring/terminal_copy.h"
#include "platform/device.h"

#include <functional>
#include <memory>
#include <vector>

namespace authoring {

class MemoryDevice {
 public:
  struct Write {
    WideString oid;
    WideString type;
    WideString value;
    platform::ResultCode result = platform::kOk;
    bool operator==(const Write&) const = default;
  };

  explicit MemoryDevice(const TerminalCopy& terminal) : values_(terminal.device) {}

  platform::ResultCode Get(const WideString& oid, std::optional<WideString>& value) const;
  platform::ResultCode Set(const WideString& oid, const WideString& type, const WideString& value);

  // Gives an OID a value, whatever its options; it can be read from now on, also one that was not there.
  void Put(const WideString& oid, WideString value);
  // Null when there is no such OID.
  const simulator::DeviceLine* Find(const WideString& oid) const;

  const DeviceEntries& Values() const { return values_; }

  // What was set, in order, refused or not.
  const std::vector<Write>& Writes() const { return writes_; }
  void ForgetWrites() { writes_.clear(); }

  // Connections refer to this object.
  std::function<std::unique_ptr<platform::ISnmpConfig>()> Connector();

 private:
  DeviceEntries values_;
  std::vector<Write> writes_;
};

}  // namespace authoring
