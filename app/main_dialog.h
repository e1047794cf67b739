// The one dialog inside which all work with the program happens: the title line, the menu list, the text page and the
// navigation line. It turns keys and buttons into moves through the menu.
#pragma once

#include "app/inline_editors.h"
#include "app/screen_actions.h"
#include "app/text_page.h"
#include "base/string_table.h"
#include "rules/shell.h"
#include "ui/menu_list.h"
#include "values/message_boxes.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace app {

class MainDialog final : public platform::MessageHandler, public rules::Shell {
 public:
  MainDialog(ScreenActions& actions, values::MessageBoxes& boxes, std::function<void(platform::WindowHandle)> onWindow);

  // Runs the screen over a menu, which stays, until the user leaves it.
  platform::LResult Run(model::MenuItem& rootMenu, bool largeLayout);

  // While an edit runs, a second one is refused. `edit` says whether a value was saved; a note then confirms it.
  void RunEdit(const std::function<bool(platform::WindowHandle owner)>& edit);

  InlineEditors& Inline() { return inlineEditors_; }
  bool IsLarge() const { return largeLayout_; }

  // The list's items are replaced by `replace`; what the list shows is found again.
  void ReplaceItems(const std::function<void()>& replace);

  // rules::Shell
  model::MenuItem* CurrentMenu() override { return list_.Menu(); }
  const model::MenuItem* CurrentMenu() const { return list_.Menu(); }
  // Null: none, or a line of the list's own.
  const model::MenuItem* SelectedItem() const { return list_.SelectedItem(); }
  void LineChanged(model::MenuItem& item) override { list_.UpdateLine(item); }
  void Refill() override { list_.Refill(); }
  void FocusList() override { platform::Focus(list_.Handle()); }
  void ShowNote(WideStringView text) override;
  void ShowTextPage(const std::vector<WideString>& lines) override;
  void ShowSystemMessage(WideStringView text, WideStringView caption) override {
    platform::ShowSystemMessage(text, caption);
  }
  platform::WindowHandle MainWindow() override { return window_; }

  std::optional<platform::LResult> OnMessage(platform::WindowHandle window, const platform::Message& message) override;

 private:
  platform::LResult Initialise();
  void SetFonts() const;
  void PlaceNavigation() const;
  void SetNavigation(TextId text) const;
  void CloseTextPage();
  void ShowRootMenu();
  bool OnKeyDown(std::uint16_t virtualKey);
  std::optional<platform::LResult> OnCommand(const platform::Message& message);
  std::optional<platform::LResult> OnPrivateMessage(const platform::Message& message);
  void KeyToList(std::uint16_t virtualKey) const;
  bool PassEditKey(std::uint16_t virtualKey) const;
  std::optional<platform::LResult> OnControlColor(const platform::Message& message) const;
  void Paint() const;

  ScreenActions& actions_;
  values::MessageBoxes& boxes_;
  std::function<void(platform::WindowHandle)> onWindow_;
  model::MenuItem* rootMenu_ = nullptr;
  bool largeLayout_ = false;
  platform::WindowHandle window_ = nullptr;
  platform::WindowHandle title_ = nullptr;
  platform::WindowHandle navigation_ = nullptr;
  ui::MenuList list_;
  TextPage textPage_;
  InlineEditors inlineEditors_;
  bool editRuns_ = false;
};

}  // namespace app
