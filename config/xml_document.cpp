#include "config/xml_document.h"

#include "config/xml_tokens.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace config {

bool XmlDocument::SetDocument(SharedText text) {
  ResetPosition();
  return index_.Parse(std::move(text));
}

bool XmlDocument::SetDocument(Utf8Text text) {
  ResetPosition();
  return index_.Parse(std::move(text));
}

void XmlDocument::ResetPosition() {
  ResetMainPosition();
  parent_ = XmlIndex::kDocument;
}

void XmlDocument::ResetMainPosition() {
  current_ = 0;
  child_ = 0;
  nodeType_ = 0;
}

bool XmlDocument::FindElement(WideStringView tag) {
  std::uint32_t next = current_ == 0 ? index_[parent_].firstChildIndex : index_[current_].nextSiblingIndex;
  while (next != 0 && !tag.empty() && !XmlTokenEquals(index_.TagName(next), tag)) next = index_[next].nextSiblingIndex;
  if (next == 0) return false;
  current_ = next;
  child_ = 0;
  nodeType_ = 1;
  return true;
}

void XmlDocument::GoInto() {
  if (current_ == 0 || nodeType_ != 1) return;
  parent_ = current_;
  current_ = child_;
  child_ = 0;
  nodeType_ = current_ != 0 ? 1 : 0;
}

void XmlDocument::GoOutOf() {
  if (parent_ == XmlIndex::kDocument) return;
  child_ = current_;
  current_ = parent_;
  parent_ = index_[parent_].parentIndex;
  nodeType_ = 1;
}

WideStringView XmlDocument::TagName() const { return current_ == 0 ? WideStringView() : index_.TagName(current_); }

WideString XmlDocument::Attribute(WideStringView name) const {
  return nodeType_ == 1 ? index_.Attribute(current_, name).Decoded() : WideString();
}

WideString XmlDocument::Data() const { return current_ == 0 ? WideString() : index_.Data(current_).Decoded(); }

// A group of the right name whose inside does not hold the rest of the path is left again, and the groups behind it are
// tried: so the heads of the groups that were gone into are remembered.
bool XmlDocument::FindGroup(WideStringView path) {
  ResetPosition();
  std::vector<std::size_t> heads;  // where in the path each level's name begins
  std::size_t head = 0;
  while (head < path.size()) {
    const std::size_t end = std::min(path.find(u'\\', head), path.size());
    bool found = false;
    while (!found && FindElement(u"GROUP")) found = Attribute(u"name") == path.substr(head, end - head);
    if (found) {
      heads.push_back(head);
      head = std::min(end + 1, path.size());
      GoInto();
    } else {
      GoOutOf();
      if (heads.empty()) {
        ResetPosition();
        return false;
      }
      head = heads.back();
      heads.pop_back();
    }
  }
  return true;
}

}  // namespace config
