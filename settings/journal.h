// What an apply is going to do to a device and how far it came, on disk before it happens: a file of lines of JSON that
// is its owner's alone.
//
//   {"kelset": 1, "device": ..., "events": [...], ...}     first; how many Sets follow is in it
//   {"oid": ..., "type": ..., "value": ..., "before": ...}  one for each Set, in their order; secrets are sealed
//   {"begin": 0, "end": 1}                                  before the device is told those
//   {"done": 0, "end": 1, "codes": [0]}                     after it has answered
//   {"ended": true}, {"undoing": true}, {"undone": true}
//
// A line that was cut short counts as not written.
#pragma once

#include "platform/device.h"
#include "settings/plan.h"
#include "settings/private_file.h"
#include "settings/seal.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace settings {

struct JournalHead {
  std::string device;
  std::string source;  // the utility's command line
  std::vector<WideString> events;
  bool needsRestart = false;
  bool operator==(const JournalHead&) const = default;
};

// What a journal says.
struct JournalRecord {
  JournalHead head;
  std::vector<PlannedSet> sets;
  std::size_t begun = 0;  // so many of them the device may have
  std::vector<platform::ResultCode> codes;  // its answers; fewer than `begun` where it was cut short
  bool isWhole = false;  // the Sets are all there; else nothing was begun
  bool ended = false;
  bool undoing = false;
  bool undone = false;
};

// Empty, or one line that says why it cannot be used.
std::string ReadJournal(const std::filesystem::path& file, const Seal& seal, JournalRecord& record);

class Journal {
 public:
  // Called before each write and after it; a test may end the process there, and false is a full disk.
  using Step = std::function<bool()>;
  explicit Journal(const Seal& seal, Step step = {}) : seal_(seal), step_(std::move(step)) {}

  // Empty, or one line that says why there is none. Then nothing may be set.
  std::string Create(const std::filesystem::path& file, const JournalHead& head, const std::vector<PlannedSet>& sets);
  // Reads one to go on with it. Nobody else may do so meanwhile.
  std::string Open(const std::filesystem::path& file, JournalRecord& record);

  // All return when the line is on disk; false when it may not be.
  bool Begin(std::size_t first, std::size_t end);
  bool Done(std::size_t first, const std::vector<platform::ResultCode>& codes);
  bool Ended() { return Write("{\"ended\": true}\n"); }
  bool Undoing() { return Write("{\"undoing\": true}\n"); }
  bool Undone() { return Write("{\"undone\": true}\n"); }

 private:
  bool Write(const std::string& text);

  const Seal& seal_;
  const Step step_;
  PrivateFile file_;
};

}  // namespace settings
