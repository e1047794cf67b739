#include "simulator/advisor.h"

#include "base/utf8.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace simulator {

bool SaysUnusable(const std::string& answer) {
  // Its own words when it cannot read the storage at all, and its finding when the utility could not.
  constexpr std::string_view kRefusal = "kelconf: ";
  return answer.starts_with(kRefusal) || answer.find("[document-broken]\n") != std::string::npos;
}

KelconfAdvisor::KelconfAdvisor(std::filesystem::path kelconf, std::filesystem::path root, std::string source,
                               std::function<void()> whenAnswered)
    : kelconf_(std::move(kelconf)),
      root_(std::move(root)),
      source_(std::move(source)),
      whenAnswered_(std::move(whenAnswered)) {}

// The proofs say nothing that keeps the utility from starting, and take the longest.
void KelconfAdvisor::AskCheck() { Ask(Question::kCheck, {"check", "--no-proofs"}, {root_.string()}); }

void KelconfAdvisor::AskWhy(WideStringView path, bool withNeighbours) {
  std::vector<std::string> options = {"why"};
  if (withNeighbours) options.emplace_back("--menu");
  Ask(Question::kWhy, std::move(options), {root_.string(), base::ToUtf8(path)});
}

void KelconfAdvisor::Ask(Question question, std::vector<std::string> options, std::vector<std::string> operands) {
  Forget(question);
  std::vector<std::string> command = {kelconf_.string()};
  std::move(options.begin(), options.end(), std::back_inserter(command));
  if (!source_.empty()) command.push_back("--source=" + source_);
  command.emplace_back("--");
  std::move(operands.begin(), operands.end(), std::back_inserter(command));
  ChildFor(question) = std::make_unique<ChildProgram>(std::move(command), whenAnswered_);
}

std::optional<Advisor::Answer> KelconfAdvisor::TakeAnswer() {
  for (const Question question : {Question::kCheck, Question::kWhy}) {
    auto& child = ChildFor(question);
    if (!child || !child->IsDone()) continue;
    Answer answer{question, child->Printed()};
    child.reset();
    return answer;
  }
  return std::nullopt;
}

}  // namespace simulator
