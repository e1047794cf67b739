// Drop-down lists, always closed: the keys move through the lines as they do in a closed list of Windows.
#include "platform/host/painting.h"
#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

constexpr LResult kError = -1;
constexpr int kGotFocus = 3;
constexpr int kLostFocus = 4;

class ComboBox : public ComboBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    switch (message.id) {
      case message::kComboAddString:
        lines_.push_back(TextParam(message));
        window.needsPaint = true;
        return Count() - 1;
      case message::kComboGetCurrentSelection: return selected_;
      case message::kComboSetCurrentSelection: return Select(window, static_cast<int>(message.wParam));
      case message::kComboGetText:
        if (message.wParam >= lines_.size()) return kError;
        return CopyText(lines_[message.wParam], {message.id, WParam{0xFFFFFFF}, message.lParam});
      case message::kComboGetTextLength:
        return message.wParam < lines_.size() ? static_cast<LResult>(lines_[message.wParam].size()) : kError;
      case message::kSetText: return 0;
      case message::kGetDialogCode: return dialog_code::kWantArrows | dialog_code::kWantChars;
      case message::kSetFocus: NotifyParent(window, kGotFocus); return 0;
      case message::kKillFocus: NotifyParent(window, kLostFocus); return 0;
      case message::kLeftButtonDown: Focus(window.handle); return 0;
      case message::kKeyDown: return OnKeyDown(window, message.wParam);
      case message::kChar: return OnCharacter(window, static_cast<char16_t>(message.wParam));
      case message::kPaint: PaintControl(window, message::kControlColorEdit); return 0;
      default: return HandlePlainMessage(window, message);
    }
  }

  std::vector<WideString> Lines() const override { return lines_; }

 private:
  int Count() const { return static_cast<int>(lines_.size()); }

  LResult Select(WindowRecord& window, int index) {
    selected_ = index >= 0 && index < Count() ? index : -1;
    window.text = selected_ >= 0 ? lines_[static_cast<std::size_t>(selected_)] : WideString();
    window.needsPaint = true;
    return selected_ >= 0 ? selected_ : kError;
  }

  LResult MoveTo(WindowRecord& window, int index) {
    if (lines_.empty()) return 0;
    index = std::clamp(index, 0, Count() - 1);
    if (index == selected_) return 0;
    Select(window, index);
    NotifyParent(window, notification::kComboSelectionChange);
    return 0;
  }

  LResult OnKeyDown(WindowRecord& window, WParam virtualKey) {
    switch (virtualKey) {
      case key::kUp:
      case key::kLeft: return MoveTo(window, selected_ - 1);
      case key::kDown:
      case key::kRight: return MoveTo(window, selected_ + 1);
      case key::kHome: return MoveTo(window, 0);
      case key::kEnd: return MoveTo(window, Count() - 1);
      default: return 0;
    }
  }

  LResult OnCharacter(WindowRecord& window, char16_t character) {
    for (int step = 1; step <= Count(); ++step) {
      const int index = (selected_ + step) % Count();
      const WideString& line = lines_[static_cast<std::size_t>(index)];
      if (!line.empty() && base::ToUpper(line.front()) == base::ToUpper(character)) return MoveTo(window, index);
    }
    return 0;
  }

  std::vector<WideString> lines_;
  int selected_ = -1;
};

}  // namespace

std::unique_ptr<ComboBehaviour> MakeComboBox() { return std::make_unique<ComboBox>(); }

}  // namespace platform::host
