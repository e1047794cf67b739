// Where the elements of an XML text are: the whole document as a table of positions, made in one scan. Nothing is
// copied out of the text; names, attributes and data are read from it when they are asked for. Reading is safe from
// several threads.
#pragma once

#include "base/wide_string.h"
#include "config/block_list.h"
#include "config/shared_text.h"
#include "config/text_place.h"

#include <cstdint>

namespace config {

class BracketReader;
struct XmlScanResult;

// Positions are indexes into the text, the last three fields indexes of elements; 0 stands for none (of the parent: for
// the document).
struct XmlElement {
  std::uint32_t startTagStart;  // "<"
  std::uint32_t startTagEnd;    // ">"
  std::uint32_t endTagStart;    // "<"; of an empty element its "/"
  std::uint32_t endTagEnd;      // ">"
  std::uint32_t parentIndex;
  std::uint32_t firstChildIndex;
  std::uint32_t nextSiblingIndex;
};

// A piece of the text. When it holds "&" it may have entity references in it that Decoded() replaces.
struct XmlText {
  WideStringView raw;
  bool hasReferences = false;

  WideString Decoded() const;
};

// Why a text was refused, for those who are to mend it.
struct XmlRefusal {
  WideString reason;  // the parser's own words, and in which element: "Invalid node (inside Item, which begins at 3:5)"
  TextPlace place;    // of the tag that could not be read, or of the end of the text
};

class XmlIndex {
 public:
  static constexpr std::uint32_t kDocument = 0;  // the element that stands for the whole document
  static constexpr std::uint64_t kMaxLength = 0xFFFFFFFF;

  XmlIndex() { Clear(); }

  // False when the text holds no well-formed element; the index is then that of an empty document. Only the first
  // element of the top level is read.
  bool Parse(SharedText text);
  bool Parse(Utf8Text text);
  // Why the last text was refused, in the parser's own words; it has none for a text that begins with an end tag.
  const WideString& Error() const { return error_; }
  // The same in full; of no meaning when the text was taken.
  const XmlRefusal& Refusal() const { return refusal_; }

  const SharedText& Text() const { return text_; }
  std::size_t Count() const { return elements_.Size(); }  // the document's own element included
  const XmlElement& operator[](std::uint32_t element) const { return elements_[element]; }

  // Empty for the document.
  WideStringView TagName(std::uint32_t element) const;
  // The value of an attribute in the element's start tag, empty when it has none of that name.
  XmlText Attribute(std::uint32_t element, WideStringView name) const;
  // The character data: the first CDATA section when the content begins with one, else the whole content. Empty for an
  // element that has elements inside.
  XmlText Data(std::uint32_t element) const;

 private:
  bool Parse(BracketReader& brackets);
  void Clear();
  void Refuse(WideStringView text, const XmlScanResult& result);

  SharedText text_;
  BlockList<XmlElement> elements_;
  WideString error_;
  XmlRefusal refusal_;
};

}  // namespace config
