#include "app/message_box.h"

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
constexpr Choice kYesNo[] = {{u"Yes", platform::kIdYes}, {u"No", platform::kIdNo}};
constexpr Choice kExitChoices[] = {{u" Discard changes", 102}, {u" Save changes", 101}, {u" Do not exit", 2}};

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
constexpr platform::FontSpec kFont{.face = u"System", .heightPx = 13, .weight = 400};

// How many lines a text takes when it is broken between words.
int LinesOf(WindowHandle window, WideStringView text, int widthPx) {
  int lines = 0;
  while (true) {
    const std::size_t end = std::min(text.find(u'\n'), text.size());
    WideStringView paragraph = text.substr(0, end);
    ++lines;
    for (std::size_t length = 0; length < paragraph.size();) {
      const std::size_t next = std::min(paragraph.find(u' ', length + 1), paragraph.size());
      if (length > 0 && platform::MeasureText(window, paragraph.substr(0, next), kFont) > widthPx) {
        paragraph.remove_prefix(length + 1);
        length = 0;
        ++lines;
      } else {
        length = next;
      }
    }
    if (end == text.size()) return lines;
    text.remove_prefix(end + 1);
  }
}

// Makes the box higher when its text needs more lines than the template has room for.
void MakeRoom(WindowHandle box, WideStringView text) {
  const WindowHandle message = platform::ControlOf(box, control_id::kMessage);
  platform::Rect rect = platform::RectInParent(message);
  const int missing = LinesOf(message, text, rect.Width()) * kFont.heightPx - rect.Height();
  if (missing <= 0) return;
  rect.bottom += missing;
  platform::Move(message, rect);
  for (const int id : {control_id::kAnswers, control_id::kPressEnter}) {
    const platform::Rect place = platform::RectInParent(platform::ControlOf(box, id));
    platform::Move(platform::ControlOf(box, id),
                   {place.left, place.top + missing, place.right, place.bottom + missing});
  }
  platform::Rect around = platform::WindowRect(box);
  around.bottom += missing;
  platform::Move(box, around);
}

class BoxProcedure final : public platform::MessageHandler {
 public:
  BoxProcedure(WideStringView text, WideStringView caption, int kind)
      : text_(text), caption_(caption), kind_(kind), question_(QuestionOf(kind)) {}

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
    if (kind_ != values::kExitChoiceBox) MakeRoom(box, text_);
    for (const int id :
         {control_id::kMessage, control_id::kAnswers, control_id::kExitChoices, control_id::kPressEnter}) {
      platform::SetFont(platform::ControlOf(box, id), kFont);
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
    return 0;  // the focus is set
  }

  void Ask(platform::ListBox list) {
    list_ = list;
    for (const Choice& choice : question_.choices) list_.Add(choice.text);
    list_.Select(0);
    platform::Show(list_.Handle());
    platform::Focus(list_.Handle());
  }

  std::optional<LResult> OnCommand(WindowHandle box, int id) {
    if (id != platform::kIdOk && id != platform::kIdCancel) return std::nullopt;
    if (id == platform::kIdOk) platform::Hide(box);
    platform::EndDialog(box, id == platform::kIdOk ? Answer() : values::kBoxCancelled);
    return 0;
  }

  LResult Answer() const {
    const auto selected = static_cast<std::size_t>(list_.Selected());
    return selected < question_.choices.size() ? question_.choices[selected].result : 0;
  }

  WideStringView text_;
  WideStringView caption_;
  int kind_;
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
  BoxProcedure procedure(text, caption, kind);
  const auto& boxTemplate =
      TemplateFor(kind, platform::MeasureText(owner_, text), platform::ClientRect(owner_).Width());
  const auto answer = static_cast<int>(platform::RunDialog(boxTemplate, owner_, procedure));
  // Only now: while the box stood, its owner was disabled and took no focus.
  platform::Focus(procedure.FocusBefore());
  return answer;
}

}  // namespace app
