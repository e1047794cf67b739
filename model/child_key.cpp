#include "model/child_key.h"

#include "base/format.h"
#include "base/string_table.h"
#include "platform/debug.h"

namespace model {

bool IsAbsoluteName(WideStringView name) { return name.find(LoadText(TextId::kHkey)) != WideStringView::npos; }

const config::ConfigKey* FindChild(const config::PDataStore& tree, const config::ConfigKey& parent,
                                   WideStringView name) {
  return IsAbsoluteName(name) ? tree.Find(name) : tree.FindBelow(parent, name);
}

bool KeyVisits::LeadsBack(const config::ConfigKey& key, WideStringView name) const {
  const auto found = visits_.find(&key);
  const bool open = found != visits_.end() && found->second.open;
  if (open) Report(name, u"leads back to a key above it");
  return open;
}

bool KeyVisits::Enter(const config::ConfigKey& key, WideStringView name) {
  Visits& visits = visits_[&key];
  if (visits.open || visits.count == kMost) {
    Report(name, u"is met too often, nothing below it is taken");
    return false;
  }
  visits = {visits.count + 1, true};
  return true;
}

// The name alone: together, the paths of a deep menu could be far longer than the whole configuration.
void KeyVisits::Report(WideStringView name, WideStringView reason) const {
  platform::DebugOutput(base::Format(u"FAILED: %s  [%s] %s\r\n", walk_, name, reason));
}

}  // namespace model
