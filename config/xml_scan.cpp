#include "config/xml_scan.h"

#include "config/xml_index.h"
#include "config/xml_tokens.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

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

constexpr std::uint32_t kNoPlace = 0xFFFFFFFF;

// The places of the "<" of a stretch of the text, in order, with kNoPlace at their end. Collecting them ahead of their
// use keeps the loop below free of branches that cannot be foreseen.
class TagPlaces {
 public:
  explicit TagPlaces(WideStringView text) : text_(text) {}

  // Those of the next stretch that has any.
  const std::uint32_t* NextStretch() {
    std::uint32_t* end = places_.data();
    while (end == places_.data() && at_ < text_.size()) {
      for (std::size_t block = 0; block < kBlocks && at_ < text_.size(); ++block, at_ += kBlock) end = AddBlock(end);
    }
    *end = kNoPlace;
    return places_.data();
  }

  // The next stretch begins not before here.
  void GoTo(std::size_t at) { at_ = std::max(at_, at); }

 private:
  static constexpr std::size_t kBlock = 64;
  static constexpr std::size_t kBlocks = 16;
  static constexpr std::size_t kAtOnce = 4;  // more than most blocks have

  std::uint32_t* AddBlock(std::uint32_t* end) {
    std::uint64_t mask =
        UnitMask64(text_.data() + at_, [](UnitVector v) -> UnitVector { return v == SpreadUnit(u'<'); });
    const std::size_t count = BitCount(mask);
    for (std::size_t i = 0; i < kAtOnce; ++i) Add(end[i], mask);
    for (std::size_t i = kAtOnce; i < count; ++i) Add(end[i], mask);
    return end + count;
  }

  void Add(std::uint32_t& place, std::uint64_t& mask) const {
    place = static_cast<std::uint32_t>(at_) + static_cast<std::uint32_t>(std::countr_zero(mask));
    mask &= mask - 1;
  }

  // As std::popcount, which calls a function where the processor may lack the instruction.
  static std::size_t BitCount(std::uint64_t bits) {
    bits -= (bits >> 1) & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + ((bits >> 2) & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return static_cast<std::size_t>((bits * 0x0101010101010101) >> 56);
  }

  const WideStringView text_;
  std::size_t at_ = 0;
  std::array<std::uint32_t, kBlock * kBlocks + kAtOnce + 1> places_;
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

// The length of the tag name when the end tag is as nearly all are: the name as it stands right behind the "<" of the
// start tag, then ">". Else 0. `tagLength` is that of all in the start tag, which is mostly the name alone; both places
// are behind the "<" and the "/".
std::size_t PlainEndTagLength(const char16_t* startTag, std::size_t tagLength, const char16_t* endTag) {
  constexpr std::size_t kUnits = 16;
  std::size_t length = tagLength;
  if (length > kUnits || endTag[length] != u'>') length = PlainTokenLength(startTag);
  if (length == 0 || endTag[length] != u'>' || IsXmlDelimiter(endTag[0])) return 0;
  // Units that may be quotes could hide that ">".
  const auto unfit = [](UnitVector start, UnitVector end) -> UnitVector {
    return (start != end) | ((end | SpreadUnit(u'"' ^ u'\'')) == SpreadUnit(u'"' | u'\''));
  };
  const UnitVector first = unfit(LoadUnits(startTag), LoadUnits(endTag));
  const UnitVector second = unfit(LoadUnits(startTag + 8), LoadUnits(endTag + 8));
  return (MaskOf(first, second) << (64 - length)) == 0 ? length : 0;
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
  TagPlaces places(text);
  const std::uint32_t* place = places.NextStretch();
  const auto goTo = [&](std::size_t at) {
    while (*place < at) ++place;
    if (*place == kNoPlace) places.GoTo(at);
  };

  // Of a plain end tag at `at` for the start tag from `tag` to `tagEnd`; 0 when there is none.
  const auto lengthOfEndTagAt = [&](std::size_t at, std::size_t tag, std::size_t tagEnd) -> std::size_t {
    if (at == kNoPlace || units[at + 1] != u'/') return 0;
    return PlainEndTagLength(units + tag, tagEnd - tag, units + at + 2);
  };

  std::uint32_t openIndex = XmlIndex::kDocument;  // the innermost element that is open
  XmlElement* open = &elements[openIndex];
  std::uint32_t* link = &open->firstChildIndex;  // where the next element inside it is entered

  for (;;) {
    if (*place == kNoPlace) place = places.NextStretch();
    if (*place == kNoPlace) return {XmlError::kTagNotFound, openIndex};
    const std::size_t start = *place++;
    std::size_t token = start + 1;
    if (IsXmlBlank(units[token])) token = SkipXmlBlanks(text, token);
    if (token == text.size()) return {XmlError::kAbruptEnd, openIndex};

    const char16_t first = units[token];
    if (first == u'/') {
      if (openIndex == XmlIndex::kDocument) return {XmlError::kBeginsWithEndTag, openIndex};
      const std::size_t name = token + 1;
      const std::size_t tag = open->startTagStart + 1;
      const std::size_t length = PlainEndTagLength(units + tag, open->startTagEnd - tag, units + name);
      std::size_t end = name + length;
      if (length == 0) {
        const EndTag endTag = ReadEndTag(text, name, TagNameAt(text, open->startTagStart));
        if (endTag.error != XmlError::kNone) return {endTag.error, openIndex};
        end = endTag.end;
      }
      goTo(end + 1);
      open->endTagStart = static_cast<std::uint32_t>(start);
      open->endTagEnd = static_cast<std::uint32_t>(end);
      link = &open->nextSiblingIndex;
      openIndex = open->parentIndex;
      open = &elements[openIndex];
      if (openIndex == XmlIndex::kDocument) return {};
    } else if (first == u'?' || first == u'!') {
      const std::size_t end = EndOfNode(text, token);
      if (end == kNotFound) return {XmlError::kInvalidNode, openIndex};
      goTo(end);
    } else if (first == u'"' || first == u'\'') {
      return {XmlError::kQuotedTag, openIndex};
    } else {
      const std::size_t end = FindTagEnd(text, token + 1);
      if (end == text.size()) return {XmlError::kTagNotClosed, openIndex};
      goTo(end + 1);
      const auto index = static_cast<std::uint32_t>(elements.Size());
      XmlElement& element = elements.Add();
      *link = index;
      element.startTagStart = static_cast<std::uint32_t>(start);
      element.startTagEnd = static_cast<std::uint32_t>(end);
      element.endTagStart = 0;
      element.endTagEnd = 0;
      element.parentIndex = openIndex;
      element.firstChildIndex = 0;
      element.nextSiblingIndex = 0;
      if (units[end - 1] == u'/') {
        element.endTagStart = static_cast<std::uint32_t>(end - 1);
        element.endTagEnd = static_cast<std::uint32_t>(end);
      } else if (const std::size_t length = lengthOfEndTagAt(*place, start + 1, end)) {
        // Nothing inside but text, as in most elements: this need not be opened first.
        element.endTagStart = *place;
        element.endTagEnd = static_cast<std::uint32_t>(*place + 2 + length);
        goTo(element.endTagEnd);
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
