// The commands that a configuration names: on entering and leaving a menu, on selecting a command.
#pragma once

#include "rules/apply_changes.h"
#include "rules/wireless.h"

namespace rules {

class Handlers {
 public:
  Handlers(const Context& context, ItemOperations& items, ChangeQueue& queue, Wireless& wireless,
           ChangeApplier& applier)
      : context_(context), items_(items), queue_(queue), wireless_(wireless), applier_(applier) {}

  // `_OnEnter` of a menu.
  void RunEnterHandler(const model::MenuItem& menu);

  // `_OnExit`, `_OnExit1` and so on of a menu that is left.
  void RunExitHandlers(model::MenuItem& menu);

  // `Function` and `AppName` of an item that was selected. False: it has neither.
  bool RunItemCommand(model::MenuItem& item);

 private:
  void RunExitCommand(model::MenuItem& menu, WideStringView command);
  void RunFunction(model::MenuItem& item, WideStringView name);
  std::vector<WideString> ExitCommands(const model::MenuItem& item) const;

  void Rebind(WideStringView triple);
  void IfChanges(const model::MenuItem& menu, WideStringView command);
  void RestoreDefaults();
  void NoteNetworkSettings(WideStringView oid);

  Context context_;
  ItemOperations& items_;
  ChangeQueue& queue_;
  Wireless& wireless_;
  ChangeApplier& applier_;
};

}  // namespace rules
