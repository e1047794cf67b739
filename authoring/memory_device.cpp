#include "authoring/memory_device.h"

#include <utility>

namespace authoring {
namespace {

using platform::ResultCode;

// Both kinds of operations reach the same values.
class Connection final : public platform::ISnmpConfig {
 public:
  explicit Connection(MemoryDevice& device) : device_(device) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return device_.Set(oid, type, value);
  }
  ResultCode Get(const WideString& oid, const WideString&, std::optional<WideString>& value) override {
    return device_.Get(oid, value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return device_.Set(oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString&, std::optional<WideString>& value) override {
    return device_.Get(oid, value);
  }

 private:
  MemoryDevice& device_;
};

}  // namespace

ResultCode MemoryDevice::Get(const WideString& oid, std::optional<WideString>& value) const {
  value.reset();
  const simulator::DeviceLine* line = Find(oid);
  if (line == nullptr) return platform::kFailed;
  const ResultCode code = line->options.get.value_or(platform::kOk);
  if (code >= 0 && !line->options.null) value = line->value;
  return code;
}

ResultCode MemoryDevice::Set(const WideString& oid, const WideString& type, const WideString& value) {
  const auto found = values_.find(oid);
  ResultCode code = platform::kFailed;
  if (found != values_.end()) {
    simulator::DeviceLine& line = found->second.line;
    code = line.options.readOnly ? platform::kAccessDenied : line.options.set.value_or(platform::kOk);
    if (code >= 0) line.value = value;
  }
  writes_.push_back({oid, type, value, code});
  return code;
}

void MemoryDevice::Put(const WideString& oid, WideString value) {
  simulator::DeviceLine& line = values_[oid].line;
  line.value = std::move(value);
  line.options.get.reset();
  line.options.null = false;
}

const simulator::DeviceLine* MemoryDevice::Find(const WideString& oid) const {
  const auto found = values_.find(oid);
  return found == values_.end() ? nullptr : &found->second.line;
}

std::function<std::unique_ptr<platform::ISnmpConfig>()> MemoryDevice::Connector() {
  return [this] { return std::make_unique<Connection>(*this); };
}

}  // namespace authoring
