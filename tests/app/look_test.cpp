// What every screen of the two layouts looks like: one table, which the templates, the fonts, the places and the
// colours of the whole program have to give.
#include "tests/support/look.h"
#include "tests/app/every_screen.h"
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

struct Scene {
  const char* name;
  const char* before;  // keys that lead to it
  const char* after;   // and back to the main menu
  const char* large;
  const char* small;
};

constexpr Scene kScenes[] = {
    {"the main menu", "", "", R"(
window 0,0 243x266, filled 0,0 243x266 white
1014 Static 0,0 242x22, System 20 600, white on black
1016 msctls_progress32 14,76 123x20, TAHOMA 16 400, hidden
1041 Static 4,112 152x16, System 13 400, hidden
1031 Static 4,248 238x16, System 13 400, black on white
1021 Edit 2,22 151x110, System 11 400, disabled, hidden
1049 Button 12,236 88x28, TAHOMA 16 400, hidden
1050 Button 119,236 88x28, TAHOMA 16 400, hidden
0 KEL_ScrollBarClass 153,22 8x110, System 0 400, hidden
1002 ListBox 10,30 210x180, Courier 18 400
0 KEL_ScrollBarClass 220,17 8x123, System 0 400, hidden
)",
     R"(
window 0,0 173x148, filled 0,0 173x148 white
1014 Static 0,0 163x16, System 15 600, white on black
1016 msctls_progress32 14,76 123x20, TAHOMA 16 400, hidden
1041 Static 4,112 152x16, System 13 400, hidden
1031 Static 5,135 145x13, System 13 400, black on white
1021 Edit 2,16 151x110, System 11 400, disabled, hidden
0 KEL_ScrollBarClass 153,16 8x110, System 0 400, hidden
1002 ListBox 1,18 152x120, Courier 13 400
0 KEL_ScrollBarClass 153,17 8x123, System 0 400, hidden
)"},
    {"a text", "1", "{Esc}", R"(
window 15,35 209x152
1037 ListBox 0,3 203x82, Tahoma 12 400, hidden
1035 Edit 3,39 143x23, Tahoma 12 400
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400, disabled, hidden
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400, hidden
1048 Static 5,3 135x26, Tahoma 12 400, hidden
1051 Button 17,99 75x23, Tahoma 12 400
1052 Button 110,98 75x23, Tahoma 12 400
)",
     R"(
window 3,15 155x119, black on white
1037 ListBox 0,3 144x66, Tahoma 12 400, hidden
1035 Edit 3,39 143x23, Tahoma 12 400
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400, disabled, hidden
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400, hidden
1048 Static 5,3 135x26, Tahoma 12 400, hidden
1040 Static 2,80 147x13, Tahoma 12 400, black on white
)"},
    {"a choice with a description", "2", "{Esc}", R"(
window 15,35 209x152
1037 ListBox 0,27 203x67, Tahoma 12 400
1035 Edit 3,39 143x23, Tahoma 12 400, hidden
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400, disabled, hidden
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400, hidden
1048 Static 5,3 135x26, Tahoma 12 400
1051 Button 17,99 75x23, Tahoma 12 400
1052 Button 110,98 75x23, Tahoma 12 400
)",
     R"(
window 3,15 155x119, black on white
1037 ListBox 0,27 144x41, Tahoma 12 400
1035 Edit 3,39 143x23, Tahoma 12 400, hidden
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400, disabled, hidden
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400, hidden
1048 Static 5,3 135x26, Tahoma 12 400, black on white
1040 Static 2,80 147x13, Tahoma 12 400, black on white
)"},
    {"a date", "3", "{Esc}", R"(
window 15,35 209x152
1037 ListBox 0,3 203x82, Tahoma 12 400, hidden
1035 Edit 3,39 143x23, Tahoma 12 400, hidden
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400, disabled, hidden
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400
1048 Static 5,3 135x26, Tahoma 12 400, hidden
1051 Button 17,99 75x23, Tahoma 12 400
1052 Button 110,98 75x23, Tahoma 12 400
)",
     R"(
window 3,15 155x119, black on white
1037 ListBox 0,3 144x66, Tahoma 12 400, hidden
1035 Edit 3,39 143x23, Tahoma 12 400, hidden
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400, disabled, hidden
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400
1048 Static 5,3 135x26, Tahoma 12 400, hidden
1040 Static 2,80 147x13, Tahoma 12 400, black on white
)"},
    {"an address", "4", "{Esc}", R"(
window 15,35 209x152
1037 ListBox 0,3 203x82, Tahoma 12 400, hidden
1035 Edit 3,39 143x23, Tahoma 12 400, hidden
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400, hidden
1048 Static 5,3 135x26, Tahoma 12 400, hidden
1051 Button 17,99 75x23, Tahoma 12 400
1052 Button 110,98 75x23, Tahoma 12 400
)",
     R"(
