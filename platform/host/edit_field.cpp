// Edit fields of one or several lines.
#include "platform/host/edit_lines.h"
#include "platform/host/painting.h"
#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

constexpr int kDefaultLimit = 30000;
constexpr int kTextTooLong = 0x0501;
constexpr int kFramePx = 1;  // of the border that FrameOf() counts
constexpr message::Id kGetPasswordChar = 0x00D2;
constexpr message::Id kGetLimitText = 0x00D5;
constexpr message::Id kClear = 0x0303;
constexpr message::Id kGetDefaultId = message::kUser;
constexpr message::Id kNextControl = 0x0028;

class EditField : public EditBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    if (const auto answer = HandleEdit(window, message)) return *answer;
    switch (message.id) {
      case message::kCreate:
        if (window.Has(style::kEditPassword)) passwordChar_ = u'*';
        return 0;
      case message::kSetText: return OnSetText(window, TextParam(message));
      case message::kGetDialogCode:
        if (message.lParam != 0) insideDialog_ = true;
        return dialog_code::kHasSetSelection | dialog_code::kWantChars | dialog_code::kWantArrows |
               (IsMultiLine(window) ? dialog_code::kWantAllKeys : 0);
      case message::kSetFocus:
        window.needsPaint = true;
        NotifyParent(window, notification::kEditSetFocus);
        return 0;
      case message::kKillFocus:
        window.needsPaint = true;
        NotifyParent(window, notification::kEditKillFocus);
        return 0;
      case message::kKeyDown: return OnKeyDown(window, message.wParam);
      case message::kChar: return OnCharacter(window, static_cast<char16_t>(message.wParam));
      case message::kLeftButtonDown: Focus(window.handle); return 0;
      case message::kEnable: window.needsPaint = true; return 0;
      case message::kPaint:
        PaintControl(window, IsReadOnly(window) || window.Has(style::kDisabled) ? message::kControlColorStatic
                                                                                : message::kControlColorEdit);
        return 0;
      default: return HandlePlainMessage(window, message);
    }
  }

  EditState State(const WindowRecord& window) const override {
    EditState state;
    state.text = window.text;
    state.selectionStart = std::min(anchor_, caret_);
    state.selectionEnd = std::max(anchor_, caret_);
    state.caret = caret_;
    state.multiLine = IsMultiLine(window);
    state.readOnly = IsReadOnly(window);
    state.passwordChar = passwordChar_;
    for (const EditLine& line : Lines(window))
      state.lines.push_back(
          window.text.substr(static_cast<std::size_t>(line.start), static_cast<std::size_t>(line.length)));
    state.firstVisibleLine = firstLine_;
    return state;
  }

 private:
  static bool IsMultiLine(const WindowRecord& window) { return window.Has(style::kEditMultiLine); }
  static bool IsReadOnly(const WindowRecord& window) { return window.Has(style::kEditReadOnly); }
  static int Length(const WindowRecord& window) { return static_cast<int>(window.text.size()); }
  // A field draws its border inside its client area, and keeps a margin with the fonts that scale.
  static int WidthPx(const WindowRecord& window) {
    return window.ClientArea().Width() - 2 * (BorderPx(window) + window.FontInUse().metrics->editMarginPx);
  }
  static int LinesPerPage(const WindowRecord& window) {
    const int heightPx = window.ClientArea().Height() - 2 * BorderPx(window);
    return std::max(1, heightPx / window.FontInUse().metrics->heightPx);
  }
  static int BorderPx(const WindowRecord& window) { return window.Has(style::kBorder) ? 2 - kFramePx : 0; }

  static std::vector<EditLine> Lines(const WindowRecord& window) {
    if (!IsMultiLine(window)) return {{0, Length(window), 0}};
    const bool wraps = !window.Has(style::kEditAutoHorizontalScroll);
    return BreakIntoLines(window.text, window.FontInUse(), wraps ? WidthPx(window) : 0);
  }

  std::optional<LResult> HandleEdit(WindowRecord& window, const Message& message) {
    switch (message.id) {
      case message::kEditGetSelection: return GetSelection(message);
      case message::kEditSetSelection:
        Select(window, static_cast<int>(message.wParam), static_cast<int>(message.lParam));
        ShowCaret(window);
        return 1;
      case message::kEditReplaceSelection: Replace(window, TextParam(message), true); return 1;
      case message::kEditLimitText:
        limit_ = message.wParam == 0 || message.wParam > 0x7FFFFFFE ? 0x7FFFFFFE : static_cast<int>(message.wParam);
        return 0;
      case kGetLimitText: return limit_;
      case message::kEditSetPasswordChar:
        passwordChar_ = static_cast<char16_t>(message.wParam);
        window.needsPaint = true;
        return 1;
      case kGetPasswordChar: return passwordChar_;
      case message::kEditSetReadOnly:
        window.style &= ~style::kEditReadOnly;
        if (message.wParam != 0) window.style |= style::kEditReadOnly;
        window.needsPaint = true;
        return 1;
      case message::kEditGetFirstVisibleLine: return IsMultiLine(window) ? firstLine_ : 0;
      case message::kEditGetLineCount: return static_cast<LResult>(Lines(window).size());
      case message::kEditLineScroll:
        if (!IsMultiLine(window)) return 0;
        ScrollTo(window, firstLine_ + static_cast<int>(std::clamp<LParam>(message.lParam, -1000000, 1000000)));
        return 1;
      case message::kEditScroll: return OnScroll(window, message.wParam);
      case kClear: DeleteSelection(window); return 0;
      case message::kPaste: return 0;  // the terminal has no clipboard
      default: return std::nullopt;
    }
  }

  LResult GetSelection(const Message& message) const {
    const auto start = static_cast<std::uint32_t>(std::min(anchor_, caret_));
    const auto end = static_cast<std::uint32_t>(std::max(anchor_, caret_));
    if (auto* where = FromParam<std::uint32_t>(message.wParam)) *where = start;
    if (auto* where = FromParam<std::uint32_t>(message.lParam)) *where = end;
    return static_cast<LResult>((end & 0xFFFF) << 16 | (start & 0xFFFF));
  }

  // The end that `end` names is where the caret stands.
  void Select(WindowRecord& window, int start, int end) {
    const int length = Length(window);
    if (start == -1) {
      anchor_ = caret_;
    } else {
      anchor_ = start < 0 || start > length ? length : start;
      caret_ = end < 0 || end > length ? length : end;
    }
    window.needsPaint = true;
  }

  // Moves the caret, with Shift the end of the selection only.
  void MoveCaret(WindowRecord& window, int position) {
    caret_ = std::clamp(position, 0, Length(window));
    if (!IsKeyDown(key::kShift)) anchor_ = caret_;
    window.needsPaint = true;
    ShowCaret(window);
  }

  void ScrollTo(WindowRecord& window, int line) {
    const int last = static_cast<int>(Lines(window).size()) - LinesPerPage(window);
    firstLine_ = std::clamp(line, 0, std::max(0, last));
    window.needsPaint = true;
  }

  LResult OnScroll(WindowRecord& window, WParam direction) {
    if (!IsMultiLine(window)) return 0;
    const int page = LinesPerPage(window);
    ScrollTo(window, firstLine_ + (direction == kScrollPageDown ? page : direction == kScrollPageUp ? -page : 0));
    return 1;
  }

  void ShowCaret(WindowRecord& window) {
    if (!IsMultiLine(window)) return;
    const int line = LineOfPosition(Lines(window), caret_);
    const int page = LinesPerPage(window);
    if (line < firstLine_) {
      ScrollTo(window, line);
    } else if (line >= firstLine_ + page) {
      ScrollTo(window, line - page + 1);
    } else {
      ScrollTo(window, firstLine_);
    }
  }

  LResult OnSetText(WindowRecord& window, WideString text) {
    window.text = std::move(text);
    anchor_ = caret_ = 0;
    firstLine_ = 0;
    window.needsPaint = true;
    if (IsMultiLine(window)) return 1;
    NotifyParent(window, notification::kEditUpdate);
    NotifyParent(window, notification::kEditChange);
    return 1;
  }

  // Whether a text can stand in the field: one that does not scroll takes what it can show.
  bool Fits(const WindowRecord& window, WideStringView text) const {
    const bool multiLine = IsMultiLine(window);
    if (window.Has(multiLine ? style::kEditAutoVerticalScroll : style::kEditAutoHorizontalScroll)) return true;
    if (!multiLine) {
      const WideString shown(passwordChar_ != 0 ? WideString(text.size(), passwordChar_) : WideString(text));
      return WidthOf(window.FontInUse(), shown) <= WidthPx(window);
    }
    const bool wraps = !window.Has(style::kEditAutoHorizontalScroll);
    const auto lines = BreakIntoLines(text, window.FontInUse(), wraps ? WidthPx(window) : 0);
    return static_cast<int>(lines.size()) <= LinesPerPage(window);
  }

  void Replace(WindowRecord& window, WideStringView text, bool honourLimit) {
    if (anchor_ == caret_ && text.empty()) return;
    const auto start = static_cast<std::size_t>(std::min(anchor_, caret_));
    const auto removed = static_cast<std::size_t>(std::abs(anchor_ - caret_));
    const auto limit = static_cast<std::size_t>(limit_);
    const std::size_t kept = window.text.size() - removed;
    bool tooLong = false;
    if (honourLimit && kept + text.size() > limit) {
      text = text.substr(0, limit > kept ? limit - kept : 0);
      tooLong = true;
    }
    const auto with = [&](WideStringView inserted) {
      WideString whole = window.text;
      return whole.replace(start, removed, inserted);
    };
    while (honourLimit && !text.empty() && !Fits(window, with(text))) {
      text.remove_suffix(1);
      tooLong = true;
    }
    if (tooLong) NotifyParent(window, kTextTooLong);
    if (start + removed > window.text.size()) return;  // the parent changed the text meanwhile
    window.text = with(text);
    anchor_ = caret_ = static_cast<int>(start + text.size());
    window.needsPaint = true;
    ShowCaret(window);
    // Reported even when the limit left nothing of what was typed.
    NotifyParent(window, notification::kEditUpdate);
    NotifyParent(window, notification::kEditChange);
  }

  void DeleteSelection(WindowRecord& window) {
    if (anchor_ != caret_ && !IsReadOnly(window)) Replace(window, {}, false);
  }

  // A line end is passed in one step.
  static int Backward(const WindowRecord& window, int position) {
    if (position <= 0) return 0;
    const WideStringView before = WideStringView(window.text).substr(0, static_cast<std::size_t>(position));
    return position - (IsMultiLine(window) && before.ends_with(u"\r\n") ? 2 : 1);
  }
  static int Forward(const WindowRecord& window, int position) {
    if (position >= Length(window)) return Length(window);
    const WideStringView after = WideStringView(window.text).substr(static_cast<std::size_t>(position));
    return position + (IsMultiLine(window) && after.starts_with(u"\r\n") ? 2 : 1);
  }

  void MoveByLines(WindowRecord& window, int count) {
    const std::vector<EditLine> lines = Lines(window);
    const int from = LineOfPosition(lines, caret_);
    const int to = std::clamp(from + count, 0, static_cast<int>(lines.size()) - 1);
    if (to == from) return MoveCaret(window, caret_);
    const EditLine& source = lines[static_cast<std::size_t>(from)];
    const EditLine& target = lines[static_cast<std::size_t>(to)];
    MoveCaret(window, target.start + std::min(caret_ - source.start, target.length));
  }

  LResult OnKeyDown(WindowRecord& window, WParam virtualKey) {
    const bool multiLine = IsMultiLine(window);
    const bool wholeText = IsKeyDown(key::kControl) || !multiLine;
    const std::vector<EditLine> lines = Lines(window);
    const EditLine& line = lines[static_cast<std::size_t>(LineOfPosition(lines, caret_))];
    switch (virtualKey) {
      case key::kLeft: MoveCaret(window, Backward(window, caret_)); break;
      case key::kRight: MoveCaret(window, Forward(window, caret_)); break;
      case key::kUp: multiLine ? MoveByLines(window, -1) : MoveCaret(window, Backward(window, caret_)); break;
      case key::kDown: multiLine ? MoveByLines(window, 1) : MoveCaret(window, Forward(window, caret_)); break;
      case key::kHome: MoveCaret(window, wholeText ? 0 : line.start); break;
      case key::kEnd: MoveCaret(window, wholeText ? Length(window) : line.End()); break;
      case key::kPageUp:
        if (multiLine) MoveByLines(window, -LinesPerPage(window));
        break;
      case key::kPageDown:
        if (multiLine) MoveByLines(window, LinesPerPage(window));
        break;
      case key::kDelete: OnDelete(window, line); break;
      case key::kEnter:
      case key::kEscape:
      case key::kTab: OnDialogKey(window, virtualKey); break;
      default: break;
    }
    return 0;
  }

  void OnDelete(WindowRecord& window, const EditLine& line) {
    if (IsReadOnly(window)) return;
    if (anchor_ == caret_) {
      if (IsKeyDown(key::kShift)) {
        anchor_ = Backward(window, caret_);
      } else if (IsKeyDown(key::kControl)) {
        anchor_ = line.End();
      } else {
        anchor_ = Forward(window, caret_);
      }
    }
    DeleteSelection(window);
  }

  // A field of several lines claims all keys of its dialog and gives these back itself.
  void OnDialogKey(WindowRecord& window, WParam virtualKey) {
    if (!insideDialog_ || !IsMultiLine(window)) return;
    if (virtualKey == key::kEscape) {
      Post(window.parent, message::kClose);
    } else if (virtualKey == key::kTab) {
      Send(window.parent, kNextControl, IsKeyDown(key::kShift) ? 1 : 0, 0);
    } else {
      const LResult defaultId = Send(window.parent, kGetDefaultId);
      const WindowHandle control =
          defaultId != 0 ? ControlOf(window.parent, static_cast<int>(defaultId & 0xFFFF)) : nullptr;
      if (control == nullptr) return;
      Send(window.parent, kNextControl, ToWParam(control), 1);
      Post(control, message::kKeyDown, key::kEnter);
    }
  }

  LResult OnCharacter(WindowRecord& window, char16_t character) {
    const bool editable = !IsReadOnly(window);
    switch (character) {
      case u'\r':
        if (insideDialog_) return 0;
        [[fallthrough]];
      case u'\n':
        if (IsMultiLine(window) && editable) Replace(window, u"\r\n", true);
        return 0;
      case u'\t':
        if (IsMultiLine(window) && editable && !insideDialog_) Replace(window, u"\t", true);
        return 0;
      case u'\b':
        if (!editable) return 0;
        if (anchor_ == caret_) anchor_ = Backward(window, caret_);
        DeleteSelection(window);
        return 0;
      default: break;
    }
    if (window.Has(style::kEditDigitsOnly) && !base::IsDigit(character)) return 0;
    if (editable && character >= u' ' && character != 0x7F) Replace(window, WideString(1, character), true);
    return 0;
  }

  int anchor_ = 0;
  int caret_ = 0;
  int firstLine_ = 0;
  int limit_ = kDefaultLimit;
  char16_t passwordChar_ = 0;
  bool insideDialog_ = false;
};

}  // namespace

std::unique_ptr<EditBehaviour> MakeEditField() { return std::make_unique<EditField>(); }

}  // namespace platform::host
