// What the authors' program says of the configuration. It runs beside the terminal and reads the storage as it is on
// disk, so that asking changes nothing here.
#pragma once

#include "base/wide_string.h"
#include "simulator/child_program.h"

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace simulator {

class Advisor {
 public:
  enum class Question { kCheck, kWhy };
  struct Answer {
    Question question = Question::kCheck;
    std::string text;
  };
  virtual ~Advisor() = default;

  // A question takes the place of one of its kind that is not answered yet.
  virtual void AskCheck() = 0;
  // Why the line of the entry at this full path looks as it does; `withNeighbours`: and which of its menu are hidden.
  virtual void AskWhy(WideStringView path, bool withNeighbours) = 0;
  virtual void Forget(Question question) = 0;
  // Of any question; nothing: none has one now.
  virtual std::optional<Answer> TakeAnswer() = 0;
};

// Whether an answer to kCheck says that the utility cannot start from the storage: a file of it cannot be used.
bool SaysUnusable(const std::string& answer);

class KelconfAdvisor final : public Advisor {
 public:
  // `source`: the utility's command line. `whenAnswered` is called on another thread.
  KelconfAdvisor(std::filesystem::path kelconf, std::filesystem::path root, std::string source,
                 std::function<void()> whenAnswered);

  void AskCheck() override;
  void AskWhy(WideStringView path, bool withNeighbours) override;
  void Forget(Question question) override { ChildFor(question).reset(); }
  std::optional<Answer> TakeAnswer() override;

 private:
  void Ask(Question question, std::vector<std::string> options, std::vector<std::string> operands);
  std::unique_ptr<ChildProgram>& ChildFor(Question question) { return children_[static_cast<std::size_t>(question)]; }

  const std::filesystem::path kelconf_;
  const std::filesystem::path root_;
  const std::string source_;
  const std::function<void()> whenAnswered_;
  std::array<std::unique_ptr<ChildProgram>, 2> children_;  // by question
};

}  // namespace simulator
