#include "config/xml_scan.h"

#include "config/xml_index.h"
#include "config/xml_tokens.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace config {
namespace {

constexpr std::size_t kNotFound = WideStringView::npos;

bool StandsAt(WideStringView text, std::size_t at, WideStringView part) { return text.substr(at, part.size()) == part; }

// Behind `end`, looked for from `at`.
std::size_t Behind(WideStringView text, std::size_t at, WideStringView end) {
  const std::size_t found = at <= text.size() ? text.find(end, at) : kNotFound;
  return found == kNotFound ? kNotFound : found + end.size();
}

// Behind a "<!...>" whose "!" is at `at`: its ">" is the first one outside quotes and outside the "[ ]" of a document
// type, where comments and processing instructions may hold anything.
std::size_t EndOfDeclaration(WideStringView text, std::size_t at) {
  std::size_t depth = 0;
  for (++at; at < text.size();) {
    const char16_t unit = text[at];
    if (unit == u'>' && depth == 0) return at + 1;
    if (unit == u'"' || unit == u'\'') {
      at = Behind(text, at + 1, text.substr(at, 1));
    } else if (depth > 0 && StandsAt(text, at, u"<!--")) {
      at = Behind(text, at + 4, u"-->");
    } else if (depth > 0 && StandsAt(text, at, u"<?")) {
      at = Behind(text, at + 2, u"?>");
    } else {
      if (unit == u'[') ++depth;
      if (unit == u']' && depth > 0) --depth;
      ++at;
    }
  }
  return kNotFound;
}

// Behind the comment, CDATA section, processing instruction or declaration whose "!" or "?" is at `at`.
std::size_t EndOfNode(WideStringView text, std::size_t at) {
  if (text[at] == u'?') return Behind(text, at + 1, u"?>");
  if (StandsAt(text, at + 1, u"--")) return Behind(text, at + 3, u"-->");
  if (StandsAt(text, at + 1, u"[CDATA[")) return Behind(text, at + 8, u"]]>");
  return EndOfDeclaration(text, at);
}

// Goes through the "<" of a text.
class TagStarts {
 public:
  explicit TagStarts(WideStringView text) : units_(text.data()), size_(text.size()), mask_(MaskAt(units_)) {}

  // The next one; the size of the text when there is none any more.
  std::size_t Next() {
    while (mask_ == 0) {
      block_ += kBlock;
      if (block_ >= size_) return size_;
      mask_ = MaskAt(units_ + block_);
    }
    const std::size_t at = block_ + static_cast<std::size_t>(std::countr_zero(mask_));
    mask_ &= mask_ - 1;
    return at;
  }

  // The next one that is not before `from`.
  std::size_t NextFrom(std::size_t from) {
    if (from >= block_ + kBlock && from < size_) {
      block_ = from;
      mask_ = MaskAt(units_ + block_);
    }
    std::size_t at = Next();
    while (at < from) at = Next();
    return at;
  }

 private:
  static constexpr std::size_t kBlock = 64;

  [[gnu::noinline]] static std::uint64_t MaskAt(const char16_t* units) {
    return UnitMask64(units, [](UnitVector v) -> UnitVector { return v == SpreadUnit(u'<'); });
  }

  const char16_t* units_;
  std::size_t size_;
  std::size_t block_ = 0;   // where the block of units begins that is being gone through
  std::uint64_t mask_ = 0;  // its "<" that are still to come
};

// Where the first ">" from `at` on is; the size of the text when there is none.
std::size_t FindTagEnd(WideStringView text, std::size_t at) {
  for (; at < text.size(); at += 16) {
    const std::uint64_t mask =
        UnitMask16(text.data() + at, [](UnitVector v) -> UnitVector { return v == SpreadUnit(u'>'); });
    if (mask != 0) return at + static_cast<std::size_t>(std::countr_zero(mask));
  }
  return text.size();
}

constexpr std::size_t kShort = 16;

// Whether the same units stand in both places, `length` of them from 1 to kShort, with no quotes among them.
bool SameShortName(const char16_t* startTag, const char16_t* endTag, std::size_t length) {
  const auto unfit = [](UnitVector start, UnitVector end) -> UnitVector {
    // A few other units are taken for quotes too.
    return (start != end) | ((end | SpreadUnit(u'"' ^ u'\'')) == SpreadUnit(u'"' | u'\''));
  };
  const UnitVector first = unfit(LoadUnits(startTag), LoadUnits(endTag));
  const UnitVector second = unfit(LoadUnits(startTag + 8), LoadUnits(endTag + 8));
  return (MaskOf(first, second) << (64 - length)) == 0;
}

// The length of the tag name when the end tag is as nearly all are: the short name as it stands right behind the "<" of
// the start tag, then ">". Else 0. Both places are behind the "<" and the "/".
std::size_t PlainEndTagLength(const char16_t* startTag, const char16_t* endTag) {
  const std::size_t length = PlainTokenLength(startTag);
  return length != 0 && endTag[length] == u'>' && SameShortName(startTag, endTag, length) ? length : 0;
}

struct EndTag {
  XmlError error = XmlError::kNone;
  std::size_t end = 0;  // its ">"
};

// Any end tag, from behind its "/". Its tokens behind the name do not count.
EndTag ReadEndTag(WideStringView text, std::size_t at, WideStringView tagName) {
  XmlToken token = ReadXmlToken(text, at);
  if (token.missing || token.Is(u'>')) return {XmlError::kEndTagNotCompleted};
  if (!XmlTokenEquals(token.text, tagName)) return {XmlError::kOtherEndTag};
  while (!token.missing && !token.Is(u'>')) token = ReadXmlToken(text, token.end);
  if (token.missing) return {XmlError::kEndTagNotCompleted};
  return {XmlError::kNone, token.end - 1};
}

}  // namespace

