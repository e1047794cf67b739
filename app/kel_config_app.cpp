#include "app/kel_config_app.h"

#include "app/layout.h"
#include "base/format.h"
#include "base/string_table.h"
#include "config/config_source.h"
#include "platform/debug.h"
#include "rules/program_start.h"
#include "ui/ip_address_control.h"
#include "ui/private_messages.h"

#include <exception>

namespace app {
namespace {

// Has no entry, on purpose: the event that guards reads from the device belongs to this process alone.
constexpr TextId kDeviceGateName{6092};

}  // namespace

CKelConfigApp::CKelConfigApp(rules::RuleListener* listener)
    : deviceGate_(LoadText(kDeviceGateName), true),
      model_({device_, symbols_, deviceGate_, boxes_}),
      mainDialog_(*this, boxes_, [this](platform::WindowHandle window) { boxes_.SetOwner(window); }),
      committer_(model_.Descriptors(), boxes_, changes_, events_, edit_),
      rules_({model_, device_, symbols_, changes_, events_, edit_, boxes_, mainDialog_, flashWrite_, listener}) {}

CKelConfigApp::~CKelConfigApp() = default;

platform::LResult CKelConfigApp::Run(WideStringView commandLine) {
  ui::RegisterAddressControl(boxes_, insertFlag_);
  if (!LoadConfiguration(commandLine)) return 0;
  model_.BuildTopLevel(tree_.Current(), tree_.RootPath());
  const platform::LResult result = mainDialog_.Run(model_.Root(), MeasureLargeLayout());
  device_.Release();
  return result;
}

bool CKelConfigApp::LoadConfiguration(WideStringView commandLine) {
  try {
    report_.isLoaded = SelectSource(commandLine) && tree_.BuildFirst();
    if (report_.isLoaded) symbols_ = values::SymbolTable::FromRegistry();
  } catch (const std::exception&) {
    platform::DebugOutput(u"EXCEPTION: CKelConfigApp::LoadConfiguration()\r\n");
    report_.isLoaded = false;
  }
  if (!report_.isLoaded) ShowConfigurationError();
  return report_.isLoaded;
}

bool CKelConfigApp::SelectSource(WideStringView commandLine) {
  config::SelectedSource selected = config::SelectSource(commandLine);
  report_.refusals = std::move(selected.refusals);
  for (const config::SourceRefusal& refusal : report_.refusals) {
    if (!refusal.isMalformed) continue;
    boxes_.Show(base::Format(u"%s document is not well formed", refusal.source), u"Error", values::kErrorBox);
  }
  if (!selected.source) return false;
  tree_.SetSource(std::move(*selected.source));
  return true;
}

void CKelConfigApp::ShowConfigurationError() {
  boxes_.Show(LoadText(TextId::kConfigurationDataError), u"Error", values::kErrorBox);
}

void CKelConfigApp::StartTreeRebuild() {
  if (worker_) return;
  // Readers wait from now on, not only from when the thread runs.
  tree_.AnnounceRebuild();
  try {
    worker_.emplace([this, screen = mainDialog_.MainWindow()] {
      if (!tree_.Rebuild()) rebuildFailed_ = true;
      platform::Post(screen, ui::private_message::kRelayToList, ui::private_message::kTreeReplaced);
    });
  } catch (const std::exception&) {
    platform::DebugOutput(u"EXCEPTION: CKelConfigApp::StartTreeRebuild()\r\n");
    tree_.CallOffRebuild();
    rebuildFailed_ = true;
  }
}

void CKelConfigApp::BringModelUpToDate() {
  {
    const KeyTree::Reader reader(tree_);
    const auto tree = tree_.Current();
    if (tree != model_.Tree() || !model_.IsWhole())
      mainDialog_.ReplaceItems([&] { model_.Build(tree, tree_.RootPath()); });
  }
  if (rebuildFailed_.exchange(false)) ShowConfigurationError();
}

// A blank line shows nothing to enter; a locked one still opens as a menu. The line of one that is not displayed was
// shown before the rules of the full tree had run: the list has it no more.
bool CKelConfigApp::MayEnter(model::MenuItem& item) {
  if (item.State() == model::DisplayState::kBlank || item.State() == model::DisplayState::kNotDisplayed) return false;
  rules_.handlers.RunEnterHandler(item);
  return true;
}

bool CKelConfigApp::MayLeave(model::MenuItem& menu) {
  rules_.handlers.RunExitHandlers(menu);
  return menu.Parent() != nullptr || rules_.applier.ConfirmLeaving();
}

void CKelConfigApp::Activate(model::MenuItem& leaf) {
  if (!rules_.handlers.RunItemCommand(leaf)) EditProperty(leaf);
}

void CKelConfigApp::EditProperty(model::MenuItem& item) {
  if (item.State() == model::DisplayState::kNoEdit) return;
  mainDialog_.RunEdit([&](platform::WindowHandle owner) {
    const ui::EditContext context{editors_, committer_, *this, mainDialog_, insertFlag_};
    return ui::RunEditDialog(context, item, mainDialog_.IsLarge(), owner);
  });
}

bool CKelConfigApp::ApplyChanges() {
  int outcome = 0;
  return rules_.applier.ApplyChanges(outcome);
}

void CKelConfigApp::RunPostEditAction(WideStringView command, model::MenuItem& item) {
  rules_.postEdit.RunPostEditAction(command, item);
}

void CKelConfigApp::EvaluateItem(model::MenuItem& item) { rules_.dependencies.EvaluateDependencies(item); }

void CKelConfigApp::BeforeFill(model::MenuItem& menu) {
  rules_.items.ReadMissed(menu);
  rules_.handlers.RunEnterHandler(menu);
}

void CKelConfigApp::FlipToggle() { insertFlag_.Toggle(); }

// The flash writer keeps what was changed over a cold boot.
void CKelConfigApp::LeavingRoot() {
  if (flashWrite_) rules::StartFlashWriter(boxes_);
}

void CKelConfigApp::InlineTextChanged(model::MenuItem& item, WideStringView text, bool isChoice) {
  committer_.CommitValueNoRangeTest(&item, text, isChoice ? values::EntryMode::kChoice : values::EntryMode::kTyped);
  mainDialog_.LineChanged(item);
}

void CKelConfigApp::InlineCheckChanged(model::MenuItem& item, bool checked) {
  InlineTextChanged(item, checked ? u"1" : u"0", false);
}

}  // namespace app
