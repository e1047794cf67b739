#include "model/menu_item.h"

namespace model {

MenuItem::MenuItem(MenuItem* parent, WideString path, WideString displayName, WideString title)
    : parent_(parent),
      path_(std::move(path)),
      displayName_(std::move(displayName)),
      title_(std::move(title)),
      text_(title_) {}

void MenuItem::Rename(WideString path, WideString displayName, WideString title) {
  path_ = std::move(path);
  displayName_ = std::move(displayName);
  title_ = std::move(title);
  SetLineText(title_);
}

MenuItem::~MenuItem() { RemoveChildren(); }

MenuItem& MenuItem::AddChild(WideString path, WideString displayName, WideString title) {
  children_.push_back(std::make_unique<MenuItem>(this, std::move(path), std::move(displayName), std::move(title)));
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
