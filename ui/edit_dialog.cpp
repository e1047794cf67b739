#include "ui/edit_dialog.h"

#include "base/format.h"
#include "base/string_table.h"
#include "platform/canvas.h"
#include "platform/controls.h"
#include "platform/dialog.h"
#include "ui/character_query.h"
#include "ui/edit_templates.h"
#include "ui/entry_kinds.h"
#include "ui/private_messages.h"
#include "values/shown_value.h"

#include <algorithm>

namespace ui {
namespace {

namespace message = platform::message;
namespace notification = platform::notification;

using platform::LResult;
using platform::Message;
using platform::Rect;
using platform::WindowHandle;

constexpr LResult kNotSaved = 0;
constexpr LResult kSaved = 1;

constexpr platform::Point kSmallPlace{3, 15};
constexpr platform::Point kLargePlace{15, 35};
constexpr int kDescriptionHeightPx = 24;

class EditDialog final : public platform::MessageHandler {
 public:
  EditDialog(const EditContext& context, model::MenuItem& item, bool largeLayout, EditRequest request)
      : context_(context),
        item_(item),
        descriptor_(*item.Descriptor()),
        largeLayout_(largeLayout),
        request_(std::move(request)) {}

  std::optional<LResult> OnMessage(WindowHandle dialog, const Message& received) override;

 private:
  LResult Init(WindowHandle dialog);
  void Place() const;
  void MakeRoomForHint() const;
  void ShowDescription() const;
  void MakeRoomForDescription() const;
  std::optional<LResult> OnCommand(const Message& received);
  LResult OnPassedKey(platform::WParam virtualKey);
  void NoteChange();
  void RememberFocus(WindowHandle window);
  void Save();
  bool CommitAndApply(const EnteredValue& entered, bool& applied);
  void RewriteLine(const EnteredValue& entered);
  void RunExitHandlers();
  void Close(LResult result);

  const EditContext& context_;
  model::MenuItem& item_;
  values::PropertyDescriptor& descriptor_;
  bool largeLayout_;
  EditRequest request_;

