#include "settings/carry_out.h"

#include <algorithm>
#include <set>
#include <unordered_set>

namespace settings {
namespace {

using platform::ResultCode;
using Outcome = SetResult::Kind;


SetResult ResultOf(ResultCode code) {
  if (code >= 0) return {Outcome::kDone, code};
  return {IsRefusal(code) ? Outcome::kRefused : Outcome::kFailed, code};
}

const std::string kNoAnswer = "the device failed on the way";
const std::string kNoJournal = "the journal cannot be written any more";

class Run {
 public:
  Run(const std::vector<PlannedSet>& sets, Target& target, Journal& journal)
      : sets_(sets), target_(target), journal_(journal) {
    out_.results.resize(sets.size());
  }

  // What the device has answered before it was cut short.
  void Take(const std::vector<ResultCode>& codes) {
    for (std::size_t i = 0; i < codes.size(); ++i) Note(i, ResultOf(codes[i]));
  }

  // `maybeSet`: so many may have been set; of those behind the answers it is not known.
  CarriedOut From(std::size_t first, std::size_t maybeSet) {
    const std::size_t most = target_.MostAtOnce(sets_.size() - first);
    while (first < sets_.size() && out_.problem.empty()) {
      const std::size_t end = std::min(first + most, sets_.size());
      Step(first, end, maybeSet);
      first = end;
    }
    if (out_.problem.empty() && !journal_.Ended()) out_.problem = kNoJournal;
    return std::move(out_);
  }

 private:
  void Note(std::size_t number, SetResult result) {
    out_.results[number] = result;
    if (result.kind == Outcome::kRefused) {
      for (const std::size_t cause : sets_[number].causes) refused_.insert(cause);
    }
  }

  // Nothing follows from an edit that the device did not take.
  bool IsLeftOut(const PlannedSet& set) const {
    if (set.origin == PlannedSet::Origin::kAsked || set.causes.empty()) return false;
    return std::all_of(set.causes.begin(), set.causes.end(), [this](std::size_t c) { return refused_.contains(c); });
  }

  void Step(std::size_t first, std::size_t end, std::size_t maybeSet) {
    if (end > maybeSet && !journal_.Begin(first, end)) {
      out_.problem = kNoJournal;
      return;
    }
    std::vector<std::size_t> numbers;
    std::vector<TargetSet> sets;
    for (std::size_t i = first; i < end; ++i) {
      if (IsLeftOut(sets_[i])) {
        out_.results[i] = {Outcome::kLeftOut, platform::kFalse};
      } else {
        numbers.push_back(i);
        sets.push_back({sets_[i].oid, sets_[i].type, sets_[i].value});
      }
    }
    const std::vector<ResultCode> codes = sets.empty() ? std::vector<ResultCode>() : target_.Set(sets);
    for (std::size_t i = 0; i < numbers.size(); ++i) Note(numbers[i], ResultOf(codes[i]));
    ReadBack(first, end);
    const auto failed = std::find_if(out_.results.begin() + static_cast<std::ptrdiff_t>(first),
                                     out_.results.begin() + static_cast<std::ptrdiff_t>(end),
                                     [](const SetResult& result) { return result.kind == Outcome::kFailed; });
    const auto done = static_cast<std::size_t>(failed - out_.results.begin());
    if (done != end) out_.problem = kNoAnswer;
    std::vector<ResultCode> answers;
    for (std::size_t i = first; i < done; ++i) answers.push_back(out_.results[i].code);
    if (!journal_.Done(first, answers) && out_.problem.empty()) out_.problem = kNoJournal;
  }

  // Of two Sets for one setting in one step the last counts. What a command comes to cannot be read.
  void ReadBack(std::size_t first, std::size_t end) {
    std::unordered_set<WideString> seen;
    for (std::size_t i = end; i > first; --i) {
      const PlannedSet& set = sets_[i - 1];
      SetResult& result = out_.results[i - 1];
      if (result.kind != Outcome::kDone || !seen.insert(set.oid).second || set.origin == PlannedSet::Origin::kCommand) continue;
      std::optional<WideString> text;
      const ResultCode code = target_.Get(set.oid, set.type, text);
      if (code < 0) {
        result = {Outcome::kFailed, code};
      } else if (text != set.value) {
        result.kind = Outcome::kKeptOld;
      }
    }
  }

