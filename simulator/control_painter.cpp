#include "simulator/control_painter.h"

#include "platform/host/desktop.h"

#include <algorithm>

namespace simulator {
namespace {

namespace host = platform::host;
namespace style = platform::style;
using host::WindowKind;
using platform::WindowHandle;

bool HasFocus(WindowHandle control) { return platform::FocusedWindow() == control; }

CellStyle LookOf(WindowHandle control) {
  if (!platform::IsEnabled(control)) return CellStyle::kFaint;
  const auto colors = host::ControlColorsOf(control);
  if (colors && colors->background == platform::kBlack) return CellStyle::kTitleBar;
  return host::FontOf(control).weight >= 600 ? CellStyle::kBold : CellStyle::kNormal;
}

void PaintStatic(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const CellStyle look = LookOf(control);
  canvas.screen.grid.Fill(cells, {U' ', look}, canvas.clip);
  const auto lines = Wrap(platform::TextOf(control), cells.Width());
  const bool centred = (platform::StyleOf(control) & style::kStaticCentre) != 0;
  int row = cells.top;
  for (const WideString& line : lines) {
    if (row >= cells.bottom) break;
    const int indent = centred ? std::max(0, cells.Width() - CellsOf(line)) / 2 : 0;
    canvas.screen.grid.Text(cells.left + indent, row++, line, look, Intersection(cells, canvas.clip));
  }
}

void PaintButton(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const auto state = host::ButtonStateOf(control).value_or(host::ButtonState{});
  const bool isMark = (platform::StyleOf(control) & (style::kButtonCheckBox | style::kButtonRadio)) != 0;
  const WideString text = platform::TextOf(control);
  const WideString face = isMark ? (state.checked ? u"[x] " : u"[ ] ") + text : u"[ " + text + u" ]";
  const int row = cells.top + (cells.Height() - 1) / 2;
  const int indent = isMark ? 0 : std::max(0, cells.Width() - CellsOf(face)) / 2;
  const CellStyle look = !platform::IsEnabled(control) ? CellStyle::kFaint
                         : HasFocus(control)           ? CellStyle::kInverse
                         : state.isDefault             ? CellStyle::kBold
                                                       : CellStyle::kNormal;
  canvas.screen.grid.Text(cells.left + indent, row, face, look, canvas.clip);
}

void PaintList(const ControlCanvas& canvas, WindowHandle control, CellRect cells) {
  const auto list = host::ListStateOf(control).value_or(host::ListState{});
  // No more rows than lines are in sight: the screen may have more cells than the list has lines.
  const int rows = std::min(cells.Height(), std::max(list.visibleLines, 1));
  cells.bottom = cells.top + rows;
  const CellRect clip = Intersection(cells, canvas.clip);
  canvas.screen.grid.Fill(cells, {}, canvas.clip);
  const CellStyle look = platform::IsEnabled(control) ? CellStyle::kNormal : CellStyle::kFaint;
  for (int i = 0; i < rows; ++i) {
    const int line = list.top + i;
    if (line < 0 || line >= static_cast<int>(list.lines.size())) break;
    const bool selected = line == list.selected;
    const CellRect row{cells.left, cells.top + i, cells.right, cells.top + i + 1};
    if (selected) canvas.screen.grid.Fill(row, {U' ', CellStyle::kInverse}, clip);
    canvas.screen.grid.Text(row.left + 1, row.top, list.lines[static_cast<std::size_t>(line)],
                            selected ? CellStyle::kInverse : look, clip);
  }
}

CellStyle FieldStyle(WindowHandle control) {
  return platform::IsEnabled(control) ? CellStyle::kField : CellStyle::kFaint;
}

// The part of a single-line field's text that is in sight: the caret always is.
std::size_t FirstInSight(int caret, int width) {
  return caret < width ? 0 : static_cast<std::size_t>(caret - width + 1);
}

void PaintField(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells, const host::EditState& edit) {
  const int row = cells.top + (cells.Height() - 1) / 2;
  const CellRect line{cells.left, row, cells.right, row + 1};
  const CellRect clip = Intersection(line, canvas.clip);
  const CellStyle look = FieldStyle(control);
  canvas.screen.grid.Fill(line, {U' ', look}, clip);
  const WideString shown = edit.passwordChar == 0 ? edit.text : WideString(edit.text.size(), edit.passwordChar);
  const std::size_t first = FirstInSight(edit.caret, line.Width());
  const bool right = (platform::StyleOf(control) & style::kEditRight) != 0 && first == 0;
  const bool centred = (platform::StyleOf(control) & style::kEditCentre) != 0 && first == 0;
  const int spare = std::max(0, line.Width() - static_cast<int>(shown.size()) - 1);
  const int indent = right ? spare : centred ? spare / 2 : 0;
  for (std::size_t i = first; i < shown.size(); ++i) {
    const int at = static_cast<int>(i);
    const bool selected = HasFocus(control) && at >= edit.selectionStart && at < edit.selectionEnd;
    canvas.screen.grid.Text(line.left + indent + static_cast<int>(i - first), row, WideStringView(shown).substr(i, 1),
                            selected ? CellStyle::kInverse : look, clip);
  }
  if (HasFocus(control)) {
    const int column = line.left + indent + edit.caret - static_cast<int>(first);
    canvas.screen.caret = {std::min(column, line.right - 1), row};
  }
}

void PaintTextPage(const ControlCanvas& canvas, const CellRect& cells, const host::EditState& edit) {
  canvas.screen.grid.Fill(cells, {}, canvas.clip);
  for (int i = 0; i < cells.Height(); ++i) {
    const auto line = static_cast<std::size_t>(std::max(edit.firstVisibleLine, 0) + i);
    if (line >= edit.lines.size()) break;
    canvas.screen.grid.Text(cells.left, cells.top + i, edit.lines[line], CellStyle::kNormal,
                            Intersection(cells, canvas.clip));
  }
}

void PaintEdit(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const auto edit = host::EditStateOf(control).value_or(host::EditState{});
  // A field of one line may have the multi-line style, as those of an address do.
  if (edit.multiLine && cells.Height() > 2) {
    PaintTextPage(canvas, cells, edit);
  } else {
    PaintField(canvas, control, cells, edit);
  }
}

void PaintPicker(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const auto picker = host::PickerStateOf(control).value_or(host::PickerState{});
  const int row = cells.top + (cells.Height() - 1) / 2;
  const CellRect line{cells.left, row, cells.right, row + 1};
  const CellStyle look = FieldStyle(control);
  canvas.screen.grid.Fill(line, {U' ', look}, canvas.clip);
  for (std::size_t i = 0; i < picker.shown.size(); ++i) {
    const int at = static_cast<int>(i);
    const bool selected = HasFocus(control) && at >= picker.fieldStart && at < picker.fieldEnd;
    canvas.screen.grid.Text(line.left + 1 + at, row, WideStringView(picker.shown).substr(i, 1),
                            selected ? CellStyle::kInverse : look, Intersection(line, canvas.clip));
  }
}

void PaintProgress(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const auto progress = host::ProgressStateOf(control).value_or(host::ProgressState{});
  canvas.screen.grid.Fill(cells, {U'░', CellStyle::kNormal}, canvas.clip);
  CellRect done = cells;
  done.right = cells.left + cells.Width() * progress.position / std::max(progress.maximum, 1);
  canvas.screen.grid.Fill(done, {U'█', CellStyle::kNormal}, canvas.clip);
}

void PaintCombo(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const CellRect line{cells.left, cells.top, cells.right, cells.top + 1};
  canvas.screen.grid.Fill(line, {U' ', FieldStyle(control)}, canvas.clip);
  canvas.screen.grid.Text(line.left, line.top, platform::TextOf(control), FieldStyle(control), canvas.clip);
  canvas.screen.grid.Text(line.right - 2, line.top, u"\u25BE", FieldStyle(control), canvas.clip);
}

char32_t ShadeOf(platform::Color color) {
  const int light = color.red + color.green + color.blue;
  if (light < 150) return U'█';
  return light < 700 ? U'░' : U' ';
}

// A window of the program's own is shown by what it drew.
void PaintDrawings(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const platform::Rect origin = host::ClientRectOnScreen(control);
  for (const host::Drawing& drawing : host::DrawingsOf(control)) {
    const platform::Rect rect{origin.left + drawing.rect.left, origin.top + drawing.rect.top,
                              origin.left + drawing.rect.right, origin.top + drawing.rect.bottom};
    const CellRect target = Intersection(canvas.scale.Cells(rect), cells);
    switch (drawing.kind) {
      case host::Drawing::Kind::kFill:
        canvas.screen.grid.Fill(target, {ShadeOf(drawing.color), CellStyle::kNormal}, canvas.clip);
        break;
      case host::Drawing::Kind::kFrame:
        canvas.screen.grid.Fill(target, {ShadeOf(drawing.inside), CellStyle::kNormal}, canvas.clip);
        break;
      case host::Drawing::Kind::kText:
        canvas.screen.grid.Text(canvas.scale.Column(rect.left), cells.top + (cells.Height() - 1) / 2, drawing.text,
                                CellStyle::kNormal, Intersection(cells, canvas.clip));
        break;
    }
  }
}

void PaintOwn(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  switch (host::KindOf(control)) {
    case WindowKind::kStatic: return PaintStatic(canvas, control, cells);
    case WindowKind::kButton: return PaintButton(canvas, control, cells);
    case WindowKind::kListBox: return PaintList(canvas, control, cells);
    case WindowKind::kEdit: return PaintEdit(canvas, control, cells);
    case WindowKind::kComboBox: return PaintCombo(canvas, control, cells);
    case WindowKind::kDateTimePicker: return PaintPicker(canvas, control, cells);
    case WindowKind::kProgressBar: return PaintProgress(canvas, control, cells);
    default: return PaintDrawings(canvas, control, cells);
  }
}

}  // namespace

bool IsBackground(WindowHandle control) {
  return host::KindOf(control) == WindowKind::kStatic && (platform::StyleOf(control) & style::kThickFrame) == 0;
}

void PaintControl(const ControlCanvas& canvas, WindowHandle control) {
  const CellRect cells = canvas.scale.Cells(platform::WindowRect(control));
  PaintOwn(canvas, control, cells);
  if ((platform::StyleOf(control) & style::kThickFrame) != 0) {
    canvas.screen.grid.Box(cells, CellStyle::kFrame, canvas.clip);
  }
  // Controls hold at most one level of others: the fields of an address.
  for (const WindowHandle child : host::ChildrenOf(control)) {
    if (platform::IsVisible(child)) PaintOwn(canvas, child, canvas.scale.Cells(platform::WindowRect(child)));
  }
}

}  // namespace simulator
