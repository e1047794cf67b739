// Checks of what a configuration refers to: tables, symbols, texts of the registry, programs.
#include "authoring/checks/lists.h"

#include "base/utf8.h"
#include "config/registry_key_reader.h"
#include "platform/host/registry_tree.h"
#include "platform/host/root_path.h"
#include "rules/program_start.h"
#include "values/attributes.h"

#include <algorithm>

namespace authoring::checks {
namespace {

// Where the utility takes the text as it is written.
constexpr Attribute kDirect[] = {Attribute::kOid,         Attribute::kType,      Attribute::kDefVal,
                                 Attribute::kOrdinal,     Attribute::kTextFmt,   Attribute::kMaxChars,
                                 Attribute::kDisplayName, Attribute::kPropEditor};

// Where it looks it up.
constexpr Attribute kIndirectAllowed[] = {Attribute::kCmdString, Attribute::kChoiceFmt,   Attribute::kRange,
                                          Attribute::kEvent,     Attribute::kWep,         Attribute::kPassWordChar,
                                          Attribute::kSubType,   Attribute::kUnavailable, Attribute::kFillOid};

bool FileExists(WideStringView path) { return platform::host::FindPlace(path).exists; }

// A program without a folder is looked for in two places.
bool ProgramExists(const WideString& program) {
  const bool hasFolder = program.find_first_of(u"\\/") != WideString::npos;
  return FileExists(program) || (!hasFolder && FileExists(u"\\Windows\\" + program));
}

// "STR_SCANNER" has the beginning "STR_"; a usual name has none.
WideStringView SymbolPrefix(WideStringView name) {
  const std::size_t bar = name.find(u'_');
  if (bar == WideStringView::npos || bar == 0) return {};
  const auto fits = [](char16_t c) { return (c >= u'A' && c <= u'Z') || base::IsDigit(c) || c == u'_'; };
  return std::all_of(name.begin(), name.end(), fits) ? name.substr(0, bar + 1) : WideStringView();
}

}  // namespace

void TableMissing(const Subject& subject, Findings& findings) {
  for (const Attribute attribute : kIndirectAllowed) {
    const WideStringView text = subject.Get(attribute);
    if (!IsIndirect(text) || subject.Resolved(attribute) != values::kUnresolved) continue;
    findings.Add(subject, attribute,
                 "The property server has no " + Quoted(text.substr(kIndirect.size())) + ": " +
                     (attribute == Attribute::kRange ? "no value can be saved." : "the text becomes \"Error\"."),
                 "Give tables.txt a line with that table and key.");
  }
}

void TableWhereNoneIs(const Subject& subject, Findings& findings) {
  for (const Attribute attribute : kDirect) {
    if (!IsIndirect(subject.Get(attribute))) continue;
    findings.Add(subject, attribute, base::ToUtf8(NameOf(attribute)) + " is taken as it is written: no table is asked.",
                 "Write the text out.");
  }
}

void DisplayNameNoSymbol(const Subject& subject, Findings& findings) {
  const WideStringView name = subject.Get(Attribute::kDisplayName);
  const WideStringView prefix = SymbolPrefix(name);
  if (prefix.empty() || subject.All().Source().Symbols().ViewOf(name) != name) return;
  // Only where such names are symbols.
  const auto& registry = subject.All().Source().Terminal().registry;
  const auto* key = registry == nullptr ? nullptr
                                        : registry->Find(platform::host::RegistryTree::kLocalMachine,
                                                         u"SOFTWARE\\Valtorix\\ZEP\\SYMBOLTABLE");
  if (key == nullptr) return;
  const bool isPrefix = std::any_of(key->values.begin(), key->values.end(),
                                    [prefix](const auto& value) { return value.first.starts_with(prefix); });
  if (!isPrefix) return;
  findings.Add(subject, Attribute::kDisplayName, "There is no symbol " + Quoted(name) + ": the line reads so.",
               "Give the SYMBOLTABLE that symbol.");
}

void RegistryTextMissing(const Subject& subject, Findings& findings) {
  const WideStringView text = subject.Get(Attribute::kOnError);
  if (!text.starts_with(u"HKEY")) return;
  const std::size_t last = text.rfind(u'\\');
  const auto found = last == WideStringView::npos
                         ? std::nullopt
                         : config::ReadValueAsText(text.substr(0, last), text.substr(last + 1));
  if (found && !found->empty()) return;
  findings.Add(subject, Attribute::kOnError,
               "The registry has no text " + Quoted(text) + ": the usual message is shown instead.",
               "Give the registry that value, or write the message itself.");
}

void ProgramMissing(const Subject& subject, Findings& findings) {
  const auto& terminal = subject.All().Source().Terminal();
  if (!terminal.hasDevice && !terminal.hasRegistry) return;  // nothing but a document is known
  const WideStringView text = subject.Get(Attribute::kAppName);
  const rules::CommandLine command = rules::SplitCommandLine(text);
  if (command.program.starts_with(u'"')) {
    findings.Add(subject, Attribute::kAppName,
                 "The quotes become part of the name " + Quoted(command.program) + ": no file is called so.",
                 "Put the program where its path has no blank, and leave the quotes out.");
    return;
  }
  if (ProgramExists(command.program)) return;
  const bool endsAtBlank = !command.arguments.empty() && ProgramExists(WideString(base::Trim(text)));
  findings.Add(subject, Attribute::kAppName,
               "The storage has no program " + Quoted(command.program) +
                   (endsAtBlank ? ": the name ends at its first blank." : ": it cannot be started."),
               endsAtBlank ? "Put the program where its path has no blank." : "Put the program into the storage.");
}

}  // namespace authoring::checks
