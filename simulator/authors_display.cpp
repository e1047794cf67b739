#include "simulator/authors_display.h"

#include "app/kel_config_app.h"
#include "platform/host/desktop.h"
#include "platform/host/environment.h"
#include "platform/kernel.h"
#include "platform/messages.h"

#include <algorithm>

namespace simulator {
namespace {

using platform::host::KeyStroke;

constexpr WideStringView kWhyTitle = u"Why it looks so";
constexpr WideStringView kCheckTitle = u"kelconf check: it starts again when this is mended";
constexpr const char* kWithoutAdvisor = "kelconf is not there, beside this program.\n";

bool AsksWhy(const KeyStroke& stroke) { return stroke.control && stroke.virtualKey == 'W'; }

}  // namespace

bool AuthorsDisplay::HasChanged() {
  if (parts_.watch == nullptr) return false;
  const auto changed = parts_.watch->TakeChanged();
  return std::any_of(changed.begin(), changed.end(), [this](const std::string& file) {
    // A file that was broken is mended also when it says again what the device has.
    if (file == "device.txt" && isUsable_ != false) return parts_.deviceFileDiffers();
    return IsReadAtStart(file, parts_.source);
  });
}

void AuthorsDisplay::TakeAnswer() {
  const auto answer = parts_.advisor == nullptr ? std::nullopt : parts_.advisor->TakeAnswer();
  if (!answer) return;
  if (answer->question == Advisor::Question::kWhy) return parts_.panel.Open(WideString(kWhyTitle), answer->text);
  isUsable_ = !SaysUnusable(answer->text);
  if (*isUsable_) return;
  parts_.advisor->Forget(Advisor::Question::kWhy);
  parts_.panel.Open(WideString(kCheckTitle), answer->text);
  parts_.screen.Beep();
}

bool AuthorsDisplay::AwaitUsable(bool afterAChange) {
  isUsable_.reset();
  if (!afterAChange) parts_.advisor->AskCheck();
  for (;;) {
    if (HasChanged()) parts_.advisor->AskCheck();
    TakeAnswer();
    if (isUsable_ == true) break;
    const auto stroke = parts_.screen.NextKey();
    if (!stroke) continue;
    const bool leaves = stroke->virtualKey == platform::key::kEscape;
    if (leaves) return false;
    if (parts_.panel.IsOpen() && !AsksWhy(*stroke)) parts_.panel.Press(*stroke);
  }
  isUsable_.reset();
  parts_.panel.Close();
  if (place_) wayBack_.emplace(*place_);
  return true;
}

std::optional<KeyStroke> AuthorsDisplay::NextKey() {
  if (HasChanged()) parts_.advisor->AskCheck();
  TakeAnswer();
  if (isUsable_ == true) {
    StartAgain();
    return std::nullopt;
  }
  std::optional<KeyStroke> key;
  if (GoesBack(key)) return key;
  key = parts_.screen.NextKey();
  if (!key) return key;
  wayBack_.reset();  // whoever presses a key wants to be here
  if (parts_.panel.IsOpen()) {
    parts_.panel.Press(*key);
    if (!parts_.panel.IsOpen() && parts_.advisor != nullptr) parts_.advisor->Forget(Advisor::Question::kWhy);
    return std::nullopt;
  }
  if (!AsksWhy(*key)) return key;
  AskWhy();
  return std::nullopt;
}

// As the device does it when it restarts: at once, and nothing that the program still does reaches the device.
void AuthorsDisplay::StartAgain() {
  isUsable_.reset();
  parts_.panel.Close();
  const app::CKelConfigApp* application = parts_.application();
  // A terminal that is on its way back is meant to be where it goes.
  if (application != nullptr && application->CurrentMenu() != nullptr && !wayBack_) {
    place_ = PlaceIn(*application->CurrentMenu(), application->SelectedItem());
  }
  if (place_) wayBack_.emplace(*place_);
  isStartingAgain_ = true;
  platform::WarmReset();
  isStartingAgain_ = false;
}

bool AuthorsDisplay::GoesBack(std::optional<KeyStroke>& key) {
  const app::CKelConfigApp* application = parts_.application();
  if (!wayBack_ || application == nullptr) return false;
  // The menus are whole when the worker has swapped them in.
  if (platform::host::AreThreadsRunning() || platform::host::AreMessagesWaiting()) return false;
  key = wayBack_->NextKey(*application);
  if (!key) wayBack_.reset();
  return key.has_value();
}

void AuthorsDisplay::AskWhy() {
  if (parts_.advisor == nullptr) return parts_.panel.Open(WideString(kWhyTitle), kWithoutAdvisor);
  const app::CKelConfigApp* application = parts_.application();
  const model::MenuItem* menu = application == nullptr ? nullptr : application->CurrentMenu();
  if (menu == nullptr) return;
  // A line of the list's own stands for the whole menu.
  const model::MenuItem* selected = application->SelectedItem();
  parts_.panel.Open(WideString(kWhyTitle), "...");
  parts_.advisor->AskWhy((selected == nullptr ? menu : selected)->Path(), selected != nullptr);
}

}  // namespace simulator
