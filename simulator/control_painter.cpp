#include "simulator/control_painter.h"

#include "platform/host/desktop.h"
#include "simulator/text_fit.h"

#include <algorithm>

namespace simulator {
namespace {

namespace host = platform::host;
namespace style = platform::style;
using host::WindowKind;
using platform::WindowHandle;

// Of the system's own scroll bars.
constexpr int kScrollBarWidthPx = 17;

bool HasFocus(WindowHandle control) { return platform::FocusedWindow() == control; }

CellStyle LookOf(WindowHandle control) {
  if (!platform::IsEnabled(control)) return CellStyle::kFaint;
  const auto colors = host::ControlColorsOf(control);
  if (colors && colors->background == platform::kBlack) return CellStyle::kTitleBar;
  return host::FontOf(control).weight >= 600 ? CellStyle::kBold : CellStyle::kNormal;
}

std::vector<WideString> LinesOfStatic(WindowHandle control) {
  const platform::Rect client = platform::ClientRect(control);
  auto lines = BrokenIntoLines(control, platform::TextOf(control), client.Width());
  lines.resize(std::min(lines.size(), static_cast<std::size_t>(LinesInSight(control, client.Height()))));
  return lines;
}

// A row may stand for less than a line, a column for more than a character: then what is in sight on the device goes on
// over the cells' end.
void PaintStatic(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const CellStyle look = LookOf(control);
  canvas.screen.grid.Fill(cells, {U' ', look}, canvas.clip);
  const platform::Rect client = platform::ClientRect(control);
  const auto lines = LinesOfStatic(control);
  const bool centred = (platform::StyleOf(control) & style::kStaticCentre) != 0;
  int row = cells.top;
  for (const WideString& line : lines) {
    const WideStringView shown = InSight(control, line, client.Width());
    const int indent = centred ? std::max(0, cells.Width() - CellsOf(shown)) / 2 : 0;
    canvas.screen.grid.Text(cells.left + indent, row++, shown, look, canvas.clip);
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

// At the list's right edge, when it has more lines than are in sight: a mark at each end that hides some.
void PaintListBar(const ControlCanvas& canvas, const host::ListState& list, const CellRect& cells) {
  const CellRect bar{cells.right - 1, cells.top, cells.right, cells.bottom};
  canvas.screen.grid.Fill(bar, {U'░', CellStyle::kNormal}, canvas.clip);
  const bool isMoreBelow = list.top + list.visibleLines < static_cast<int>(list.lines.size());
  if (list.top > 0) canvas.screen.grid.Put(bar.left, bar.top, {U'▲', CellStyle::kBold}, canvas.clip);
  if (isMoreBelow) canvas.screen.grid.Put(bar.left, bar.bottom - 1, {U'▼', CellStyle::kBold}, canvas.clip);
}

// Two lines of text can take less than two rows: what stands below them on the device does not cover one of them.
int RowBelowTexts(const ControlCanvas& canvas, WindowHandle control, int row) {
  const platform::Rect place = platform::WindowRect(control);
  for (const WindowHandle text : host::ChildrenOf(platform::ParentOf(control))) {
    if (!platform::IsVisible(text) || !IsBackground(text)) continue;
    const int lines = static_cast<int>(LinesOfStatic(text).size());
    const platform::Rect textPlace = platform::WindowRect(text);
    const int linePx = host::FontOf(text).linePx;
    const bool isAbove = textPlace.top + lines * linePx - linePx / 2 <= place.top;
    const bool isBeside = textPlace.right <= place.left || place.right <= textPlace.left;
    if (isAbove && !isBeside) row = std::max(row, canvas.scale.Row(textPlace.top) + lines);
  }
  return row;
}

void PaintList(const ControlCanvas& canvas, WindowHandle control, CellRect cells) {
  const auto list = host::ListStateOf(control).value_or(host::ListState{});
  const int rows = std::max(list.visibleLines, 1);
  cells.top = RowBelowTexts(canvas, control, cells.top);
  cells.bottom = cells.top + rows;
  const bool hasBar = (platform::StyleOf(control) & style::kVerticalScroll) != 0 &&
                      static_cast<int>(list.lines.size()) > list.visibleLines;
  const int widthPx = platform::ClientRect(control).Width() - (hasBar ? kScrollBarWidthPx : 0);
  canvas.screen.grid.Fill(cells, {}, canvas.clip);
  const CellStyle look = platform::IsEnabled(control) ? CellStyle::kNormal : CellStyle::kFaint;
  for (int i = 0; i < rows; ++i) {
    const int line = list.top + i;
    if (line < 0 || line >= static_cast<int>(list.lines.size())) break;
    const bool selected = line == list.selected;
    const CellRect row{cells.left, cells.top + i, cells.right, cells.top + i + 1};
    if (selected) canvas.screen.grid.Fill(row, {U' ', CellStyle::kInverse}, canvas.clip);
    if (selected && HasFocus(control)) canvas.screen.toSee.push_back(row);
    canvas.screen.grid.Text(row.left + 1, row.top,
                            InSight(control, list.lines[static_cast<std::size_t>(line)], widthPx),
                            selected ? CellStyle::kInverse : look, canvas.clip);
  }
  if (hasBar) PaintListBar(canvas, list, Intersection(cells, canvas.clip));
}

CellStyle FieldStyle(WindowHandle control) {
  return platform::IsEnabled(control) ? CellStyle::kField : CellStyle::kFaint;
}

// The part of a single-line field's text that is in sight: the caret always is.
WideStringView PartInSight(WindowHandle control, WideStringView shown, int caret) {
  const int widthPx = platform::ClientRect(control).Width();
  const WideStringView before = shown.substr(0, static_cast<std::size_t>(std::max(caret, 0)));
  std::size_t first = 0;
  while (first < before.size() && host::TextWidthIn(control, before.substr(first)) > widthPx) ++first;
  return InSight(control, shown.substr(first), widthPx);
}

void PaintField(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells, const host::EditState& edit) {
  const int row = cells.top + (cells.Height() - 1) / 2;
  const CellRect line{cells.left, row, cells.right, row + 1};
  const CellRect clip = Intersection(line, canvas.clip);
  const CellStyle look = FieldStyle(control);
  canvas.screen.grid.Fill(line, {U' ', look}, clip);
  const WideString text = edit.passwordChar == 0 ? edit.text : WideString(edit.text.size(), edit.passwordChar);
  const WideStringView shown = PartInSight(control, text, edit.caret);
  const int first = static_cast<int>(shown.data() - text.data());
  const bool right = (platform::StyleOf(control) & style::kEditRight) != 0 && first == 0;
  const bool centred = (platform::StyleOf(control) & style::kEditCentre) != 0 && first == 0;
  const int spare = std::max(0, line.Width() - static_cast<int>(shown.size()) - 1);
  const int indent = right ? spare : centred ? spare / 2 : 0;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const int at = first + static_cast<int>(i);
    const bool selected = HasFocus(control) && at >= edit.selectionStart && at < edit.selectionEnd;
    canvas.screen.grid.Text(line.left + indent + static_cast<int>(i), row, shown.substr(i, 1),
                            selected ? CellStyle::kInverse : look, clip);
  }
  if (HasFocus(control)) {
    const int column = std::min(line.left + indent + edit.caret - first, line.right - 1);
    canvas.screen.caret = {column, row};
    canvas.screen.toSee.push_back({column, row, column + 1, row + 1});
  }
}

void PaintTextPage(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells,
                   const host::EditState& edit) {
  canvas.screen.grid.Fill(cells, {}, canvas.clip);
  const platform::Rect client = platform::ClientRect(control);
  for (int i = 0; i < LinesInSight(control, client.Height()); ++i) {
    const auto line = static_cast<std::size_t>(std::max(edit.firstVisibleLine, 0) + i);
    if (line >= edit.lines.size()) break;
    canvas.screen.grid.Text(cells.left, cells.top + i, InSight(control, edit.lines[line], client.Width()),
                            CellStyle::kNormal, canvas.clip);
  }
}

void PaintEdit(const ControlCanvas& canvas, WindowHandle control, const CellRect& cells) {
  const auto edit = host::EditStateOf(control).value_or(host::EditState{});
  // A field of one line may have the multi-line style, as those of an address do.
  if (edit.multiLine && cells.Height() > 2) {
    PaintTextPage(canvas, control, cells, edit);
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
  // Of a list and a field it is a part that should be seen: they say which.
  if (HasFocus(control) && host::KindOf(control) != WindowKind::kListBox) canvas.screen.toSee.push_back(cells);
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
