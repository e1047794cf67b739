// What must not be read in anything that is handed to others.
#pragma once

#include "base/wide_string.h"
#include "values/property_descriptor.h"

namespace authoring {

// "WLAN Passphrase": by its name a property holds a secret.
bool NamesASecret(WideStringView displayName);

// Its line shows stars or a fixed text, or it should.
bool IsSecret(const values::PropertyDescriptor& property);

}  // namespace authoring
