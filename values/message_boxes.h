// The program's message and prompt boxes, as the floors below the application see them.
#pragma once

#include "base/wide_string.h"

namespace values {

// Kinds of boxes. Any other number than the three shows the text and "Press Enter", with no defined result.
inline constexpr int kMessageBox = 1;     // kBoxRead
inline constexpr int kYesNoBox = 2;       // kBoxYes, kBoxNo
inline constexpr int kExitChoiceBox = 3;  // kBoxDiscard, kBoxSave, kBoxStay; no text
inline constexpr int kErrorBox = 4;
inline constexpr int kStopBox = 16;
inline constexpr int kWarningBox = 48;

// Results.
inline constexpr int kBoxCancelled = -1;  // Esc, in every kind
inline constexpr int kBoxRead = 0;
inline constexpr int kBoxStay = 2;
inline constexpr int kBoxYes = 6;
inline constexpr int kBoxNo = 7;
inline constexpr int kBoxSave = 101;
inline constexpr int kBoxDiscard = 102;

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  // Returns when the user has answered.
  virtual int Show(WideStringView text, WideStringView caption, int kind) = 0;
};

}  // namespace values
