#include "config/xml_scan.h"

#include "config/bracket_reader.h"
#include "config/unit_mask.h"
#include "config/xml_index.h"
#include "config/xml_tokens.h"

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

// Whether the same units stand in both places, `length` of them from 1 to kShort, with no quotes among them.
constexpr std::size_t kShort = 16;
bool SameShortName(const char16_t* startTag, const char16_t* endTag, std::size_t length) {
  const auto unfit = [](UnitVector start, UnitVector end) -> UnitVector {
    // A few other units are taken for quotes too.
    return (start != end) | ((end | SpreadUnit(u'"' ^ u'\'')) == SpreadUnit(u'"' | u'\''));
  };
  const UnitVector first = unfit(LoadUnits(startTag), LoadUnits(endTag));
  const UnitVector second = unfit(LoadUnits(startTag + 8), LoadUnits(endTag + 8));
  return (MaskOf(first, second) << (64 - length)) == 0;
}

// What nearly every name begins with, and nothing else that may stand behind a "<" does.
bool IsPlain(char16_t unit) { return unit > u'?'; }

// Whether the next two brackets are those of a plain start tag.
bool IsPlainStartTag(const char16_t* units, const std::uint32_t* places) {
  return units[places[0]] == u'<' && units[places[1]] == u'>' && IsPlain(units[places[0] + 1]);
}

// Whether they are those of an end tag that holds the short name of its start tag and nothing else.
bool IsPlainEndTag(const char16_t* units, const std::uint32_t* places, const char16_t* startTagName) {
  const char16_t* const name = units + places[0] + 2;
  if (units[places[0]] != u'<' || name[-1] != u'/' || units[places[1]] != u'>') return false;
  const std::size_t length = std::size_t{places[1]} - places[0] - 2;
  return length - 1 < kShort && IsPlain(name[0]) && IsXmlDelimiter(startTagName[length]) &&
         SameShortName(startTagName, name, length);
}

struct EndTag {
  XmlError error = XmlError::kNone;
  std::size_t end = kNotFound;  // its ">"
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

// Calls find(text) with more of the text as long as no end is found.
template <typename Find>
auto WithEnoughText(BracketReader& brackets, std::size_t from, Find find) {
  auto found = find(brackets.Text());
  while (found.end == kNotFound && brackets.ReadOn(from)) found = find(brackets.Text());
  return found;
}

struct Node {
  std::size_t end = kNotFound;
};

enum class Kind { kStartTag, kEndTag, kOther };

// What begins at a bracket.
struct Markup {
  Kind kind = Kind::kOther;
  std::size_t start = 0;
  std::size_t name = 0;  // of a tag
  std::size_t end = 0;   // of a tag, its ">"
  XmlError error = XmlError::kNone;
};

// Any markup, at the first of the places, by all the rules; goes on to the places behind it. `open` is the innermost
// open element, null for none.
Markup ReadMarkup(BracketReader& brackets, BracketReader::Places& places, const XmlElement* open) {
  const char16_t* const units = brackets.Units();
  Markup markup = {.start = *places.next};
  const auto refused = [&markup](XmlError error) {
    markup.error = error;
    return markup;
  };
  if (units[markup.start] == u'>') {  // in a text
    places = brackets.Refilled(places.next + 1);
    return markup;
  }
  if (units[markup.start] != u'<') return refused(XmlError::kTagNotFound);
  // The next bracket is at hand too, so the text reaches beyond the blanks, or this is its end.
  const std::size_t token = SkipXmlBlanks(brackets.Text(), markup.start + 1);
  if (token == brackets.Text().size()) return refused(XmlError::kAbruptEnd);

  const char16_t first = units[token];
  if (first == u'/') {
    if (open == nullptr) return refused(XmlError::kBeginsWithEndTag);
    const EndTag tag = WithEnoughText(brackets, token, [&](WideStringView text) {
      return ReadEndTag(text, token + 1, TagNameAt(text, open->startTagStart));
    });
    if (tag.error != XmlError::kNone) return refused(tag.error);
    places = brackets.From(places.next, tag.end + 1);
    return {Kind::kEndTag, markup.start, token + 1, tag.end};
  }
  if (first == u'?' || first == u'!') {
    const Node node =
        WithEnoughText(brackets, token, [&](WideStringView text) { return Node{EndOfNode(text, token)}; });
    if (node.end == kNotFound) return refused(XmlError::kInvalidNode);
    places = brackets.From(places.next, node.end);
    return markup;
  }
  if (first == u'"' || first == u'\'') return refused(XmlError::kQuotedTag);

  do {
    places = brackets.Refilled(places.next + 1);
  } while (units[*places.next] == u'<' || *places.next == token);
  const std::size_t end = *places.next;
  if (units[end] != u'>') return refused(XmlError::kTagNotClosed);
  places = brackets.Refilled(places.next + 1);
  return {Kind::kStartTag, markup.start, token, end};
}

}  // namespace

