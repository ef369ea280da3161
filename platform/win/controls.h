// The standard dialog controls as window classes: "BUTTON" (push buttons, check boxes,
// radio buttons, group boxes), "EDIT", "STATIC" and "COMBOBOX". Each keeps its state as
// numbers and tells its parent of changes with WM_COMMAND, the control's id in the low
// word of wParam, the notification code in the high word and its handle in lParam.
#pragma once

#include "platform/win/types.h"

namespace win {

// Registers the four classes once; the dialog layer calls it before it makes controls.
void RegisterControlClasses();

// Button styles (the low four bits of the window style).
inline constexpr DWORD BS_PUSHBUTTON = 0x0;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x1;
inline constexpr DWORD BS_CHECKBOX = 0x2;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x3;
inline constexpr DWORD BS_RADIOBUTTON = 0x4;
inline constexpr DWORD BS_GROUPBOX = 0x7;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x9;
inline constexpr DWORD BS_TYPEMASK = 0xF;

// Button messages, states and notifications.
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
// A click: takes the focus, toggles an automatic check box or chooses an automatic radio
// button (clearing the others of its group), then sends BN_CLICKED. A disabled button
// ignores it.
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr WPARAM BST_UNCHECKED = 0;
inline constexpr WPARAM BST_CHECKED = 1;
inline constexpr WORD BN_CLICKED = 0;

// Edit styles, messages and notifications. Setting the text (WM_SETTEXT), by a program
// or by the user, sends EN_CHANGE.
inline constexpr DWORD ES_AUTOHSCROLL = 0x0080;
inline constexpr DWORD ES_READONLY = 0x0800;
inline constexpr UINT EM_GETSEL = 0x00B0;
inline constexpr UINT EM_SETSEL = 0x00B1;  // start, end; -1 as end is the text's end
inline constexpr UINT EM_SCROLLCARET = 0x00B7;
inline constexpr WORD EN_SETFOCUS = 0x0100;
inline constexpr WORD EN_KILLFOCUS = 0x0200;
inline constexpr WORD EN_CHANGE = 0x0300;

// Combo box styles, messages and notifications. A drop-down list's text is its selected
// item; a drop-down combo box has an edit of its own, whose changes send CBN_EDITCHANGE.
inline constexpr DWORD CBS_DROPDOWN = 0x2;
inline constexpr DWORD CBS_DROPDOWNLIST = 0x3;
inline constexpr UINT CB_ADDSTRING = 0x0143;
inline constexpr UINT CB_DELETESTRING = 0x0144;
inline constexpr UINT CB_GETCOUNT = 0x0146;
inline constexpr UINT CB_GETCURSEL = 0x0147;
inline constexpr UINT CB_GETLBTEXT = 0x0148;  // wParam index, lParam a buffer of LBTEXTLEN + 1
inline constexpr UINT CB_GETLBTEXTLEN = 0x0149;
inline constexpr UINT CB_INSERTSTRING = 0x014A;
inline constexpr UINT CB_RESETCONTENT = 0x014B;
inline constexpr UINT CB_SETCURSEL = 0x014E;        // -1 clears the selection
inline constexpr UINT CB_FINDSTRINGEXACT = 0x0158;  // case ignored, from after wParam
inline constexpr LRESULT CB_ERR = -1;
inline constexpr WORD CBN_SELCHANGE = 1;
inline constexpr WORD CBN_SETFOCUS = 3;
inline constexpr WORD CBN_KILLFOCUS = 4;
inline constexpr WORD CBN_EDITCHANGE = 5;

}  // namespace win
