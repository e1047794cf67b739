#include "ui/menu_pages.h"

#include "base/format.h"

namespace ui {
namespace {

constexpr WideStringView kNumberedLine = u"%d  %s";

class PageMaker {
 public:
  PageMaker(std::vector<model::MenuItem*> items, int pageSize)
      : items_(std::move(items)), pageSize_(static_cast<std::size_t>(pageSize)) {}

  MenuPages Make() && {
    while (next_ < items_.size()) AddPage();
    Pad();
    return std::move(pages_);
  }

 private:
  std::size_t Remaining() const { return items_.size() - next_; }
  std::size_t LinesOnPage() const { return pages_.lines.size() - pageStart_; }
  bool AtLastLine() const { return LinesOnPage() == pageSize_ - 1; }

  void AddPage() {
    pageStart_ = pages_.lines.size();
    number_ = 1;
    if (pageStart_ > 0) {
      pages_.lastBackLine = static_cast<int>(pageStart_);
      AddNumbered(MenuLine::Kind::kBack, u"...Back", nullptr);
    }
    const std::size_t firstItem = next_;
    while (next_ < items_.size() && LinesOnPage() < pageSize_) {
      // The very last item may have the page's last line; "More..." leads to two items or more.
      if (AtLastLine() && Remaining() > 1) {
        number_ = static_cast<int>(pageSize_);
        AddNumbered(MenuLine::Kind::kMore, u"More...", nullptr);
      } else if (next_ != firstItem && StandsAloneBeforeMore()) {
        pages_.lines.push_back({});
      } else {
        AddItem();
      }
    }
  }

  // The next item would stand just above "More...", parted from the one it belongs with.
  bool StandsAloneBeforeMore() const {
    return LinesOnPage() == pageSize_ - 2 && items_[next_]->list.keepWithNext && Remaining() > 2;
  }

  void AddItem() {
    model::MenuItem* item = items_[next_++];
    if (item->list.nonSelectable) {
      pages_.lines.push_back({MenuLine::Kind::kItem, ItemText(*item), item});
    } else {
      AddNumbered(MenuLine::Kind::kItem, ItemText(*item), item);
    }
  }

  void AddNumbered(MenuLine::Kind kind, WideStringView text, model::MenuItem* item) {
    pages_.lines.push_back({kind, base::Format(kNumberedLine, number_++, text), item});
  }

  // A count that is already a whole number of pages gets a full page more, on purpose.
  void Pad() {
    const std::size_t missing = pageSize_ - pages_.lines.size() % pageSize_;
    pages_.lines.resize(pages_.lines.size() + missing);
  }

  std::vector<model::MenuItem*> items_;
  std::size_t pageSize_;
  MenuPages pages_;
  std::size_t next_ = 0;
  std::size_t pageStart_ = 0;
  int number_ = 1;
};

MenuPages PlainLines(const std::vector<model::MenuItem*>& items) {
  MenuPages pages;
  for (model::MenuItem* item : items) pages.lines.push_back({MenuLine::Kind::kItem, ItemText(*item), item});
  return pages;
}

}  // namespace

const MenuLine* MenuPages::At(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= lines.size()) return nullptr;
  return &lines[static_cast<std::size_t>(index)];
}

bool MenuPages::IsSelectable(int index) const {
  const MenuLine* const line = At(index);
  return line != nullptr && line->IsSelectable();
}

int MenuPages::SelectableFrom(int line) const {
  while (line < lastLine && !IsSelectable(line)) ++line;
  return line;
}

int MenuPages::SelectableUpTo(int line) const {
  while (line >= 0 && !IsSelectable(line)) --line;
  return line;
}

bool MenuPages::HasOnlyHeadings() const {
  return lastLine < 0 && !lines.empty() && lines.front().kind == MenuLine::Kind::kItem;
}

WideString ItemText(const model::MenuItem& item) {
  return item.State() == model::DisplayState::kBlank ? WideString() : item.LineText();
}

MenuPages LayOutMenu(const model::MenuItem& menu, int pageSize) {
  std::vector<model::MenuItem*> shown;
  for (const auto& child : menu.Children()) {
    if (child->State() != model::DisplayState::kNotDisplayed) shown.push_back(child.get());
  }
  if (shown.empty()) {
    MenuPages none;
    none.lines.push_back({MenuLine::Kind::kNoItems, u"(no items)", nullptr});
    return none;
  }
  MenuPages pages = menu.list.numbered ? PageMaker(std::move(shown), pageSize).Make() : PlainLines(shown);
  pages.lastLine = pages.SelectableUpTo(static_cast<int>(pages.lines.size()) - 1);
  return pages;
}

}  // namespace ui
