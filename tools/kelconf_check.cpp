// kelconf check: every slip of a configuration.
#include "authoring/check_run.h"
#include "authoring/checks/check.h"
#include "authoring/finding_formats.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <algorithm>
#include <memory>
#include <ostream>

namespace tools {
namespace {

using authoring::Finding;
using authoring::Severity;

struct CheckOptions {
  std::vector<std::string> paths;
  std::string source;
  std::string format = "text";
  bool noProofs = false;
  bool list = false;
};

void ListChecks(const Streams& streams) {
  for (const authoring::Check& check : authoring::Checks()) {
    streams.out << NameOf(check.severity) << "  " << check.id << "  " << check.title << '\n';
  }
}

void Print(const CheckOptions& options, const std::vector<Finding>& findings, const Streams& streams) {
  if (options.format == "json") return authoring::PrintJson(findings, streams.out);
  if (options.format == "sarif") return authoring::PrintSarif(findings, streams.out);
  authoring::PrintText(findings, streams.colours, streams.out);
}

int Run(const CheckOptions& options, Streams& streams) {
  if (options.list) {
    ListChecks(streams);
    return kFine;
  }
  std::vector<Finding> findings;
  const std::vector<std::string> here{"."};
  for (const std::string& path : options.paths.empty() ? here : options.paths) {
    const auto configuration = LoadConfiguration({path, options.source}, streams);
    if (!configuration) return kUnusable;
    Progress progress(streams.errors, "checking " + path + ":", streams.watched);
    authoring::CheckOptions check{!options.noProofs,
                                  [&](std::size_t done, std::size_t all) { progress.Tell(done, all); }};
    const std::vector<Finding> found = authoring::CheckConfiguration(*configuration, check);
    findings.insert(findings.end(), found.begin(), found.end());
  }
  Print(options, findings, streams);
  const bool isFine = std::all_of(findings.begin(), findings.end(),
                                  [](const Finding& finding) { return finding.severity == Severity::kNote; });
  return isFine ? kFine : kFound;
}

}  // namespace

void DescribeCheck(Command command, Streams& streams) {
  const auto options = std::make_shared<CheckOptions>();
  command.Remarks(
      "Exit status: 0 nothing or notes only, 1 warnings or errors, 2 unusable arguments or files.\n"
      "docs/checks.md says what each finding means, and how a comment allows it.\n"
      "Example: kelconf check examples/small");
  command.Texts("FOLDER", options->paths, "storage folders, XML files or registry files; default: this folder");
  AddSourceLine(command, options->source);
  command.Choice(
      "--format", {"text", "json", "sarif"}, [options](const std::string& format) { options->format = format; },
      "how to answer");
  command.Flag("--no-proofs", options->noProofs, "leave out what takes going through the cases of rules");
  command.Flag("--list", options->list, "the kinds of findings there are");
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
