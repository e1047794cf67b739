// The commands that a configuration names: on entering and leaving a menu, on selecting a command.
#pragma once

#include "rules/apply_changes.h"
#include "rules/wireless.h"

namespace rules {

class Handlers {
 public:
  Handlers(const Context& context, SingleValues& singleValues, ChangeQueue& queue, Wireless& wireless,
           ChangeApplier& applier)
      : context_(context), single_(singleValues), queue_(queue), wireless_(wireless), applier_(applier) {}

  // `_OnEnter` of a menu.
  void RunEnterHandler(const model::MenuItem& menu);

  // `_OnExit`, `_OnExit1` and so on of a menu that is left.
  void RunExitHandlers(model::MenuItem& menu);

  // `Function` and `AppName` of an item that was selected. False: it has neither.
  bool RunItemCommand(model::MenuItem& item);

 private:
  using Command = void (Handlers::*)(model::MenuItem& item);
  using CommandWithRest = void (Handlers::*)(model::MenuItem& item, WideStringView rest);

  struct Named {
    WideStringView name;
    Command run;
  };
  struct Prefixed {
    WideStringView prefix;
    CommandWithRest run;
  };

  bool RunNamed(std::span<const Named> commands, WideStringView name, model::MenuItem& item);
  void RunExitCommand(model::MenuItem& menu, WideStringView command);
  std::vector<WideString> ExitCommands(const model::MenuItem& item) const;

  void VerifyNetUI(model::MenuItem&) { wireless_.VerifyNetUI(); }
  void CheckWEPKey(model::MenuItem&) { wireless_.CheckWEPKey(); }
  void ApplyNetworkSettings(model::MenuItem& item) { wireless_.ApplyNetworkSettings(&item); }
  void ImportCertificates(model::MenuItem& item) { wireless_.ImportCertificates(item); }
  void WepProperties(model::MenuItem& item) { wireless_.WEP_Properties(item); }
  void CarryChangesUp(model::MenuItem& menu);
  void Rebind(model::MenuItem& menu, WideStringView rest);
  void IfChanges(model::MenuItem& menu, WideStringView rest);
  void RestoreDefaults(model::MenuItem& item);
  void ShowSummary(model::MenuItem& item);
  void Store(model::MenuItem& item);
  void NoteNetworkSettings(WideStringView oid);

  Context context_;
  SingleValues& single_;
  ChangeQueue& queue_;
  Wireless& wireless_;
  ChangeApplier& applier_;
};

}  // namespace rules
