#include "app/main_dialog.h"

#include "app/dialog_templates.h"
#include "app/popup_note.h"
#include "base/string_table.h"
#include "platform/canvas.h"
#include "platform/dialog.h"
#include "ui/private_messages.h"

namespace app {
namespace {

using platform::LResult;
using platform::Message;
using platform::WindowHandle;

constexpr WideStringView kFontFace = u"System";
constexpr int kLargeTitlePx = 20;
constexpr int kSmallTitlePx = 15;
constexpr int kTitleWeight = 600;
constexpr int kHintPx = 13;

constexpr ui::MenuList::Placement kLargeList{.x = 10, .y = 30, .width = 210, .height = 180};
constexpr ui::MenuList::Placement kSmallList{.x = 1, .y = 18, .width = 152, .height = 120};

model::MenuItem& ItemIn(const Message& message) { return *platform::FromParam<model::MenuItem>(message.lParam); }

void Answer(const Message& question, bool yes) { *platform::FromParam<int>(question.wParam) = yes ? 1 : 0; }

// A flag that is up while this lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

}  // namespace

MainDialog::MainDialog(ScreenActions& actions, values::MessageBoxes& boxes, std::function<void(WindowHandle)> onWindow)
    : actions_(actions), boxes_(boxes), onWindow_(std::move(onWindow)) {}

LResult MainDialog::Run(model::MenuItem& rootMenu, bool largeLayout) {
  rootMenu_ = &rootMenu;
  largeLayout_ = largeLayout;
  return platform::RunDialog(MainTemplate(largeLayout), nullptr, *this);
}

LResult MainDialog::Initialise() {
  onWindow_(window_);
  platform::SetText(window_, LoadText(TextId::kConfigurationUtility));
  title_ = platform::ControlOf(window_, control_id::kTitle);
  navigation_ = platform::ControlOf(window_, control_id::kNavigation);
  textPage_.Attach(window_, platform::ControlOf(window_, control_id::kTextPage));
  SetNavigation(TextId::kMenuNavigation);
  SetFonts();
  inlineEditors_.Initialise();
  if (!list_.Create(window_, *rootMenu_, title_, largeLayout_ ? kLargeList : kSmallList)) {
    boxes_.Show(LoadText(TextId::kConfigurationDataError), u"Initialization Error", values::kMessageBox);
    platform::EndDialog(window_, 0);
    return 1;
  }
  PlaceNavigation();
  actions_.BringModelUpToDate();
  ShowRootMenu();
  platform::Post(window_, ui::private_message::kStartWorker);
  return 0;  // not 1, which would give the dialog's first control the focus that the list has
}

void MainDialog::SetFonts() const {
  platform::SetFont(title_, {kFontFace, largeLayout_ ? kLargeTitlePx : kSmallTitlePx, kTitleWeight});
  platform::SetFont(platform::ControlOf(window_, control_id::kScrollHint), {kFontFace, kHintPx});
  platform::SetFont(navigation_, {kFontFace, kHintPx});
}

// On the small layout the list would cover the navigation line where its template has it. So the line goes as far down
// as the window does, and both are seen.
void MainDialog::PlaceNavigation() const {
  if (largeLayout_) return;
  const platform::Rect line = platform::RectInParent(navigation_);
  const int bottom = platform::ClientRect(window_).bottom;
  platform::Move(navigation_, {line.left, bottom - kHintPx, line.right, bottom});
}

// The Exit and Select buttons stay hidden: the navigation line names their keys.
void MainDialog::SetNavigation(TextId text) const {
  platform::Hide(platform::ControlOf(window_, control_id::kExitButton));
  platform::Hide(platform::ControlOf(window_, control_id::kSelectButton));
  platform::SetText(navigation_, LoadText(text));
  platform::Show(navigation_);
}

void MainDialog::ShowTextPage(const std::vector<WideString>& lines) {
  textPage_.Show(lines);
  list_.Hide();
  SetNavigation(TextId::kPageNavigation);
}

void MainDialog::CloseTextPage() {
  list_.ComeBack();
  FocusList();
  textPage_.Hide();
  SetNavigation(TextId::kMenuNavigation);
}

void MainDialog::ShowRootMenu() {
  list_.Show(*rootMenu_);
  FocusList();
}

// The note hides the list for its time, and with it goes the focus.
void MainDialog::ShowNote(WideStringView text) {
  const WindowHandle focused = platform::FocusedWindow();
  ShowPopupNote(list_.Handle(), text);
  platform::Focus(focused);
}

void MainDialog::RunEdit(const std::function<bool(WindowHandle owner)>& edit) {
  if (editRuns_) return;
  const Raised running(editRuns_);
  if (edit(window_)) ShowNote(LoadText(TextId::kSavedNote));
}

void MainDialog::ReplaceItems(const std::function<void()>& replace) {
  list_.ItemsWillBeReplaced();
  replace();
  list_.ItemsWereReplaced();
}

std::optional<LResult> MainDialog::OnMessage(WindowHandle window, const Message& message) {
  switch (message.id) {
    case platform::message::kInitDialog: window_ = window; return Initialise();
    case platform::message::kPaint: Paint(); return 0;
    case platform::message::kActivate:
      if ((message.wParam & 0xFFFF) == platform::kActive) platform::Activate(window_);
      return std::nullopt;
    case platform::message::kKeyDown:
      return OnKeyDown(static_cast<std::uint16_t>(message.wParam)) ? std::optional<LResult>(0) : std::nullopt;
    case platform::message::kCommand: return OnCommand(message);
    case platform::message::kControlColorDialog:
    case platform::message::kControlColorStatic: return OnControlColor(message);
    default: return OnPrivateMessage(message);
  }
}

bool MainDialog::OnKeyDown(std::uint16_t virtualKey) {
  if (virtualKey != platform::key::kHome) return false;
  if (list_.Menu() != nullptr) list_.Reset(*list_.Menu());
  actions_.BringModelUpToDate();
  ShowRootMenu();
  return true;
}

void MainDialog::KeyToList(std::uint16_t virtualKey) const {
  platform::Post(list_.Handle(), platform::message::kKeyDown, virtualKey);
}

std::optional<LResult> MainDialog::OnCommand(const Message& message) {
  if (inlineEditors_.OnCommand(message, list_.SelectedItem(), actions_)) return 0;
  switch (platform::CommandId(message)) {
    case platform::kIdOk: KeyToList(platform::key::kEnter); return 0;
    case platform::kIdCancel: KeyToList(platform::key::kEscape); return 0;
    case control_id::kExitButton:
      platform::Send(list_.Handle(), platform::message::kKeyDown, platform::key::kEscape);
      return 0;
    case control_id::kSelectButton:
      platform::Send(list_.Handle(), platform::message::kKeyDown, platform::key::kEnter);
      return 0;
    default: return std::nullopt;
  }
}

std::optional<LResult> MainDialog::OnPrivateMessage(const Message& message) {
  using namespace ui::private_message;
  switch (message.id) {
    case kAddressFieldRequest:
      *platform::FromParam<LResult>(message.lParam) =
          platform::Send(inlineEditors_.addressField, static_cast<std::uint32_t>(message.wParam));
      return 0;
    case kEndDialog: platform::EndDialog(window_, 0); return 0;
    case kCloseTextPage: CloseTextPage(); return 0;
    case kShowRootMenu: ShowRootMenu(); return 0;
    case kEditKey: return PassEditKey(static_cast<std::uint16_t>(message.wParam)) ? 1 : 0;
    case kStartWorker: actions_.StartTreeRebuild(); return 0;
    case kMayEnterItem:
      actions_.BringModelUpToDate();
      // The items may be others now: the list knows the one that is being entered.
      Answer(message, list_.EnteringItem() != nullptr && actions_.MayEnter(*list_.EnteringItem()));
      return 0;
    case kMayLeaveMenu: Answer(message, actions_.MayLeave(ItemIn(message))); return 0;
    case kFlipToggle: actions_.FlipToggle(); return 0;
    case kLeavingRoot: actions_.LeavingRoot(); return 0;
    case kActivateItem: actions_.Activate(ItemIn(message)); return 0;
    case kEvaluateItem: actions_.EvaluateItem(ItemIn(message)); return 0;
    case kBeforeFill: actions_.BeforeFill(ItemIn(message)); return 0;
    case kRebuildModel: actions_.BringModelUpToDate(); return 0;
    case kRelayToList:
      platform::Post(list_.Handle(), static_cast<std::uint32_t>(message.wParam),
                     static_cast<platform::WParam>(message.lParam));
      return 0;
    default: return std::nullopt;
  }
}

bool MainDialog::PassEditKey(std::uint16_t virtualKey) const {
  if (!ui::IsPassedEditKey(virtualKey)) return false;
  KeyToList(virtualKey);
  return true;
}

std::optional<LResult> MainDialog::OnControlColor(const Message& message) const {
  const bool isTitle = platform::FromParam<platform::WindowObject>(message.lParam) == title_;
  return isTitle ? platform::AnswerControlColors(message, platform::kWhite, platform::kBlack)
                 : platform::AnswerControlColors(message, platform::kBlack, platform::kWhite);
}

void MainDialog::Paint() const {
  const auto canvas = platform::BeginPaint(window_);
  canvas->Fill(platform::ClientRect(window_), platform::kWhite);
}

}  // namespace app
