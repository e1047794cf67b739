#include "rules/summary.h"

namespace rules {
namespace {

// A title is held by many entries when a configuration wants it; a page has no use for more than a line of it.
WideString TitleOf(const model::MenuItem& item) {
  return WideString(item.Title().substr(0, model::MenuItem::kLongestLine));
}

}  // namespace

std::vector<WideString> SummaryLines(model::MenuModel& model, const model::MenuItem& item) {
  std::vector<WideString> lines;
  std::vector<const model::MenuItem*> menus{item.IsLeaf() ? &model.Root() : &item};
  while (!menus.empty()) {
    const model::MenuItem& menu = *menus.back();
    menus.pop_back();
    const auto* property = menu.Descriptor();
    const bool hasValue = property != nullptr && model::ShowsValue(*property);
    lines.push_back(hasValue ? TitleOf(menu) + u": " + model.ShownValue(*property) : TitleOf(menu));
    const auto& children = menu.Children();
    for (const auto& child : children) {
      if (!child->IsLeaf() || child->Descriptor() == nullptr) continue;
      lines.push_back(TitleOf(*child) + u": " + model.ShownValue(*child->Descriptor()));
    }
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      if (!(*child)->IsLeaf()) menus.push_back(child->get());
    }
  }
  return lines;
}

}  // namespace rules
