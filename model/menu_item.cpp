#include "model/menu_item.h"

#include "model/child_key.h"

#include <algorithm>

namespace model {

MenuItem::MenuItem(MenuItem* parent, WideStringView name, WideStringView displayName, WideStringView title,
                   const config::ConfigKey* key)
    : parent_(parent), name_(name), displayName_(displayName), title_(title), key_(key) {}

void MenuItem::Rename(WideStringView name, WideStringView displayName, WideStringView title,
                      const config::ConfigKey* key) {
  name_ = name;
  displayName_ = displayName;
  title_ = title;
  key_ = key;
  wholeLine_.reset();
  suffix_.clear();
  mark_.reset();
}

MenuItem::~MenuItem() { RemoveChildren(); }

WideString MenuItem::Path() const {
  std::vector<const MenuItem*> way{this};
  while (way.back()->parent_ != nullptr && !IsAbsoluteName(way.back()->name_)) way.push_back(way.back()->parent_);
  WideString path(way.back()->name_);
  std::for_each(way.rbegin() + 1, way.rend(), [&](const MenuItem* item) { path.append(u"\\").append(item->name_); });
  return path;
}

MenuItem& MenuItem::AddChild(WideStringView name, WideStringView displayName, WideStringView title,
                             const config::ConfigKey* key) {
  children_.push_back(std::make_unique<MenuItem>(this, name, displayName, title, key));
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

WideString MenuItem::LineText() const {
  WideString line(wholeLine_ ? WideStringView(*wholeLine_) : title_.substr(0, kLongestLine));
  if (mark_) line.replace(0, 1, 1, *mark_);
  return line.append(suffix_, 0, kLongestLine - line.size());
}

void MenuItem::SetLineText(WideString text) {
  text.resize(std::min(text.size(), kLongestLine));
  wholeLine_ = std::move(text);
  suffix_.clear();
  mark_.reset();
}

void MenuItem::SetSuffix(WideString suffix) {
  if (wholeLine_) mark_.reset();
  wholeLine_.reset();
  suffix.resize(std::min(suffix.size(), kLongestLine));
  suffix.shrink_to_fit();
  suffix_ = std::move(suffix);
}

void MenuItem::SetState(DisplayState state) {
  state_ = state;
  const bool travels = state == DisplayState::kNormal || state == DisplayState::kNotDisplayed;
  if (linkedItem_ != nullptr && travels) linkedItem_->state_ = state;
}

}  // namespace model
