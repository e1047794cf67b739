// kelconf tree: the menus as text.
#include "authoring/entries.h"
#include "authoring/json_text.h"
#include "base/utf8.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <unordered_map>

namespace tools {
namespace {

using authoring::Configuration;
using authoring::Entries;
using authoring::Entry;

struct TreeOptions {
  SourceOptions source;
  Format format = Format::kText;
};

std::string NameOf(const Configuration& configuration, const Entry& entry) {
  return base::ToUtf8(configuration.Symbols().TextOf(entry.DisplayName()));
}

// So deep the lines are indented; where menus lie deeper, each line says how deep instead.
constexpr std::uint32_t kDeepestIndent = 40;

std::string IndentOf(const Entry& entry) {
  std::string indent(2 * std::size_t{std::min(entry.depth, kDeepestIndent)}, ' ');
  if (entry.depth > kDeepestIndent) indent += "(" + std::to_string(entry.depth) + ") ";
  return indent;
}

// What stands behind the name: type and OID of a property, what a command runs.
std::string KindOf(const Entry& entry) {
  std::string text;
  const auto add = [&text](WideStringView part) {
    if (part.empty()) return;
    if (!text.empty()) text += "  ";
    text += base::ToUtf8(part);
  };
  add(entry.Oid().empty() ? WideStringView() : entry.Value(TextId::kType));
  add(entry.Oid());
  add(entry.Value(TextId::kFunction));
  add(entry.Value(TextId::kAppName));
  return text;
}

void PrintText(const Configuration& configuration, const Entries& entries, const Streams& streams) {
  std::unordered_map<const Entry*, std::size_t> numbers;  // of the last line of each menu
  for (const Entry& entry : entries.All()) {
    if (entry.parent == nullptr) {
      streams.out << NameOf(configuration, entry) << '\n';
      continue;
    }
    const std::string indent = IndentOf(entry);
    streams.out << indent << ++numbers[entry.parent] << "  " << NameOf(configuration, entry);
    if (const std::string kind = KindOf(entry); !kind.empty()) {
      streams.out << "  " << Coloured("[" + kind + "]", "36", streams.colours);
    }
    if (entry.first != nullptr && entry.IsMenu()) streams.out << "  (as above)";
    streams.out << '\n';
    for (const WideStringView rule : authoring::RulesOf(*entry.key)) {
      streams.out << indent << "     " << Coloured(base::ToUtf8(rule), "33", streams.colours) << '\n';
    }
  }
}

nlohmann::ordered_json ToJson(const Configuration& configuration, const Entry& entry) {
  nlohmann::ordered_json json;
  json["path"] = base::ToUtf8(Entries::PathOf(entry));
  json["depth"] = entry.depth;
  json["name"] = NameOf(configuration, entry);
  const std::pair<const char*, WideStringView> texts[] = {{"type", entry.Value(TextId::kType)},
                                                          {"oid", entry.Oid()},
                                                          {"function", entry.Value(TextId::kFunction)},
                                                          {"program", entry.Value(TextId::kAppName)}};
  for (const auto& [name, text] : texts) {
    if (!text.empty()) json[name] = base::ToUtf8(text);
  }
  json["rules"] = nlohmann::ordered_json::array();
  for (const WideStringView rule : authoring::RulesOf(*entry.key)) json["rules"].push_back(base::ToUtf8(rule));
  const authoring::Position position = configuration.PositionOf(*entry.key);
  json["file"] = position.file;
  if (position.line != 0) json["line"] = position.line;
  return json;
}

int Run(const TreeOptions& options, Streams& streams) {
  const auto configuration = LoadWellFormed(options.source, streams);
  if (!configuration) return kUnusable;
  const Entries entries(*configuration->Tree(), configuration->RootPath());
  if (options.format == Format::kText) {
    PrintText(*configuration, entries, streams);
    return kFine;
  }
  auto json = nlohmann::ordered_json::array();
  for (const Entry& entry : entries.All()) json.push_back(ToJson(*configuration, entry));
  authoring::WriteJson(json, streams.out);
  return kFine;
}

}  // namespace

void DescribeTree(Command command, Streams& streams) {
  const auto options = std::make_shared<TreeOptions>();
  command.Remarks(
      "Exit status: 0 the menus were printed, 2 unusable arguments or files.\n"
      "Example: kelconf tree examples/small");
  AddSourceOptions(command, options->source);
  AddFormatOption(command, options->format);
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
