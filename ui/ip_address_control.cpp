#include "ui/ip_address_control.h"

#include "base/format.h"
#include "base/number.h"
#include "base/string_table.h"
#include "platform/canvas.h"
#include "ui/ip_address_field.h"
#include "ui/key_filters.h"
#include "ui/private_messages.h"

#include <algorithm>
#include <array>

namespace ui {
namespace {

namespace key = platform::key;
namespace message = platform::message;
namespace notification = platform::notification;
namespace style = platform::style;

using platform::LResult;
using platform::Message;
using platform::WindowHandle;

constexpr std::size_t kFieldCount = 4;
constexpr int kMarginPx = 2;
constexpr LResult kAllKeys = platform::dialog_code::kWantArrows | platform::dialog_code::kWantTab |
                             platform::dialog_code::kWantAllKeys | platform::dialog_code::kWantChars;

// One control, alive as long as its window.
class AddressControl final : public platform::MessageHandler {
 public:
  AddressControl(WindowHandle window, values::MessageBoxes& boxes, InsertFlag& insertFlag)
      : window_(window), boxes_(boxes), insertFlag_(insertFlag), fieldKeys_(*this) {}

  std::optional<LResult> OnMessage(WindowHandle window, const Message& received) override;

 private:
  using Caret = AddressField::Caret;

  // What the fields do with their messages.
  class FieldKeys final : public platform::MessageHandler {
   public:
    explicit FieldKeys(AddressControl& control) : control_(control) {}
    std::optional<LResult> OnMessage(WindowHandle window, const Message& received) override {
      return control_.OnFieldMessage(window, received);
    }

   private:
    AddressControl& control_;
  };

  bool Create();
  void Paint();
  void OnEnable(bool enabled);
  void OnFieldCommand(const Message& received);
  void NotifyParent(int code) const;

  void Clear();
  void Set(std::uint32_t address);
  LResult Get(std::uint32_t* address) const;
  void FocusField(std::size_t index) const;

  std::optional<LResult> OnFieldMessage(WindowHandle window, const Message& received);
  std::optional<LResult> OnFieldKey(std::size_t index, std::uint16_t virtualKey);
  std::optional<LResult> OnFieldCharacter(std::size_t index, const Message& received);
  void OnFieldFocus();
  void OnFieldFocusLost(std::size_t index, WindowHandle next);
  void TypeDigit(std::size_t index, const Message& received);
  void TypeSeparator(std::size_t index);

  // The tests that a field has to pass before it is left for another; a refusal is explained to the user.
  bool Check(std::size_t index);
  bool CheckAll();
  void Refuse(std::size_t index);
  void UseHighBound(std::size_t index);
  bool MoveTo(std::size_t from, std::size_t to, Caret caret);
  void Tidy(std::size_t index);

  bool HasLeadingZeros() const { return (style_ & address_style::kLeadingZeros) != 0; }
  std::size_t IndexOf(WindowHandle field) const;  // kFieldCount: none of them

  WindowHandle window_;
  values::MessageBoxes& boxes_;
  InsertFlag& insertFlag_;
  FieldKeys fieldKeys_;

  WindowHandle parent_ = nullptr;
  style::Bits style_ = 0;
  int separatorWidthPx_ = 0;
  int fieldWidthPx_ = 0;
  bool enabled_ = true;
  bool painted_ = false;
  bool busy_ = false;         // a range message is shown
  bool settingText_ = false;  // the program, not the user, changes a field
  bool hasFocus_ = false;
  std::array<AddressField, kFieldCount> fields_;
};

// Sets a flag for as long as it lives.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~ScopedFlag() { flag_ = before_; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;

