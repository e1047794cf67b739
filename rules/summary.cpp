#include "rules/summary.h"

namespace rules {

std::vector<WideString> SummaryLines(model::MenuModel& model, const model::MenuItem& item) {
  std::vector<WideString> lines;
  std::vector<const model::MenuItem*> menus{item.IsLeaf() ? &model.Root() : &item};
  while (!menus.empty()) {
    const model::MenuItem& menu = *menus.back();
    menus.pop_back();
    const auto* property = menu.Descriptor();
    const bool hasValue = property != nullptr && model::ShowsValue(*property);
    lines.push_back(hasValue ? menu.Title() + u": " + model.ShownValue(*property) : menu.Title());
    const auto& children = menu.Children();
    for (const auto& child : children) {
      if (!child->IsLeaf() || child->Descriptor() == nullptr) continue;
      lines.push_back(child->Title() + u": " + model.ShownValue(*child->Descriptor()));
    }
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      if (!(*child)->IsLeaf()) menus.push_back(child->get());
    }
  }
  return lines;
}

}  // namespace rules
