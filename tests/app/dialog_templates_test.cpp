// Every dialog of the program in dialog units, as its author drew it: a change of one is a change of the screen.
#include "app/dialog_templates.h"

#include "base/utf8.h"
#include "ui/edit_templates.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

std::string Hex(platform::style::Bits bits) {
  char text[16];
  std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(bits));
  return text;
}

// Its number, caption, style, place, size and font; then a line for each control.
std::string Drawing(const platform::DialogTemplate& dialog) {
  std::string text = std::to_string(dialog.id) + " \"" + base::ToUtf8(dialog.caption) + "\" " + Hex(dialog.style) +
                     " " + std::to_string(dialog.x) + "," + std::to_string(dialog.y) + " " +
                     std::to_string(dialog.width) + "x" + std::to_string(dialog.height) + ", " +
                     base::ToUtf8(dialog.fontFace) + " " + std::to_string(dialog.fontPoints) + "\n";
  for (const platform::DialogControl& control : dialog.controls) {
    text += std::to_string(control.id) + " " + base::ToUtf8(control.className) + " \"" + base::ToUtf8(control.text) +
            "\" " + Hex(control.style) + " " + std::to_string(control.x) + "," + std::to_string(control.y) + " " +
            std::to_string(control.width) + "x" + std::to_string(control.height) + "\n";
  }
  return "\n" + text;
}

TEST(DialogTemplates, AreDrawnLikeThis) {
  const struct {
    const platform::DialogTemplate& dialog;
    const char* drawing;
  } dialogs[] = {
      {app::MainTemplate(false), R"(
105 "" 90000000 0,0 99x74, TAHOMA 10
1014 Static "Title" 10000081 0,0 93x8
1016 msctls_progress32 "" 00000000 8,38 70x10
1041 Static "   Press arrows to scroll text." 00000000 2,56 87x8
1031 Static "Navigation text" 10000000 3,63 83x8
1021 Edit "" 00000844 1,8 86x55
)"},
      {app::MainTemplate(true), R"(
119 "" 90000000 0,0 139x133, TAHOMA 10
1014 Static "Title" 10000081 0,0 138x11
1016 msctls_progress32 "" 00000000 8,38 70x10
1041 Static "   Press arrows to scroll text." 00000000 2,56 87x8
1031 Static "Navigation text" 00000000 2,124 136x8
1021 Edit "" 00000844 1,11 86x55
1049 Button "Exit" 00000000 7,118 50x14
1050 Button "Select" 00000000 68,118 50x14
)"},
      {app::OldMessageTemplate(), R"(
112 "" 90C00000 0,0 69x38, System 8
1002 Static "" 10000080 2,1 65x20
1028 ListBox "" 10010101 19,20 34x10
1042 Static "Press Enter" 10000000 19,28 38x8
)"},
      {app::ShortMessageTemplate(), R"(
113 "" 90C00000 0,0 73x50, System 8
1002 Static "" 10000080 2,1 70x24
1028 ListBox "" 10010101 19,29 34x10
1042 Static "Press Enter" 10000000 19,36 38x8
)"},
      {app::LongMessageTemplate(), R"(
114 "" 90C00000 0,0 75x58, System 8
1002 Static "" 10000080 1,1 74x38
1028 ListBox "" 10010101 19,36 36x22
1042 Static "Press Enter" 10000000 19,44 38x8
)"},
      {app::ExitChoiceTemplate(), R"(
115 "" 90800000 0,0 79x34, System 8
1033 ListBox "" 10010101 5,3 70x27
)"},
      {ui::kSmallEditDialog, R"(
116 "Dialog" 80C000C0 0,0 99x58, Tahoma 8
1037 LISTBOX "" 00A10001 0,2 96x43
1035 EDIT "" 00810080 2,24 95x14
1012 RNA_IPAddress "" 10010000 5,24 85x11
1047 SysDateTimePick32 "DateTimePicker1" 00010000 10,24 79x15
1048 STATIC "" 00000080 3,2 90x16
1040 STATIC "Cancel [Esc]   Save [Enter]" 10000000 1,49 88x8
)"},
      {ui::kLargeEditDialog, R"(
120 "Dialog" 80C000C0 0,0 135x78, Tahoma 8
1037 LISTBOX "" 00A10001 0,2 135x56
1035 EDIT "" 00810080 2,24 95x14
1012 RNA_IPAddress "" 10010000 5,24 85x11
1047 SysDateTimePick32 "DateTimePicker1" 00010000 10,24 79x15
1048 STATIC "" 00000080 3,2 90x16
1051 BUTTON "Cancel" 10010000 11,61 50x14
1052 BUTTON "Save" 10010000 73,60 50x14
)"},
  };
  for (const auto& each : dialogs) EXPECT_EQ(each.drawing, Drawing(each.dialog));
}

}  // namespace
