// What is to be done to a terminal so that it has the settings that were asked for: data, made without touching it.
#pragma once

#include "settings/wanted_settings.h"

namespace settings {

inline constexpr std::size_t kNoSetting = static_cast<std::size_t>(-1);

struct PlannedSet {
  enum class Origin {
    kAsked,    // the file asks for it
    kFollows,  // rules and handlers store it besides
    kCommand,  // a handler tells the device to do something
  };
  WideString oid;  // as the device knows it
  WideString type;
  WideString value;                  // as it is sent
  std::optional<WideString> before;  // nothing: the device did not give it
  Origin origin = Origin::kAsked;
  std::vector<std::size_t> causes;  // the wanted settings that it is for, or that it follows from; may be none
  std::string name;                 // of the entry; of a setting without one its OID
  bool isSecret = false;
};

struct Refusal {
  std::size_t setting = kNoSetting;
  std::string why;                   // a sentence's rest: "is locked by Dependency: ..."
  std::vector<std::string> because;  // the comparisons of that rule, with the values there are
};

struct Plan {
  std::vector<WantedSetting> wanted;
  std::vector<PlannedSet> sets;      // in their order
  std::vector<Refusal> refusals;     // in the order of the file
  std::vector<WideString> events;    // to be pulsed at the end, each once
  std::vector<std::string> remarks;  // what the menus would say meanwhile
  bool needsRestart = false;
};

struct PlanOptions {
  bool hidden = false;  // hidden entries may be set, too
};

// The configuration holds the device's present values. Nothing but this process' memory changes.
Plan MakePlan(const authoring::Configuration& configuration, std::vector<WantedSetting> wanted,
              const PlanOptions& options = {});

}  // namespace settings
