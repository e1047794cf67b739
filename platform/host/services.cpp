// The small services: each asks the environment, or tells it.
#include "platform/debug.h"
#include "platform/device.h"
#include "platform/host/machine_time.h"
#include "platform/host/session.h"
#include "platform/kernel.h"

#include <new>
#include <utility>

namespace platform {

namespace {

// A device that restarts does not wait for the program: what that still asks on its way to its end is never heard.
class DeviceUntilReset final : public ISnmpConfig {
 public:
  explicit DeviceUntilReset(std::unique_ptr<ISnmpConfig> device) : device_(std::move(device)) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return host::IsWarmReset() ? kFailed : device_->Set(oid, type, value);
  }
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return host::IsWarmReset() ? kFailed : device_->Get(oid, type, value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return host::IsWarmReset() ? kFailed : device_->SetSpecial(oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return host::IsWarmReset() ? kFailed : device_->GetSpecial(oid, type, value);
  }
  void ReadAhead(const std::function<std::vector<Setting>()>& settings) override {
    if (!host::IsWarmReset()) device_->ReadAhead(settings);
  }

 private:
  std::unique_ptr<ISnmpConfig> device_;
};

}  // namespace

void DebugOutput(WideStringView line) {
  if (host::IsWarmReset()) return;
  host::Observer* const observer = host::CurrentEnvironment().observer;
  if (observer == nullptr) return;
  try {
    observer->Debug(line);
  } catch (const std::bad_alloc&) {
  }
}

void KernelDebugOutput(WideStringView line) { DebugOutput(line); }

std::unique_ptr<ISnmpConfig> ConnectSnmpConfig() {
  const auto& connect = host::CurrentEnvironment().connectDevice;
  if (!connect || host::IsWarmReset()) return nullptr;
  auto device = connect();
  return device ? std::make_unique<DeviceUntilReset>(std::move(device)) : nullptr;
}

TableAnswer GetTableValue(const WideString& progId, const WideString& table, const WideString& key) {
  const auto& tableValue = host::CurrentEnvironment().tableValue;
  return tableValue && !host::IsWarmReset() ? tableValue(progId, table, key) : TableAnswer{};
}

void WarmReset() {
  if (host::Observer* observer = host::CurrentEnvironment().observer) observer->WarmReset();
  host::CurrentSession().queue.Reset();
}

SystemTime LocalTime() {
  if (const auto& fixed = host::CurrentEnvironment().localTime) return *fixed;
  return host::MachineTime();
}

// The picker is always ready here.
void InitDateTimeControls() {}

struct WaitCursor::State {};

WaitCursor::WaitCursor(WindowHandle) { ++host::CurrentSession().waitCursors; }

WaitCursor::~WaitCursor() { --host::CurrentSession().waitCursors; }

struct WaitCursorPause::State {
  int paused;
};

WaitCursorPause::WaitCursorPause()
    : state_(std::make_unique<State>(State{std::exchange(host::CurrentSession().waitCursors, 0)})) {}

WaitCursorPause::~WaitCursorPause() { host::CurrentSession().waitCursors = state_->paused; }

}  // namespace platform
