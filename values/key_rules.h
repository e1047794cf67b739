// The final rules for wireless keys, before they are sent.
#pragma once

#include "base/wide_string.h"

namespace values {

// A zero or a backslash and an x of either case introduce hexadecimal digits.
bool IsHexPrefixed(WideStringView text);

bool IsHexDigit(char16_t unit);

// Each character as two lower-case hexadecimal digits, padded with a blank below 0x10 and longer above 0xFF.
WideString ToHexText(WideStringView text);

// A WEP key: 5 or 13 characters, or 10 or 26 hexadecimal digits after their prefix. A good key is rewritten, when
// `convert` is set, into the bare hexadecimal digits that the device expects; a bad one stays as it is, and `message`
// says why.
bool CheckWepKey(WideString& text, bool convert, WideString& message);

// A pre-shared key: 64 hexadecimal digits after their prefix, or a pass phrase of 8 to 63 characters. As above.
bool CheckPreSharedKey(WideString& text, bool convert, WideString& message);

}  // namespace values
