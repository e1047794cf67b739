#include "config/xml_scan.h"

#include "config/xml_index.h"
#include "config/xml_tokens.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

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

// Goes through the "<" and ">" of a text in order.
class AngleBrackets {
 public:
  explicit AngleBrackets(WideStringView text) : text_(text) { LoadBlock(); }

  // The next one, the size of the text behind the last.
  std::size_t Next() {
    while (mask_ == 0) {
      if (block_ + kBlock >= text_.size()) return text_.size();
      block_ += kBlock;
      LoadBlock();
    }
    const std::size_t at = block_ + static_cast<std::size_t>(std::countr_zero(mask_));
    mask_ &= mask_ - 1;
    return at;
  }

  std::size_t Next(char16_t bracket) {
    std::size_t at = Next();
    while (at < text_.size() && text_[at] != bracket) at = Next();
    return at;
  }

  // Goes on from here, which is not before where it is.
  void GoTo(std::size_t at) {
    if (at >= text_.size()) {
      block_ = text_.size();
      mask_ = 0;
      return;
    }
    block_ = at / kBlock * kBlock;
    LoadBlock();
    mask_ &= ~std::uint64_t{0} << (at - block_);
  }

 private:
  static constexpr std::size_t kBlock = 64;

  void LoadBlock() { mask_ = text_.empty() ? 0 : UnitMask<kBlock>(text_.data() + block_, UnitTest{2, u'>'}); }

  const WideStringView text_;
  std::size_t block_ = 0;   // where the block begins
  std::uint64_t mask_ = 0;  // those of the block that are still to come
};

class Scan {
 public:
  Scan(WideStringView text, BlockList<XmlElement>& elements) : text_(text), brackets_(text), elements_(elements) {}

  XmlScanResult Run() {
    while (error_ == XmlError::kNone && !done_) ReadTag();
    return {error_, open_};
  }

 private:
  // From the next "<" on: a start tag, an end tag or a node that is passed over.
  void ReadTag() {
    const std::size_t start = brackets_.Next(u'<');
    if (start == text_.size()) return Fail(XmlError::kTagNotFound);
    std::size_t token = start + 1;
    if (token < text_.size() && IsXmlBlank(text_[token])) token = SkipXmlBlanks(text_, token);
    if (token == text_.size()) return Fail(XmlError::kAbruptEnd);
    switch (text_[token]) {
      case u'"':
      case u'\'': return Fail(XmlError::kQuotedTag);
      case u'?':
      case u'!': return PassOver(token);
      case u'/': return Close(start, token + 1);
      default: return Open(start, token);
    }
  }

  void PassOver(std::size_t at) {
    const std::size_t end = EndOfNode(text_, at);
    if (end == kNotFound) return Fail(XmlError::kInvalidNode);
    brackets_.GoTo(end);
  }

  void Open(std::size_t start, std::size_t token) {
    std::size_t end = brackets_.Next(u'>');
    if (end == token) end = brackets_.Next(u'>');  // the first one is the tag name itself
    if (end == text_.size()) return Fail(XmlError::kTagNotClosed);
    const auto index = static_cast<std::uint32_t>(elements_.Size());
    XmlElement& element = elements_.Add();
    element.startTagStart = static_cast<std::uint32_t>(start);
    element.startTagEnd = static_cast<std::uint32_t>(end);
    element.parentIndex = open_;
    (previous_ != 0 ? elements_[previous_].nextSiblingIndex : elements_[open_].firstChildIndex) = index;
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

  // The end tag at `start`, `name` being behind its "/".
  void Close(std::size_t start, std::size_t name) {
    if (open_ == XmlIndex::kDocument) return Fail(XmlError::kBeginsWithEndTag);
    XmlElement& element = elements_[open_];
    std::size_t end = brackets_.Next(u'>');
    if (!IsPlainEndTag(element.startTagStart + 1, name, end))
      end = ReadEndTag(TagNameAt(text_, element.startTagStart), name);
    if (end == text_.size()) return;
    element.endTagStart = static_cast<std::uint32_t>(start);
    element.endTagEnd = static_cast<std::uint32_t>(end);
    previous_ = open_;
    open_ = element.parentIndex;
    done_ = open_ == XmlIndex::kDocument;
  }

  // Whether just the name of the start tag, of 1 to 15 units and right behind its "<", stands between `name` and `end`:
  // what nearly all end tags look like.
  bool IsPlainEndTag(std::size_t startName, std::size_t name, std::size_t end) const {
    const std::size_t length = UnitsBeforeDelimiter(text_.data() + startName);
    if (length == 0 || length > 15 || end - name != length) return false;
    return std::memcmp(text_.data() + startName, text_.data() + name, length * sizeof(char16_t)) == 0;
  }

  // Any end tag; its tokens behind the name do not count. Answers where its ">" is, or fails and gives the text's size.
  std::size_t ReadEndTag(WideStringView tagName, std::size_t at) {
    XmlToken token = ReadXmlToken(text_, at);
    if (!token.missing && !token.Is(u'>')) {
      if (!XmlTokenEquals(token.text, tagName)) {
        Fail(XmlError::kOtherEndTag);
        return text_.size();
      }
      while (!token.missing && !token.Is(u'>')) token = ReadXmlToken(text_, token.end);
      if (!token.missing) {
        brackets_.GoTo(token.end);
        return token.end - 1;
      }
    }
    Fail(XmlError::kEndTagNotCompleted);
    return text_.size();
  }

  void Fail(XmlError error) { error_ = error; }

  const WideStringView text_;
  AngleBrackets brackets_;
  BlockList<XmlElement>& elements_;
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

WideStringView TagNameAt(WideStringView text, std::uint32_t start) {
  const std::size_t length = UnitsBeforeDelimiter(text.data() + start + 1);
  if (length == 0 || length > 15) return ReadXmlToken(text, start + 1).text;
  return text.substr(start + 1, length);
}

}  // namespace config
