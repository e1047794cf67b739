#include "tests/config/xml_reference.h"

#include "config/xml_tokens.h"

namespace config {
namespace {

class Reference {
 public:
  explicit Reference(WideStringView text) : text_(text), elements_(1) {}

  ReferenceScan Scan() {
    Find();
    return {result_, elements_};
  }

 private:
  struct Open {
    std::uint32_t element;
    std::uint32_t lastChild;
  };

  // Goes from "<" to "<" until the first element of the top level ends, or something is wrong.
  void Find() {
    do {
      while (at_ < text_.size() && text_[at_] != u'<') ++at_;
      start_ = at_;
    } while (ReadMarkup() && !isEnded_);
  }

  bool Fail(XmlError error) {
    result_ = {error, open_.back().element, start_};
    return false;
  }

  bool ReadMarkup() {
    if (start_ == text_.size()) return Fail(XmlError::kTagNotFound);
    const XmlToken token = ReadXmlToken(text_, start_ + 1);
    if (token.missing) return Fail(XmlError::kAbruptEnd);
    if (token.quoted) return Fail(XmlError::kQuotedTag);
    if (token.text[0] == u'/') return ReadEndTag(token.end);
    if (token.text[0] == u'?' || token.text[0] == u'!') return SkipNode(token.end);
    return ReadStartTag(token);
  }

  bool ReadStartTag(const XmlToken& name) {
    // One unit of the name at least belongs to it, whatever it is.
    const std::size_t end = text_.find(u'>', name.end - name.text.size() + 1);
    if (end == WideStringView::npos) return Fail(XmlError::kTagNotClosed);
    const auto index = static_cast<std::uint32_t>(elements_.size());
    Open& parent = open_.back();
    XmlElement element = {Narrow(start_), Narrow(end), 0, 0, parent.element, 0, 0};
    (parent.lastChild == 0 ? elements_[parent.element].firstChildIndex : elements_[parent.lastChild].nextSiblingIndex) =
        index;
    parent.lastChild = index;
    if (text_[end - 1] == u'/') {
      element.endTagStart = Narrow(end - 1);
      element.endTagEnd = Narrow(end);
      isEnded_ = open_.size() == 1;
    } else {
      open_.push_back({index, 0});
      names_.push_back(name.text);
    }
    elements_.push_back(element);
    at_ = end;
    return true;
  }

  bool ReadEndTag(std::size_t at) {
    if (open_.size() == 1) return Fail(XmlError::kBeginsWithEndTag);
    XmlToken token = ReadXmlToken(text_, at);
    if (token.missing || token.Is(u'>')) return Fail(XmlError::kEndTagNotCompleted);
    if (!XmlTokenEquals(token.text, names_.back())) return Fail(XmlError::kOtherEndTag);
    while (!token.missing && !token.Is(u'>')) token = ReadXmlToken(text_, token.end);
    if (token.missing) return Fail(XmlError::kEndTagNotCompleted);
    XmlElement& element = elements_[open_.back().element];
    element.endTagStart = Narrow(start_);
    element.endTagEnd = Narrow(token.end - 1);
    open_.pop_back();
    names_.pop_back();
    isEnded_ = open_.size() == 1;
    at_ = token.end;
    return true;
  }

  // `at` is behind the "?" or "!".
  bool SkipNode(std::size_t at) {
    if (text_[at - 1] == u'?') return SkipTo(at, u"?>");
    if (text_.substr(at, 2) == u"--") return SkipTo(at + 2, u"-->");
    if (text_.substr(at, 7) == u"[CDATA[") return SkipTo(at + 7, u"]]>");
    std::size_t depth = 0;
    for (at_ = at; at_ < text_.size();) {
      const char16_t unit = text_[at_++];
      if (unit == u'>' && depth == 0) return true;
      if (unit == u'"' && !SkipTo(at_, u"\"")) return false;
      if (unit == u'\'' && !SkipTo(at_, u"'")) return false;
      if (unit == u'<' && depth > 0 && text_.substr(at_, 3) == u"!--") {
        if (!SkipTo(at_ + 3, u"-->")) return false;
      } else if (unit == u'<' && depth > 0 && text_.substr(at_, 1) == u"?") {
        if (!SkipTo(at_ + 1, u"?>")) return false;
      }
      if (unit == u'[') ++depth;
      if (unit == u']' && depth > 0) --depth;
    }
    return Fail(XmlError::kInvalidNode);
  }

  bool SkipTo(std::size_t from, WideStringView end) {
    const std::size_t found = from <= text_.size() ? text_.find(end, from) : WideStringView::npos;
    if (found == WideStringView::npos) return Fail(XmlError::kInvalidNode);
    at_ = found + end.size();
    return true;
  }

  static std::uint32_t Narrow(std::size_t position) { return static_cast<std::uint32_t>(position); }

  WideStringView text_;
  std::size_t at_ = 0;
  std::size_t start_ = 0;  // of the markup that is being read
  bool isEnded_ = false;
  XmlScanResult result_;
  std::vector<XmlElement> elements_;
  std::vector<Open> open_{{XmlIndex::kDocument, 0}};  // from the document down
  std::vector<WideStringView> names_;
};

}  // namespace

ReferenceScan ScanByTheRules(WideStringView text) { return Reference(text).Scan(); }

}  // namespace config
