// The program's message and prompt boxes, as the floors below the application see them.
#pragma once

#include "base/wide_string.h"

namespace values {

// Kinds of boxes. Any other number than the three shows the text and "Press Enter", with no defined result.
inline constexpr int kMessageBox = 1;     // Enter 0
inline constexpr int kYesNoBox = 2;       // Yes 6, No 7
inline constexpr int kExitChoiceBox = 3;  // discard 102, save 101, do not exit 2; no text
inline constexpr int kErrorBox = 4;
inline constexpr int kStopBox = 16;
inline constexpr int kWarningBox = 48;

inline constexpr int kBoxCancelled = -1;  // Esc, in every kind

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  // Returns when the user has answered.
  virtual int Show(WideStringView text, WideStringView caption, int kind) = 0;
};

}  // namespace values
