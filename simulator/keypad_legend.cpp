#include "simulator/keypad_legend.h"

#include "platform/host/desktop.h"
#include "ui/ip_address_control.h"
#include "ui/menu_list.h"

#include <algorithm>

namespace simulator {
namespace {

namespace host = platform::host;
using platform::WindowHandle;

enum class Focus { kMenu, kChoice, kField, kAddress, kPicker, kButton, kTextPage, kMessage };

Focus WhatHasFocus() {
  const WindowHandle focused = platform::FocusedWindow();
  const WindowHandle parent = platform::ParentOf(focused);
  switch (host::KindOf(focused)) {
    case host::WindowKind::kListBox: {
      const bool isInMainScreen = !host::TopLevelFromBottom().empty() && host::TopLevelFromBottom().front() == parent;
      return isInMainScreen && platform::IdOf(focused) == ui::kMenuListId ? Focus::kMenu : Focus::kChoice;
    }
    case host::WindowKind::kEdit:
      if (base::EqualsIgnoringCase(host::ClassOf(parent), ui::kAddressClassName)) return Focus::kAddress;
      return host::EditStateOf(focused).value_or(host::EditState{}).multiLine ? Focus::kTextPage : Focus::kField;
    case host::WindowKind::kDateTimePicker: return Focus::kPicker;
    case host::WindowKind::kButton: return Focus::kButton;
    default: return Focus::kMessage;
  }
}

constexpr WideStringView kSave = u"Enter  save";
constexpr WideStringView kCancel = u"Esc    cancel";
constexpr WideStringView kButtons = u"Tab    the buttons";
// Stands for the line that says what typing does.
constexpr WideStringView kInsert = u"Insert";

const struct {
  Focus focus;
  std::vector<WideStringView> lines;
} kLegends[] = {
    {Focus::kMenu,
     {u"↑ ↓    choose a line", u"1-9    enter a line", u"Enter  enter, save", u"Esc    back, cancel",
      u"Tab    next line", u"Home   the main menu"}},
    {Focus::kChoice, {u"↑ ↓    choose", u"Enter  take it", kCancel}},
    {Focus::kField, {u"← →    move", u"Del    delete", kInsert, kSave, kCancel, kButtons}},
    {Focus::kAddress, {u"← →    move", u".      next field", u"Del    delete", kInsert, kSave, kCancel, kButtons}},
    {Focus::kPicker, {u"← →    choose a part", u"↑ ↓    change it", u"0-9    type it", kSave, kCancel, kButtons}},
    {Focus::kButton, {u"Enter  press it", u"Tab    next", kCancel}},
    {Focus::kTextPage, {u"↑ ↓    scroll", u"Esc    back"}},
    {Focus::kMessage, {u"Enter  go on", u"Esc    go on"}},
};

bool HasButtons(WindowHandle window) {
  const auto children = host::ChildrenOf(window);
  return std::any_of(children.begin(), children.end(), [](WindowHandle child) {
    return host::KindOf(child) == host::WindowKind::kButton && platform::IsVisible(child);
  });
}

}  // namespace

std::vector<WideString> KeypadLegend(bool inserts) {
  const Focus focus = WhatHasFocus();
  const bool isOn = !host::TopLevelFromBottom().empty();
  std::vector<WideString> lines;
  for (const auto& legend : kLegends) {
    if (legend.focus != focus || !isOn) continue;
    for (const WideStringView line : legend.lines) {
      if (line == kButtons && !HasButtons(platform::ActiveWindow())) continue;
      lines.emplace_back(line == kInsert ? inserts ? u"Insert now: insert" : u"Insert now: overtype" : line);
    }
  }
  if (!lines.empty()) lines.insert(lines.end(), {u"", u"Ctrl-W why this line"});
  lines.emplace_back(u"Ctrl-C turn off");
  return lines;
}

}  // namespace simulator