// All that changes from tag to tag is kept in local variables, and slow cases are functions that know nothing of them:
// this is the loop that decides how soon the first menu is on the screen.
XmlScanResult ScanElements(WideStringView text, BlockList<XmlElement>& elements) {
  const char16_t* const units = text.data();
  TagStarts tags(text);
  std::uint32_t openIndex = XmlIndex::kDocument;  // the innermost element that is open
  XmlElement* open = &elements[openIndex];
  std::uint32_t* link = &open->firstChildIndex;  // where the next element inside it is entered

  for (std::size_t start = tags.Next();;) {
    if (start == text.size()) return {XmlError::kTagNotFound, openIndex, start};
    std::size_t token = start + 1;
    if (IsXmlBlank(units[token])) token = SkipXmlBlanks(text, token);
    if (token == text.size()) return {XmlError::kAbruptEnd, openIndex, start};

    const char16_t first = units[token];
    if (first == u'/') {
      if (openIndex == XmlIndex::kDocument) return {XmlError::kBeginsWithEndTag, openIndex, start};
      const std::size_t name = token + 1;
      const std::size_t length = PlainEndTagLength(units + open->startTagStart + 1, units + name);
      std::size_t end = name + length;
      if (length == 0) {
        const EndTag endTag = ReadEndTag(text, name, TagNameAt(text, open->startTagStart));
        if (endTag.error != XmlError::kNone) return {endTag.error, openIndex, start};
        end = endTag.end;
      }
      open->endTagStart = static_cast<std::uint32_t>(start);
      start = tags.NextFrom(end);
      open->endTagEnd = static_cast<std::uint32_t>(end);
      link = &open->nextSiblingIndex;
      openIndex = open->parentIndex;
      open = &elements[openIndex];
      if (openIndex == XmlIndex::kDocument) return {};
      continue;
    }
    if (first == u'?' || first == u'!') {
      const std::size_t end = EndOfNode(text, token);
      if (end == kNotFound) return {XmlError::kInvalidNode, openIndex, start};
      start = tags.NextFrom(end);
      continue;
    }
    if (first == u'"' || first == u'\'') return {XmlError::kQuotedTag, openIndex, start};

    const std::size_t end = FindTagEnd(text, token + 1);
    if (end == text.size()) return {XmlError::kTagNotClosed, openIndex, start};
    const auto index = static_cast<std::uint32_t>(elements.Size());
    XmlElement& element = elements.Add();
    *link = index;
    element = {.startTagStart = static_cast<std::uint32_t>(start),
               .startTagEnd = static_cast<std::uint32_t>(end),
               .endTagStart = 0,
               .endTagEnd = 0,
               .parentIndex = openIndex,
               .firstChildIndex = 0,
               .nextSiblingIndex = 0};

    // Most elements are a short name, text and the end tag at once; they need not be opened first.
    const std::size_t length = end - token;
    start = tags.NextFrom(end);
    if (units[end - 1] == u'/') {
      element.endTagStart = static_cast<std::uint32_t>(end - 1);
      element.endTagEnd = static_cast<std::uint32_t>(end);
    } else if (length <= kShort && units[start + 1] == u'/' && units[start + 2 + length] == u'>' &&
               !IsXmlDelimiter(first) && SameShortName(units + token, units + start + 2, length)) {
      element.endTagStart = static_cast<std::uint32_t>(start);
      element.endTagEnd = static_cast<std::uint32_t>(start + 2 + length);
      start = tags.NextFrom(element.endTagEnd);
    } else {
      link = &element.firstChildIndex;
      openIndex = index;
      open = &element;
      continue;
    }
    link = &element.nextSiblingIndex;
    if (openIndex == XmlIndex::kDocument) return {};
  }
}

WideStringView TextOf(XmlError error) {
  switch (error) {
    case XmlError::kNone:
    case XmlError::kBeginsWithEndTag: break;
    case XmlError::kTagNotFound: return u"Element tag not found";
    case XmlError::kAbruptEnd: return u"Abrupt end within tag";
    case XmlError::kQuotedTag: return u"Tag starts with quote";
    case XmlError::kInvalidNode: return u"Invalid node";
    case XmlError::kTagNotClosed: return u"End of tag not found";
    // The next two never come to light: before an end tag is looked at, the search for one more child has found it,
    // or has failed.
    case XmlError::kEndTagNotFound: return u"End tag of %s element not found";
    case XmlError::kEndTagExpected: return u"Expecting end tag of element %s";
    case XmlError::kOtherEndTag: return u"End tag does not correspond to %s";
    case XmlError::kEndTagNotCompleted: return u"End tag not completed for element %s";
  }
  return {};
}

WideStringView TagNameAt(WideStringView text, std::uint32_t start) {
  const std::size_t length = PlainTokenLength(text.data() + start + 1);
  return length != 0 ? text.substr(start + 1, length) : ReadXmlToken(text, start + 1).text;
}

}  // namespace config
