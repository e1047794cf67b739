// kelconf manual: the manual for the people at the terminal.
#include "authoring/manual.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>

namespace tools {
namespace {

struct Options {
  SourceOptions source;
  std::string output;
  authoring::ManualTerms terms;
  bool plain = false;
};

int Run(Options& options, Streams& streams) {
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
  std::ofstream file(options.output, std::ios::binary | std::ios::trunc);
  if ((file << manual.html).flush()) return kFine;
  streams.errors << "kelconf: " << options.output << ": cannot be written\n";
  return kUnusable;
}

}  // namespace

void AddManual(CLI::App& program, Streams& streams, int& status) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = program.add_subcommand("manual", "the manual for the people at the terminal, one HTML file");
  command->footer("Example: kelconf manual examples/small -o manual.html");
  AddSourceOptions(*command, options->source);
  command->add_option("-o,--output", options->output, "the file to write; \"-\" is standard output")->required();
  command->add_option("--title", options->terms.title, "its title; default: that of the main menu");
  command->add_flag("--no-pictures", options->plain, "words alone");
  command->callback([options, &streams, &status] { status = Run(*options, streams); });
}

}  // namespace tools
