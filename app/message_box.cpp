#include "app/message_box.h"

#include "app/box_layout.h"
#include "app/dialog_templates.h"
#include "platform/canvas.h"
#include "platform/controls.h"

#include <algorithm>
#include <span>

namespace app {
namespace {

using platform::LResult;
using platform::Message;
using platform::WindowHandle;

// What a question offers, and what each choice returns.
struct Choice {
  WideStringView text;
  int result;
};
constexpr Choice kYesNo[] = {{u"Yes", values::kBoxYes}, {u"No", values::kBoxNo}};
constexpr Choice kExitChoices[] = {{u" Discard changes", values::kBoxDiscard},
                                   {u" Save changes", values::kBoxSave},
                                   {u" Do not exit", values::kBoxStay}};

struct Question {
  int listId = 0;
  std::span<const Choice> choices;
};

Question QuestionOf(int kind) {
  switch (kind) {
    case values::kYesNoBox: return {control_id::kAnswers, kYesNo};
    case values::kExitChoiceBox: return {control_id::kExitChoices, kExitChoices};
    default: return {};
  }
}

constexpr int kBoxLeftPx = 10;
constexpr int kBoxTopPx = 5;
constexpr int kExitChoiceTopPx = 35;

class BoxProcedure final : public platform::MessageHandler {
 public:
  BoxProcedure(WideStringView text, WideStringView caption, int kind, bool isShort)
      : text_(text), caption_(caption), kind_(kind), isShort_(isShort), question_(QuestionOf(kind)) {}

  std::optional<LResult> OnMessage(WindowHandle box, const Message& message) override {
    switch (message.id) {
      case platform::message::kInitDialog: return Initialise(box);
      case platform::message::kCommand: return OnCommand(box, platform::CommandId(message));
      case platform::message::kControlColorDialog:
      case platform::message::kControlColorStatic:
      case platform::message::kControlColorButton:
        return platform::AnswerControlColors(message, platform::kBlack, platform::kWhite);
      default: return std::nullopt;
    }
  }

  WindowHandle FocusBefore() const { return focusBefore_; }

 private:
  LResult Initialise(WindowHandle box) {
    focusBefore_ = platform::FocusedWindow();
    const platform::Rect rect = platform::WindowRect(box);
    const int top = kind_ == values::kExitChoiceBox ? kExitChoiceTopPx : kBoxTopPx;
    platform::Move(box, {kBoxLeftPx, top, kBoxLeftPx + rect.Width(), top + rect.Height()});
    platform::SetText(box, caption_);
    platform::SetText(platform::ControlOf(box, control_id::kMessage), text_);
    for (const int id :
         {control_id::kMessage, control_id::kAnswers, control_id::kExitChoices, control_id::kPressEnter}) {
      platform::SetFont(platform::ControlOf(box, id), kMessageFont);
    }
    const WindowHandle pressEnter = platform::ControlOf(box, control_id::kPressEnter);
    platform::Hide(platform::ControlOf(box, control_id::kAnswers));
    platform::Hide(pressEnter);
    if (question_.choices.empty()) {
      platform::Show(pressEnter);
      platform::Focus(box);
    } else {
      Ask(platform::ListBox(platform::ControlOf(box, question_.listId)));
    }
    const WindowHandle below = list_ ? list_.Handle() : pressEnter;
    const WindowHandle message = platform::ControlOf(box, control_id::kMessage);
    if (message != nullptr) FitToText({box, message, below}, text_, isShort_);
    return 0;  // not 1: the focus is set already
  }

  void Ask(platform::ListBox list) {
    list_ = list;
    for (const Choice& choice : question_.choices) list_.Add(choice.text);
    list_.Select(0);
    ShowAllChoices();
    platform::Show(list_.Handle());
    platform::Focus(list_.Handle());
  }

  void ShowAllChoices() {
    platform::Rect rect = platform::RectInParent(list_.Handle());
    rect.bottom = std::max(rect.bottom, rect.top + list_.Count() * list_.ItemHeight());
    platform::Move(list_.Handle(), rect);
  }

  std::optional<LResult> OnCommand(WindowHandle box, int id) {
    if (id != platform::kIdOk && id != platform::kIdCancel) return std::nullopt;
    if (id == platform::kIdOk) platform::Hide(box);
    platform::EndDialog(box, id == platform::kIdOk ? Answer() : values::kBoxCancelled);
    return 0;
  }

  LResult Answer() const {
    const auto selected = static_cast<std::size_t>(list_.Selected());
    return selected < question_.choices.size() ? question_.choices[selected].result : values::kBoxRead;
  }

  WideStringView text_;
  WideStringView caption_;
  int kind_;
  bool isShort_;
  Question question_;
  platform::ListBox list_;
  WindowHandle focusBefore_ = nullptr;
};

}  // namespace

const platform::DialogTemplate& TemplateFor(int kind, int textWidth, int clientWidth) {
  if (kind == values::kExitChoiceBox) return ExitChoiceTemplate();
  return textWidth < 2 * clientWidth ? ShortMessageTemplate() : LongMessageTemplate();
}

int MessageBox::Show(WideStringView text, WideStringView caption, int kind) {
  const auto& boxTemplate =
      TemplateFor(kind, platform::MeasureText(owner_, text), platform::ClientRect(owner_).Width());
  BoxProcedure procedure(text, caption, kind, &boxTemplate == &ShortMessageTemplate());
  const bool ownerWasEnabled = platform::IsEnabled(owner_);
  const platform::WaitCursorPause pause;
  const auto answer = static_cast<int>(platform::RunDialog(boxTemplate, owner_, procedure));
  // A dialog that ends enables its owner, even one that was disabled for an edit dialog.
  platform::Enable(owner_, ownerWasEnabled);
  // Only now: while the box stood, its owner was disabled and took no focus.
  platform::Focus(procedure.FocusBefore());
  return answer;
}

}  // namespace app