  const std::vector<PlannedSet>& sets_;
  Target& target_;
  Journal& journal_;
  std::set<std::size_t> refused_;  // wanted settings
  CarriedOut out_;
};

class UndoRun {
 public:
  UndoRun(const JournalRecord& record, Target& target) : record_(record), target_(target) {
    out_.results.resize(record.sets.size());
  }

  CarriedOut PutBack() {
    std::unordered_set<WideString> seen;
    std::vector<std::size_t> firsts;  // of each setting, in the order in which they were set
    for (std::size_t i = 0; i < record_.begun; ++i) {
      if (seen.insert(record_.sets[i].oid).second) {
        firsts.push_back(i);
      } else {
        out_.results[i].kind = Outcome::kNotNeeded;
      }
    }
    const auto isCommand = [this](std::size_t i) { return record_.sets[i].origin == PlannedSet::Origin::kCommand; };
    std::reverse(firsts.begin(), firsts.end());
    std::stable_partition(firsts.begin(), firsts.end(), [&](std::size_t i) { return !isCommand(i); });
    bool hasChanged = false;
    for (const std::size_t i : firsts) {
      if (!out_.problem.empty()) break;
      if (isCommand(i) && hasChanged && !Tell(i)) break;
      PutBack(i);
      hasChanged = hasChanged || out_.results[i].kind == Outcome::kDone;
    }
    return std::move(out_);
  }

 private:
  bool Tell(std::size_t number) {
    const PlannedSet& set = record_.sets[number];
    out_.results[number] = ResultOf(target_.Set({{set.oid, set.type, set.value}}).front());
    if (out_.results[number].kind == Outcome::kFailed) out_.problem = kNoAnswer;
    return out_.problem.empty();
  }

  void PutBack(std::size_t number) {
    const PlannedSet& set = record_.sets[number];
    SetResult& result = out_.results[number];
    if (!set.before) {
      result.kind = Outcome::kUnknown;
      return;
    }
    std::optional<WideString> text;
    result = ResultOf(target_.Get(set.oid, set.type, text));
    if (result.code >= 0 && text == set.before) {
      result.kind = Outcome::kNotNeeded;
    } else if (result.code >= 0) {
      result = ResultOf(target_.Set({{set.oid, set.type, *set.before}}).front());
      if (result.kind == Outcome::kDone && target_.Get(set.oid, set.type, text) >= 0 && text != set.before) {
        result.kind = Outcome::kKeptOld;
      }
    }
    if (result.kind == Outcome::kFailed) out_.problem = kNoAnswer;
  }

  const JournalRecord& record_;
  Target& target_;
  CarriedOut out_;
};

}  // namespace

bool CarriedOut::IsComplete(std::size_t begun) const {
  const auto end = results.begin() + static_cast<std::ptrdiff_t>(begun);
  return problem.empty() && std::all_of(results.begin(), end, [](const SetResult& result) {
           return result.kind == Outcome::kDone || result.kind == Outcome::kNotNeeded;
         });
}

CarriedOut CarryOut(const std::vector<PlannedSet>& sets, Target& target, Journal& journal) {
  return Run(sets, target, journal).From(0, 0);
}

// What was begun and has no answer is set once more: that is the same twice.
CarriedOut Resume(const JournalRecord& record, Target& target, Journal& journal) {
  Run run(record.sets, target, journal);
  run.Take(record.codes);
  return run.From(record.codes.size(), record.begun);
}

CarriedOut Undo(const JournalRecord& record, Target& target, Journal& journal) {
  CarriedOut out;
  out.results.resize(record.sets.size());
  if (!journal.Undoing()) {
    out.problem = kNoJournal;
    return out;
  }
  out = UndoRun(record, target).PutBack();
  if (out.problem.empty() && !journal.Undone()) out.problem = kNoJournal;
  return out;
}

}  // namespace settings
