#include "model/menu_item.h"

#include "model/child_key.h"

#include <algorithm>

namespace model {

MenuItem::MenuItem(MenuItem* parent, WideString name, WideString displayName, WideString title)
    : parent_(parent),
      name_(std::move(name)),
      displayName_(std::move(displayName)),
      title_(std::move(title)),
      text_(title_) {}

void MenuItem::Rename(WideString name, WideString displayName, WideString title) {
  name_ = std::move(name);
  displayName_ = std::move(displayName);
  title_ = std::move(title);
  text_ = title_;
  suffix_.clear();
}

MenuItem::~MenuItem() { RemoveChildren(); }

WideString MenuItem::Path() const {
  std::vector<const MenuItem*> way{this};
  while (way.back()->parent_ != nullptr && !IsAbsoluteName(way.back()->name_)) way.push_back(way.back()->parent_);
  WideString path = way.back()->name_;
  std::for_each(way.rbegin() + 1, way.rend(), [&](const MenuItem* item) { path.append(u"\\").append(item->name_); });
  return path;
}

MenuItem& MenuItem::AddChild(WideString name, WideString displayName, WideString title) {
  children_.push_back(std::make_unique<MenuItem>(this, std::move(name), std::move(displayName), std::move(title)));
  return *children_.back();
}

void MenuItem::RemoveChildren() {
  // Level by level: the depth of a menu is the configuration's choice, the stack's is not.
  std::vector<std::unique_ptr<MenuItem>> doomed = std::move(children_);
  children_.clear();
  while (!doomed.empty()) {
    std::vector<std::unique_ptr<MenuItem>> next;
    for (const auto& item : doomed) {
      for (auto& child : item->children_) next.push_back(std::move(child));
      item->children_.clear();
    }
    doomed = std::move(next);
  }
}

void MenuItem::SetLineText(WideString text) {
  text_ = std::move(text);
  suffix_.clear();
  textIsWholeLine_ = true;
}

void MenuItem::SetSuffix(WideString suffix) {
  if (textIsWholeLine_) text_ = title_;
  textIsWholeLine_ = false;
  suffix_ = std::move(suffix);
}

void MenuItem::SetFirstColumn(char16_t mark) {
  if (text_.empty()) {
    text_.push_back(mark);
  } else {
    text_.front() = mark;
  }
}

void MenuItem::SetState(DisplayState state) {
  state_ = state;
  const bool travels = state == DisplayState::kNormal || state == DisplayState::kNotDisplayed;
  if (linkedItem_ != nullptr && travels) linkedItem_->state_ = state;
}

}  // namespace model
