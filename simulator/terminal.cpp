#include "simulator/terminal.h"

#include "platform/host/desktop.h"
#include "simulator/logged_device.h"

#include <algorithm>
#include <utility>

namespace simulator {
namespace {

using platform::ResultCode;
using platform::host::KeyStroke;

// Lets other terminals on the storage know the windows that the user sees now.
class PublishingDisplay : public platform::host::Display {
 public:
  PublishingDisplay(platform::host::Display& display, OtherTerminals& others) : display_(display), others_(others) {}

  std::optional<KeyStroke> NextKey() override {
    others_.Publish(VisibleTitles());
    return display_.NextKey();
  }
  void Wake() override { display_.Wake(); }
  void Pause(std::chrono::milliseconds duration) override { display_.Pause(duration); }
  void Beep() override { display_.Beep(); }
  void ComeForward() override { display_.ComeForward(); }

 private:
  platform::host::Display& display_;
  OtherTerminals& others_;
};

// Nothing that the program still does while it is being reset reaches the device.
class DeviceUntilReset : public platform::ISnmpConfig {
 public:
  DeviceUntilReset(std::unique_ptr<ISnmpConfig> device, const bool& resetting)
      : device_(std::move(device)), resetting_(resetting) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return resetting_ ? platform::kFailed : device_->Set(oid, type, value);
  }
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return resetting_ ? platform::kFailed : device_->Get(oid, type, value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return resetting_ ? platform::kFailed : device_->SetSpecial(oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return resetting_ ? platform::kFailed : device_->GetSpecial(oid, type, value);
  }
  void ReadAhead(const std::function<std::vector<platform::Setting>()>& settings) override {
    if (!resetting_) device_->ReadAhead(settings);
  }

 private:
  std::unique_ptr<ISnmpConfig> device_;
  const bool& resetting_;
};

}  // namespace

Terminal::Terminal(Parts parts, int screenWidthPx, int screenHeightPx, Program program)
    : parts_(std::move(parts)),
      screenWidthPx_(screenWidthPx),
      screenHeightPx_(screenHeightPx),
      program_(std::move(program)) {}

int Terminal::Run(WideStringView commandLine) {
  int status = 0;
  PublishingDisplay display(parts_.display, parts_.others);
  for (;;) {
    resetting_ = false;
    {
      const platform::host::InstalledEnvironment environment(MakeEnvironment(display));
      status = program_(commandLine);
    }
    if (!resetting_) break;
    if (parts_.beforeStartingAgain) parts_.beforeStartingAgain();
  }
  parts_.effects.Add(ExitLine(status));
  return status;
}

platform::host::Environment Terminal::MakeEnvironment(platform::host::Display& display) {
  platform::host::Environment environment;
  environment.root = parts_.storage.root;
  environment.registry = parts_.storage.registry;
  environment.connectDevice = [this] { return std::make_unique<DeviceUntilReset>(Connect(), resetting_); };
  if (parts_.elsewhere) environment.hostName = environment.hostAddress = parts_.elsewhere->address;
  environment.tableValue = [this](const WideString& progId, const WideString& table, const WideString& key) {
    return AnswerTableValue(parts_.storage.tables, parts_.effects, progId, table, key);
  };
  environment.observer = this;
  environment.display = &display;
  environment.screenWidthPx = screenWidthPx_;
  environment.screenHeightPx = screenHeightPx_;
  environment.otherWindows = parts_.others.OtherTitles();
  environment.bringOtherForward = [this](std::size_t) {
    gaveWay_ = true;
    parts_.others.BringOtherForward();
  };
  return environment;
}

std::unique_ptr<platform::ISnmpConfig> Terminal::Connect() {
  if (parts_.elsewhere) return MakeLoggedDevice(parts_.elsewhere->connect(), parts_.effects);
  return MakeSimulatedDevice(*parts_.storage.device, parts_.effects, parts_.deviceWait);
}

void Terminal::Pulsed(WideStringView eventName) { parts_.effects.Add(PulseLine(eventName)); }

void Terminal::Started(WideStringView program, WideStringView arguments, std::uint32_t result) {
  parts_.effects.Add(StartLine(program, arguments, result));
}

void Terminal::WarmReset() {
  resetting_ = true;
  parts_.effects.Add(WarmResetLine());
  if (parts_.elsewhere) parts_.elsewhere->restart();
}

std::vector<WideString> VisibleTitles() {
  std::vector<WideString> titles;
  for (const platform::WindowHandle window : platform::host::TopLevelFromBottom()) {
    if (platform::IsVisible(window)) titles.push_back(platform::TextOf(window));
  }
  std::reverse(titles.begin(), titles.end());
  return titles;
}

}  // namespace simulator
