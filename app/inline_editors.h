// Editors that stand on the main screen itself, beside the list. Whoever shows a property inline makes the controls and
// puts them here; their notifications become changes of the selected item.
#pragma once

#include "model/menu_item.h"
#include "platform/controls.h"

#include <array>
#include <cstddef>

namespace app {

class ScreenActions;

inline constexpr std::array<int, 3> kInlineRadioIds = {1007, 1008, 1009};
inline constexpr int kInlineCheckBoxId = 1013;

class InlineEditors {
 public:
  std::array<platform::Button, 3> radioButtons;
  platform::Button checkBox;
  platform::ComboBox choices;
  platform::WindowHandle addressField = nullptr;  // an RNA_IPAddress control
  // Answers kGetFieldText with its text in the WideString that lParam points to.
  platform::WindowHandle valueField = nullptr;
  std::array<platform::WindowHandle, 2> valueEditors{};
  platform::LParam initialFieldValue = 0;

  // While set, the program itself changes the editors and nothing is reported.
  bool suppressed = false;

  void Initialise() const;

  // True when the notification came from one of the editors; it is then reported as a change of `selected`.
  bool OnCommand(const platform::Message& message, model::MenuItem* selected, ScreenActions& actions) const;

 private:
  enum class Source { kNone, kRadioButton, kCheckBox, kChoices, kAddressField, kValueField, kValueEditor };
  Source SourceOf(const platform::Message& message) const;
  void CheckRadioButton(platform::WindowHandle clicked) const;
  WideString TextOf(Source source, platform::WindowHandle control) const;
  WideString RadioButtonText(platform::WindowHandle clicked) const;
  WideString ValueFieldText() const;
};

}  // namespace app
