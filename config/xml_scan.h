// The one pass over an XML text that finds its elements.
#pragma once

#include "base/wide_string.h"
#include "config/block_list.h"

#include <cstddef>
#include <cstdint>

namespace config {

class BracketReader;
struct XmlElement;

enum class XmlError {
  kNone,
  kBeginsWithEndTag,  // has no text of its own
  kTagNotFound,
  kAbruptEnd,
  kQuotedTag,
  kInvalidNode,
  kTagNotClosed,
  kEndTagNotFound,
  kEndTagExpected,
  kOtherEndTag,
  kEndTagNotCompleted,
};

// "%s" in it stands for the tag name of an element.
WideStringView TextOf(XmlError error);

struct XmlScanResult {
  XmlError error = XmlError::kNone;
  std::uint32_t element = 0;  // the innermost one that is open there, 0: none
  std::size_t at = 0;         // the "<" of the tag that the error is in, else the end of the text
};

// In all of these SharedText::kPadding units behind the text are readable.

// Adds the first element of the text and all inside it to `elements`, which holds the document's own element and
// nothing else, in the order of their start tags. Stops at the first error.
XmlScanResult ScanElements(BracketReader& brackets, BlockList<XmlElement>& elements);

// The tag name behind the "<" at `start`.
WideStringView TagNameAt(WideStringView text, std::uint32_t start);

}  // namespace config
