#include "rules/handlers.h"

#include "base/format.h"
#include "base/string_table.h"
#include "model/set_triple.h"
#include "rules/command_table.h"
#include "rules/config_store.h"
#include "rules/program_start.h"
#include "rules/summary.h"

#include <algorithm>

namespace rules {
namespace {

constexpr WideStringView kVerify = u"VerifyNetUI";
constexpr WideStringView kApplyNetworkSettings = u"ApplyNetworkSettings";

bool AnyChanged(const model::MenuItem& menu) {
  return std::any_of(menu.Children().begin(), menu.Children().end(), [](const auto& item) { return item->changed; });
}

}  // namespace

// --- entering and leaving ---

void Handlers::RunEnterHandler(const model::MenuItem& menu) {
  const config::ConfigKey* node = menu.Key();
  if (node != nullptr && base::EqualsIgnoringCase(node->Value(u"_OnEnter"), kVerify)) wireless_.VerifyNetUI();
}

std::vector<WideString> Handlers::ExitCommands(const model::MenuItem& item) const {
  std::vector<WideString> commands;
  const config::ConfigKey* node = item.Key();
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
  static const Command<Handlers> kCommands[] = {
      {LoadText(TextId::kFlagChanges),
       [](auto&, auto& item, auto) {
         if (AnyChanged(item)) item.changed = true;
       }},
      {kVerify, [](auto& self, auto&, auto) { self.wireless_.VerifyNetUI(); }},
      {u"CheckWEPKey", [](auto& self, auto&, auto) { self.wireless_.CheckWEPKey(); }},
      {u"Rebind:", [](auto& self, auto&, auto rest) { self.Rebind(rest); }},
      {u"IfChanges:", [](auto& self, auto& item, auto rest) { self.IfChanges(item, rest); }},
  };
  RunCommand(kCommands, command, *this, menu);
}

void Handlers::Rebind(WideStringView triple) {
  const auto setting = model::ParseSetTriple(triple);
  if (!setting) return;
  queue_.Add(setting->oid, setting->type, setting->value);
  queue_.Submit();
  NoteNetworkSettings(setting->oid);
}

void Handlers::IfChanges(const model::MenuItem& menu, WideStringView command) {
  if (!AnyChanged(menu)) return;
  if (command == kApplyNetworkSettings) {
    wireless_.ApplyNetworkSettings(&menu);
    return;
  }
  const auto setting = model::ParseSetTriple(command);
  if (!setting) return;
  items_.SendValue(setting->oid, setting->type, setting->value, &menu);
  NoteNetworkSettings(setting->oid);
}

void Handlers::NoteNetworkSettings(WideStringView oid) {
  if (oid == wireless::kNetworkSettings) context_.shell.ShowNote(u"\nApplying Network Settings");
}

// --- selecting a command ---

bool Handlers::RunItemCommand(model::MenuItem& item) {
  const auto tree = context_.model.Tree();  // stays while a message is shown
  const config::ConfigKey* node = item.Key();
  if (node == nullptr) return false;
  const WideStringView function = node->Value(TextId::kFunction);
  const WideStringView program = node->Value(TextId::kAppName);
  RunFunction(item, function);
  if (!program.empty()) {
    const CommandLine command = SplitCommandLine(program);
    StartProgram(command, program, context_.boxes);
    if (command.program == LoadText(TextId::kFlashWriterProgram)) context_.flashWrite = false;
  }
  return !function.empty() || !program.empty();
}

void Handlers::RunFunction(model::MenuItem& item, WideStringView name) {
  static const Command<Handlers> kFunctions[] = {
      {LoadText(TextId::kRestoreDefaults), [](auto& self, auto&, auto) { self.RestoreDefaults(); }},
      {LoadText(TextId::kSummary),
       [](auto& self, auto& from, auto) { self.context_.shell.ShowTextPage(SummaryLines(self.context_.model, from)); }},
      {kApplyNetworkSettings, [](auto& self, auto& from, auto) { self.wireless_.ApplyNetworkSettings(&from); }},
      {u"ImportCertificates", [](auto& self, auto& from, auto) { self.wireless_.ImportCertificates(from); }},
      {LoadText(TextId::kStoreConfig),
       [](auto& self, auto&, auto) {
         if (StoreConfig(self.context_)) self.context_.shell.ShowNote(LoadText(TextId::kSavedNote));
       }},
      {u"WEP_Properties", [](auto& self, auto& from, auto) { self.wireless_.WEP_Properties(from); }},
  };
  RunCommand(kFunctions, name, *this, item);
}

void Handlers::RestoreDefaults() {
  const int answer = context_.boxes.Show(LoadText(TextId::kRestoreNow), u"Alert", values::kYesNoBox);
  if (answer != values::kBoxYes) return;
  queue_.Clear();
  applier_.RestoreAllDefaults();
}

}  // namespace rules
