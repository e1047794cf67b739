#include "config/xml_index.h"

#include "base/format.h"
#include "config/bracket_reader.h"
#include "config/unit_mask.h"
#include "config/xml_scan.h"
#include "config/xml_tokens.h"

#include <bit>
#include <utility>

namespace config {
namespace {

constexpr struct {
  WideStringView reference;
  char16_t unit;
} kReferences[] = {{u"&lt;", u'<'}, {u"&gt;", u'>'}, {u"&amp;", u'&'}, {u"&quot;", u'"'}, {u"&apos;", u'\''}};

// Of a part of the document.
XmlText WithReferences(WideStringView raw) {
  constexpr std::size_t kStep = 16;
  for (std::size_t at = 0; at < raw.size(); at += kStep) {
    const std::uint64_t mask =
        UnitMask16(raw.data() + at, [](UnitVector v) -> UnitVector { return v == SpreadUnit(u'&'); });
    if (mask != 0) return {raw, static_cast<std::size_t>(std::countr_zero(mask)) < raw.size() - at};
  }
  return {raw, false};
}

}  // namespace

WideString XmlText::Decoded() const {
  if (!hasReferences) return WideString(raw);
  WideString decoded;
  decoded.reserve(raw.size());
  for (std::size_t at = 0; at < raw.size();) {
    std::size_t length = 1;
    char16_t unit = raw[at];
    if (unit == u'&') {
      for (const auto& known : kReferences) {
        if (raw.substr(at, known.reference.size()) != known.reference) continue;
        unit = known.unit;
        length = known.reference.size();
        break;
      }
    }
    decoded.push_back(unit);
    at += length;
  }
  return decoded;
}

void XmlIndex::Clear() {
  text_ = {};
  elements_.Clear();
  elements_.Add() = {};  // the document
  error_.clear();
  refusal_ = {};
}

bool XmlIndex::Parse(SharedText text) {
  BracketReader brackets(text.View());
  return Parse(brackets) && (text_ = std::move(text), true);
}

bool XmlIndex::Parse(Utf8Text text) {
  BracketReader brackets(text);
  if (!Parse(brackets)) return false;
  brackets.ReadAll();
  text_ = SharedText(std::move(text.units), brackets.Text().size());
  return true;
}

bool XmlIndex::Parse(BracketReader& brackets) {
  Clear();
  if (brackets.MaxLength() > kMaxLength) {
    refusal_ = {base::Format(u"Longer than %u characters", kMaxLength), PlaceIn({}, 0)};
    return false;
  }
  const XmlScanResult result = ScanElements(brackets, elements_);
  if (result.error != XmlError::kNone) Refuse(brackets.Text(), result);
  return result.error == XmlError::kNone;
}

void XmlIndex::Refuse(WideStringView text, const XmlScanResult& result) {
  const bool inElement = result.element != kDocument;
  const std::size_t start = elements_[result.element].startTagStart;
  const WideStringView tagName =
      inElement ? TagNameAt(text, elements_[result.element].startTagStart) : WideStringView();
  Clear();
  error_ = base::Format(TextOf(result.error), tagName);
  refusal_.reason = error_.empty() ? u"Begins with an end tag" : error_;
  if (inElement)
    refusal_.reason += base::Format(u" (inside %s, which begins at %s)", tagName, TextOf(PlaceIn(text, start)));
  refusal_.place = PlaceIn(text, result.at);
}

WideStringView XmlIndex::TagName(std::uint32_t element) const {
  if (element == kDocument) return {};
  return TagNameAt(text_.View(), elements_[element].startTagStart);
}

XmlText XmlIndex::Attribute(std::uint32_t element, WideStringView name) const {
  if (element == kDocument) return {};
  const XmlElement& position = elements_[element];
  const WideStringView tag = text_.View().substr(0, position.startTagEnd);
  const XmlToken tagName = ReadXmlToken(tag, position.startTagStart + 1);
  for (XmlToken token = ReadXmlToken(tag, tagName.end); !token.missing;) {
    const XmlToken next = ReadXmlToken(tag, token.end);
    if (!next.Is(u'=')) {
      token = next;
      continue;
    }
    const XmlToken value = ReadXmlToken(tag, next.end);
    if (!token.quoted && XmlTokenEquals(token.text, name)) return WithReferences(value.text);
    token = ReadXmlToken(tag, value.end);
  }
  return {};
}

XmlText XmlIndex::Data(std::uint32_t element) const {
  const XmlElement& position = elements_[element];
  if (position.firstChildIndex != 0 || position.endTagStart <= position.startTagEnd) return {};
  const std::size_t start = position.startTagEnd + 1;
  const WideStringView content = text_.View().substr(start, position.endTagStart - start);
  constexpr WideStringView kBegin = u"<![CDATA[";
  const std::size_t first = SkipXmlBlanks(content, 0);
  if (first < content.size() && content[first] == u'<' && content.substr(first, kBegin.size()) == kBegin) {
    const std::size_t end = content.find(u"]]>", first + kBegin.size());
    if (end != WideStringView::npos) {
      return {content.substr(first + kBegin.size(), end - first - kBegin.size()), false};
    }
  }
  return WithReferences(content);
}

}  // namespace config