window 3,15 155x119, black on white
1037 ListBox 0,3 144x66, Tahoma 12 400, hidden
1035 Edit 3,39 143x23, Tahoma 12 400, hidden
1012 RNA_IPAddress 8,39 128x18, Tahoma 12 400
1047 SysDateTimePick32 15,39 119x24, Tahoma 12 400, hidden
1048 Static 5,3 135x26, Tahoma 12 400, hidden
1040 Static 2,80 147x13, Tahoma 12 400, black on white
)"},
    {"the text page", "5", "{Esc}", R"(
window 0,0 243x266, filled 0,0 243x266 white
1014 Static 0,0 242x22, System 20 600, white on black
1016 msctls_progress32 14,76 123x20, TAHOMA 16 400, hidden
1041 Static 4,112 152x16, System 13 400, hidden
1031 Static 4,248 238x16, System 13 400, black on white
1021 Edit 2,22 151x110, System 11 400
1049 Button 12,236 88x28, TAHOMA 16 400, hidden
1050 Button 119,236 88x28, TAHOMA 16 400, hidden
0 KEL_ScrollBarClass 153,22 8x110, System 0 400, hidden
1002 ListBox 10,30 210x180, Courier 18 400, disabled, hidden
0 KEL_ScrollBarClass 220,17 8x123, System 0 400, hidden
)",
     R"(
window 0,0 173x148, filled 0,0 173x148 white
1014 Static 0,0 163x16, System 15 600, white on black
1016 msctls_progress32 14,76 123x20, TAHOMA 16 400, hidden
1041 Static 4,112 152x16, System 13 400, hidden
1031 Static 5,135 145x13, System 13 400, black on white
1021 Edit 2,16 151x110, System 11 400
0 KEL_ScrollBarClass 153,16 8x110, System 0 400, hidden
1002 ListBox 1,18 152x120, Courier 13 400, disabled, hidden
0 KEL_ScrollBarClass 153,17 8x123, System 0 400, hidden
)"},
    {"a short message", "10{Enter}", "{Enter}{Esc}", R"(
window 10,5 152x125, black on white
1002 Static 4,19 140x53, System 13 400, black on white
1028 ListBox 38,58 68x20, System 13 400, hidden
1042 Static 38,72 76x16, System 13 400, black on white
)",
     R"(
window 10,5 152x125, black on white
1002 Static 4,19 140x53, System 13 400, black on white
1028 ListBox 38,58 68x20, System 13 400, hidden
1042 Static 38,72 76x16, System 13 400, black on white
)"},
    {"a long question", "6", "{Esc}", R"(
window 10,5 156x141, black on white
1002 Static 2,2 148x70, System 13 400, black on white
1028 ListBox 38,72 72x44, System 13 400
1042 Static 38,88 76x16, System 13 400, hidden
)",
     R"(
window 10,5 156x141, black on white
1002 Static 2,2 145x70, System 13 400, black on white
1028 ListBox 38,72 72x44, System 13 400
1042 Static 38,88 76x16, System 13 400, hidden
)"},
};

class LookTest : public testing::TestWithParam<bool> {};

TEST_P(LookTest, OfEveryScreenIsTheTables) {
  const bool isLarge = GetParam();
  const TemporaryRoot root;
  root.Write("Windows/ovu.xml", kEveryScreen);
  root.Write("device.txt", kEveryScreensDevice);
  Keypad keypad;
  keypad.answersBoxes = false;
  for (const Scene& scene : kScenes) {
    keypad.Press(scene.before);
    keypad.Then([&scene, isLarge] {
      EXPECT_EQ(isLarge ? scene.large : scene.small, "\n" + LookOfWindow(platform::ActiveWindow())) << scene.name;
    });
    keypad.Press(scene.after);
  }
  const UtilityRun run{.root = root.Path(), .widthPx = isLarge ? 240 : 160, .heightPx = isLarge ? 320 : 160};
  ASSERT_EQ("", RunUtilityOn(run, keypad));
}

INSTANTIATE_TEST_SUITE_P(Layouts, LookTest, testing::Values(true, false),
                         [](const auto& parameter) { return parameter.param ? "Large" : "Small"; });

}  // namespace
}  // namespace tests
