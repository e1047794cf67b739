// The utility's model and rules over a copy of the device, without a screen: what they would do can be tried.
#pragma once

#include "authoring/configuration.h"
#include "authoring/memory_device.h"
#include "platform/events.h"
#include "rules/rules.h"

#include <optional>
#include <vector>

namespace authoring {

// Keeps what the utility would have shown; answers every box with the same.
class QuietScreen final : public rules::Shell, public values::MessageBoxes {
 public:
  int Show(WideStringView text, WideStringView, int) override {
    shown.emplace_back(text);
    return answer;
  }
  model::MenuItem* CurrentMenu() override { return menu; }
  void LineChanged(model::MenuItem&) override {}
  void Refill() override {}
  void FocusList() override {}
  void ShowNote(WideStringView) override {}
  void ShowTextPage(const std::vector<WideString>&) override {}
  void ShowSystemMessage(WideStringView text, WideStringView) override { shown.emplace_back(text); }
  platform::WindowHandle MainWindow() override { return nullptr; }

  int answer = values::kBoxCancelled;
  model::MenuItem* menu = nullptr;
  std::vector<WideString> shown;  // texts of boxes
};

// One at a time: it is the environment in force while it lives.
class Trial {
 public:
  // The configuration has a tree and lives longer, as does the listener, which follows all rules. The model is built
  // from the device's values.
  explicit Trial(const Configuration& configuration, rules::RuleListener* listener = nullptr);
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;

  const Configuration& Source() const { return configuration_; }
  MemoryDevice& Device() { return device_; }
  const values::SymbolTable& Symbols() const { return configuration_.Symbols(); }
  QuietScreen& Screen() { return screen_; }
  model::MenuModel& Model() { return model_; }
  const model::MenuModel& Model() const { return model_; }
  rules::Rules& Rules() { return rules_; }
  // Edits as the edit dialog makes them, to be applied by the rules' applier.
  values::ValueCommitter Committer() { return {model_.Descriptors(), screen_, changes_, events_, edit_}; }
  // Those that the next apply pulses.
  const values::EventNames& Events() const { return events_; }

  // Reads everything from the device anew.
  void Rebuild();
  // The OID as the device knows it.
  WideString DeviceOid(const WideString& oid) { return values::DeviceOid(model_.Descriptors(), access_, oid); }

  // Runs what the list runs before it fills itself with a menu: the rules of its lines, then its `_OnEnter`.
  void Enter(model::MenuItem& menu);
  // The same of a menu that is opened from the one above: first its `_OnEnter` alone.
  void Open(model::MenuItem& menu);

  // The keys that lead from the main menu to an item, one character each, "More..." lines among them. Each menu on the
  // way is entered. Nothing when a line on the way is not shown or cannot be entered. Empty for the main menu.
  std::optional<WideString> KeysTo(model::MenuItem& item);
  // The keys from a menu that is open to each of its lines that can be entered now.
  std::vector<std::pair<model::MenuItem*, WideString>> KeysOfLines(const model::MenuItem& menu) const;
  // The item that keys lead to, null when they lead nowhere. "-" and blanks between keys do not count.
  model::MenuItem* ItemAt(WideStringView keys);

 private:
  platform::host::InstalledEnvironment installed_;
  const Configuration& configuration_;
  MemoryDevice device_;
  QuietScreen screen_;
  values::DeviceAccess access_;
  platform::Event gate_;
  values::ChangeList changes_;
  values::EventNames events_;
  values::EditState edit_;
  bool flashWrite_ = false;
  model::MenuModel model_;
  rules::Rules rules_;
};

}  // namespace authoring
