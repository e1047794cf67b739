// The device's two configuration objects.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

// A COM result code: negative is failure.
using ResultCode = std::int32_t;
inline constexpr ResultCode kOk = 0;
inline constexpr ResultCode kFalse = 1;
inline constexpr ResultCode kFailed = static_cast<ResultCode>(0x80004005);
inline constexpr ResultCode kAccessDenied = static_cast<ResultCode>(0x80070005);
inline constexpr ResultCode kTimedOut = static_cast<ResultCode>(0x800705B4);

// A setting as Get() names it.
struct Setting {
  WideString oid;
  WideString type;
};

// The SNMP configuration object: settings by OID, type text and value text.
class ISnmpConfig {
 public:
  virtual ~ISnmpConfig() = default;
  virtual ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) = 0;
  // `value`: nothing when the device gave no text, whatever the code.
  virtual ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) = 0;
  // The alternate operations, for the few special OIDs.
  virtual ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) = 0;
  virtual ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) = 0;
  // Says what is about to be read, so that a device far away can have it ready; without a function, that all of it has
  // been. What is read ahead serves one Get for each time that it was named, and none after a Set.
  virtual void ReadAhead([[maybe_unused]] const std::function<std::vector<Setting>()>& settings) {}
};

// Null when the object cannot be had; the next call tries again.
std::unique_ptr<ISnmpConfig> ConnectSnmpConfig();

// What the configuration property server answered, and how far the request came.
struct TableAnswer {
  enum class Stage { kNoServer, kNotCreated, kCalled };
  Stage stage = Stage::kNoServer;
  ResultCode code = kFailed;  // of the step that `stage` names
  WideString text;            // empty unless the call succeeded
};

// Looks a key up in one of the tables of the server registered as `progId`.
TableAnswer GetTableValue(const WideString& progId, const WideString& table, const WideString& key);

}  // namespace platform
