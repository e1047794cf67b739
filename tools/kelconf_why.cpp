// kelconf why: why a line looks as it does, and what would change it.
#include "authoring/explanation.h"
#include "authoring/explanation_json.h"
#include "authoring/explanation_text.h"
#include "authoring/json_text.h"
#include "base/utf8.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <memory>
#include <ostream>

namespace tools {
namespace {

struct WhyOptions {
  SourceOptions source;
  std::string entry;
  Format format = Format::kText;
  bool menu = false;
};

void Print(const std::vector<authoring::TextLine>& lines, const Streams& streams) {
  using Style = authoring::TextLine::Style;
  for (const auto& line : lines) {
    const std::string text = base::ToUtf8(line.text);
    switch (line.style) {
      case Style::kTitle: streams.out << Coloured(text, "1", streams.colours && !text.empty()); break;
      case Style::kWinner: streams.out << Coloured(text, "33", streams.colours); break;
      case Style::kFaint: streams.out << Coloured(text, "2", streams.colours); break;
      case Style::kPlain: streams.out << text; break;
    }
    streams.out << '\n';
  }
}

int Run(const WhyOptions& options, Streams& streams) {
  const auto configuration = LoadWellFormed(options.source, streams);
  if (!configuration) return kUnusable;
  authoring::RuleTrace trace;
  authoring::Trial trial(*configuration, &trace);
  const model::MenuItem* item = FindOneEntry(trial, options.entry, streams);
  if (item == nullptr) return kFound;

  Progress progress(streams.errors, "trying other values", streams.watched);
  const authoring::ItemPlace place = authoring::PlaceOf(*item);
  auto explanation = authoring::Explain(trial, trace, place,
                                        [&progress](std::size_t done, std::size_t most) { progress.Tell(done, most); });
  if (options.menu) authoring::AddHiddenBeside(trial, trace, place, explanation);
  if (options.format == Format::kJson) {
    authoring::WriteJson(authoring::ToJson(explanation), streams.out);
  } else {
    Print(authoring::ToText(explanation), streams);
  }
  return kFine;
}

}  // namespace

void DescribeWhy(Command command, Streams& streams) {
  const auto options = std::make_shared<WhyOptions>();
  command.Remarks(
      "ENTRY is a display name, an OID, a key path, or the keys to press (2-3-1).\n"
      "Where there is none, those that contain it are listed, or the nearest.\n"
      "Exit status: 0 it was explained, 1 there is no such entry or more than one, 2 unusable arguments or files.\n"
      "Example: kelconf why examples/small \"Light Time\"");
  AddSourceOptions(command, options->source);
  command.RequiredText("ENTRY", options->entry, "the line that is meant");
  command.Flag("--menu", options->menu, "name the hidden lines of the menu it is in, too");
  AddFormatOption(command, options->format);
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
