#include "ui/menu_list.h"

#include "base/format.h"
#include "ui/private_messages.h"

#include <algorithm>
#include <utility>

namespace ui {
namespace {

constexpr WideStringView kFontFace = u"Courier";
constexpr int kSmallListHeightPx = 160;  // at most: the small font
constexpr int kSmallFontPx = 13;
constexpr int kLargeFontPx = 18;

// Fixed, whatever the list's own top and height.
constexpr int kScrollBarTopPx = 17;
constexpr int kScrollBarHeightPx = 123;

constexpr platform::LResult kWantedKeys = platform::dialog_code::kWantArrows | platform::dialog_code::kWantTab |
                                          platform::dialog_code::kWantAllKeys | platform::dialog_code::kWantChars;

// While it lives, the window is not painted; then it is, as a whole.
class WithoutRedraw {
 public:
  explicit WithoutRedraw(platform::WindowHandle window) : window_(window) {
    platform::Send(window_, platform::message::kSetRedraw, 0);
  }
  ~WithoutRedraw() {
    platform::Send(window_, platform::message::kSetRedraw, 1);
    platform::Invalidate(window_);
  }
  WithoutRedraw(const WithoutRedraw&) = delete;
  WithoutRedraw& operator=(const WithoutRedraw&) = delete;

