// The program's XML reader: a document and a position in it that moves from element to element.
#pragma once

#include "base/wide_string.h"
#include "config/shared_text.h"
#include "config/xml_index.h"

#include <cstdint>

namespace config {

class XmlDocument {
 public:
  // Takes a text as the document and goes to its top. False when it has no well-formed element at its top level; the
  // document is then empty.
  bool SetDocument(Utf8Text text);
  bool SetDocument(SharedText text);
  bool SetDocument(WideStringView text) { return SetDocument(SharedText(text)); }
  // Why the last text was refused; empty when it was not.
  const WideString& Error() const { return index_.Error(); }
  const XmlRefusal& Refusal() const { return index_.Refusal(); }
  const XmlIndex& Index() const { return index_; }

  void ResetPosition();      // to the top of the document
  void ResetMainPosition();  // before the first element of the level

  // Moves to the next element of this level, of the given tag name or of any. When there is none, the position stays.
  bool FindElement(WideStringView tag = {});
  void GoInto();   // to before the first element inside the current one; only with a current element
  void GoOutOf();  // to the element around this level; not at the top

  bool IsAtElement() const { return nodeType_ != 0; }

  // Of the current element; empty without one.
  WideStringView TagName() const;
  WideString Attribute(WideStringView name) const;
  WideString Data() const;

  // Goes from the top to before the first element inside the first "GROUP" whose `name` attributes, from the top level
  // down, spell the path. False, and at the top, when there is none.
  bool FindGroup(WideStringView path);

 private:
  XmlIndex index_;
  std::uint32_t parent_ = XmlIndex::kDocument;
  std::uint32_t current_ = 0;
  std::uint32_t child_ = 0;
  std::uint32_t nodeType_ = 0;  // 1: at an element
};

}  // namespace config
