// Other values than the device holds, to see what the utility would do then.
#pragma once

#include "authoring/items.h"

#include <functional>
#include <span>

namespace authoring {

// A setting by its OID, that of a field ("OID:2") or one that lives in the program alone, and what it is to be.
struct SettingChange {
  WideString oid;
  WideString value;
  bool operator==(const SettingChange&) const = default;
};

// Puts the trial's device back when it goes.
class Assumption {
 public:
  explicit Assumption(Trial& trial) : trial_(trial), device_(trial.Device()) {}
  ~Assumption() { Assume({}); }
  Assumption(const Assumption&) = delete;
  Assumption& operator=(const Assumption&) = delete;

  // The device as it was but for these changes, and the model made from it anew: no item or property stays. What the
  // utility does after an edit of these properties is done too.
  void Assume(std::span<const SettingChange> changes);
  // The same without what follows an edit: the device had these values all along.
  void AssumeOnDevice(std::span<const SettingChange> changes);

 private:
  void AfterEdit(const SettingChange& change);
  void Put(const SettingChange& change);
  void PutField(WideStringView commandOid, int number, const SettingChange& change);

  Trial& trial_;
  const MemoryDevice device_;
};

// Enter opens an editor, unless the line is locked.
bool HasEditor(const model::MenuItem& item);

// How a line looks to whoever walks to it.
struct Look {
  bool reachable = false;  // every menu above it can be opened
  model::DisplayState state = model::DisplayState::kNormal;
  bool available = true;  // of a property: its value could be read
  bool editable = false;  // Enter opens an editor
  WideString choiceText;  // the list in force
  WideString line;

  bool IsShown() const {
    return reachable && state != model::DisplayState::kNotDisplayed && state != model::DisplayState::kBlank;
  }
  bool IsEditable() const { return IsShown() && editable; }
};

// Opens the menus above the item as the utility does it, and looks at its line. `passing` is told of each of them but
// the main menu, before it is opened, which is done even where the utility would not.
using Passing = std::function<void(const model::MenuItem& menu, bool canBeOpened)>;
Look LookAt(Trial& trial, model::MenuItem& item, const Passing& passing = {});

}  // namespace authoring
