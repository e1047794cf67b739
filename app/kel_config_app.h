// The application object: the composition root. It owns the state of a run and hands it down.
#pragma once

#include "app/key_tree.h"
#include "app/main_dialog.h"
#include "app/message_box.h"
#include "app/run_report.h"
#include "app/screen_actions.h"
#include "model/menu_model.h"
#include "platform/events.h"
#include "rules/rules.h"
#include "ui/edit_dialog.h"
#include "values/device_access.h"
#include "values/event_names.h"
#include "values/pending_change.h"
#include "values/property_line_text.h"
#include "values/symbol_table.h"

#include <atomic>
#include <memory>
#include <optional>

namespace app {

class CKelConfigApp final : private ScreenActions, private ui::EditActions {
 public:
  // Who follows the rules outlives the application; null: nobody.
  explicit CKelConfigApp(rules::RuleListener* listener = nullptr);
  ~CKelConfigApp() override;

  // Loads the configuration and runs the main screen until the user leaves. The main dialog's result, 0 when there was
  // nothing to show; the user has then been told.
  platform::LResult Run(WideStringView commandLine);
  const RunReport& Report() const { return report_; }

  bool Inserts() const { return insertFlag_.inserts; }  // typing in fields

  // What is on the screen, between messages; null before the first menu is there.
  const model::MenuModel& Model() const { return model_; }
  const model::MenuItem* CurrentMenu() const { return mainDialog_.CurrentMenu(); }
  const model::MenuItem* SelectedItem() const { return mainDialog_.SelectedItem(); }

 private:
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

  bool ApplyChanges() override;
  void RunPostEditAction(WideStringView command, model::MenuItem& item) override;

  bool LoadConfiguration(WideStringView commandLine);
  bool SelectSource(WideStringView commandLine);
  void ShowConfigurationError();
  void EditProperty(model::MenuItem& item);

  MessageBox boxes_;
  values::SymbolTable symbols_;
  values::DeviceAccess device_;
  values::ChangeList changes_;
  values::EventNames events_;
  values::EditState edit_;
  bool flashWrite_ = false;
  RunReport report_;
  KeyTree tree_;
  std::atomic<bool> rebuildFailed_ = false;  // set by the worker thread; the user is told on the next occasion
  platform::Event deviceGate_;
  model::MenuModel model_;
  MainDialog mainDialog_;
  values::ValueCommitter committer_;
  ui::EditorTable editors_;
  ui::InsertFlag insertFlag_;
  rules::Rules rules_;
  std::optional<platform::Thread> worker_;  // last: it ends before what it works on goes
};

}  // namespace app
