#include "simulator/dump.h"

#include "simulator/quoted_text.h"

namespace simulator {
namespace {

using Kind = ControlPicture::Kind;

const struct {
  Kind kind;
  std::string_view word;
} kWords[] = {
    {Kind::kStatic, "static"},       {Kind::kButton, "button"}, {Kind::kEdit, "edit"},  {Kind::kList, "list"},
    {Kind::kCombo, "combo"},         {Kind::kPicker, "picker"}, {Kind::kAddress, "ip"}, {Kind::kProgress, "progress"},
    {Kind::kScrollBar, "scrollbar"}, {Kind::kOther, "window"},
};

std::string_view WordOf(Kind kind) {
  for (const auto& entry : kWords) {
    if (entry.kind == kind) return entry.word;
  }
  return {};
}

std::string Number(int number) { return std::to_string(number); }

// What follows the control's word on its line.
std::string Details(const ControlPicture& control) {
  std::string details;
  switch (control.kind) {
    case Kind::kScrollBar: return "";
    case Kind::kProgress: return " " + Number(control.position);
    case Kind::kList: return " " + std::to_string(control.lines.size()) + " lines, top " + Number(control.top);
    case Kind::kAddress:
      for (const WideString& field : control.lines) details += " " + Quoted(field);
      return details;
    case Kind::kEdit:
      details = " " + Quoted(control.text) + " selected " + Number(control.selectionStart) + "-" +
                Number(control.selectionEnd);
      return control.top == 0 ? details : details + ", top " + Number(control.top);
    default: return " " + Quoted(control.text) + (control.checked ? " checked" : "");
  }
}

void AppendLines(std::string& out, const ControlPicture& list) {
  for (std::size_t i = 0; i < list.lines.size(); ++i) {
    const bool selected = list.selected >= 0 && i == static_cast<std::size_t>(list.selected);
    out += selected ? "  > " : "    ";
    out += Quoted(list.lines[i]) + "\n";
  }
}

std::string FocusLine(const std::optional<FocusPicture>& focus) {
  if (!focus) return "focus none\n";
  if (focus->isWindow) return "focus window\n";
  const std::string field = focus->field > 0 ? " field " + Number(focus->field) : "";
  return "focus " + Number(focus->controlId) + field + "\n";
}

}  // namespace

std::string Dump(const ScreenPicture& screen) {
  if (screen.windows.empty() && !screen.focus) return {};
  constexpr std::string_view kDisabled = " (disabled)";
  std::string out;
  for (const WindowPicture& window : screen.windows) {
    out += "window " + Quoted(window.title);
    out += window.enabled ? "" : kDisabled;
    out += "\n";
    for (const ControlPicture& control : window.controls) {
      out += "  " + Number(control.id) + " ";
      out += WordOf(control.kind);
      out += Details(control);
      out += control.enabled ? "" : kDisabled;
      out += "\n";
      if (control.kind == Kind::kList) AppendLines(out, control);
    }
  }
  return out + FocusLine(screen.focus);
}

}  // namespace simulator
