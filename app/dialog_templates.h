// The main screen's and the boxes' dialogs, in dialog units.
#pragma once

#include "platform/dialog.h"

namespace app {

namespace control_id {
inline constexpr int kTitle = 1014;
inline constexpr int kProgress = 1016;
inline constexpr int kScrollHint = 1041;
inline constexpr int kNavigation = 1031;
inline constexpr int kTextPage = 1021;
inline constexpr int kExitButton = 1049;
inline constexpr int kSelectButton = 1050;

inline constexpr int kMessage = 1002;
inline constexpr int kAnswers = 1028;
inline constexpr int kExitChoices = 1033;
inline constexpr int kPressEnter = 1042;
}  // namespace control_id

const platform::DialogTemplate& MainTemplate(bool largeLayout);  // 119 or 105

const platform::DialogTemplate& ShortMessageTemplate();  // 113
const platform::DialogTemplate& LongMessageTemplate();   // 114
const platform::DialogTemplate& ExitChoiceTemplate();    // 115
const platform::DialogTemplate& OldMessageTemplate();    // 112, a part of the program's resources that no box chooses

}  // namespace app
