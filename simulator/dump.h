// The screen as text, from a picture of it that every platform can take.
#pragma once

#include "base/wide_string.h"

#include <optional>
#include <string>
#include <vector>

namespace simulator {

struct ControlPicture {
  enum class Kind { kStatic, kButton, kEdit, kList, kCombo, kPicker, kProgress, kAddress, kScrollBar, kOther };
  Kind kind = Kind::kOther;
  int id = 0;
  bool enabled = true;
  WideString text;                // but of kList, kAddress and kProgress
  bool checked = false;           // kButton
  std::vector<WideString> lines;  // kList: its lines; kAddress: its fields
  int top = 0;                    // kList, and kEdit with several lines: the first one in sight
  int selected = -1;              // kList
  int selectionStart = 0;         // kEdit
  int selectionEnd = 0;
  int position = 0;  // kProgress
};

struct WindowPicture {
  WideString title;
  bool enabled = true;
  std::vector<ControlPicture> controls;  // the visible ones in order of creation
};

struct FocusPicture {
  bool isWindow = false;  // a top-level window itself has it
  int controlId = 0;
  int field = 0;  // of an address, from 1; 0: the control has no fields
};

struct ScreenPicture {
  std::vector<WindowPicture> windows;  // the visible top-level windows of the program from the bottom to the top
  std::optional<FocusPicture> focus;   // nothing has it
};

// Lines that end in "\n"; empty when there is no window and nothing has the focus.
std::string Dump(const ScreenPicture& screen);

}  // namespace simulator
