#include "snmp/walk.h"

namespace snmp {
namespace {

constexpr std::int64_t kAtATime = 50;
constexpr std::size_t kMostValues = 1'000'000;
constexpr std::size_t kMostBytes = 64'000'000;

class Walker {
 public:
  Walker(Inquiry& inquiry, const Oid& root) : inquiry_(inquiry), root_(root) {}
  Walked Run();

 private:
  bool Step();
  bool Take(std::vector<Variable> variables);
  bool End(WalkEnd end) {
    walked_.end = end;
    return false;
  }
  const Oid& Last() const { return walked_.variables.empty() ? root_ : walked_.variables.back().oid; }

  Inquiry& inquiry_;
  const Oid& root_;
  Walked walked_;
  std::size_t bytes_ = 0;
  std::int64_t atATime_ = kAtATime;
};

Walked Walker::Run() {
  while (Step()) {
  }
  if (!walked_.variables.empty() || walked_.end != WalkEnd::kAll) return std::move(walked_);
  Reading itself = inquiry_.Get({{root_}}).front();
  if (itself.code == platform::kOk) walked_.variables.push_back({root_, std::move(itself.value)});
  return std::move(walked_);
}

// True: there may be more.
bool Walker::Step() {
  Response response;
  const platform::ResultCode code = inquiry_.Ask({Command::kGetBulk, 0, atATime_, {{Last(), {}}}}, response);
  if (code != platform::kOk) return End(code == kTimedOut ? WalkEnd::kNoAnswer : WalkEnd::kRefused);
  if (response.status == ErrorStatus::kNoError) return Take(std::move(response.variables));
  if (atATime_ == 1) return End(WalkEnd::kRefused);
  // One of them is too long, or fails: those before it can be had.
  atATime_ /= 2;
  return true;
}

bool Walker::Take(std::vector<Variable> variables) {
  if (variables.empty()) return End(WalkEnd::kInCircles);
  for (Variable& variable : variables) {
    if (variable.value.type == ValueType::kEndOfMibView) return End(WalkEnd::kAll);
    if (variable.oid <= Last()) return End(WalkEnd::kInCircles);
    if (!IsWithin(variable.oid, root_)) return End(WalkEnd::kAll);
    bytes_ += SizeInMessage(variable);
    if (walked_.variables.size() == kMostValues || bytes_ > kMostBytes) return End(WalkEnd::kTooMuch);
    walked_.variables.push_back(std::move(variable));
  }
  return true;
}

}  // namespace

Walked Walk(Inquiry& inquiry, const Oid& root) { return Walker(inquiry, root).Run(); }

}  // namespace snmp
