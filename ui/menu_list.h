// The list that shows one menu at a time and owns the keyboard while it does. It decides nothing about the data: it
// asks its owner, the main screen, by private messages.
#pragma once

#include "model/menu_item.h"
#include "platform/controls.h"
#include "ui/list_place.h"
#include "ui/menu_pages.h"
#include "ui/scroll_bar.h"

#include <memory>
#include <optional>

namespace ui {

inline constexpr int kMenuListId = 1002;

class MenuList final : public platform::MessageHandler {
 public:
  struct Placement {
    int x = 0, y = 0, width = 0, height = 0;  // pixels
  };

  // Makes the list over `root`, and its scroll bar at the list's right edge; nothing is shown yet. `titleLine` gets
  // the title of each menu shown. False when the list cannot be made.
  bool Create(platform::WindowHandle owner, model::MenuItem& root, platform::WindowHandle titleLine,
              const Placement& placement);

  // Fills the list with a menu's lines and takes the focus. False, and no change, for a menu without children (the
  // root alone is shown, as "(no items)").
  bool Show(model::MenuItem& menu);

  // Fills the list anew with the menu shown; selection and page stay.
  void Refill();

  // Gives way, with its scroll bar, to something else in its place, and comes back.
  void Hide();
  void ComeBack();

  // Forgets where a menu was left and empties the list.
  void Reset(model::MenuItem& menu);

  // Rewrites the line of an item, keeping the line's number; nothing happens for an item that has no line now.
  void UpdateLine(const model::MenuItem& item);

  // The root's items are replaced by others between these two. The menu shown, its page, its selected line and the
  // item being entered are found again; a menu that is gone gives way to the nearest one above it.
  void ItemsWillBeReplaced();
  void ItemsWereReplaced();

  model::MenuItem* Menu() const { return menu_; }
  model::MenuItem* SelectedItem() const;
  model::MenuItem* EnteringItem() const { return entering_; }  // while the owner is asked about it
  platform::WindowHandle Handle() const { return list_.Handle(); }

  std::optional<platform::LResult> OnMessage(platform::WindowHandle window, const platform::Message& message) override;

 private:
  class Busy;

  void SetUpFont(int listHeight);
  int PageTop(int line) const { return line / linesPerPage_ * linesPerPage_; }
  int NextPageTop() const;
  int PreviousPageTop() const;
  int LastLineOfPage(int top) const;

  void Fill();
  void FillList();
  void RunRules();
  void Remember(int top, int line);
  void SelectRemembered();
  void GoTo(int top, int line);
  void MoveTo(int line);
  void UpdatePageCount();
  void UpdateScrollBar();

  bool OnKeyDown(const platform::Message& message);
  void OnCharacter(const platform::Message& message);
  void OnEnter();
  void OnEscape();
  void OnDown();
  void OnUp();
  void EnterItem(int line);
  bool AskOwner(std::uint32_t question, model::MenuItem* item) const;

  platform::WindowHandle owner_ = nullptr;
  platform::WindowHandle titleLine_ = nullptr;
  platform::ListBox list_;
  std::unique_ptr<platform::Subclass> subclass_;
  ScrollBar scrollBar_;
  model::MenuItem* root_ = nullptr;
  model::MenuItem* menu_ = nullptr;
  model::MenuItem* entering_ = nullptr;
  MenuPages pages_;
  int linesPerPage_ = kMostLinesPerPage;
  ListPlace place_;
  int busy_ = 0;               // items are in use by a caller further up the stack
  bool treeReplaced_ = false;  // while busy: to be passed on afterwards
};

}  // namespace ui