  WindowHandle dialog_ = nullptr;
  WindowHandle focusBefore_ = nullptr;
  std::unique_ptr<EntryControl> entry_;
  bool edited_ = false;
};

std::optional<LResult> EditDialog::OnMessage(WindowHandle dialog, const Message& received) {
  switch (received.id) {
    case message::kInitDialog: return Init(dialog);
    case message::kActivate:
      if ((received.wParam & 0xFFFF) != platform::kActive || entry_ == nullptr) return std::nullopt;
      platform::Focus(entry_->Handle());
      return 0;
    case message::kSetFocus:
      RememberFocus(platform::FromParam<platform::WindowObject>(received.wParam));
      return std::nullopt;
    case message::kNotify:
      if (received.wParam == kDateTimeEntryId &&
          platform::NotifyCode(received) == notification::kPickerDateTimeChange) {
        NoteChange();
      }
      return 0;
    case message::kCommand: return OnCommand(received);
    case private_message::kCharacterQuery: {
      const auto* const query = platform::FromParam<const CharacterQuery>(received.wParam);
      *platform::FromParam<bool>(received.lParam) = entry_ != nullptr && entry_->Swallows(query->character);
      return 0;
    }
    case private_message::kEditKey: return OnPassedKey(received.wParam);
    case message::kControlColorButton:
    case message::kControlColorDialog:
    case message::kControlColorStatic:
      if (largeLayout_) return std::nullopt;
      return platform::AnswerControlColors(received, platform::kBlack, platform::kWhite);
    default: return std::nullopt;
  }
}

LResult EditDialog::Init(WindowHandle dialog) {
  dialog_ = dialog;
  RememberFocus(platform::FocusedWindow());
  platform::Control(platform::ControlOf(dialog, kAddressEntryId)).HideAndDisable();

  const EntryKind kind = ChooseEntryKind(request_);
  const WindowHandle window = platform::ControlOf(dialog, EntryControlId(kind));
  entry_ = MakeEntryControl(kind, window, context_.insertFlag);
  platform::Control(window).ShowAndEnable();
  entry_->Fill(request_);
  Place();
  MakeRoomForHint();
  platform::SetText(dialog, descriptor_.DisplayName());
  ShowDescription();
  platform::Focus(window);
  entry_->Start();
  entry_->TakeChange();  // what it starts with is none
  edited_ = false;
  return 0;
}

void EditDialog::Place() const {
  const platform::Point place = largeLayout_ ? kLargePlace : kSmallPlace;
  const Rect now = platform::WindowRect(dialog_);
  platform::Move(dialog_, {place.x, place.y, place.x + now.Width(), place.y + now.Height()});
}

// The small layout's hint needs a little more than its template gives it.
void EditDialog::MakeRoomForHint() const {
  const WindowHandle hint = platform::ControlOf(dialog_, kEditHintId);
  if (hint == nullptr) return;
  Rect place = platform::RectInParent(hint);
  place.right = platform::ClientRect(dialog_).right;
  platform::Move(hint, place);
}

void EditDialog::ShowDescription() const {
  const WideStringView description = descriptor_.Attributes().Get(TextId::kShortDesc);
  if (description.empty()) return;
  const WindowHandle line = platform::ControlOf(dialog_, kShortDescriptionId);
  platform::SetText(line, description);
  platform::Show(line);
  if (entry_->IsList()) MakeRoomForDescription();
}

void EditDialog::MakeRoomForDescription() const {
  Rect place = platform::RectInParent(entry_->Handle());
  place.top += kDescriptionHeightPx;
  place.bottom = platform::ClientRect(dialog_).bottom - platform::CaptionHeight();
  // The large layout's buttons begin higher than that, and the list must not cover them.
  if (const WindowHandle button = platform::ControlOf(dialog_, kEditSaveId)) {
    place.bottom = std::min(place.bottom, platform::RectInParent(button).top);
  }
  platform::Move(entry_->Handle(), place);
  const platform::ListBox list(entry_->Handle());
  list.Select(list.Selected());  // and into view again
}

std::optional<LResult> EditDialog::OnCommand(const Message& received) {
  const int code = platform::CommandCode(received);
  if (code == notification::kListSelectionChange || code == notification::kEditChange) {
    NoteChange();
    return 0;
  }
  if (code != notification::kButtonClicked) return std::nullopt;
  switch (platform::CommandId(received)) {
    case platform::kIdOk:
    case kEditSaveId: Save(); return 0;
    case platform::kIdCancel:
    case kEditCancelId: Close(kNotSaved); return 0;
    default: return std::nullopt;
  }
}

LResult EditDialog::OnPassedKey(platform::WParam virtualKey) {
  if (!IsPassedEditKey(virtualKey)) return 0;
  platform::Post(dialog_, message::kKeyDown, virtualKey);
  edited_ = true;
  return 1;
}

void EditDialog::NoteChange() {
  if (entry_ != nullptr && entry_->TakeChange()) edited_ = true;
}

void EditDialog::RememberFocus(WindowHandle window) {
  for (WindowHandle ancestor = window; ancestor != nullptr; ancestor = platform::ParentOf(ancestor)) {
    if (ancestor == dialog_) return;  // it closes with the dialog
  }
  if (window != nullptr) focusBefore_ = window;
}

void EditDialog::Save() {
  if (!entry_->Finish()) return;
  if (!edited_ || !entry_->HasValue()) {
    Close(kNotSaved);
    return;
  }
  const EnteredValue entered = entry_->Entered();
  bool applied = false;
  if (!CommitAndApply(entered, applied)) return;
  if (applied) {
    RewriteLine(entered);
    RunExitHandlers();
  }
  Close(applied ? kSaved : kNotSaved);
  context_.menu.Refill();
}

// False when the value was refused: the user knows why, and may go on with it.
bool EditDialog::CommitAndApply(const EnteredValue& entered, bool& applied) {
  const platform::WaitCursor wait(dialog_);
  if (!context_.committer.CommitEditedValue(&item_, entered.text, entered.mode)) return false;
  applied = context_.actions.ApplyChanges();
  return true;
}

void EditDialog::RewriteLine(const EnteredValue& entered) {
  item_.SetSuffix(base::Format(LoadText(TextId::kValueSuffixFormat), values::MaskedText(descriptor_, entered.shown)));
  context_.menu.LineChanged(item_);
}

void EditDialog::RunExitHandlers() {
  WideString command(descriptor_.Attributes().Get(TextId::kOnExit));
  for (int number = 1; !command.empty(); ++number) {
    context_.actions.RunPostEditAction(command, item_);
    command = descriptor_.Attributes().Get(base::Format(u"%s%d", LoadText(TextId::kOnExit), number));
  }
}

void EditDialog::Close(LResult result) {
  platform::EndDialog(dialog_, result);
  platform::Focus(focusBefore_);
}

}  // namespace

bool RunEditDialog(const EditContext& context, model::MenuItem& item, bool largeLayout, WindowHandle owner) {
  const values::PropertyDescriptor* const descriptor = item.Descriptor();
  if (descriptor == nullptr) return false;
  // A property that cannot be edited is prepared all the same: its editor keeps its choices up to date.
  EditRequest request = context.editors.MakeRequest(*descriptor);
  if (descriptor->IsReadOnly() || ChooseEntryKind(request) == EntryKind::kNone) return false;

  EditDialog dialog(context, item, largeLayout, std::move(request));
  return platform::RunDialog(largeLayout ? kLargeEditDialog : kSmallEditDialog, owner, dialog) == kSaved;
}

}  // namespace ui
