#include "tests/app/random_keys.h"

#include "app/dialog_templates.h"
#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "platform/messages.h"
#include "simulator/keys.h"
#include "tests/app/keypad.h"
#include "ui/menu_list.h"

namespace tests {
namespace {

namespace host = platform::host;
using platform::WindowHandle;

// How often each group is pressed, of 100.
struct KeyGroup {
  std::uint32_t share;
  const char* names[10];
};
constexpr KeyGroup kGroups[] = {
    {30, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "1"}},
    {22, {"Enter", "Enter", "Enter", "Enter", "Enter", "Enter", "Enter", "Enter", "Enter", "Enter"}},
    {20, {"Up", "Down", "Left", "Right", "Down", "Up", "Down", "Down", "Up", "Right"}},
    {10, {"Esc", "Esc", "Esc", "Esc", "Home", "Esc", "Esc", "Esc", "Esc", "Esc"}},
    {10, {"0", "a", "B", ".", "-", "x", "f", "0", "*", "|"}},
    {8, {"Tab", "ShiftTab", "Insert", "Delete", "Backspace", "PageUp", "PageDown", "F1", "F4", "End"}},
};

constexpr std::size_t kMostTopLevels = 6;  // the main screen, an edit dialog, and boxes over one another
constexpr std::size_t kMostWindows = 60;

std::string ProblemOfTheList(WindowHandle list) {
  const auto state = host::ListStateOf(list);
  if (!state) return "there is no list";
  const auto lines = static_cast<int>(state->lines.size());
  if (lines == 0) return "the list is empty";
  if (state->lines == std::vector<WideString>{u"(no items)"}) return {};  // a line that cannot be selected
  return state->selected < 0 || state->selected >= lines ? "nothing is selected" : "";
}

// The menu's list when the main screen is in front and shows it, else none.
WindowHandle ShownList() {
  if (WhatIsInFront() != Front::kMainScreen) return nullptr;
  const WindowHandle list = platform::ControlOf(platform::ActiveWindow(), ui::kMenuListId);
  return platform::IsVisible(list) ? list : nullptr;
}

}  // namespace

platform::host::KeyStroke KeyFor(std::uint32_t number) {
  std::uint32_t share = number % 100;
  const KeyGroup* group = kGroups;
  while (share >= group->share) share -= (group++)->share;
  const simulator::Key key = *simulator::KeyByName(group->names[number / 100 % 10]);
  return {key.virtualKey, key.character, key.shift, false};
}

std::string ProblemOfTheWindows() {
  const auto topLevels = host::TopLevelFromBottom();
  std::size_t windows = topLevels.size();
  for (const WindowHandle window : topLevels) {
    for (const WindowHandle child : host::ChildrenOf(window)) windows += 1 + host::ChildrenOf(child).size();
  }
  if (topLevels.size() > kMostTopLevels || windows > kMostWindows) {
    return "there are " + std::to_string(topLevels.size()) + " windows with " + std::to_string(windows) + " in all";
  }
  if (WhatIsInFront() == Front::kMainScreen && platform::FocusedWindow() == nullptr) return "nothing has the focus";
  const WindowHandle list = ShownList();
  return list == nullptr ? "" : ProblemOfTheList(list);
}

std::string ProblemOfTheScreen(const std::set<std::string>& menuTitles) {
  std::string problem = ProblemOfTheWindows();
  if (!problem.empty() || ShownList() == nullptr) return problem;
  const std::string title =
      base::ToUtf8(platform::TextOf(platform::ControlOf(platform::ActiveWindow(), app::control_id::kTitle)));
  return menuTitles.contains(title) ? "" : "there is no menu \"" + title + "\"";
}

std::set<std::string> DisplayNamesIn(const std::string& xml) {
  constexpr std::string_view kStart = "<DisplayName>";
  std::set<std::string> names;
  for (std::size_t at = xml.find(kStart); at != std::string::npos; at = xml.find(kStart, at)) {
    at += kStart.size();
    std::string name = xml.substr(at, xml.find('<', at) - at);
    if (const std::size_t amp = name.find("&amp;"); amp != std::string::npos) name.erase(amp + 1, 4);
    names.insert(std::move(name));
  }
  return names;
}

}  // namespace tests
