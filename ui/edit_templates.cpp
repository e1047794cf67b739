#include "ui/edit_templates.h"

#include "ui/ip_address_control.h"

namespace ui {
namespace {

namespace style = platform::style;
using platform::DialogControl;

constexpr style::Bits kDialog = style::kPopup | style::kCaption | style::kDialogModalFrame | style::kDialogSetFont;
constexpr style::Bits kList = style::kBorder | style::kVerticalScroll | style::kTabStop | style::kListNotify;
constexpr style::Bits kText = style::kBorder | style::kTabStop | style::kEditAutoHorizontalScroll;
constexpr style::Bits kAddress = style::kVisible | style::kTabStop;
constexpr style::Bits kButton = style::kVisible | style::kTabStop;

// What both layouts share, all but the list's size.
constexpr DialogControl kTextEntry{kTextEntryId, u"EDIT", u"", kText, 2, 24, 95, 14};
constexpr DialogControl kAddressEntry{kAddressEntryId, kAddressClassName, u"", kAddress, 5, 24, 85, 11};
constexpr DialogControl kDateTimeEntry{
    kDateTimeEntryId, u"SysDateTimePick32", u"DateTimePicker1", style::kTabStop, 10, 24, 79, 15};
constexpr DialogControl kShortDescription{kShortDescriptionId, u"STATIC", u"", style::kStaticNoPrefix, 3, 2, 90, 16};

constexpr DialogControl kSmallControls[] = {
    {kChoiceListId, u"LISTBOX", u"", kList, 0, 2, 96, 43},
    kTextEntry,
    kAddressEntry,
    kDateTimeEntry,
    kShortDescription,
    {kEditHintId, u"STATIC", u"Cancel [Esc]   Save [Enter]", style::kVisible, 1, 49, 88, 8},
};

constexpr DialogControl kLargeControls[] = {
    {kChoiceListId, u"LISTBOX", u"", kList, 0, 2, 135, 56},
    kTextEntry,
    kAddressEntry,
    kDateTimeEntry,
    kShortDescription,
    {kEditCancelId, u"BUTTON", u"Cancel", kButton, 11, 61, 50, 14},
    {kEditSaveId, u"BUTTON", u"Save", kButton, 73, 60, 50, 14},
};

}  // namespace

constinit const platform::DialogTemplate kSmallEditDialog{116, u"Dialog", kDialog,   0, 0,
                                                          99,  58,        u"Tahoma", 8, kSmallControls};
constinit const platform::DialogTemplate kLargeEditDialog{120, u"Dialog", kDialog,   0, 0,
                                                          135, 78,        u"Tahoma", 8, kLargeControls};

}  // namespace ui
