// kelconf diff: what changed between two configurations.
#include "authoring/comparison.h"
#include "authoring/json_text.h"
#include "base/utf8.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <memory>
#include <ostream>

namespace tools {
namespace {

using authoring::Change;

struct DiffOptions {
  std::string before;
  std::string after;
  std::string source;
  Format format = Format::kText;
};

void PrintText(const std::vector<Change>& changes, const Streams& streams) {
  for (const Change& change : changes) {
    const std::string name = change.path.empty() ? "the main menu" : base::ToUtf8(change.path);
    const char* colour = change.kind == "added" ? "32" : change.kind == "removed" ? "31" : "36";
    streams.out << Coloured(name, colour, streams.colours) << ' ' << change.sentence << '\n';
  }
}

void PrintJson(const std::vector<Change>& changes, const Streams& streams) {
  auto list = nlohmann::ordered_json::array();
  for (const Change& change : changes) {
    nlohmann::ordered_json json;
    json["kind"] = change.kind;
    json["path"] = base::ToUtf8(change.path);
    json["sentence"] = change.sentence;
    json["file"] = change.position.file;
    if (change.position.line != 0) json["line"] = change.position.line;
    list.push_back(std::move(json));
  }
  authoring::WriteJson(list, streams.out);
}

int Run(const DiffOptions& options, Streams& streams) {
  const auto before = LoadWellFormed({options.before, options.source}, streams);
  const auto after = before ? LoadWellFormed({options.after, options.source}, streams) : nullptr;
  if (!after) return kUnusable;
  const std::vector<Change> changes = authoring::Compare(*before, *after);
  if (options.format == Format::kJson) {
    PrintJson(changes, streams);
  } else {
    PrintText(changes, streams);
  }
  return changes.empty() ? kFine : kFound;
}

}  // namespace

void DescribeDiff(Command command, Streams& streams) {
  const auto options = std::make_shared<DiffOptions>();
  command.Remarks(
      "Exit status: 0 nothing changed, 1 something did, 2 unusable arguments or files.\n"
      "Example: kelconf diff examples/terminal/Windows/ovu.xml examples/terminal/registry.reg");
  command.RequiredText("OLD", options->before, "a storage folder, an XML file or a registry file");
  command.RequiredText("NEW", options->after, "the same, as it is now");
  command.Text("--source", options->source, "the utility's command line, for both");
  AddFormatOption(command, options->format);
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
