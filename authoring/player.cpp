#include "authoring/player.h"

#include "app/dialog_templates.h"
#include "app/kel_config_app.h"
#include "base/string_table.h"
#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "ui/edit_templates.h"
#include "ui/menu_list.h"
#include "ui/menu_pages.h"

#include <algorithm>

namespace authoring {
namespace {

namespace host = platform::host;
using platform::WindowHandle;

// Boxes one after the other, pages of a text: more than that is no progress.
constexpr int kMostInARow = 40;

WindowHandle ListIn(WindowHandle window) {
  for (const WindowHandle child : host::ChildrenOf(window)) {
    if (platform::IsVisible(child) && host::ListStateOf(child)) return child;
  }
  return nullptr;
}

std::string BoxText(WindowHandle box) {
  std::string text;
  for (const WindowHandle child : host::ChildrenOf(box)) {
    if (!platform::IsVisible(child) || platform::IdOf(child) == app::control_id::kPressEnter) continue;
    if (host::KindOf(child) != host::WindowKind::kStatic) continue;
    text += (text.empty() ? "" : " ") + base::ToUtf8(platform::TextOf(child));
  }
  std::replace(text.begin(), text.end(), '\n', ' ');
  return base::ToUtf8(platform::TextOf(box)) + (text.empty() ? "" : ": " + text);
}

bool IsPrefix(const ItemPlace& start, const ItemPlace& whole) {
  return start.size() <= whole.size() && std::equal(start.begin(), start.end(), whole.begin());
}

}  // namespace

Front FrontOf(const PlaySession& session) {
  if (!session.IsRunning()) return Front::kEnded;
  const WindowHandle active = platform::ActiveWindow();
  if (active == nullptr) return Front::kEnded;
  if (platform::ControlOf(active, ui::kAddressEntryId) != nullptr &&
      platform::ControlOf(active, ui::kChoiceListId) != nullptr) {
    return Front::kEditor;
  }
  if (platform::TextOf(active) != LoadText(TextId::kConfigurationUtility)) return Front::kBox;
  return platform::IsVisible(platform::ControlOf(active, ui::kMenuListId)) ? Front::kMenu : Front::kTextPage;
}

Player::Player(const PlayTerms& terms, Goals& goals, Budget& budget)
    : goals_(goals), budget_(budget), session_(terms, &outcomes_) {
  lines_.emplace_back("wait");
  Note();
}

std::string Player::Script() const {
  std::string text;
  for (const std::string& line : lines_) text += line + "\n";
  return text + "effects\n";
}

void Player::Press(std::string_view key) {
  if (!IsRunning()) return;
  --budget_.keys;
  lines_.push_back("key " + std::string(key));
  session_.Press(key);
  Note();
}

void Player::Type(const std::string& text) {
  if (text.empty() || !IsRunning()) return;
  for (const char16_t unit : base::FromUtf8(text)) {
    if (!IsRunning()) return;
    --budget_.keys;
    session_.Press(simulator::KeyForCharacter(unit));
  }
  lines_.push_back("type " + text);
  Note();
}

void Player::Found(const Goal& goal) {
  if (!goals_.Reach(goal)) return;
  found_ = foundNow_ = true;
  findings_.push_back(goal.Id());
}

void Player::FoundAlert(const std::string& text, const std::string& answer) {
  Goal goal;
  goal.kind = GoalKind::kAlert;
  goal.path = goal.title = text;
  goal.what = answer;
  Found(goal);
}

// What is on the screen now counts as seen, and what the rules have done since the last key.
void Player::Note() {
  foundNow_ = false;
  for (const auto& outcome : outcomes_.Take()) {
    Goal goal;
    goal.kind = GoalKind::kRule;
    goal.path = outcome.path;
    goal.rule = outcome.rule;
    goal.outcome = outcome.holds;
    goal.what = OutcomeName(outcome.rule, outcome.holds);
    Found(goal);
  }
  const app::CKelConfigApp* app = session_.App();
  const Front front = FrontOf(session_);
  const auto of = [](GoalKind kind, const model::MenuItem& item) {
    Goal goal;
    goal.kind = kind;
    goal.place = PlaceOf(item);
    goal.path = PathText(item);
    return goal;
  };
  if (app != nullptr && front == Front::kMenu && app->CurrentMenu() != nullptr) {
    Found(of(GoalKind::kMenu, *app->CurrentMenu()));
    for (const auto& child : app->CurrentMenu()->Children()) {
      const bool shown =
          child->State() == model::DisplayState::kNormal || child->State() == model::DisplayState::kNoEdit;
      if (shown) Found(of(GoalKind::kLine, *child));
    }
  }
  if (app != nullptr && front == Front::kEditor && app->SelectedItem() != nullptr) {
    Found(of(GoalKind::kEditor, *app->SelectedItem()));
    for (const std::string& choice : ChoicesShown()) {
      Goal goal = of(GoalKind::kChoice, *app->SelectedItem());
      goal.what = choice;
      if (app->SelectedItem()->Descriptor()->Choices().Count() > 0) goals_.Add(goal);
    }
  }
  if (foundNow_) lines_.emplace_back("dump");
}

const model::MenuItem* Player::ItemAt(const ItemPlace& place) const {
  const app::CKelConfigApp* app = session_.App();
  if (app == nullptr || app->CurrentMenu() == nullptr) return nullptr;
  const model::MenuItem* item = app->CurrentMenu();
  while (item->Parent() != nullptr) item = item->Parent();
  for (const std::size_t index : place) {
    if (index >= item->Children().size()) return nullptr;
    item = item->Children()[index].get();
  }
  return item;
}

const model::MenuItem* Player::CurrentMenu() const {
  const app::CKelConfigApp* app = session_.App();
  return app == nullptr ? nullptr : app->CurrentMenu();
}

void Player::Settle() {
  for (int i = 0; i < kMostInARow && IsRunning(); ++i) {
    switch (FrontOf(session_)) {
      case Front::kBox: AnswerBox(); break;
      case Front::kTextPage: Press("Esc"); break;
      default: return;
    }
  }
}

void Player::AnswerBox() {
  const WindowHandle box = platform::ActiveWindow();
  const std::string text = BoxText(box);
  ++alerts_;
  const auto list = host::ListStateOf(ListIn(box));
  if (!list || list->lines.empty()) {
    FoundAlert(text, {});
    if (foundNow_) lines_.emplace_back("dump");
    Press("Enter");
    return;
  }
  // What was not answered yet comes first.
  std::size_t chosen = list->lines.size() - 1;
  Goal answer;
  answer.kind = GoalKind::kAlert;
  answer.path = answer.title = text;
  for (std::size_t i = list->lines.size(); i-- > 0;) {
    answer.what = base::ToUtf8(base::Trim(list->lines[i]));
    goals_.Add(answer);
    if (!goals_.IsReached(answer)) chosen = i;
  }
  FoundAlert(text, base::ToUtf8(base::Trim(list->lines[chosen])));
  if (foundNow_) lines_.emplace_back("dump");
  for (std::size_t i = 0; i < chosen; ++i) Press("Down");
  Press("Enter");
}

bool Player::TurnToPageOf(const model::MenuItem& item) {
  constexpr auto kPage = static_cast<std::size_t>(ui::kMostLinesPerPage);
  for (int turns = 0; turns < kMostInARow * 10 && IsRunning(); ++turns) {
    const model::MenuItem* menu = CurrentMenu();
    if (menu == nullptr || item.Parent() != menu) return false;
    const ui::MenuPages pages = ui::LayOutMenu(*menu, ui::kMostLinesPerPage);
    const auto line = std::find_if(pages.lines.begin(), pages.lines.end(),
                                   [&](const ui::MenuLine& candidate) { return candidate.item == &item; });
    if (line == pages.lines.end() || !line->IsSelectable() || line->text.empty()) return false;
    const auto list = host::ListStateOf(platform::ControlOf(platform::ActiveWindow(), ui::kMenuListId));
    if (!list) return false;
    const std::size_t wanted = static_cast<std::size_t>(line - pages.lines.begin()) / kPage;
    const std::size_t page = static_cast<std::size_t>(std::max(0, list->top)) / kPage;
    if (page == wanted) return true;
    const std::size_t turn = page < wanted ? page * kPage + kPage - 1 : page * kPage;  // "More...", "...Back"
    Press(base::ToUtf8(pages.lines[turn].text.substr(0, 1)));
  }
  return false;
}

bool Player::Activate(const ItemPlace& place) {
  if (place.empty() || !GoTo({place.begin(), place.end() - 1})) return false;
  const model::MenuItem* item = ItemAt(place);
  return item != nullptr && PressLineOf(*item);
}

bool Player::PressLineOf(const model::MenuItem& item) {
  if (item.State() == model::DisplayState::kBlank || !TurnToPageOf(item)) return false;
  const ui::MenuPages pages = ui::LayOutMenu(*CurrentMenu(), ui::kMostLinesPerPage);
  const auto line = std::find_if(pages.lines.begin(), pages.lines.end(),
                                 [&](const ui::MenuLine& candidate) { return candidate.item == &item; });
  if (line == pages.lines.end()) return false;
  Press(base::ToUtf8(line->text.substr(0, 1)));
  return true;
}

bool Player::GoTo(const ItemPlace& menu) {
  for (int moves = 0; moves < kMostInARow && IsRunning(); ++moves) {
    Settle();
    if (FrontOf(session_) == Front::kEditor) CloseEditor();
    const model::MenuItem* current = CurrentMenu();
    if (current == nullptr || FrontOf(session_) != Front::kMenu) return false;
    const ItemPlace here = PlaceOf(*current);
    if (here == menu) return true;
    if (!IsPrefix(here, menu)) {
      Press("Esc");
      continue;
    }
    const ItemPlace next(menu.begin(), menu.begin() + static_cast<std::ptrdiff_t>(here.size()) + 1);
    const model::MenuItem* item = ItemAt(next);
    if (item == nullptr || item->IsLeaf() || !PressLineOf(*item)) return false;
  }
  return false;
}

void Player::SeeAllPages(const std::function<void()>& onPage) {
  constexpr int kMostPages = 200;
  for (int page = 0; page < kMostPages && IsRunning() && FrontOf(session_) == Front::kMenu; ++page) {
    const WindowHandle handle = platform::ControlOf(platform::ActiveWindow(), ui::kMenuListId);
    const auto list = host::ListStateOf(handle);
    if (!list) return;
    const auto last = static_cast<std::size_t>(list->top + ui::kMostLinesPerPage - 1);
    if (last >= list->lines.size() || !list->lines[last].ends_with(u"More...")) return;
    Press(base::ToUtf8(list->lines[last].substr(0, 1)));
    lines_.emplace_back("dump");
    if (onPage) onPage();
  }
}

// --- editors ---

std::vector<std::string> Player::ChoicesShown() const {
  std::vector<std::string> texts;
  const WindowHandle handle = platform::ControlOf(platform::ActiveWindow(), ui::kChoiceListId);
  const auto list = platform::IsVisible(handle) ? host::ListStateOf(handle) : std::nullopt;
  if (!list) return texts;
  for (const WideString& line : list->lines) texts.push_back(base::ToUtf8(line));
  return texts;
}

std::optional<std::string> Player::FieldText() const {
  const WindowHandle handle = platform::ControlOf(platform::ActiveWindow(), ui::kTextEntryId);
  if (!platform::IsVisible(handle)) return std::nullopt;
  return base::ToUtf8(platform::TextOf(handle));
}

void Player::CloseEditor() {
  for (int i = 0; i < kMostInARow && IsRunning() && FrontOf(session_) == Front::kEditor; ++i) Press("Esc");
  Settle();
}

// Enter, and whatever comes of it. The editor that is still there did not take the value.
void Player::Finish() {
  const app::CKelConfigApp* app = session_.App();
  Goal goal;
  if (app != nullptr && app->SelectedItem() != nullptr) {
    goal.kind = GoalKind::kSave;
    goal.place = PlaceOf(*app->SelectedItem());
    goal.path = PathText(*app->SelectedItem());
  }
  const std::size_t before = alerts_;
  session_.TakeNotes();
  // Enter goes from field to field of an address before it saves.
  constexpr int kMostFields = 5;
  for (int field = 0; field < kMostFields && IsRunning() && FrontOf(session_) == Front::kEditor; ++field) {
    Press("Enter");
    if (FrontOf(session_) == Front::kBox) break;
  }
  Settle();
  const bool stays = FrontOf(session_) == Front::kEditor;
  if (stays) CloseEditor();
  const auto notes = session_.TakeNotes();
  // What the device refuses was tried all the same: the person was told.
  const bool noted = std::find(notes.begin(), notes.end(), base::ToUtf8(LoadText(TextId::kSavedNote))) != notes.end();
  saved_ = noted || alerts_ > before || !session_.IsRunning();
  if (saved_ && !goal.path.empty()) Found(goal);
}

bool Player::SaveChoice(const std::string& text) {
  const auto choices = ChoicesShown();
  const auto wanted = std::find(choices.begin(), choices.end(), text);
  const app::CKelConfigApp* app = session_.App();
  if (wanted == choices.end() || app == nullptr || app->SelectedItem() == nullptr) {
    CloseEditor();
    return false;
  }
  Goal goal;
  goal.kind = GoalKind::kChoice;
  goal.place = PlaceOf(*app->SelectedItem());
  goal.path = PathText(*app->SelectedItem());
  goal.what = text;
  const auto list = host::ListStateOf(platform::ControlOf(platform::ActiveWindow(), ui::kChoiceListId));
  int at = list->selected;
  const int target = static_cast<int>(wanted - choices.begin());
  const int last = static_cast<int>(choices.size()) - 1;
  // The choice that is selected is left and come back to, so that it counts as chosen.
  if (at == target && last > 0) {
    Press(at == last ? "Up" : "Down");
    at += at == last ? -1 : 1;
  }
  for (; at < target && IsRunning(); ++at) Press("Down");
  for (; at > target && IsRunning(); --at) Press("Up");
  const bool isTheOnlyOne = last == 0 && list->selected == 0;  // Enter keeps it
  Finish();
  if (saved_ || isTheOnlyOne) {
    Found(goal);
    if (foundNow_ || found_) lines_.emplace_back("dump");
  }
  return saved_;
}

bool Player::SaveText(const std::string& text) {
  const auto old = FieldText();
  if (!old) return SaveNext();
  Press("End");
  for (std::size_t i = 0; i < base::FromUtf8(*old).size() && IsRunning(); ++i) Press("Backspace");
  Type(text);
  Finish();
  return saved_;
}

bool Player::SaveNext() {
  const WindowHandle address = platform::ControlOf(platform::ActiveWindow(), ui::kAddressEntryId);
  const WindowHandle choices = platform::ControlOf(platform::ActiveWindow(), ui::kChoiceListId);
  const auto list = platform::IsVisible(choices) ? host::ListStateOf(choices) : std::nullopt;
  if (platform::IsVisible(address)) {
    Type("10");
  } else {
    // Above the first choice there is none.
    Press(list && list->selected == 0 ? "Down" : "Up");
  }
  Finish();
  return saved_;
}

}  // namespace authoring
