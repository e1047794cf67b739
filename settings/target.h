// The device that a plan is carried out on.
#pragma once

#include "platform/device.h"
#include "simulator/device_store.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace settings {

struct TargetSet {
  WideString oid;
  WideString type;
  WideString value;
};

// The device works, and does not want the value. Any other failure is the device's own.
bool IsRefusal(platform::ResultCode code);

class Target {
 public:
  virtual ~Target() = default;

  virtual platform::ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) = 0;

  // Sets them in their order; one that is refused keeps its value, and where the device fails nothing behind is tried.
  // Returns, with an answer for each, when those that were taken are kept whatever happens.
  virtual std::vector<platform::ResultCode> Set(const std::vector<TargetSet>& sets) = 0;

  // So many are best set together, of so many that are to come.
  virtual std::size_t MostAtOnce(std::size_t all) const = 0;
};

// The device of a storage. Several are set in one step, which is done whole or not at all. The store must live longer.
class StorageTarget final : public Target {
 public:
  explicit StorageTarget(simulator::DeviceStore& store) : store_(store) {}

  platform::ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override;
  std::vector<platform::ResultCode> Set(const std::vector<TargetSet>& sets) override;
  std::size_t MostAtOnce(std::size_t all) const override;

 private:
  simulator::DeviceStore& store_;
};

}  // namespace settings
