#include "authoring/check_run.h"

#include "authoring/checks/allow_comments.h"
#include "authoring/checks/check.h"
#include "authoring/checks/proofs.h"
#include "base/utf8.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace authoring {
namespace {

void ReportBroken(const Configuration& configuration, Findings& findings) {
  findings.Begin(*FindCheck("document-broken"));
  for (const BrokenDocument& broken : configuration.BrokenDocuments()) {
    findings.AddAt(broken.position, "The document is not well formed: " + base::ToUtf8(broken.reason) + ".",
                   broken.mend);
  }
}

// All checks of one entry before those of the next: what they read of it is read from memory once.
void RunChecks(const Survey& survey, Findings& findings) {
  std::vector<const Check*> ofEntry;
  for (const Check& check : Checks()) {
    findings.Begin(check);
    if (check.ofAll != nullptr) check.ofAll(survey, findings);
    if (check.ofEntry != nullptr) ofEntry.push_back(&check);
  }
  for (const Subject& subject : survey.Subjects()) {
    for (const Check* check : ofEntry) {
      if (!check->attributes.IsEmpty() && !check->attributes.HasAnyOf(subject.Set())) continue;
      findings.Begin(*check);
      check->ofEntry(subject, findings);
    }
    subject.Forget();
  }
}

void Sort(std::vector<Finding>& findings) {
  const auto order = [](const Finding& finding) {
    return std::tie(finding.position.file, finding.position.line, finding.position.column);
  };
  std::stable_sort(findings.begin(), findings.end(),
                   [order](const Finding& a, const Finding& b) { return order(a) < order(b); });
}

}  // namespace

std::vector<Finding> CheckConfiguration(const Configuration& configuration, const CheckOptions& options) {
  std::vector<Finding> all;
  Findings findings(configuration, all);
  ReportBroken(configuration, findings);
  if (!configuration.HasTree()) return all;

  // One terminal at a time is in force: the trial's is the same.
  std::optional<FollowedTrial> trial;
  std::optional<InTerminal> terminal;
  if (options.proofs) {
    trial.emplace(configuration);
  } else {
    terminal.emplace(configuration);
  }
  const Survey survey(configuration);
  RunChecks(survey, findings);
  if (trial) ProveRules(survey, *trial, findings, options.progress);
  ApplyAllowComments(configuration, options.proofs, all);
  Sort(all);
  return all;
}

}  // namespace authoring
