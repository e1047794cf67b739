#include "authoring/trial.h"

#include "ui/menu_pages.h"

#include <algorithm>

namespace authoring {
namespace {

using ui::MenuLine;

constexpr auto kPageSize = static_cast<std::size_t>(ui::kMostLinesPerPage);

// A digit enters the line of the page that begins with it.
const MenuLine* LineOfDigit(const ui::MenuPages& pages, std::size_t top, char16_t digit) {
  const std::size_t end = std::min(top + kPageSize, pages.lines.size());
  for (std::size_t i = top; i < end; ++i) {
    if (!pages.lines[i].text.empty() && pages.lines[i].text.front() == digit) return &pages.lines[i];
  }
  return nullptr;
}

bool MayEnter(const model::MenuItem& item) { return item.State() != model::DisplayState::kBlank; }

}  // namespace

Trial::Trial(const Configuration& configuration, rules::RuleListener* listener)
    : installed_(EnvironmentOf(configuration.Terminal())),
      configuration_(configuration),
      device_(configuration.Terminal()),
      access_(device_.Connector()),
      gate_({}, true),
      model_({access_, configuration.Symbols(), gate_, screen_}),
      rules_({model_, access_, configuration.Symbols(), changes_, events_, edit_, screen_, screen_, flashWrite_,
              listener}) {
  Rebuild();
}

void Trial::Rebuild() {
  screen_.menu = nullptr;
  model_.Build(configuration_.Tree(), configuration_.RootPath());
}

void Trial::Enter(model::MenuItem& menu) {
  screen_.menu = &menu;
  for (const auto& child : menu.Children()) rules_.dependencies.EvaluateDependencies(*child);
  rules_.handlers.RunEnterHandler(menu);
}

void Trial::Open(model::MenuItem& menu) {
  rules_.handlers.RunEnterHandler(menu);
  Enter(menu);
}

std::optional<WideString> Trial::KeysTo(model::MenuItem& item) {
  std::vector<model::MenuItem*> way;
  for (model::MenuItem* at = &item; at->Parent() != nullptr; at = at->Parent()) way.push_back(at);
  std::reverse(way.begin(), way.end());
  WideString keys;
  Enter(model_.Root());
  for (const model::MenuItem* next : way) {
    if (next->Parent() != &model_.Root()) Open(*next->Parent());
    const auto lines = KeysOfLines(*next->Parent());
    const auto line = std::find_if(lines.begin(), lines.end(), [next](const auto& one) { return one.first == next; });
    if (line == lines.end()) return std::nullopt;
    keys += line->second;
  }
  return keys;
}

std::vector<std::pair<model::MenuItem*, WideString>> Trial::KeysOfLines(const model::MenuItem& menu) const {
  std::vector<std::pair<model::MenuItem*, WideString>> lines;
  const ui::MenuPages pages = ui::LayOutMenu(menu, ui::kMostLinesPerPage);
  WideString toPage;
  for (std::size_t i = 0; i < pages.lines.size(); ++i) {
    const MenuLine& line = pages.lines[i];
    if (i > 0 && i % kPageSize == 0) toPage.push_back(pages.lines[i - 1].text.front());
    if (line.item == nullptr || !line.IsSelectable() || !MayEnter(*line.item)) continue;
    lines.emplace_back(line.item, toPage + line.text.substr(0, 1));
  }
  return lines;
}

model::MenuItem* Trial::ItemAt(WideStringView keys) {
  model::MenuItem* item = &model_.Root();
  std::size_t top = 0;
  Enter(*item);
  ui::MenuPages pages = ui::LayOutMenu(*item, ui::kMostLinesPerPage);
  for (const char16_t key : keys) {
    if (key == u'-' || key == u' ') continue;
    const MenuLine* line = LineOfDigit(pages, top, key);
    if (line == nullptr) return nullptr;
    if (line->kind == MenuLine::Kind::kMore) {
      top += kPageSize;
    } else if (line->kind == MenuLine::Kind::kBack) {
      top -= kPageSize;
    } else {
      if (!MayEnter(*line->item)) return nullptr;
      item = line->item;
      top = 0;
      Open(*item);
      pages = item->IsLeaf() ? ui::MenuPages() : ui::LayOutMenu(*item, ui::kMostLinesPerPage);
    }
  }
  return item;
}

}  // namespace authoring
