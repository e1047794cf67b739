#include "tools/kelconf_source.h"

#include "authoring/entry_lookup.h"
#include "authoring/items.h"
#include "base/utf8.h"
#include "platform/host/utf8_path.h"

#include <ostream>

namespace tools {

using platform::host::PathOf;

namespace {

void List(const std::vector<model::MenuItem*>& items, const Streams& streams) {
  constexpr std::size_t kMost = 20;
  for (std::size_t i = 0; i < items.size() && i < kMost; ++i) {
    const WideString path = authoring::ShownPathOf(*items[i]);
    streams.errors << "  " << base::ToUtf8(path.empty() ? WideStringView(items[i]->Path()) : path) << "  "
                   << base::ToUtf8(base::Trim(items[i]->Title())) << '\n';
  }
  if (items.size() > kMost) streams.errors << "  and " << items.size() - kMost << " more\n";
}

}  // namespace

void AddSourceLine(Command& command, std::string& source) {
  command.Text("--source", source,
               "the utility's command line: a HKEY_LOCAL_MACHINE path, or the path of an XML file in the storage");
}

void AddSourceOptions(Command& command, SourceOptions& options) {
  command.RequiredText("FOLDER", options.path, "a storage folder, an XML file or a registry file");
  AddSourceLine(command, options.source);
}

void AddFormatOption(Command& command, Format& format) {
  command.Choice(
      "--format", {"text", "json"},
      [&format](const std::string& name) { format = name == "json" ? Format::kJson : Format::kText; }, "how to answer");
}

std::unique_ptr<authoring::Configuration> LoadConfiguration(const SourceOptions& options, Streams& streams) {
  auto loaded = authoring::Configuration::Load(PathOf(options.path), base::FromUtf8(options.source));
  if (!loaded.configuration) streams.errors << "kelconf: " << loaded.problem << '\n';
  return std::move(loaded.configuration);
}

std::unique_ptr<authoring::Configuration> LoadWellFormed(const SourceOptions& options, Streams& streams) {
  auto configuration = LoadConfiguration(options, streams);
  if (!configuration || configuration->HasTree()) return configuration;
  for (const auto& broken : configuration->BrokenDocuments()) {
    streams.errors << "kelconf: " << ToText(broken.position) << ": " << base::ToUtf8(broken.reason) << '\n';
  }
  return nullptr;
}

model::MenuItem* FindOneEntry(authoring::Trial& trial, const std::string& text, Streams& streams) {
  const WideString wanted = base::FromUtf8(text);
  const auto found = authoring::FindEntries(trial, wanted);
  if (found.size() == 1) return found.front();
  if (!found.empty()) {
    streams.errors << "kelconf: \"" << text << "\" may be one of these:\n";
    List(found, streams);
    return nullptr;
  }
  const auto suggestions = authoring::SuggestEntries(trial, wanted);
  streams.errors << "kelconf: there is no entry \"" << text << '"';
  if (!suggestions.items.empty()) streams.errors << (suggestions.contain ? "; it is part of:" : "; the nearest is:");
  streams.errors << '\n';
  List(suggestions.items, streams);
  return nullptr;
}

std::string ToText(const authoring::Position& position) {
  std::string text = position.file;
  if (position.line != 0) text += ":" + std::to_string(position.line);
  if (position.column != 0) text += ":" + std::to_string(position.column);
  return text;
}

}  // namespace tools
