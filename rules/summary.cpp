#include "rules/summary.h"

namespace rules {
namespace {

// Title and value, or the title alone where the menu shows no value either. A title is held by many entries when a
// configuration wants it; a page has no use for more than a line of it.
WideString LineOf(const model::MenuModel& model, const model::MenuItem& item) {
  WideString line(item.Title().substr(0, model::MenuItem::kLongestLine));
  const auto* property = item.Descriptor();
  if (property != nullptr && model::ShowsValue(*property)) line += u": " + model.ShownValue(*property);
  return line;
}

}  // namespace

std::vector<WideString> SummaryLines(model::MenuModel& model, const model::MenuItem& item) {
  std::vector<WideString> lines;
  std::vector<const model::MenuItem*> menus{item.IsLeaf() ? &model.Root() : &item};
  while (!menus.empty()) {
    const model::MenuItem& menu = *menus.back();
    menus.pop_back();
    lines.push_back(LineOf(model, menu));
    const auto& children = menu.Children();
    for (const auto& child : children) {
      if (child->IsLeaf() && child->Descriptor() != nullptr) lines.push_back(LineOf(model, *child));
    }
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      if (!(*child)->IsLeaf()) menus.push_back(child->get());
    }
  }
  return lines;
}

}  // namespace rules
