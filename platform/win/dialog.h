// Dialog windows. A dialog is made from a template: a window of the dialog class with
// one child control per item. Its dialog procedure sees the messages first; what it
// leaves (answers FALSE) gets the default handling. A modal dialog is handed to the
// process's user agent (user_agent.h), which works it through its controls' messages
// until EndDialog; then the code given there is the dialog's result.
#pragma once

#include "platform/win/dialog_template.h"
#include "platform/win/types.h"
#include "platform/win/window.h"

namespace win {

using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);

// The dialog class's name.
inline constexpr const char* DIALOG_CLASS = "#32770";

// Makes a dialog and its controls, then sends WM_INITDIALOG (wParam the first control
// that takes the focus, lParam `init`); if that answers non-zero the focus goes to that
// control. Null when a control cannot be made or the dialog was destroyed during its
// initialisation. `proc` may be null.
HWND CreateDialogIndirectParam(HINSTANCE instance, const DialogTemplate& dialogTemplate, HWND owner,
                               DLGPROC proc, LPARAM init);
// The same from the module's dialog resource; null (last error 1814) when it has none.
HWND CreateDialogParam(HINSTANCE instance, UINT resourceId, HWND owner, DLGPROC proc, LPARAM init);

// The two halves of CreateDialogIndirectParam, for a framework that makes the dialog
// window itself so as to tie its object to it: a window of DIALOG_CLASS whose
// lpCreateParams points to DialogCreateParams, then InitDialog, which makes the controls,
// sends WM_INITDIALOG and sets the focus. InitDialog answers FALSE, and destroys the
// dialog, when a control cannot be made; FALSE too when the dialog was destroyed during
// its initialisation.
struct DialogCreateParams {
    DLGPROC proc = nullptr;
    int resourceId = 0;
};
inline constexpr DWORD DIALOG_STYLE = WS_POPUP | WS_CAPTION | WS_SYSMENU;
// Registers DIALOG_CLASS once; the makers of dialogs call it first.
void RegisterDialogClass();
BOOL InitDialog(HWND dialog, HINSTANCE instance, const DialogTemplate& dialogTemplate, LPARAM init);

// Ends a dialog with its result. The first call decides: FALSE, changing nothing, when
// the dialog has ended already or is no dialog.
BOOL EndDialog(HWND dialog, INT_PTR result);

// Hands a dialog that has been made to the user agent, and answers the code it ended
// with. A dialog that was ended before (during WM_INITDIALOG) is not shown; one that the
// agent leaves open is ended with IDCANCEL; one destroyed without EndDialog answers -1.
// The dialog window itself stays; its maker destroys it.
INT_PTR RunModalDialog(HWND dialog);

// Makes, runs and destroys a modal dialog from the module's resource; -1 when it
// cannot be made.
INT_PTR DialogBoxParam(HINSTANCE instance, UINT resourceId, HWND owner, DLGPROC proc, LPARAM init);

// The default handling of the dialog class: WM_CLOSE presses Cancel; all else goes to
// DefWindowProc. A framework that takes over a dialog's window procedure passes on here.
LRESULT DefDlgProc(HWND dialog, UINT msg, WPARAM wParam, LPARAM lParam);

// The resource a dialog was made from, 0 for one made from a template alone.
int GetDialogResourceId(HWND dialog);

// Controls by id.
BOOL SetDlgItemText(HWND dialog, int id, LPCSTR text);
UINT GetDlgItemText(HWND dialog, int id, LPSTR buffer, int size);
BOOL CheckDlgButton(HWND dialog, int id, UINT check);
UINT IsDlgButtonChecked(HWND dialog, int id);
LRESULT SendDlgItemMessage(HWND dialog, int id, UINT msg, WPARAM wParam, LPARAM lParam);

}  // namespace win
