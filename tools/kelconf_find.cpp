// kelconf find: entries by anything that is said about them, with the keys that lead there.
#include "authoring/items.h"
#include "authoring/json_text.h"
#include "authoring/search.h"
#include "base/utf8.h"
#include "model/entry_kind.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <memory>
#include <ostream>

namespace tools {
namespace {

using authoring::Hit;
using authoring::Hits;

struct FindOptions {
  SourceOptions source;
  std::string text;
  Format format = Format::kText;
};

std::string InWords(const std::optional<WideString>& keys) {
  if (!keys) return "hidden";
  return keys->empty() ? "main menu" : base::ToUtf8(authoring::KeysInWords(*keys));
}

void PrintText(const Hits& hits, const Streams& streams) {
  for (const Hit& hit : hits.all) {
    const auto keys = hits.keys.To(*hit.item);
    streams.out << Coloured(InWords(keys), keys ? "32" : "33", streams.colours) << "  "
                << base::ToUtf8(base::Trim(hit.item->Title())) << "  "
                << base::ToUtf8(authoring::ShownPathOf(*hit.item));
    if (!model::OidOf(*hit.key).empty()) streams.out << "  " << base::ToUtf8(model::OidOf(*hit.key));
    const bool isSaid = hit.matched == LoadText(TextId::kDisplayName) || hit.text == model::OidOf(*hit.key);
    if (!isSaid) streams.out << "\n    " << base::ToUtf8(hit.matched) << ": " << base::ToUtf8(hit.text);
    streams.out << '\n';
  }
}

void PrintJson(const authoring::Configuration& configuration, const Hits& hits, const Streams& streams) {
  auto list = nlohmann::ordered_json::array();
  for (const Hit& hit : hits.all) {
    const auto keys = hits.keys.To(*hit.item);
    nlohmann::ordered_json json;
    json["path"] = base::ToUtf8(authoring::ShownPathOf(*hit.item));
    json["name"] = base::ToUtf8(hit.item->Title());
    json["oid"] = base::ToUtf8(model::OidOf(*hit.key));
    json["keys"] = keys ? nlohmann::ordered_json(base::ToUtf8(authoring::KeysInWords(*keys))) : nullptr;
    json["matched"] = base::ToUtf8(hit.matched);
    json["text"] = base::ToUtf8(hit.text);
    const authoring::Position position = configuration.PositionOf(*hit.key);
    json["file"] = position.file;
    if (position.line != 0) json["line"] = position.line;
    list.push_back(std::move(json));
  }
  authoring::WriteJson(list, streams.out);
}

int Run(const FindOptions& options, Streams& streams) {
  const auto configuration = LoadWellFormed(options.source, streams);
  if (!configuration) return kUnusable;
  authoring::Trial trial(*configuration);
  const Hits hits = authoring::Search(trial, base::FromUtf8(options.text));
  if (options.format == Format::kJson) {
    PrintJson(*configuration, hits, streams);
  } else {
    PrintText(hits, streams);
  }
  return hits.all.empty() ? kFound : kFine;
}

}  // namespace

void DescribeFind(Command command, Streams& streams) {
  const auto options = std::make_shared<FindOptions>();
  command.Remarks(
      "The keys are those to press from the main menu with the device's present values; \"hidden\": a rule hides a "
      "line\n"
      "on the way.\n"
      "Exit status: 0 something was found, 1 nothing, 2 unusable arguments or files.\n"
      "Example: kelconf find examples/terminal baud");
  AddSourceOptions(command, options->source);
  command.RequiredText("TEXT", options->text, "part of what is looked for, in any case");
  AddFormatOption(command, options->format);
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
