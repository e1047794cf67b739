// Finding the entry that an author means.
#pragma once

#include "authoring/trial.h"

#include <vector>

namespace authoring {

// The items that `text` may mean: the one at the key path, the one that the keys lead to ("2-3-1"), else all with that
// OID, else all with that display name, else those whose name, OID or path it is in another case. Empty: there is none.
std::vector<model::MenuItem*> FindEntries(Trial& trial, WideStringView text);

// What may have been meant where FindEntries() finds nothing: the items whose name, path or OID contains `text`, in any
// case; without any, those whose name, path or OID is the nearest to it.
struct EntrySuggestions {
  std::vector<model::MenuItem*> items;
  bool contain = false;
};
EntrySuggestions SuggestEntries(Trial& trial, WideStringView text);

}  // namespace authoring
