#include "app/inline_editors.h"

#include "app/screen_actions.h"
#include "ui/ip_address_control.h"
#include "values/ip_address.h"

#include <algorithm>
#include <cstdint>

namespace app {
namespace {

// Messages of the inline value field.
constexpr std::uint32_t kSetFieldValue = platform::message::kUser + 101;
constexpr std::uint32_t kGetFieldText = platform::message::kUser + 102;

WideString AddressText(platform::WindowHandle field) {
  std::uint32_t address = 0;
  platform::Send(field, ui::address_message::kGet, 0, platform::ToLParam(&address));
  return values::DottedIpAddress(static_cast<std::int32_t>(address));
}

}  // namespace

void InlineEditors::Initialise() const {
  platform::Send(valueField, kSetFieldValue, 0, initialFieldValue);
  platform::Enable(valueField, true);
  platform::Hide(valueField);
}

InlineEditors::Source InlineEditors::SourceOf(const platform::Message& message) const {
  using namespace platform::notification;
  const platform::WindowHandle control = platform::CommandControl(message);
  if (control == nullptr) return Source::kNone;
  const int code = platform::CommandCode(message);
  const auto isOneOf = [control](const auto& handles) {
    return std::any_of(handles.begin(), handles.end(), [control](const auto& handle) {
      if constexpr (std::is_convertible_v<decltype(handle), platform::WindowHandle>) {
        return handle == control;
      } else {
        return handle.Handle() == control;
      }
    });
  };
  if (isOneOf(radioButtons)) return code == kButtonClicked ? Source::kRadioButton : Source::kNone;
  if (control == checkBox.Handle()) return code == kButtonClicked ? Source::kCheckBox : Source::kNone;
  if (control == choices.Handle()) return code == kComboSelectionChange ? Source::kChoices : Source::kNone;
  if (control == valueField) return code == kButtonClicked ? Source::kValueField : Source::kNone;
  if (code != kEditChange) return Source::kNone;
  if (control == addressField) return Source::kAddressField;
  return isOneOf(valueEditors) ? Source::kValueEditor : Source::kNone;
}

bool InlineEditors::OnCommand(const platform::Message& message, model::MenuItem* selected,
                              ScreenActions& actions) const {
  const Source source = SourceOf(message);
  if (source == Source::kNone) return false;
  if (suppressed) return true;
  const platform::WindowHandle control = platform::CommandControl(message);
  if (source == Source::kRadioButton) CheckRadioButton(control);
  if (selected == nullptr) return true;
  if (source == Source::kCheckBox) {
    actions.InlineCheckChanged(*selected, checkBox.IsChecked());
  } else {
    actions.InlineTextChanged(*selected, TextOf(source, control), source == Source::kChoices);
  }
  return true;
}

void InlineEditors::CheckRadioButton(platform::WindowHandle clicked) const {
  for (const platform::Button& button : radioButtons) button.SetChecked(button.Handle() == clicked);
}

WideString InlineEditors::TextOf(Source source, platform::WindowHandle control) const {
  switch (source) {
    case Source::kRadioButton: return RadioButtonText(control);
    case Source::kChoices: return choices.Line(choices.Selected());
    case Source::kValueField: return ValueFieldText();
    case Source::kAddressField: return AddressText(control);
    case Source::kValueEditor: return platform::TextOf(control);
    case Source::kNone:
    case Source::kCheckBox: break;
  }
  return {};
}

// The first button stands for the value field, the others for the two value editors.
WideString InlineEditors::RadioButtonText(platform::WindowHandle clicked) const {
  if (clicked == radioButtons[0].Handle()) return ValueFieldText();
  return platform::TextOf(clicked == radioButtons[1].Handle() ? valueEditors[0] : valueEditors[1]);
}

WideString InlineEditors::ValueFieldText() const {
  WideString text;
  platform::Send(valueField, kGetFieldText, 0, platform::ToLParam(&text));
  return text;
}

}  // namespace app
