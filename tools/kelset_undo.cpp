// kelset undo and kelset resume: after an apply, or one that was cut short.
#include "authoring/configuration.h"
#include "base/utf8.h"
#include "platform/host/utf8_path.h"
#include "tools/kelset_device.h"
#include "tools/kelset_journals.h"

#include <system_error>

namespace tools {
namespace {

namespace fs = std::filesystem;
using settings::CarriedOut;
using settings::JournalRecord;

struct JournalOptions {
  std::string journal;
  bool restart = false;
};

// Why there is nothing left to do; empty when there is.
std::string WhyNothing(const JournalRecord& record, bool isUndo) {
  if (record.undone) return "what this journal says was taken back already";
  if (!record.isWhole) return "it was cut short before anything was set";
  if (isUndo) return record.begun == 0 ? "nothing of it was set" : "";
  if (record.undoing) return "it is being taken back; \"kelset undo\" goes on with that";
  return record.ended ? "all of it was done" : "";
}

int Run(const JournalOptions& options, bool isUndo, SetStreams& streams) {
  const fs::path file = platform::host::PathOf(options.journal);
  settings::Seal seal;
  std::error_code error;
  std::string problem = fs::exists(SealFile(), error) ? seal.Load(SealFile()) : std::string();
  JournalRecord record;
  if (problem.empty()) problem = settings::ReadJournal(file, seal, record);
  if (!problem.empty()) return Complain(streams, problem);
  int status = kUnusable;
  const auto held = HeldDevice::Take(platform::host::PathOf(record.head.device), streams, status);
  if (!held) return status;

  record = {};
  settings::Journal journal(seal);
  problem = journal.Open(file, record);
  if (!problem.empty()) return Complain(streams, problem);
  if (const std::string why = WhyNothing(record, isUndo); !why.empty()) {
    streams.out << "nothing to do: " << why << '\n';
    return kFine;
  }
  const auto configuration = LoadDevice({record.head.device, record.head.source}, streams);
  const auto store = configuration ? held->Open(streams, status) : nullptr;
  if (!store) return kUnusable;
  settings::StorageTarget target(*store);
  const CarriedOut carried = isUndo ? Undo(record, target, journal) : Resume(record, target, journal);
  PrintResults(record.sets, carried, isUndo, streams.out);
  if (carried.HasFailed()) {
    Complain(streams, carried.problem + "; \"kelset " + (isUndo ? "undo " : "resume ") + file.string() + "\" goes on");
    return kDeviceFailed;
  }
  const authoring::InTerminal terminal(*configuration);
  Conclude(record.head, options.restart, false, streams.out);
  return carried.IsComplete(isUndo ? record.begun : record.sets.size()) ? kFine : kFound;
}

void Describe(Command command, SetStreams& streams, bool isUndo) {
  const auto options = std::make_shared<JournalOptions>();
  command.Remarks(std::string(isUndo
                                  ? "What stood before is put back, last things first. Cut short itself, it can be run "
                                    "again.\n"
                                  : "What was begun and has no answer is set once more.\n") +
                  "Exit status: 0 done, or nothing to do, 1 some of it is refused, 2 unusable arguments or files and "
                  "nothing was touched, 3 the device failed on the way, 4 another program works on the device.\n"
                  "Example: kelset " +
                  (isUndo ? "undo" : "resume") + " small.journal");
  command.RequiredText("JOURNAL", options->journal, "the file that kelset apply named");
  command.Flag("--restart", options->restart, "restart the terminal where settings need that");
  command.Do([options, &streams, isUndo] { return Run(*options, isUndo, streams); });
}

}  // namespace

void DescribeUndo(Command command, SetStreams& streams) { Describe(command, streams, true); }
void DescribeResume(Command command, SetStreams& streams) { Describe(command, streams, false); }

}  // namespace tools
