#include "rules/handlers.h"

#include "base/format.h"
#include "base/string_table.h"
#include "model/set_triple.h"
#include "rules/config_store.h"
#include "rules/program_start.h"
#include "rules/summary.h"

#include <algorithm>

namespace rules {
namespace {

constexpr WideStringView kVerify = u"VerifyNetUI";

bool AnyChanged(const model::MenuItem& menu) {
  return std::any_of(menu.Children().begin(), menu.Children().end(), [](const auto& item) { return item->changed; });
}

}  // namespace

bool Handlers::RunNamed(std::span<const Named> commands, WideStringView name, model::MenuItem& item) {
  for (const Named& command : commands) {
    if (command.name != name) continue;
    (this->*command.run)(item);
    return true;
  }
  return false;
}

// --- entering and leaving ---

void Handlers::RunEnterHandler(const model::MenuItem& menu) {
  const config::ConfigKey* node = context_.model.FindKey(menu.Path());
  if (node != nullptr && base::EqualsIgnoringCase(node->Value(u"_OnEnter"), kVerify)) wireless_.VerifyNetUI();
}

std::vector<WideString> Handlers::ExitCommands(const model::MenuItem& item) const {
  std::vector<WideString> commands;
  const config::ConfigKey* node = context_.model.FindKey(item.Path());
  if (node == nullptr) return commands;
  const WideStringView name = LoadText(TextId::kOnExit);
  WideStringView command = node->Value(name);
  for (int number = 1; !command.empty(); ++number) {
    commands.emplace_back(command);
    command = node->Value(base::Format(u"%s%d", name, number));
  }
  return commands;
}

void Handlers::RunExitHandlers(model::MenuItem& menu) {
  for (const WideString& command : ExitCommands(menu)) RunExitCommand(menu, command);
}

void Handlers::RunExitCommand(model::MenuItem& menu, WideStringView command) {
  static const Named kCommands[] = {
      {LoadText(TextId::kFlagChanges), &Handlers::CarryChangesUp},
      {kVerify, &Handlers::VerifyNetUI},
      {u"CheckWEPKey", &Handlers::CheckWEPKey},
  };
  static constexpr Prefixed kPrefixed[] = {
      {u"Rebind:", &Handlers::Rebind},
      {u"IfChanges:", &Handlers::IfChanges},
  };

  if (RunNamed(kCommands, command, menu)) return;
  for (const Prefixed& prefixed : kPrefixed) {
    if (command.starts_with(prefixed.prefix)) (this->*prefixed.run)(menu, command.substr(prefixed.prefix.size()));
  }
}

void Handlers::CarryChangesUp(model::MenuItem& menu) {
  if (AnyChanged(menu)) menu.changed = true;
}

void Handlers::Rebind(model::MenuItem&, WideStringView rest) {
  const auto triple = model::ParseSetTriple(rest);
  if (!triple) return;
  queue_.Add(triple->oid, triple->type, triple->value);
  queue_.Submit();
  NoteNetworkSettings(triple->oid);
}

void Handlers::IfChanges(model::MenuItem& menu, WideStringView rest) {
  if (!AnyChanged(menu)) return;
  if (rest == u"ApplyNetworkSettings") {
    ApplyNetworkSettings(menu);
    return;
  }
  const auto triple = model::ParseSetTriple(rest);
  if (!triple) return;
  single_.SetSingleValue(triple->oid, triple->type, triple->value, &menu);
  NoteNetworkSettings(triple->oid);
}

void Handlers::NoteNetworkSettings(WideStringView oid) {
  if (oid == wireless::kNetworkSettings) context_.shell.ShowNote(u"\nApplying Network Settings");
}

// --- selecting a command ---

bool Handlers::RunItemCommand(model::MenuItem& item) {
  static const Named kFunctions[] = {
      {LoadText(TextId::kRestoreDefaults), &Handlers::RestoreDefaults},
      {LoadText(TextId::kSummary), &Handlers::ShowSummary},
      {u"ApplyNetworkSettings", &Handlers::ApplyNetworkSettings},
      {u"ImportCertificates", &Handlers::ImportCertificates},
      {LoadText(TextId::kStoreConfig), &Handlers::Store},
      {u"WEP_Properties", &Handlers::WepProperties},
  };

  const auto tree = context_.model.Tree();  // stays while a message is shown
  const config::ConfigKey* node = tree ? tree->Find(item.Path()) : nullptr;
  if (node == nullptr) return false;
  const WideStringView function = node->Value(TextId::kFunction);
  const WideStringView program = node->Value(TextId::kAppName);
  if (!function.empty()) RunNamed(kFunctions, function, item);
  if (!program.empty()) {
    const CommandLine command = SplitCommandLine(program);
    StartProgram(command, program, context_.boxes);
    if (command.program == LoadText(TextId::kFlashWriterProgram)) context_.flashWrite = false;
  }
  return !function.empty() || !program.empty();
}

void Handlers::RestoreDefaults(model::MenuItem&) {
  const int answer = context_.boxes.Show(LoadText(TextId::kRestoreNow), u"Alert", values::kYesNoBox);
  if (answer != values::kBoxYes) return;
  queue_.Clear();
  applier_.RestoreAllDefaults();
}

void Handlers::ShowSummary(model::MenuItem& item) { context_.shell.ShowTextPage(SummaryLines(context_.model, item)); }

void Handlers::Store(model::MenuItem&) {
  if (StoreConfig(context_)) context_.shell.ShowNote(LoadText(TextId::kSavedNote));
}

}  // namespace rules
