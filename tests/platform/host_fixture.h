// A terminal with a scripted display, and handlers written as functions.
#pragma once

#include "platform/controls.h"
#include "platform/dialog.h"
#include "platform/host/desktop.h"
#include "platform/host/environment.h"
#include "tests/printing.h"
#include "tests/support/scripted_display.h"

#include <map>

// Answers messages by number; all others are left to the window.
class MessageTable : public platform::MessageHandler {
 public:
  using Action = std::function<std::optional<platform::LResult>(platform::WindowHandle, const platform::Message&)>;
  MessageTable& On(std::uint32_t id, Action action) {
    actions_[id] = std::move(action);
    return *this;
  }
  std::optional<platform::LResult> OnMessage(platform::WindowHandle window, const platform::Message& message) override {
    const auto found = actions_.find(message.id);
    return found != actions_.end() ? found->second(window, message) : std::nullopt;
  }

 private:
  std::map<std::uint32_t, Action> actions_;
};

class HostTest : public ::testing::Test {
 protected:
  platform::host::Environment MakeEnvironment() {
    platform::host::Environment environment;
    environment.display = &display;
    environment.localTime = platform::SystemTime{2026, 2, 6, 28, 13, 5, 9, 0};
    return environment;
  }

  // A control in a visible window of its own that has no dialog around it.
  platform::WindowHandle MakeControl(const char16_t* className, platform::style::Bits bits, int width = 100,
                                     int height = 20) {
    platform::WindowSpec frame;
    frame.className = u"Frame";
    frame.style = platform::style::kPopup | platform::style::kVisible;
    frame.width = 240;
    frame.height = 320;
    platform::RegisterWindowClass({u"Frame", false, [this](platform::WindowHandle) { return MakeRecorder(); }});
    frameWindow = platform::MakeWindow(frame);
    platform::WindowSpec control;
    control.className = className;
    control.style = platform::style::kChild | platform::style::kVisible | bits;
    control.width = width;
    control.height = height;
    control.parent = frameWindow;
    control.id = 7;
    const platform::WindowHandle made = platform::MakeWindow(control);
    platform::Focus(made);
    notifications.clear();
    return made;
  }

  void Press(platform::WindowHandle window, std::uint16_t key) {
    platform::Send(window, platform::message::kKeyDown, key, 1);
  }
  void Type(platform::WindowHandle window, std::u16string_view text) {
    for (const char16_t unit : text) platform::Send(window, platform::message::kChar, unit, 1);
  }

  tests::ScriptedDisplay display;
  platform::host::InstalledEnvironment installed{MakeEnvironment()};
  platform::WindowHandle frameWindow = nullptr;
  std::vector<int> notifications;  // codes of the commands and notifications that the frame was told

 private:
  class Recorder : public platform::MessageHandler {
   public:
    explicit Recorder(std::vector<int>& codes) : codes_(codes) {}
    std::optional<platform::LResult> OnMessage(platform::WindowHandle, const platform::Message& message) override {
      if (message.id == platform::message::kCommand) codes_.push_back(platform::CommandCode(message));
      if (message.id == platform::message::kNotify) codes_.push_back(platform::NotifyCode(message));
      return std::nullopt;
    }

   private:
    std::vector<int>& codes_;
  };
  std::unique_ptr<platform::MessageHandler> MakeRecorder() { return std::make_unique<Recorder>(notifications); }
};
