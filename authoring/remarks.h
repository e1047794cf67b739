// What else there is to say of a line: stars, a value that could not be read, an editor that does not open.
#pragma once

#include "authoring/explanation.h"

namespace authoring {

std::vector<Remark> RemarksOn(Trial& trial, const model::MenuItem& item, const Explanation& explanation);

}  // namespace authoring
