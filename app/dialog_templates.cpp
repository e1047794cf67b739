#include "app/dialog_templates.h"

namespace app {
namespace {

using namespace platform::style;
using platform::DialogControl;
using platform::DialogTemplate;

constexpr WideStringView kStatic = u"Static";
constexpr WideStringView kEdit = u"Edit";
constexpr WideStringView kButton = u"Button";
constexpr WideStringView kListBox = u"ListBox";
constexpr WideStringView kProgressBar = u"msctls_progress32";

constexpr Bits kTitleStyle = kStaticCentre | kStaticNoPrefix;
constexpr Bits kTextPageStyle = kEditMultiLine | kEditReadOnly | kEditAutoVerticalScroll;
constexpr Bits kListStyle = kListNotify | kListNoIntegralHeight | kTabStop;

constexpr WideStringView kScrollHintText = u"   Press arrows to scroll text.";

// The hint stands where the list and the text page are, so it starts hidden and is never shown: the navigation line
// says which keys turn the page.
constexpr DialogControl kSmallMainControls[] = {
    {control_id::kTitle, kStatic, u"Title", kVisible | kTitleStyle, 0, 0, 93, 8},
    {control_id::kProgress, kProgressBar, u"", 0, 8, 38, 70, 10},
    {control_id::kScrollHint, kStatic, kScrollHintText, 0, 2, 56, 87, 8},
    {control_id::kNavigation, kStatic, u"Navigation text", kVisible, 3, 63, 83, 8},
    {control_id::kTextPage, kEdit, u"", kTextPageStyle, 1, 8, 86, 55},
};

constexpr DialogControl kLargeMainControls[] = {
    {control_id::kTitle, kStatic, u"Title", kVisible | kTitleStyle, 0, 0, 138, 11},
    {control_id::kProgress, kProgressBar, u"", 0, 8, 38, 70, 10},
    {control_id::kScrollHint, kStatic, kScrollHintText, 0, 2, 56, 87, 8},
    {control_id::kNavigation, kStatic, u"Navigation text", 0, 2, 124, 136, 8},
    {control_id::kTextPage, kEdit, u"", kTextPageStyle, 1, 11, 86, 55},
    {control_id::kExitButton, kButton, u"Exit", 0, 7, 118, 50, 14},
    {control_id::kSelectButton, kButton, u"Select", 0, 68, 118, 50, 14},
};

constexpr DialogTemplate kSmallMain{105, u"", kPopup | kVisible, 0, 0, 99, 74, u"TAHOMA", 10, kSmallMainControls};
constexpr DialogTemplate kLargeMain{119, u"", kPopup | kVisible, 0, 0, 139, 133, u"TAHOMA", 10, kLargeMainControls};

constexpr DialogControl kShortMessageControls[] = {
    {control_id::kMessage, kStatic, u"", kVisible | kStaticNoPrefix, 2, 1, 70, 24},
    {control_id::kAnswers, kListBox, u"", kVisible | kListStyle, 19, 29, 34, 10},
    {control_id::kPressEnter, kStatic, u"Press Enter", kVisible, 19, 36, 38, 8},
};

constexpr DialogControl kLongMessageControls[] = {
    {control_id::kMessage, kStatic, u"", kVisible | kStaticNoPrefix, 1, 1, 74, 38},
    {control_id::kAnswers, kListBox, u"", kVisible | kListStyle, 19, 36, 36, 22},
    {control_id::kPressEnter, kStatic, u"Press Enter", kVisible, 19, 44, 38, 8},
};

constexpr DialogControl kExitChoiceControls[] = {
    {control_id::kExitChoices, kListBox, u"", kVisible | kListStyle, 5, 3, 70, 27},
};

constexpr DialogControl kOldMessageControls[] = {
    {control_id::kMessage, kStatic, u"", kVisible | kStaticNoPrefix, 2, 1, 65, 20},
    {control_id::kAnswers, kListBox, u"", kVisible | kListStyle, 19, 20, 34, 10},
    {control_id::kPressEnter, kStatic, u"Press Enter", kVisible, 19, 28, 38, 8},
};

constexpr WideStringView kBoxFont = u"System";
constexpr int kBoxFontPoints = 8;
constexpr Bits kBoxStyle = kPopup | kVisible | kCaption;

constexpr DialogTemplate kOldMessage{112, u"", kBoxStyle, 0, 0, 69, 38, kBoxFont, kBoxFontPoints, kOldMessageControls};
constexpr DialogTemplate kShortMessage{
    113, u"", kBoxStyle, 0, 0, 73, 50, kBoxFont, kBoxFontPoints, kShortMessageControls};
constexpr DialogTemplate kLongMessage{
    114, u"", kBoxStyle, 0, 0, 75, 58, kBoxFont, kBoxFontPoints, kLongMessageControls};
constexpr DialogTemplate kExitChoice{
    115, u"", kPopup | kVisible | kBorder, 0, 0, 79, 34, kBoxFont, kBoxFontPoints, kExitChoiceControls};

}  // namespace

const DialogTemplate& MainTemplate(bool largeLayout) { return largeLayout ? kLargeMain : kSmallMain; }
const DialogTemplate& ShortMessageTemplate() { return kShortMessage; }
const DialogTemplate& LongMessageTemplate() { return kLongMessage; }
const DialogTemplate& ExitChoiceTemplate() { return kExitChoice; }
const DialogTemplate& OldMessageTemplate() { return kOldMessage; }

}  // namespace app
