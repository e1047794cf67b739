// A device in memory: settings by OID, faults by OID, and a log of every call.
#pragma once

#include "base/wide_string.h"
#include "platform/device.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace tests {

class FakeDevice {
 public:
  struct Setting {
    std::optional<WideString> text = WideString();  // nothing: the device answers without a text
    platform::ResultCode getResult = platform::kOk;
    platform::ResultCode setResult = platform::kOk;
    bool throws = false;
  };

  // An OID without a setting fails in both directions.
  Setting& operator[](WideStringView oid) { return settings_[WideString(oid)]; }
  void Put(WideStringView oid, WideStringView text) { (*this)[oid].text = text; }
  WideString TextOf(WideStringView oid) const {
    const auto found = settings_.find(oid);
    return found == settings_.end() ? WideString() : found->second.text.value_or(WideString());
  }

  // What DeviceAccess takes. A connection refers to this object; while `reachable` is off there is none to be had.
  std::function<std::unique_ptr<platform::ISnmpConfig>()> Connector() {
    return [this]() -> std::unique_ptr<platform::ISnmpConfig> {
      ++connections;
      if (!reachable) return nullptr;
      return std::make_unique<Connection>(*this);
    };
  }
  bool reachable = true;
  int connections = 0;  // asked for, answered or not

  // What was last said to be going to be read, as "get OID TYPE".
  std::vector<WideString> ahead;
  int timesAhead = 0;
  int timesAheadEnded = 0;

  // "get OID TYPE" and "set OID TYPE VALUE", with "special" after the verb for the alternate operations.
  std::vector<WideString> TakeLog() { return std::exchange(log_, {}); }

 private:
  class Connection final : public platform::ISnmpConfig {
   public:
    explicit Connection(FakeDevice& device) : device_(device) {}

    platform::ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
      return device_.Set(u"set ", oid, type, value);
    }
    platform::ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
      return device_.Get(u"get ", oid, type, value);
    }
    platform::ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
      return device_.Set(u"setspecial ", oid, type, value);
    }
    platform::ResultCode GetSpecial(const WideString& oid, const WideString& type,
                                    std::optional<WideString>& value) override {
      return device_.Get(u"getspecial ", oid, type, value);
    }
    void ReadAhead(const std::function<std::vector<platform::Setting>()>& settings) override {
      if (!settings) {
        ++device_.timesAheadEnded;
        return;
      }
      ++device_.timesAhead;
      device_.ahead.clear();
      for (const platform::Setting& setting : settings()) {
        device_.ahead.push_back(u"get " + setting.oid + u" " + setting.type);
      }
    }

   private:
    FakeDevice& device_;
  };

  Setting* Find(const WideString& oid) {
    const auto found = settings_.find(oid);
    if (found == settings_.end()) return nullptr;
    if (found->second.throws) throw std::runtime_error("the device broke down");
    return &found->second;
  }

  platform::ResultCode Set(WideStringView verb, const WideString& oid, const WideString& type,
                           const WideString& value) {
    log_.push_back(WideString(verb) + oid + u" " + type + u" " + value);
    Setting* setting = Find(oid);
    if (setting == nullptr) return platform::kFailed;
    if (setting->setResult >= 0) setting->text = value;
    return setting->setResult;
  }

  platform::ResultCode Get(WideStringView verb, const WideString& oid, const WideString& type,
                           std::optional<WideString>& value) {
    log_.push_back(WideString(verb) + oid + u" " + type);
    const Setting* setting = Find(oid);
    if (setting == nullptr) return platform::kFailed;
    if (setting->getResult >= 0) value = setting->text;
    return setting->getResult;
  }

  std::map<WideString, Setting, std::less<>> settings_;
  std::vector<WideString> log_;
};

}  // namespace tests
