// The application object: the composition root. It owns the state of a run and hands it down.
#pragma once

#include "app/key_tree.h"
#include "app/main_dialog.h"
#include "app/message_box.h"
#include "app/screen_actions.h"
#include "model/menu_model.h"
#include "platform/events.h"
#include "rules/context.h"
#include "values/device_access.h"
#include "values/pending_changes.h"
#include "values/property_line_text.h"
#include "values/symbol_table.h"

#include <memory>
#include <optional>

namespace app {

class CKelConfigApp final : public ScreenActions {
 public:
  CKelConfigApp();
  ~CKelConfigApp() override;

  // Loads the configuration and runs the main screen until the user leaves. The main dialog's result, 0 when there was
  // nothing to show; the user has then been told.
  platform::LResult Run(WideStringView commandLine);

  // ScreenActions
  void BringModelUpToDate() override;
  void StartTreeRebuild() override;
  bool MayEnter(model::MenuItem& item) override;
  bool MayLeave(model::MenuItem& menu) override;
  void Activate(model::MenuItem& leaf) override;
  void EvaluateItem(model::MenuItem& item) override;
  void BeforeFill(model::MenuItem& menu) override;
  void FlipToggle() override;
  void LeavingRoot() override;
  void InlineTextChanged(model::MenuItem& item, WideStringView text, bool isChoice) override;
  void InlineCheckChanged(model::MenuItem& item, bool checked) override;

 private:
  bool LoadConfiguration(WideStringView commandLine);
  void EditProperty(model::MenuItem& item);
  bool LeaveWithPendingChanges();

  MessageBox boxes_;
  values::SymbolTable symbols_;
  values::DeviceAccess device_;
  values::ChangeList changes_;
  values::EventNames events_;
  values::EditState edit_;
  bool flashWrite_ = false;
  KeyTree tree_;
  platform::Event deviceGate_;
  model::MenuModel model_;
  MainDialog mainDialog_;
  bool toggle_ = false;
  std::optional<platform::Thread> worker_;  // last: it ends before what it works on goes
};

}  // namespace app
