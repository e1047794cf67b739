// kelconf manual: the manual for the people at the terminal.
#include "authoring/manual.h"
#include "platform/host/utf8_path.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>

namespace tools {
namespace {

struct ManualOptions {
  SourceOptions source;
  std::string output;
  authoring::ManualTerms terms;
  bool plain = false;
};

int Run(ManualOptions& options, Streams& streams) {
  const auto configuration = LoadWellFormed(options.source, streams);
  if (!configuration) return kUnusable;
  Progress progress(streams.errors, "pictures", streams.watched);
  options.terms.pictures = !options.plain;
  options.terms.progress = [&progress](std::size_t done, std::size_t all) { progress.Tell(done, all); };
  const authoring::Manual manual = authoring::MakeManual(*configuration, options.terms);
  if (!manual.problem.empty()) {
    streams.errors << "kelconf: " << manual.problem << '\n';
    return kUnusable;
  }
  if (options.output == "-") {
    streams.out << manual.html;
    return kFine;
  }
  std::ofstream file(platform::host::PathOf(options.output), std::ios::binary | std::ios::trunc);
  if ((file << manual.html).flush()) return kFine;
  streams.errors << "kelconf: " << options.output << ": cannot be written\n";
  return kUnusable;
}

}  // namespace

void DescribeManual(Command command, Streams& streams) {
  const auto options = std::make_shared<ManualOptions>();
  command.Remarks(
      "Exit status: 0 the manual was written, 2 unusable arguments or files.\n"
      "Example: kelconf manual examples/small -o manual.html");
  AddSourceOptions(command, options->source);
  command.RequiredText("-o,--output", options->output, "the file to write; \"-\" is standard output");
  command.Text("--title", options->terms.title, "its title; default: that of the main menu");
  command.Flag("--no-pictures", options->plain, "words alone");
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
