#include "tests/app/keypad.h"

#include "base/string_table.h"
#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "platform/messages.h"
#include "simulator/script.h"
#include "ui/edit_templates.h"

namespace tests {
namespace {

namespace host = platform::host;
using platform::WindowHandle;
using platform::host::KeyStroke;

constexpr int kPressEnterId = 1042;
constexpr KeyStroke kEnter{platform::key::kEnter, u'\r', false, false};
constexpr KeyStroke kEscape{platform::key::kEscape, u'\x1B', false, false};

}  // namespace

std::string BoxText(WindowHandle box) {
  std::string text = base::ToUtf8(platform::TextOf(box)) + ":";
  for (const WindowHandle child : host::ChildrenOf(box)) {
    if (!platform::IsVisible(child) || platform::IdOf(child) == kPressEnterId) continue;
    if (host::KindOf(child) == host::WindowKind::kStatic) text += " " + base::ToUtf8(platform::TextOf(child));
    if (const auto list = host::ListStateOf(child)) {
      for (const WideString& line : list->lines) text += " [" + base::ToUtf8(line) + "]";
    }
  }
  return text;
}

Front WhatIsInFront() {
  const WindowHandle active = platform::ActiveWindow();
  if (active == nullptr) return Front::kNothing;
  if (platform::TextOf(active) == LoadText(TextId::kConfigurationUtility)) return Front::kMainScreen;
  return platform::ControlOf(active, ui::kAddressEntryId) != nullptr ? Front::kEditDialog : Front::kBox;
}

std::size_t PressKeysOf(const std::string& script, ScriptedDisplay& display) {
  const simulator::Script parsed = simulator::ParseScript(script);
  for (const auto& command : parsed.commands) {
    for (const auto& key : command.keys) display.Press({key.virtualKey, key.character, key.shift, false});
  }
  return parsed.brokenLine;
}

std::optional<KeyStroke> Keypad::NextKey() {
  if (waitsForWorker && (host::AreThreadsRunning() || host::AreMessagesWaiting())) {
    WaitUntilWoken();
    return std::nullopt;
  }
  if (beforeEachKey) beforeEachKey();
  if (answersBoxes && !leaving_ && WhatIsInFront() == Front::kBox) {
    boxes_.push_back(BoxText(platform::ActiveWindow()));
    // A box that comes again and again must not keep the program here for ever.
    leaving_ = boxes_.size() > 1000;
    return kEnter;
  }
  return leaving_ ? KeyToLeave() : ScriptedDisplay::NextKey();
}

std::optional<KeyStroke> Keypad::AtEnd() {
  if (const auto key = keys_()) return key;
  leaving_ = true;
  return KeyToLeave();
}

std::optional<KeyStroke> Keypad::KeyToLeave() {
  if (++keysToLeave_ > mostKeysToLeave) {
    platform::PostQuit(0);
    return std::nullopt;
  }
  if (WhatIsInFront() != Front::kBox) return kEscape;
  if (answersBoxes) boxes_.push_back(BoxText(platform::ActiveWindow()));
  return kEnter;
}

void Keypad::Wake() {
  const std::lock_guard lock(mutex_);
  woken_ = true;
  wakes_.notify_one();
}

void Keypad::WaitUntilWoken() {
  std::unique_lock lock(mutex_);
  wakes_.wait(lock, [this] { return woken_; });
  woken_ = false;
}

// The program shows a note in the active window and lets the time pass.
void Keypad::Pause(std::chrono::milliseconds) {
  const auto children = host::ChildrenOf(platform::ActiveWindow());
  if (children.empty() || host::KindOf(children.back()) != host::WindowKind::kStatic) return;
  notes_.push_back(base::ToUtf8(platform::TextOf(children.back())));
}

}  // namespace tests
