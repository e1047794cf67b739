#include "config/xml_scan.h"

#include "config/xml_index.h"
#include "config/xml_tokens.h"

#include <cstddef>

namespace config {
namespace {

constexpr std::size_t kNotFound = WideStringView::npos;

std::size_t FindUnit(WideStringView text, std::size_t at, char16_t unit) {
  const char16_t* const begin = text.data();
  const char16_t* const end = begin + text.size();
  for (const char16_t* p = begin + at; p < end; ++p) {
    if (*p == unit) return static_cast<std::size_t>(p - begin);
  }
  return kNotFound;
}

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

class Scan {
 public:
  Scan(WideStringView text, BlockList<XmlElement>& elements) : text_(text), elements_(elements) {}

  XmlScanResult Run() {
    while (error_ == XmlError::kNone && !done_) ReadTag();
    return {error_, open_};
  }

 private:
  // From the next "<" on: a start tag, an end tag or a node that is passed over.
  void ReadTag() {
    const std::size_t start = FindUnit(text_, at_, u'<');
    if (start == kNotFound) return Fail(XmlError::kTagNotFound);
    const std::size_t token = SkipXmlBlanks(text_, start + 1);
    if (token == text_.size()) return Fail(XmlError::kAbruptEnd);
    switch (text_[token]) {
      case u'"':
      case u'\'': return Fail(XmlError::kQuotedTag);
      case u'?':
      case u'!':
        at_ = EndOfNode(text_, token);
        if (at_ == kNotFound) Fail(XmlError::kInvalidNode);
        return;
      case u'/': return Close(start, token + 1);
      default: return Open(start, token);
    }
  }

  void Open(std::size_t start, std::size_t token) {
    const std::size_t end = FindUnit(text_, token + 1, u'>');
    if (end == kNotFound) return Fail(XmlError::kTagNotClosed);
    const auto index = static_cast<std::uint32_t>(elements_.Size());
    XmlElement& element = elements_.Add();
    element.startTagStart = static_cast<std::uint32_t>(start);
    element.startTagEnd = static_cast<std::uint32_t>(end);
    element.parentIndex = open_;
    if (previous_ != 0) {
      elements_[previous_].nextSiblingIndex = index;
    } else {
      elements_[open_].firstChildIndex = index;
    }
    at_ = end + 1;
    if (text_[end - 1] == u'/') {
      element.endTagStart = static_cast<std::uint32_t>(end - 1);
      element.endTagEnd = static_cast<std::uint32_t>(end);
      previous_ = index;
      done_ = open_ == XmlIndex::kDocument;
    } else {
      open_ = index;
      previous_ = 0;
    }
  }

  // The end tag at `start`, `at` being behind its "/". Of its tokens only the name counts.
  void Close(std::size_t start, std::size_t at) {
    if (open_ == XmlIndex::kDocument) return Fail(XmlError::kBeginsWithEndTag);
    XmlElement& element = elements_[open_];
    XmlToken token = ReadXmlToken(text_, at);
    if (token.missing || token.Is(u'>')) return Fail(XmlError::kEndTagNotCompleted);
    if (!XmlTokenEquals(token.text, TagNameAt(text_, element.startTagStart))) return Fail(XmlError::kOtherEndTag);
    while (!token.missing && !token.Is(u'>')) token = ReadXmlToken(text_, token.end);
    if (token.missing) return Fail(XmlError::kEndTagNotCompleted);
    element.endTagStart = static_cast<std::uint32_t>(start);
    element.endTagEnd = static_cast<std::uint32_t>(token.end - 1);
    at_ = token.end;
    previous_ = open_;
    open_ = element.parentIndex;
    done_ = open_ == XmlIndex::kDocument;
  }

  void Fail(XmlError error) { error_ = error; }

  const WideStringView text_;
  BlockList<XmlElement>& elements_;
  std::size_t at_ = 0;
  std::uint32_t open_ = XmlIndex::kDocument;  // the innermost element that is open
  std::uint32_t previous_ = 0;                // the last element that was closed inside it, 0: none yet
  bool done_ = false;
  XmlError error_ = XmlError::kNone;
};

}  // namespace

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

XmlScanResult ScanElements(WideStringView text, BlockList<XmlElement>& elements) { return Scan(text, elements).Run(); }

WideStringView TagNameAt(WideStringView text, std::uint32_t start) { return ReadXmlToken(text, start + 1).text; }

}  // namespace config
