// List boxes of one column and one selection.
#include "platform/host/painting.h"
#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

constexpr LResult kError = -1;
constexpr int kGotFocus = 4;
constexpr int kLostFocus = 5;

class ListBox : public ListBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    if (const auto answer = HandleList(window, message)) return *answer;
    switch (message.id) {
      case message::kCreate: itemHeight_ = window.FontInUse().metrics->heightPx; return 0;
      case message::kSize: FitWholeLines(window); return 0;
      case message::kGetDialogCode: return dialog_code::kWantArrows | dialog_code::kWantChars;
      case message::kSetFont:
        HandlePlainMessage(window, message);
        itemHeight_ = window.FontInUse().metrics->heightPx;
        return 0;
      case message::kSetFocus:
        window.needsPaint = true;
        Notify(window, kGotFocus);
        return 0;
      case message::kKillFocus:
        window.needsPaint = true;
        Notify(window, kLostFocus);
        return 0;
      case message::kKeyDown: return OnKeyDown(window, message.wParam);
      case message::kChar: return OnCharacter(window, static_cast<char16_t>(message.wParam));
      case message::kLeftButtonDown:
      case message::kLeftButtonDoubleClick: return OnButtonDown(window, message);
      case message::kLeftButtonUp: return OnButtonUp(window);
      case message::kEnable: window.needsPaint = true; return 0;
      case message::kPaint: PaintControl(window, message::kControlColorListBox); return 0;
      default: return HandlePlainMessage(window, message);
    }
  }

  ListState State(const WindowRecord& window) const override {
    ListState state;
    for (const Item& item : items_) state.lines.push_back(item.text);
    state.top = top_;
    state.selected = selected_;
    state.itemHeightPx = itemHeight_;
    state.visibleLines = PageSize(window);
    return state;
  }

 private:
  struct Item {
    WideString text;
    LParam data = 0;
  };

  int Count() const { return static_cast<int>(items_.size()); }
  bool Holds(WParam index) const { return index < items_.size(); }
  const Item& At(WParam index) const { return items_[static_cast<std::size_t>(index)]; }
  int PageSize(const WindowRecord& window) const {
    return std::max(1, window.ClientArea().Height() / std::max(1, itemHeight_));
  }

  std::optional<LResult> HandleList(WindowRecord& window, const Message& message) {
    switch (message.id) {
      case message::kListAddString: return Insert(window, items_.size(), TextParam(message));
      case message::kListInsertString: return Insert(window, message.wParam, TextParam(message));
      case message::kListDeleteString: return Delete(window, message.wParam);
      case message::kListResetContent: return Reset(window);
      case message::kListGetCount: return Count();
      case message::kListGetText:
        if (!Holds(message.wParam)) return kError;
        return CopyText(At(message.wParam).text, {message.id, WParam{0xFFFFFFF}, message.lParam});
      case message::kListGetTextLength:
        return Holds(message.wParam) ? static_cast<LResult>(At(message.wParam).text.size()) : kError;
      case message::kListGetItemData: return Holds(message.wParam) ? At(message.wParam).data : kError;
      case message::kListSetItemData:
        if (!Holds(message.wParam)) return kError;
        items_[static_cast<std::size_t>(message.wParam)].data = message.lParam;
        return 1;
      case message::kListGetCurrentSelection: return selected_;
      case message::kListSetCurrentSelection: return SetSelection(window, static_cast<int>(message.wParam));
      case message::kListGetTopIndex: return top_;
      case message::kListSetTopIndex:
        if (!Holds(message.wParam)) return kError;
        SetTop(window, static_cast<int>(message.wParam));
        return 0;
      case message::kListGetItemHeight: return itemHeight_;
      case message::kListSetItemHeight:
        if (message.lParam < 1 || message.lParam > 255) return kError;
        itemHeight_ = static_cast<int>(message.lParam);
        window.needsPaint = true;
        return 0;
      default: return std::nullopt;
    }
  }

  LResult Insert(WindowRecord& window, WParam index, WideString text) {
    if (index == static_cast<WParam>(-1)) index = items_.size();
    if (index > items_.size()) return kError;
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(index), Item{std::move(text), 0});
    if (static_cast<int>(index) <= selected_) ++selected_;
    window.needsPaint = true;
    return static_cast<LResult>(index);
  }

  LResult Delete(WindowRecord& window, WParam index) {
    if (!Holds(index)) return kError;
    if (Count() == 1) {
      Reset(window);
      return 0;
    }
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
    if (static_cast<int>(index) == selected_) {
      selected_ = -1;
    } else if (static_cast<int>(index) < selected_) {
      --selected_;
    }
    caret_ = std::clamp(caret_, 0, Count() - 1);
    window.needsPaint = true;
    return Count();
  }

  LResult Reset(WindowRecord& window) {
    items_.clear();
    selected_ = -1;
    caret_ = 0;
    top_ = 0;
    window.needsPaint = true;
    return 0;
  }

  void SetTop(WindowRecord& window, int index) {
    top_ = std::clamp(index, 0, std::max(0, Count() - PageSize(window)));
    window.needsPaint = true;
  }

  void MakeVisible(WindowRecord& window, int index) {
    if (index <= top_) {
      SetTop(window, index);
    } else if (index >= top_ + PageSize(window)) {
      SetTop(window, index - PageSize(window) + 1);
    }
  }

  LResult SetSelection(WindowRecord& window, int index) {
    if (index < -1 || index >= Count()) return kError;
    if (index >= 0) {
      caret_ = index;
      MakeVisible(window, index);
    }
    selected_ = index;
    window.needsPaint = true;
    return selected_;
  }

  void Notify(WindowRecord& window, int code) {
    if (window.Has(style::kListNotify)) NotifyParent(window, code);
  }

  LResult MoveTo(WindowRecord& window, int index) {
    SetSelection(window, std::clamp(index, 0, Count() - 1));
    Notify(window, notification::kListSelectionChange);
    return 0;
  }

  LResult OnKeyDown(WindowRecord& window, WParam virtualKey) {
    if (items_.empty()) return 0;
    const int page = PageSize(window);
    int target = 0;
    switch (virtualKey) {
      case key::kUp:
      case key::kLeft: target = caret_ - 1; break;
      case key::kDown:
      case key::kRight: target = caret_ + 1; break;
      case key::kPageUp: target = caret_ - page + 1; break;
      case key::kPageDown: target = caret_ + page - 1; break;
      case key::kHome: target = 0; break;
      case key::kEnd: target = Count() - 1; break;
      default: return 0;
    }
    // Without a selection the first key only selects where the caret stands.
    return MoveTo(window, selected_ < 0 ? caret_ : target);
  }

  // The next line that begins with the character, from the one after the caret round to the caret's own.
  LResult OnCharacter(WindowRecord& window, char16_t character) {
    for (int step = 1; step <= Count(); ++step) {
      const int index = (caret_ + step) % Count();
      const WideString& text = At(static_cast<WParam>(index)).text;
      if (text.empty() || base::ToUpper(text.front()) != base::ToUpper(character)) continue;
      return MoveTo(window, index);
    }
    return 0;
  }

  LResult OnButtonDown(WindowRecord& window, const Message& message) {
    Focus(window.handle);
    const int y = static_cast<std::int16_t>((message.lParam >> 16) & 0xFFFF);
    const int index = top_ + y / std::max(1, itemHeight_);
    if (y < 0 || index >= Count()) return 0;
    SetSelection(window, index);
    if (message.id == message::kLeftButtonDoubleClick) {
      Notify(window, notification::kListDoubleClick);
    } else {
      pressed_ = true;
    }
    return 0;
  }

  LResult OnButtonUp(WindowRecord& window) {
    if (!pressed_) return 0;
    pressed_ = false;
    Notify(window, notification::kListSelectionChange);
    return 0;
  }

  // A list shrinks so that no line is cut off, unless its style says otherwise.
  void FitWholeLines(WindowRecord& window) {
    if (window.Has(style::kListNoIntegralHeight)) return;
    const int height = window.ClientArea().Height();
    const int rest = height % std::max(1, itemHeight_);
    if (height > itemHeight_ && rest != 0) {
      Rect rect = window.rect;
      rect.bottom -= rest;
      Move(window.handle, rect);
    }
  }

  std::vector<Item> items_;
  int top_ = 0;
  int selected_ = -1;
  int caret_ = 0;
  int itemHeight_ = 16;
  bool pressed_ = false;
};

}  // namespace

std::unique_ptr<ListBehaviour> MakeListBox() { return std::make_unique<ListBox>(); }

}  // namespace platform::host
