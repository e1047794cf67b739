// The terminal that is worked on, for this process alone, and where the journals of that work are kept.
#pragma once

#include "settings/carry_out.h"
#include "simulator/instance_lock.h"
#include "tools/kelset_program.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tools {

// Says on standard error why not, and `status` is what the program ends with.
class HeldDevice {
 public:
  // Null when another program has it, or it cannot be written.
  static std::unique_ptr<HeldDevice> Take(const std::filesystem::path& folder, SetStreams& streams, int& status);

  // Null when the device's file cannot be used.
  std::unique_ptr<simulator::DeviceStore> Open(SetStreams& streams, int& status) const;

 private:
  explicit HeldDevice(const std::filesystem::path& folder) : folder_(folder), lock_(folder) {}

  std::filesystem::path folder_;
  simulator::InstanceLock lock_;
};

// A new file's name in the user's state folder; empty when there is no such folder.
std::filesystem::path NewJournalFile(const std::filesystem::path& device);
// Of the key that seals secrets in journals.
std::filesystem::path SealFile();

// Pulses the events and says so; restarts the terminal, or says that it is needed.
void Conclude(const settings::JournalHead& head, bool restart, bool isJson, std::ostream& out);

std::string Word(settings::SetResult::Kind kind);
std::string Hexadecimal(platform::ResultCode code);
// One line for each Set that something became of.
void PrintResults(const std::vector<settings::PlannedSet>& sets, const settings::CarriedOut& carried, bool isUndo,
                  std::ostream& out);

}  // namespace tools