 private:
  platform::WindowHandle window_;
};

}  // namespace

// While it lives, items must not be replaced under the caller's feet: the message that asks for it waits.
class MenuList::Busy {
 public:
  explicit Busy(MenuList& list) : list_(list) { ++list_.busy_; }
  ~Busy() {
    if (--list_.busy_ > 0 || !list_.treeReplaced_) return;
    list_.treeReplaced_ = false;
    platform::Post(list_.Handle(), private_message::kTreeReplaced);
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  MenuList& list_;
};

bool MenuList::Create(platform::WindowHandle owner, model::MenuItem& root, platform::WindowHandle titleLine,
                      const Placement& placement) {
  using namespace platform::style;
  owner_ = owner;
  root_ = &root;
  titleLine_ = titleLine;
  list_ = platform::ListBox(
      platform::MakeWindow({.className = u"listbox",
                            .style = kChild | kVisible | kClipSiblings | kListNotify | kListNoIntegralHeight,
                            .x = placement.x,
                            .y = placement.y,
                            .width = placement.width,
                            .height = placement.height,
                            .parent = owner,
                            .id = kMenuListId}));
  if (!list_) return false;
  SetUpFont(placement.height);
  scrollBar_.Create(owner, placement.x + placement.width, kScrollBarTopPx, kScrollBarHeightPx);
  subclass_ = std::make_unique<platform::Subclass>(list_.Handle(), *this);
  platform::SetText(titleLine_, root.Title());
  return true;
}

// The font gives the lines' height; it is raised where more lines than digit keys would fit.
void MenuList::SetUpFont(int listHeight) {
  platform::SetFont(list_.Handle(),
                    {.face = kFontFace, .heightPx = listHeight <= kSmallListHeightPx ? kSmallFontPx : kLargeFontPx});
  const int clientHeight = platform::ClientRect(list_.Handle()).Height();
  const int leastHeight = clientHeight / (kMostLinesPerPage + 1) + 1;
  if (list_.ItemHeight() < leastHeight) list_.SetItemHeight(leastHeight);
  // Fewer than three lines could not hold "...Back", an item and "More...".
  linesPerPage_ = std::max(3, clientHeight / std::max(1, list_.ItemHeight()));
}

model::MenuItem* MenuList::SelectedItem() const {
  const MenuLine* line = pages_.At(list_.Selected());
  return line == nullptr ? nullptr : line->item;
}

// Pages are told by the selected line: the list box's own keys may have left the list between two of them.
int MenuList::NextPageTop() const {
  const int top = PageTop(list_.Selected()) + linesPerPage_;
  return top > pages_.lastLine ? 0 : top;
}

int MenuList::PreviousPageTop() const {
  const int top = PageTop(list_.Selected()) - linesPerPage_;
  return top < 0 ? PageTop(pages_.lastLine) : top;
}

int MenuList::LastLineOfPage(int top) const {
  return pages_.SelectableUpTo(std::min(top + linesPerPage_ - 1, pages_.lastLine));
}

bool MenuList::Show(model::MenuItem& menu) {
  if (menu.IsLeaf() && &menu != root_) return false;
  menu_ = &menu;
  Fill();
  platform::SetText(titleLine_, menu_->Title());
  platform::Focus(list_.Handle());
  return true;
}

void MenuList::Refill() {
  if (menu_ == nullptr) return;
  Remember(list_.Top(), std::max(0, list_.Selected()));
  Fill();
}

void MenuList::Reset(model::MenuItem& menu) {
  menu.list.topLine = 0;
  menu.list.selectedLine = 0;
  list_.Clear();
  pages_ = {};
}

void MenuList::UpdateLine(const model::MenuItem& item) {
  const auto line = std::find_if(pages_.lines.begin(), pages_.lines.end(),
                                 [&item](const MenuLine& candidate) { return candidate.item == &item; });
  if (line == pages_.lines.end()) return;
  const bool hasNumber = menu_->list.numbered && line->IsSelectable();
  line->text = hasNumber ? base::Format(u"%c  %s", line->text.front(), ItemText(item)) : ItemText(item);
  list_.ReplaceLine(static_cast<int>(line - pages_.lines.begin()), line->text);
}

void MenuList::RunRules() {
  for (const auto& child : menu_->Children()) {
    if (child->list.nonSelectable) continue;
    platform::Send(owner_, private_message::kEvaluateItem, 0, platform::ToLParam(child.get()));
  }
  platform::Send(owner_, private_message::kBeforeFill, 0, platform::ToLParam(menu_));
}

void MenuList::Fill() {
  const Busy busy(*this);
  RunRules();
  pages_ = LayOutMenu(*menu_, linesPerPage_);
  menu_->list.lastLine = pages_.lastLine;
  menu_->list.lastBackLine = pages_.lastBackLine;

  FillList();
  UpdatePageCount();
  UpdateScrollBar();
}

void MenuList::FillList() {
  const WithoutRedraw quiet(list_.Handle());
  list_.Clear();
  for (const MenuLine& line : pages_.lines) list_.SetData(list_.Add(line.text), line.item);
  if (pages_.lastLine >= 0) SelectRemembered();
}

void MenuList::Remember(int top, int line) {
  menu_->list.topLine = top;
  menu_->list.selectedLine = line;
}

void MenuList::SelectRemembered() {
  if (menu_->list.selectedLine > pages_.lastLine) Remember(0, 0);
  int line = menu_->list.selectedLine;
  if (line > 0 && pages_.At(line)->kind == MenuLine::Kind::kEmpty) --line;
  if (line > 0 && !pages_.IsSelectable(line)) --line;
  list_.SetTop(menu_->list.topLine);
  list_.Select(pages_.SelectableFrom(line));  // a menu may begin with a heading
}

void MenuList::GoTo(int top, int line) {
  list_.SetTop(top);
  list_.Select(line);
  menu_->list.topLine = top;
  UpdateScrollBar();
}

// The lines of a plain list have no pages: it scrolls as far as it must.
void MenuList::MoveTo(int line) {
  if (menu_->list.numbered) return GoTo(PageTop(line), line);
  list_.Select(line);
  UpdateScrollBar();
}

void MenuList::Hide() {
  list_.HideAndDisable();
  scrollBar_.Hide();
}

void MenuList::ComeBack() {
  list_.ShowAndEnable();
  UpdatePageCount();
  UpdateScrollBar();
}

void MenuList::UpdatePageCount() {
  scrollBar_.SetPageCount((static_cast<int>(pages_.lines.size()) - 1) / linesPerPage_ + 1);
}

void MenuList::UpdateScrollBar() { scrollBar_.SetPosition(std::max(0, list_.Selected()) / linesPerPage_); }

void MenuList::ItemsWillBeReplaced() {
  place_ = {};
  if (menu_ != nullptr) place_.menus = WayTo(*menu_);
  if (entering_ != nullptr) place_.entering = entering_->Path();
  place_.top = list_.Top();
  place_.line = list_.Selected();
  if (const MenuLine* line = pages_.At(place_.line)) {
    place_.kind = line->kind;
    if (line->item != nullptr) place_.item = line->item->Path();
  }
  pages_ = {};
  list_.Clear();
  menu_ = nullptr;
  entering_ = nullptr;
}

void MenuList::ItemsWereReplaced() {
  menu_ = &FindMenu(place_, *root_);
  entering_ = ChildByPath(*menu_, place_.entering);
  Fill();
  if (WayTo(*menu_) != place_.menus) return;  // another menu, where the place means nothing
  const std::optional<int> line = FindLine(place_, pages_);
  if (!line) return;
  const int top = *line == place_.line ? place_.top : PageTop(*line);
  Remember(top, *line);
  GoTo(top, *line);
}

std::optional<platform::LResult> MenuList::OnMessage(platform::WindowHandle, const platform::Message& message) {
  switch (message.id) {
    case platform::message::kGetDialogCode: return kWantedKeys;
    case platform::message::kKeyDown: return OnKeyDown(message) ? std::optional<platform::LResult>(0) : std::nullopt;
    case platform::message::kChar: OnCharacter(message); return 0;
    case platform::message::kLeftButtonUp:
      subclass_->CallPrevious(message);
      UpdateScrollBar();
      OnEnter();
      return 0;
    case private_message::kTreeReplaced:
      if (busy_ > 0) {
        treeReplaced_ = true;
      } else {
        platform::Send(owner_, private_message::kRebuildModel);
      }
      return 0;
    default: return std::nullopt;
  }
}

// True: the key goes no further.
bool MenuList::OnKeyDown(const platform::Message& message) {
  using namespace platform;
  switch (static_cast<std::uint16_t>(message.wParam)) {
    case key::kEnter: OnEnter(); return true;
    case key::kEscape: OnEscape(); return true;
    case key::kDown: OnDown(); return true;
    case key::kUp: OnUp(); return true;
    case key::kTab:
      if (IsKeyDown(key::kShift)) {
        OnUp();
      } else {
        OnDown();
      }
      return false;
    case key::kHome:
    case key::kF1:
    case key::kF2:
    case key::kF3:
    case key::kF4: Send(owner_, message.id, message.wParam, message.lParam); return true;
    case key::kInsert: Send(owner_, private_message::kFlipToggle); return true;
    case key::kLeft:
    case key::kRight: return true;
    default:
      subclass_->CallPrevious(message);
      UpdateScrollBar();
      return true;
  }
}

// A digit enters the line of the page that begins with it; the list box itself looks for all others.
void MenuList::OnCharacter(const platform::Message& message) {
  const auto character = static_cast<char16_t>(message.wParam);
  if (character < u' ') return;  // Enter, Esc and Tab were handled as keys
  if (character < u'1' || character > u'9') {
    subclass_->CallPrevious(message);
    UpdateScrollBar();
    return;
  }
  const int top = list_.Top();
  for (int index = top; index < top + linesPerPage_; ++index) {
    const MenuLine* line = pages_.At(index);
    if (line == nullptr || !line->IsSelectable() || !line->text.starts_with(character)) continue;
    MoveTo(index);
    return OnEnter();
  }
}

void MenuList::OnDown() {
  if (pages_.HasOnlyHeadings()) return;
  const MenuLine* selected = pages_.At(list_.Selected());
  if (selected != nullptr && selected->kind == MenuLine::Kind::kMore) {
    const int top = NextPageTop();
    return GoTo(top, pages_.SelectableFrom(top));
  }
  if (list_.Selected() >= pages_.lastLine) return GoTo(0, pages_.SelectableFrom(0));
  MoveTo(pages_.SelectableFrom(list_.Selected() + 1));
}

void MenuList::OnUp() {
  if (pages_.HasOnlyHeadings()) return;
  const MenuLine* selected = pages_.At(list_.Selected());
  if (selected != nullptr && selected->kind == MenuLine::Kind::kBack) {
    const int top = PreviousPageTop();
    return GoTo(top, LastLineOfPage(top));
  }
  const int line = pages_.SelectableUpTo(std::min(list_.Selected() - 1, pages_.lastLine));
  if (line < 0) {
    const int last = std::max(0, pages_.lastLine);
    return GoTo(PageTop(last), last);
  }
  MoveTo(line);
}

void MenuList::OnEnter() {
  const int index = list_.Selected();
  const MenuLine* line = pages_.At(index);
  if (line == nullptr) return;
  switch (line->kind) {
    case MenuLine::Kind::kBack: {
      const int top = PreviousPageTop();
      return GoTo(top, pages_.SelectableFrom(top));
    }
    case MenuLine::Kind::kMore: {
      const int top = NextPageTop();
      return GoTo(top, LastLineOfPage(top));
    }
    case MenuLine::Kind::kItem: MoveTo(index); return EnterItem(index);
    case MenuLine::Kind::kEmpty:
    case MenuLine::Kind::kNoItems: return;
  }
}

bool MenuList::AskOwner(std::uint32_t question, model::MenuItem* item) const {
  int answer = 0;
  platform::Send(owner_, question, platform::ToWParam(&answer), platform::ToLParam(item));
  return answer != 0;
}

// The owner's answers may replace all items; what is being entered is then another object of the same path.
void MenuList::EnterItem(int line) {
  const Busy busy(*this);
  Remember(list_.Top(), line);
  entering_ = pages_.At(line)->item;
  if (!AskOwner(private_message::kMayEnterItem, entering_) || entering_ == nullptr) {
    const model::MenuItem* const refused = std::exchange(entering_, nullptr);
    const bool isGone = refused != nullptr && refused->State() == model::DisplayState::kNotDisplayed;
    if (isGone && SelectedItem() == refused) Refill();
    return;
  }
  if (entering_->IsLeaf()) {
    platform::Send(owner_, private_message::kActivateItem, 1, platform::ToLParam(entering_));
  }
  model::MenuItem* entered = std::exchange(entering_, nullptr);
  if (entered == nullptr || (entered->IsLeaf() && !entered->list.entryFlag)) return;
  Show(*entered);
}

void MenuList::OnEscape() {
  const Busy busy(*this);
  if (menu_ == nullptr || !AskOwner(private_message::kMayLeaveMenu, menu_)) return;
  const model::MenuItem* selected = SelectedItem();
  model::MenuItem* menu = selected != nullptr ? selected->Parent() : menu_;
  Reset(*menu);
  if (menu->Parent() != nullptr) {
    Show(*menu->Parent());
    return;
  }
  platform::Send(owner_, private_message::kLeavingRoot);
  platform::PostQuit(0);
}

}  // namespace ui
