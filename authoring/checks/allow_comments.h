// Comments by which an author has a finding as it is: <!-- check: allow choice-key-twice: the device sends both -->
// before an entry, or before one of its attributes.
#pragma once

#include "authoring/finding.h"

#include <vector>

namespace authoring {

// Takes out of `findings` what comments silence, and adds what is wrong with the comments themselves. Checks that did
// not run (`proofs` off) are not missed.
void ApplyAllowComments(const Configuration& configuration, bool proofs, std::vector<Finding>& findings);

}  // namespace authoring