 private:
  bool& flag_;
  bool before_;
};

std::optional<LResult> AddressControl::OnMessage(WindowHandle, const Message& received) {
  switch (received.id) {
    case message::kCreate: return Create() ? 0 : -1;
    case message::kPaint: Paint(); return 0;
    case message::kEnable: OnEnable(received.wParam != 0); return 0;
    case message::kSetFont:
      for (const AddressField& field : fields_)
        platform::Send(field.Handle(), received.id, received.wParam, received.lParam);
      return std::nullopt;
    case message::kGetDialogCode: return kAllKeys;
    case message::kLeftButtonDown: platform::Focus(window_); return 0;
    case message::kSetFocus: fields_[0].Enter(Caret::kAll); return 0;
    case message::kKeyDown:
      if (received.wParam != key::kEnter && received.wParam != key::kEscape) return std::nullopt;
      return platform::Send(parent_, private_message::kEditKey, received.wParam);
    case message::kCommand: OnFieldCommand(received); return 0;
    case address_message::kClear: Clear(); return 0;
    case address_message::kSet: Set(static_cast<std::uint32_t>(received.lParam)); return 0;
    case address_message::kGet: return Get(platform::FromParam<std::uint32_t>(received.lParam));
    case address_message::kSetRange:
      if (received.wParam < kFieldCount) {
        fields_[received.wParam].SetBounds(static_cast<std::uint8_t>(received.lParam & 0xFF),
                                           static_cast<std::uint8_t>((received.lParam >> 8) & 0xFF));
      }
      return 0;
    case address_message::kSetFocus: FocusField(received.wParam); return 0;
    case address_message::kCheck: return CheckAll() ? 1 : 0;
    case address_message::kAskForRootMenu: platform::Post(parent_, private_message::kShowRootMenu); return 0;
    default: return std::nullopt;
  }
}

bool AddressControl::Create() {
  parent_ = platform::ParentOf(window_);
  style_ = platform::StyleOf(window_);
  const platform::Rect client = platform::ClientRect(window_);
  separatorWidthPx_ = platform::MeasureText(window_, u".");
  fieldWidthPx_ = (client.Width() - 3 * separatorWidthPx_ - 2 * kMarginPx) / static_cast<int>(kFieldCount);

  const style::Bits alignment = (style_ & address_style::kRight) != 0    ? style::kEditRight
                                : (style_ & address_style::kCentre) != 0 ? style::kEditCentre
                                                                         : 0;
  int left = kMarginPx;
  for (AddressField& field : fields_) {
    const platform::Rect place{left, kMarginPx, left + fieldWidthPx_, client.bottom - kMarginPx};
    if (!field.Create(window_, place, alignment, fieldKeys_)) return false;
    left += separatorWidthPx_ + fieldWidthPx_;
  }
  return true;
}

void AddressControl::Paint() {
  painted_ = true;
  const auto canvas = platform::BeginPaint(window_);
  const platform::Color inside = platform::ColorOf(platform::SystemColor::kWindow);
  const platform::Color pen = inside == platform::kBlack ? platform::kWhite : platform::kBlack;
  const platform::Color text =
      platform::ColorOf(enabled_ ? platform::SystemColor::kWindowText : platform::SystemColor::kGrayText);
  canvas->Frame(platform::ClientRect(window_), pen, inside);
  int left = fieldWidthPx_ + kMarginPx;
  for (std::size_t separator = 1; separator < kFieldCount; ++separator) {
    canvas->Text({left, kMarginPx}, u".", text);
    left += separatorWidthPx_ + fieldWidthPx_;
  }
}

void AddressControl::OnEnable(bool enabled) {
  enabled_ = enabled;
  for (const AddressField& field : fields_) platform::Enable(field.Handle(), enabled);
  if ((style_ & style::kTabStop) != 0) {
    const style::Bits now = platform::StyleOf(window_);
    platform::SetStyle(window_, enabled ? now | style::kTabStop : now & ~style::kTabStop);
  }
  if (painted_) platform::Invalidate(window_);
}

void AddressControl::OnFieldCommand(const Message& received) {
  if (settingText_ || platform::CommandCode(received) != notification::kEditChange) return;
  const std::size_t index = IndexOf(platform::CommandControl(received));
  if (index == kFieldCount) return;
  if (fields_[index].IsEmpty() || fields_[index].IsWithinBounds()) NotifyParent(notification::kEditChange);
}

void AddressControl::NotifyParent(int code) const {
  const auto id = static_cast<platform::WParam>(platform::IdOf(window_) & 0xFFFF);
  platform::Send(parent_, message::kCommand, static_cast<platform::WParam>(code) << 16 | id,
                 platform::ToLParam(window_));
}

void AddressControl::Clear() {
  const ScopedFlag setting(settingText_);
  for (AddressField& field : fields_) field.SetText(u"");
}

void AddressControl::Set(std::uint32_t address) {
  const ScopedFlag setting(settingText_);
  int shift = 24;
  for (AddressField& field : fields_) {
    field.SetText(base::Format(u"%d", address >> shift & 0xFF));
    shift -= 8;
  }
}

LResult AddressControl::Get(std::uint32_t* address) const {
  std::uint32_t bytes = 0;
  for (const AddressField& field : fields_) bytes = bytes << 8 | field.Byte();
  if (address != nullptr) *address = bytes;
  return std::count_if(fields_.begin(), fields_.end(), [](const AddressField& field) { return !field.IsEmpty(); });
}

void AddressControl::FocusField(std::size_t index) const {
  if (index >= kFieldCount) {
    const auto empty =
        std::find_if(fields_.begin(), fields_.end(), [](const AddressField& field) { return field.IsEmpty(); });
    index = empty == fields_.end() ? 0 : static_cast<std::size_t>(empty - fields_.begin());
  }
  fields_[index].Enter(Caret::kAll);
}

std::optional<LResult> AddressControl::OnFieldMessage(WindowHandle window, const Message& received) {
  const std::size_t index = IndexOf(window);
  if (index == kFieldCount) return std::nullopt;
  switch (received.id) {
    case message::kGetDialogCode: return kAllKeys;
    case message::kKeyDown: return OnFieldKey(index, static_cast<std::uint16_t>(received.wParam));
    case message::kChar: return OnFieldCharacter(index, received);
    case message::kPaste: {
      const LResult result = fields_[index].CallPrevious(received);
      Check(index);
      return result;
    }
    case message::kSetFocus: OnFieldFocus(); return std::nullopt;
    case message::kKillFocus:
      OnFieldFocusLost(index, platform::FromParam<platform::WindowObject>(received.wParam));
      return std::nullopt;
    default: return std::nullopt;
  }
}

std::optional<LResult> AddressControl::OnFieldKey(std::size_t index, std::uint16_t virtualKey) {
  constexpr std::size_t kLast = kFieldCount - 1;
  const bool isFirst = index == 0;
  const bool isLast = index == kLast;
  switch (virtualKey) {
    case key::kLeft:
      if (isFirst || !fields_[index].IsCaretAt(0)) return std::nullopt;
      MoveTo(index, index - 1, Caret::kEnd);
      return 0;
    case key::kRight:
      if (isLast || !fields_[index].IsCaretAtEnd()) return std::nullopt;
      MoveTo(index, index + 1, Caret::kStart);
      return 0;
    case key::kUp:
      if (!isFirst) MoveTo(index, index - 1, Caret::kAll);
      return 0;
    case key::kDown:
      if (!isLast) MoveTo(index, index + 1, Caret::kAll);
      return 0;
    case key::kHome: MoveTo(index, 0, Caret::kStart); return 0;
    case key::kEnd: MoveTo(index, kLast, Caret::kEnd); return 0;
    case key::kEnter:
      // A field that was refused stays: what Enter saves is an address.
      if (Check(index)) platform::Post(window_, message::kKeyDown, key::kEnter);
      return 0;
    case key::kEscape: platform::Post(window_, message::kKeyDown, key::kEscape); return 0;
    case key::kPageUp: platform::Post(window_, address_message::kAskForRootMenu); return 0;
    case key::kTab:
      if (Check(index)) {
        platform::Send(parent_, private_message::kEditKey, key::kTab, platform::IsKeyDown(key::kControl) ? 1 : 0);
      }
      return 0;
    case key::kInsert: insertFlag_.Toggle(); return 0;
    default: return std::nullopt;
  }
}

std::optional<LResult> AddressControl::OnFieldCharacter(std::size_t index, const Message& received) {
  const auto character = static_cast<char16_t>(received.wParam);
  switch (character) {
    case key::kEnter:
    case key::kTab: return 0;  // their key-downs did the work
    case u'.':
    case u' ': TypeSeparator(index); return 0;
    case key::kBackspace:
      if (index == 0 || !fields_[index].IsCaretAt(0)) return std::nullopt;
      if (MoveTo(index, index - 1, Caret::kEnd)) fields_[index - 1].DeleteLastDigit();
      return 0;
    default: break;
  }
  if (base::IsDigit(character)) {
    TypeDigit(index, received);
    return 0;
  }
  if (!IsPrintable(character)) return std::nullopt;
  platform::Beep();
  return 0;
}

void AddressControl::TypeDigit(std::size_t index, const Message& received) {
  fields_[index].CallPrevious(received);
  const bool isFull = fields_[index].IsCaretAt(static_cast<int>(kAddressFieldDigits));
  if (isFull && Check(index) && index + 1 < kFieldCount) fields_[index + 1].Enter(Caret::kAll);
}

void AddressControl::TypeSeparator(std::size_t index) {
  if (fields_[index].HasSelection() || fields_[index].IsCaretAt(0)) return;
  if (!Check(index)) return;
  if (index + 1 < kFieldCount) {
    fields_[index + 1].Enter(Caret::kAll);
  } else {
    platform::Beep();
  }
}

void AddressControl::OnFieldFocus() {
  if (hasFocus_) return;
  hasFocus_ = true;
  NotifyParent(notification::kEditSetFocus);
}

void AddressControl::OnFieldFocusLost(std::size_t index, WindowHandle next) {
  Tidy(index);
  if (busy_ || IndexOf(next) != kFieldCount) return;
  hasFocus_ = false;
  NotifyParent(notification::kEditKillFocus);
}

bool AddressControl::Check(std::size_t index) {
  if (busy_) return false;
  if (fields_[index].IsEmpty()) return true;
  if (fields_[index].IsWithinBounds()) {
    Tidy(index);
    return true;
  }
  if (platform::ParentOf(parent_) != nullptr) {
    Refuse(index);
    return false;
  }
  UseHighBound(index);  // there is no window to own a message
  return true;
}

bool AddressControl::CheckAll() {
  for (std::size_t index = 0; index < kFieldCount; ++index) {
    if (!Check(index)) return false;
  }
  return true;
}

void AddressControl::Refuse(std::size_t index) {
  const AddressField& field = fields_[index];
  {
    const ScopedFlag shown(busy_);
    boxes_.Show(base::Format(LoadText(TextId::kNotAValidEntry), field.Value(), field.Low(), field.High()),
                LoadText(TextId::kInvalidIpAddress), values::kWarningBox);
    if (platform::FocusedWindow() != field.Handle()) platform::Focus(field.Handle());
  }
  field.SelectAll();
}

void AddressControl::UseHighBound(std::size_t index) {
  {
    const ScopedFlag setting(settingText_);
    fields_[index].SetText(base::Format(u"%d", fields_[index].High()));
  }
  fields_[index].SelectAll();
  NotifyParent(notification::kEditChange);
}

bool AddressControl::MoveTo(std::size_t from, std::size_t to, Caret caret) {
  if (from != to && !Check(from)) return false;
  fields_[to].Enter(caret);
  return true;
}

void AddressControl::Tidy(std::size_t index) {
  const ScopedFlag setting(settingText_);
  fields_[index].Tidy(HasLeadingZeros());
}

std::size_t AddressControl::IndexOf(WindowHandle field) const {
  if (field == nullptr) return kFieldCount;
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [field](const AddressField& candidate) { return candidate.Handle() == field; });
  return static_cast<std::size_t>(found - fields_.begin());
}

}  // namespace

void RegisterAddressControl(values::MessageBoxes& boxes, InsertFlag& insertFlag) {
  platform::RegisterWindowClass(
      {.name = kAddressClassName, .doubleClicks = true, .make = [&boxes, &insertFlag](WindowHandle window) {
         return std::make_unique<AddressControl>(window, boxes, insertFlag);
       }});
}

}  // namespace ui
