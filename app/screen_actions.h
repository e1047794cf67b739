// What the main screen asks of the application behind it: moves through the menu become rules, commands and edits.
#pragma once

#include "base/wide_string.h"
#include "model/menu_item.h"

namespace app {

class ScreenActions {
 public:
  virtual ~ScreenActions() = default;

  // Waits for the full key tree when it is being built and puts the model onto it. May replace every item but the root.
  virtual void BringModelUpToDate() = 0;
  virtual void StartTreeRebuild() = 0;

  virtual bool MayEnter(model::MenuItem& item) = 0;
  virtual bool MayLeave(model::MenuItem& menu) = 0;
  virtual void Activate(model::MenuItem& leaf) = 0;  // runs its command or edits its value
  virtual void EvaluateItem(model::MenuItem& item) = 0;
  virtual void BeforeFill(model::MenuItem& menu) = 0;
  virtual void FlipToggle() = 0;
  virtual void LeavingRoot() = 0;

  // An editor on the main screen itself changed the value of an item.
  virtual void InlineTextChanged(model::MenuItem& item, WideStringView text, bool isChoice) = 0;
  virtual void InlineCheckChanged(model::MenuItem& item, bool checked) = 0;
};

}  // namespace app
