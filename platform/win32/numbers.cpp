// The program's own numbers for messages, styles and keys are those of the system.
#include "platform/win32/windows_api.h"

#include <commctrl.h>

namespace platform {

#define SAME(ours, theirs) static_assert((ours) == (theirs))

namespace message {
SAME(kCreate, WM_CREATE);
SAME(kDestroy, WM_DESTROY);
SAME(kMove, WM_MOVE);
SAME(kSize, WM_SIZE);
SAME(kActivate, WM_ACTIVATE);
SAME(kSetFocus, WM_SETFOCUS);
SAME(kKillFocus, WM_KILLFOCUS);
SAME(kEnable, WM_ENABLE);
SAME(kSetRedraw, WM_SETREDRAW);
SAME(kSetText, WM_SETTEXT);
SAME(kGetText, WM_GETTEXT);
SAME(kGetTextLength, WM_GETTEXTLENGTH);
SAME(kPaint, WM_PAINT);
SAME(kClose, WM_CLOSE);
SAME(kQuit, WM_QUIT);
SAME(kEraseBackground, WM_ERASEBKGND);
SAME(kShowWindow, WM_SHOWWINDOW);
SAME(kSetFont, WM_SETFONT);
SAME(kGetFont, WM_GETFONT);
SAME(kNotify, WM_NOTIFY);
SAME(kNonClientDestroy, WM_NCDESTROY);
SAME(kGetDialogCode, WM_GETDLGCODE);
SAME(kKeyDown, WM_KEYDOWN);
SAME(kKeyUp, WM_KEYUP);
SAME(kChar, WM_CHAR);
SAME(kInitDialog, WM_INITDIALOG);
SAME(kCommand, WM_COMMAND);
SAME(kControlColorEdit, WM_CTLCOLOREDIT);
SAME(kControlColorListBox, WM_CTLCOLORLISTBOX);
SAME(kControlColorButton, WM_CTLCOLORBTN);
SAME(kControlColorDialog, WM_CTLCOLORDLG);
SAME(kControlColorStatic, WM_CTLCOLORSTATIC);
SAME(kLeftButtonDown, WM_LBUTTONDOWN);
SAME(kLeftButtonUp, WM_LBUTTONUP);
SAME(kLeftButtonDoubleClick, WM_LBUTTONDBLCLK);
SAME(kPaste, WM_PASTE);
SAME(kUser, WM_USER);
SAME(kEditGetSelection, EM_GETSEL);
SAME(kEditSetSelection, EM_SETSEL);
SAME(kEditReplaceSelection, EM_REPLACESEL);
SAME(kEditLimitText, EM_LIMITTEXT);
SAME(kEditSetPasswordChar, EM_SETPASSWORDCHAR);
SAME(kEditSetReadOnly, EM_SETREADONLY);
SAME(kEditGetFirstVisibleLine, EM_GETFIRSTVISIBLELINE);
SAME(kEditLineScroll, EM_LINESCROLL);
SAME(kEditGetLineCount, EM_GETLINECOUNT);
SAME(kButtonGetCheck, BM_GETCHECK);
SAME(kButtonSetCheck, BM_SETCHECK);
SAME(kButtonClick, BM_CLICK);
SAME(kComboAddString, CB_ADDSTRING);
SAME(kComboGetCurrentSelection, CB_GETCURSEL);
SAME(kComboGetText, CB_GETLBTEXT);
SAME(kComboGetTextLength, CB_GETLBTEXTLEN);
SAME(kComboSetCurrentSelection, CB_SETCURSEL);
SAME(kListAddString, LB_ADDSTRING);
SAME(kListInsertString, LB_INSERTSTRING);
SAME(kListDeleteString, LB_DELETESTRING);
SAME(kListResetContent, LB_RESETCONTENT);
SAME(kListSetCurrentSelection, LB_SETCURSEL);
SAME(kListGetCurrentSelection, LB_GETCURSEL);
SAME(kListGetText, LB_GETTEXT);
SAME(kListGetTextLength, LB_GETTEXTLEN);
SAME(kListGetCount, LB_GETCOUNT);
SAME(kListGetTopIndex, LB_GETTOPINDEX);
SAME(kListSetTopIndex, LB_SETTOPINDEX);
SAME(kListGetItemData, LB_GETITEMDATA);
SAME(kListSetItemData, LB_SETITEMDATA);
SAME(kListSetItemHeight, LB_SETITEMHEIGHT);
SAME(kListGetItemHeight, LB_GETITEMHEIGHT);
SAME(kPickerGetSystemTime, DTM_GETSYSTEMTIME);
SAME(kPickerSetSystemTime, DTM_SETSYSTEMTIME);
SAME(kPickerSetFormat, DTM_SETFORMATW);
SAME(kProgressSetPosition, PBM_SETPOS);
}  // namespace message

SAME(kInactive, WA_INACTIVE);
SAME(kActive, WA_ACTIVE);
SAME(dialog_code::kWantArrows, DLGC_WANTARROWS);
SAME(dialog_code::kWantTab, DLGC_WANTTAB);
SAME(dialog_code::kWantAllKeys, DLGC_WANTALLKEYS);
SAME(dialog_code::kHasSetSelection, DLGC_HASSETSEL);
SAME(dialog_code::kWantChars, DLGC_WANTCHARS);
SAME(notification::kButtonClicked, BN_CLICKED);
SAME(notification::kListSelectionChange, LBN_SELCHANGE);
SAME(notification::kListDoubleClick, LBN_DBLCLK);
SAME(notification::kComboSelectionChange, CBN_SELCHANGE);
SAME(notification::kEditSetFocus, EN_SETFOCUS);
SAME(notification::kEditKillFocus, EN_KILLFOCUS);
SAME(notification::kEditChange, EN_CHANGE);
SAME(notification::kEditUpdate, EN_UPDATE);
SAME(notification::kPickerDateTimeChange, static_cast<int>(DTN_DATETIMECHANGE));
SAME(kIdOk, IDOK);
SAME(kIdCancel, IDCANCEL);

namespace key {
SAME(kBackspace, VK_BACK);
SAME(kTab, VK_TAB);
SAME(kEnter, VK_RETURN);
SAME(kShift, VK_SHIFT);
SAME(kControl, VK_CONTROL);
SAME(kEscape, VK_ESCAPE);
SAME(kSpace, VK_SPACE);
SAME(kPageUp, VK_PRIOR);
SAME(kPageDown, VK_NEXT);
SAME(kEnd, VK_END);
SAME(kHome, VK_HOME);
SAME(kLeft, VK_LEFT);
SAME(kUp, VK_UP);
SAME(kRight, VK_RIGHT);
SAME(kDown, VK_DOWN);
SAME(kInsert, VK_INSERT);
SAME(kDelete, VK_DELETE);
SAME(kF1, VK_F1);
SAME(kF2, VK_F2);
SAME(kF3, VK_F3);
SAME(kF4, VK_F4);
}  // namespace key

namespace style {
SAME(kPopup, WS_POPUP);
SAME(kChild, WS_CHILD);
SAME(kVisible, WS_VISIBLE);
SAME(kDisabled, WS_DISABLED);
SAME(kClipSiblings, WS_CLIPSIBLINGS);
SAME(kCaption, WS_CAPTION);
SAME(kBorder, WS_BORDER);
SAME(kVerticalScroll, WS_VSCROLL);
SAME(kSystemMenu, WS_SYSMENU);
SAME(kThickFrame, WS_THICKFRAME);
SAME(kGroup, WS_GROUP);
SAME(kTabStop, WS_TABSTOP);
SAME(kExtendedModalFrame, WS_EX_DLGMODALFRAME);
SAME(kDialogSetFont, DS_SETFONT);
SAME(kDialogModalFrame, DS_MODALFRAME);
SAME(kStaticCentre, SS_CENTER);
SAME(kStaticNoPrefix, SS_NOPREFIX);
SAME(kButtonDefault, BS_DEFPUSHBUTTON);
SAME(kButtonCheckBox, BS_CHECKBOX);
SAME(kButtonRadio, BS_RADIOBUTTON);
SAME(kEditCentre, ES_CENTER);
SAME(kEditRight, ES_RIGHT);
SAME(kEditMultiLine, ES_MULTILINE);
SAME(kEditPassword, ES_PASSWORD);
SAME(kEditAutoVerticalScroll, ES_AUTOVSCROLL);
SAME(kEditAutoHorizontalScroll, ES_AUTOHSCROLL);
SAME(kEditReadOnly, ES_READONLY);
SAME(kEditDigitsOnly, ES_NUMBER);
SAME(kListNotify, LBS_NOTIFY);
SAME(kListNoIntegralHeight, LBS_NOINTEGRALHEIGHT);
SAME(kComboDropDownList, CBS_DROPDOWNLIST);
}  // namespace style

#undef SAME

}  // namespace platform