// All that changes from tag to tag is kept in local variables, and slow cases are functions that know nothing of them:
// this is the loop that decides how soon the first menu is on the screen.
XmlScanResult ScanElements(BracketReader& brackets, BlockList<XmlElement>& elements) {
  const char16_t* const units = brackets.Units();
  BracketReader::Places places = brackets.First();
  std::uint32_t openIndex = XmlIndex::kDocument;  // the innermost element that is open
  XmlElement* open = &elements[openIndex];
  std::uint32_t* link = &open->firstChildIndex;  // where the next element inside it is entered

  for (;;) {
    if (places.next >= places.refill) places = brackets.Refilled(places.next);
    const bool isOpen = openIndex != XmlIndex::kDocument;
    Markup markup = {Kind::kOther, places.next[0], places.next[0] + std::size_t{1}, places.next[1]};
    if (IsPlainStartTag(units, places.next)) {
      markup.kind = Kind::kStartTag;
      places.next += 2;
    } else if (isOpen && IsPlainEndTag(units, places.next, units + open->startTagStart + 1)) {
      markup.kind = Kind::kEndTag;
      places.next += 2;
    } else {
      markup = ReadMarkup(brackets, places, isOpen ? open : nullptr);
      if (markup.error != XmlError::kNone) return {markup.error, openIndex, markup.start};
      if (markup.kind == Kind::kOther) continue;
    }

    if (markup.kind == Kind::kEndTag) {
      open->endTagStart = static_cast<std::uint32_t>(markup.start);
      open->endTagEnd = static_cast<std::uint32_t>(markup.end);
      link = &open->nextSiblingIndex;
      openIndex = open->parentIndex;
      open = &elements[openIndex];
      if (openIndex == XmlIndex::kDocument) return {};
      continue;
    }

    const auto index = static_cast<std::uint32_t>(elements.Size());
    XmlElement& element = elements.Add();
    *link = index;
    element = {.startTagStart = static_cast<std::uint32_t>(markup.start),
               .startTagEnd = static_cast<std::uint32_t>(markup.end),
               .endTagStart = 0,
               .endTagEnd = 0,
               .parentIndex = openIndex,
               .firstChildIndex = 0,
               .nextSiblingIndex = 0};
    link = &element.nextSiblingIndex;
    if (units[markup.end - 1] == u'/') {
      element.endTagStart = static_cast<std::uint32_t>(markup.end - 1);
      element.endTagEnd = static_cast<std::uint32_t>(markup.end);
    } else if (IsPlainEndTag(units, places.next, units + markup.name)) {
      // Most elements are a short name, text and the end tag at once; they need not be opened first.
      element.endTagStart = places.next[0];
      element.endTagEnd = places.next[1];
      places.next += 2;
    } else {
      link = &element.firstChildIndex;
      openIndex = index;
      open = &element;
    }
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
