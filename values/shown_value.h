// A property's value as a person sees it between the angle brackets of its line.
#pragma once

#include "base/wide_string.h"

namespace values {

class PropertyDescriptor;

// `text` as it may stand on a line: the fixed text of a wireless key, a star for each character of any other secret,
// else itself.
WideString MaskedText(const PropertyDescriptor& descriptor, WideStringView text);

// The same of a text of which the type alone is known.
WideString MaskedText(WideStringView type, WideStringView text);

// The choice text, dotted address or plain text of the value, masked; the text for a value that cannot be read.
WideString ShownValue(const PropertyDescriptor& descriptor);

}  // namespace values
