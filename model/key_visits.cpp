#include "model/key_visits.h"

#include "base/format.h"
#include "platform/debug.h"

namespace model {

bool KeyVisits::LeadsBack(const config::ConfigKey& key, WideStringView name) const {
  const auto found = visits_.find(&key);
  const bool open = found != visits_.end() && found->second.open;
  if (open) Report(name, u"leads back to a key above it");
  return open;
}

// Siblings of one name are all reached by the names in their path: the first of them stands for the key.
bool KeyVisits::EnterOwnPlace(const config::ConfigKey& key, WideStringView name) {
  Visits& visits = visits_[&key];
  if (visits.own) return EnterFurtherPlace(key, name);
  visits.own = visits.open = true;
  return true;
}

bool KeyVisits::EnterFurtherPlace(const config::ConfigKey& key, WideStringView name) {
  Visits& visits = visits_[&key];
  if (visits.open || visits.further == kMost) {
    Report(name, u"is met too often, nothing below it is taken");
    return false;
  }
  ++visits.further;
  visits.open = true;
  return true;
}

// The name alone: together, the paths of a deep menu could be far longer than the whole configuration.
void KeyVisits::Report(WideStringView name, WideStringView reason) const {
  platform::DebugOutput(base::Format(u"FAILED: %s  [%s] %s\r\n", walk_, name, reason));
}

}  // namespace model
