// Checks of handlers and commands.
#include "authoring/checks/lists.h"

#include "base/utf8.h"
#include "model/set_triple.h"

#include <algorithm>
#include <array>

namespace authoring::checks {
namespace {

constexpr std::array<WideStringView, 5> kAfterEdit = {u"FlagChanges", u"PromptWarmBoot", u"Refresh", u"VerifyNetUI",
                                                      u"SetKeyIndex"};
constexpr std::array<WideStringView, 5> kOnLeaving = {u"FlagChanges", u"VerifyNetUI", u"CheckWEPKey",
                                                      u"IfChanges:ApplyNetworkSettings", u"Rebind:"};
constexpr std::array<WideStringView, 6> kFunctions = {
    u"Summary", u"StoreConfig", u"RestoreDefaults", u"ApplyNetworkSettings", u"WEP_Properties", u"ImportCertificates"};
constexpr WideStringView kRebind = u"Rebind:";
constexpr WideStringView kIfChanges = u"IfChanges:";
constexpr WideStringView kFlagChanges = u"FlagChanges";
constexpr WideStringView kApply = u"ApplyNetworkSettings";

template <std::size_t count>
bool IsOneOf(WideStringView text, const std::array<WideStringView, count>& names) {
  return std::find(names.begin(), names.end(), text) != names.end();
}

bool HasPrefix(WideStringView command) { return command.starts_with(kRebind) || command.starts_with(kIfChanges); }

// What follows the prefix; nothing when that is no triple to be looked at.
std::optional<WideStringView> TripleText(WideStringView command) {
  if (command.starts_with(kRebind)) return command.substr(kRebind.size());
  if (!command.starts_with(kIfChanges) || command.substr(kIfChanges.size()) == kApply) return std::nullopt;
  return command.substr(kIfChanges.size());
}

template <typename Visit>
void ForEachExit(const Subject& subject, Visit visit) {
  int number = 0;
  for (const WideStringView command : subject.ExitCommands()) {
    visit(command, NumberedName(Attribute::kOnExit, number++));
  }
}

}  // namespace

void HandlerUnknown(const Subject& subject, Findings& findings) {
  ForEachExit(subject, [&](WideStringView command, const WideString& attribute) {
    if (IsOneOf(command, kAfterEdit) || IsOneOf(command, kOnLeaving) || HasPrefix(command)) return;
    findings.Add(subject, attribute, "There is no handler " + Quoted(command) + ": nothing happens.",
                 subject.IsMenu() ? MendByNearest(command, kOnLeaving, "Take one of the handlers of a menu.")
                                  : MendByNearest(command, kAfterEdit, "Take one of the handlers of a property."));
  });
  const WideStringView enter = subject.Get(Attribute::kOnEnter);
  if (enter.empty() || base::EqualsIgnoringCase(enter, u"VerifyNetUI")) return;
  findings.Add(subject, Attribute::kOnEnter, "_OnEnter knows VerifyNetUI only: " + Quoted(enter) + " does nothing.",
               "Write VerifyNetUI, or leave it out.");
}

void HandlerNothingHere(const Subject& subject, Findings& findings) {
  const bool isEdited = subject.IsProperty() && !subject.IsMenu();
  ForEachExit(subject, [&](WideStringView command, const WideString& attribute) {
    const bool known = IsOneOf(command, kAfterEdit) || IsOneOf(command, kOnLeaving) || HasPrefix(command);
    if (!known) return;
    if (subject.IsMenu() && !IsOneOf(command, kOnLeaving) && !HasPrefix(command)) {
      findings.Add(subject, attribute,
                   Quoted(command) + " is a handler of properties; leaving a menu, it does nothing.",
                   "Put it into the property that is edited.");
    } else if (isEdited && !IsOneOf(command, kAfterEdit)) {
      findings.Add(subject, attribute, Quoted(command) + " is a handler of menus; after an edit it does nothing.",
                   "Put it into the menu around the property.");
    } else if (isEdited && !subject.IsEditable()) {
      findings.Add(subject, attribute, Quoted(command) + " runs after an edit, and this property is never edited.",
                   "Leave it out.");
    } else if (!subject.IsMenu() && !subject.IsProperty()) {
      findings.Add(subject, attribute,
                   Quoted(command) + " runs after an edit or when a menu is left, and this is neither.",
                   "Leave it out.");
    }
  });
}

void HandlerTripleBroken(const Subject& subject, Findings& findings) {
  ForEachExit(subject, [&](WideStringView command, const WideString& attribute) {
    const auto text = TripleText(command);
    if (!text || model::ParseSetTriple(*text)) return;
    findings.Add(subject, attribute, Quoted(*text) + " is no OID|type|value: nothing is set.",
                 "Write OID|type|value behind the colon.");
  });
}

void HandlerOidUnknown(const Subject& subject, Findings& findings) {
  if (!subject.IsMenu() || !subject.All().Source().Terminal().hasDevice) return;
  const auto& device = subject.All().Source().Terminal().device;
  ForEachExit(subject, [&](WideStringView command, const WideString& attribute) {
    const auto text = TripleText(command);
    const auto triple = text ? model::ParseSetTriple(*text) : std::nullopt;
    if (!triple || triple->oid.starts_with(u'_') || triple->oid.find(u'*') != WideString::npos) return;
    if (device.contains(triple->oid)) return;
    findings.Add(subject, attribute, "The device has no " + Quoted(triple->oid) + ": setting it fails with a message.",
                 "Give device.txt a line for it, or write another OID.");
  });
}

void ChangesNotMarked(const Subject& subject, Findings& findings) {
  if (!subject.IsMenu()) return;
  const auto commands = subject.ExitCommands();
  const auto asks = [](WideStringView command) { return command.starts_with(kIfChanges); };
  const auto asking = std::find_if(commands.begin(), commands.end(), asks);
  if (asking == commands.end()) return;
  const auto marks = [](const Subject& line) {
    const auto handlers = line.ExitCommands();
    return std::find(handlers.begin(), handlers.end(), kFlagChanges) != handlers.end();
  };
  const auto& lines = subject.MenuEntry().children;
  const Survey& all = subject.All();
  if (std::none_of(lines.begin(), lines.end(), [&](const Entry* line) { return marks(all.Of(*line)); })) {
    const auto number = static_cast<int>(asking - commands.begin());
    findings.Add(subject, NumberedName(Attribute::kOnExit, number),
                 "No line of this menu has FlagChanges: leaving it never does this.",
                 "Give the properties whose change matters _OnExit FlagChanges.");
    return;
  }
  for (const Entry* entry : lines) {
    const Subject& line = all.Of(*entry);
    if (line.IsMenu() || !line.IsEditable() || marks(line)) continue;
    findings.Add(line,
                 "An edit of it is not marked as those of its neighbours are: leaving the menu does not do " +
                     Quoted(*asking) + " for it.",
                 "Give it _OnExit FlagChanges.");
  }
}

void FunctionUnknown(const Subject& subject, Findings& findings) {
  const WideStringView function = subject.Get(Attribute::kFunction);
  if (function.empty() || IsOneOf(function, kFunctions)) return;
  findings.Add(subject, Attribute::kFunction, "There is no Function " + Quoted(function) + ": Enter does nothing.",
               MendByNearest(function, kFunctions, "Take one of the functions there are."));
}

void ImportWithoutOid(const Subject& subject, Findings& findings) {
  if (subject.Get(Attribute::kFunction) != u"ImportCertificates" || subject.Has(Attribute::kOid)) return;
  findings.Add(subject, Attribute::kFunction, "ImportCertificates sets the entry's own OID, and it has none.",
               "Give the entry an OID and a Type.");
}

}  // namespace authoring::checks
