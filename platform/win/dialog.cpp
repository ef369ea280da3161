#include "platform/win/dialog.h"

#include <map>
#include <memory>
#include <string>

#include "platform/win/controls.h"
#include "platform/win/dialog_seat.h"
#include "platform/win/focus.h"
#include "platform/win/last_error.h"
#include "platform/win/message_box.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/modal_loop.h"
#include "platform/win/resources.h"
#include "platform/win/window.h"

namespace win {

using detail::DialogSeat;
using detail::DialogState;

namespace {

std::map<HWND, std::shared_ptr<DialogState>>& Dialogs() {
    static std::map<HWND, std::shared_ptr<DialogState>> dialogs;
    return dialogs;
}

std::shared_ptr<DialogState> StateOf(HWND dialog) {
    auto it = Dialogs().find(dialog);
    return it == Dialogs().end() || !IsWindow(dialog) ? nullptr : it->second;
}

LRESULT DialogClassProc(HWND dialog, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_NCCREATE) {
        // Dialogs that died without their final message leave nothing behind.
        for (auto it = Dialogs().begin(); it != Dialogs().end();) {
            it = IsWindow(it->first) ? std::next(it) : Dialogs().erase(it);
        }
        auto state = std::make_shared<DialogState>();
        const auto* cs = reinterpret_cast<const CREATESTRUCT*>(lParam);
        if (const auto* params = static_cast<const DialogCreateParams*>(cs->lpCreateParams)) {
            state->proc = params->proc;
            state->resourceId = params->resourceId;
        }
        Dialogs()[dialog] = state;
    }
    if (std::shared_ptr<DialogState> state = StateOf(dialog); state && state->proc) {
        const INT_PTR handled = state->proc(dialog, msg, wParam, lParam);
        // For WM_INITDIALOG the answer says whether the focus is still to be set.
        if (msg == WM_INITDIALOG) {
            return handled;
        }
        if (handled) {
            return TRUE;
        }
    }
    return DefDlgProc(dialog, msg, wParam, lParam);
}

struct ControlClass {
    const char* name;
    DWORD style;
};

ControlClass ClassOf(const DialogItemTemplate& item) {
    switch (item.kind) {
        case ControlKind::PushButton:
            return {"BUTTON", (item.defaultButton ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | WS_TABSTOP};
        case ControlKind::CheckBox:
            return {"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP};
        case ControlKind::RadioButton:
            return {"BUTTON", BS_AUTORADIOBUTTON | (item.groupStart ? WS_GROUP | WS_TABSTOP : 0)};
        case ControlKind::Edit:
            return {"EDIT", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP};
        case ControlKind::Static:
            return {"STATIC", 0};
        case ControlKind::ComboBox:
            return {"COMBOBOX", ((item.style & 0x3) ? 0 : CBS_DROPDOWNLIST) | WS_TABSTOP};
        case ControlKind::GroupBox:
            return {"BUTTON", BS_GROUPBOX};
        case ControlKind::Other:
            return {item.className.c_str(), WS_TABSTOP};
    }
    return {"STATIC", 0};
}

HWND MakeControl(HWND dialog, HINSTANCE instance, const DialogItemTemplate& item) {
    const ControlClass cls = ClassOf(item);
    // Every control but a radio button begins a group, so that the radio buttons that
    // stand together form one.
    DWORD style = WS_CHILD | WS_VISIBLE | cls.style | item.style;
    if (item.kind != ControlKind::RadioButton) {
        style |= WS_GROUP;
    }
    if (item.disabled) {
        style |= WS_DISABLED;
    }
    const bool isCombo = item.kind == ControlKind::ComboBox;
    HWND control = CreateWindowEx(0, cls.name, isCombo ? "" : item.text.c_str(), style, 0, 0, 0, 0,
                                  dialog, HandleFromNumber<HMENU>(item.id), instance, nullptr);
    if (control == nullptr) {
        return nullptr;
    }
    if (item.checked) {
        SendMessage(control, BM_SETCHECK, BST_CHECKED, 0);
    }
    for (const std::string& entry : item.items) {
        SendMessage(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    }
    return control;
}

// The first enabled control that takes the focus, in the order of the template.
HWND FirstTabStop(HWND dialog) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if ((GetWindowLongPtr(child, GWL_STYLE) & WS_TABSTOP) && IsWindowEnabled(child)) {
            return child;
        }
    }
    return nullptr;
}

HWND MakeDialog(HINSTANCE instance, const DialogTemplate& dialogTemplate, int resourceId,
                HWND owner, DLGPROC proc, LPARAM init) {
    RegisterDialogClass();
    DialogCreateParams params{proc, resourceId};
    HWND dialog = CreateWindowEx(0, DIALOG_CLASS, dialogTemplate.caption.c_str(), DIALOG_STYLE, 0,
                                 0, 0, 0, owner, nullptr, instance, &params);
    if (dialog == nullptr || !InitDialog(dialog, instance, dialogTemplate, init)) {
        return nullptr;
    }
    return dialog;
}

}  // namespace

void RegisterDialogClass() {
    static const bool registered = [] {
        WNDCLASS wc;
        wc.lpfnWndProc = DialogClassProc;
        wc.lpszClassName = DIALOG_CLASS;
        RegisterClass(&wc);
        return true;
    }();
    (void)registered;
}

HWND CreateDialogIndirectParam(HINSTANCE instance, const DialogTemplate& dialogTemplate, HWND owner,
                               DLGPROC proc, LPARAM init) {
    return MakeDialog(instance, dialogTemplate, 0, owner, proc, init);
}

HWND CreateDialogParam(HINSTANCE instance, UINT resourceId, HWND owner, DLGPROC proc, LPARAM init) {
    const DialogTemplate* found = FindDialogResource(instance, resourceId);
    if (found == nullptr) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    // A copy: the dialog's handlers might replace the module's resources meanwhile.
    const DialogTemplate copy = *found;
    return MakeDialog(instance, copy, static_cast<int>(resourceId), owner, proc, init);
}

BOOL InitDialog(HWND dialog, HINSTANCE instance, const DialogTemplate& dialogTemplate,
                LPARAM init) {
    RegisterControlClasses();
    for (const DialogItemTemplate& item : dialogTemplate.items) {
        if (MakeControl(dialog, instance, item) == nullptr) {
            DestroyWindow(dialog);
            return FALSE;
        }
    }
    HWND first = FirstTabStop(dialog);
    const LRESULT setFocus =
        SendMessage(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), init);
    if (!IsWindow(dialog)) {
        return FALSE;
    }
    if (setFocus && first != nullptr && IsWindow(first)) {
        SetFocus(first);
    }
    return TRUE;
}

BOOL EndDialog(HWND dialog, INT_PTR result) {
    std::shared_ptr<DialogState> state = StateOf(dialog);
    if (state == nullptr || state->ended) {
        return FALSE;
    }
    state->ended = true;
    state->result = result;
    if (IsInModalLoop(dialog)) {
        EndModalLoop(dialog, result);
    }
    return TRUE;
}

INT_PTR RunModalDialog(HWND dialog) {
    std::shared_ptr<DialogState> state = StateOf(dialog);
    if (state == nullptr) {
        return -1;
    }
    DialogSeat seat(dialog, state);
    seat.Pump();
    if (!seat.Ended()) {
        GetUserAgent().RunDialog(seat);
    }
    if (!seat.Ended()) {
        EndDialog(dialog, IDCANCEL);
    }
    return seat.Result();
}

INT_PTR DialogBoxParam(HINSTANCE instance, UINT resourceId, HWND owner, DLGPROC proc, LPARAM init) {
    HWND dialog = CreateDialogParam(instance, resourceId, owner, proc, init);
    if (dialog == nullptr) {
        return -1;
    }
    const INT_PTR result = RunModalDialog(dialog);
    DestroyWindow(dialog);
    return result;
}

LRESULT DefDlgProc(HWND dialog, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_INITDIALOG:
            return TRUE;
        case WM_CLOSE:
            SendMessage(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                        reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
            return 0;
        case WM_NCDESTROY:
            Dialogs().erase(dialog);
            break;
        default:
            break;
    }
    return DefWindowProc(dialog, msg, wParam, lParam);
}

int GetDialogResourceId(HWND dialog) {
    std::shared_ptr<DialogState> state = StateOf(dialog);
    return state ? state->resourceId : 0;
}

BOOL SetDlgItemText(HWND dialog, int id, LPCSTR text) {
    return SetWindowText(GetDlgItem(dialog, id), text);
}

UINT GetDlgItemText(HWND dialog, int id, LPSTR buffer, int size) {
    return static_cast<UINT>(GetWindowText(GetDlgItem(dialog, id), buffer, size));
}

BOOL CheckDlgButton(HWND dialog, int id, UINT check) {
    HWND button = GetDlgItem(dialog, id);
    if (button == nullptr) {
        return FALSE;
    }
    SendMessage(button, BM_SETCHECK, check, 0);
    return TRUE;
}

UINT IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessage(dialog, id, BM_GETCHECK, 0, 0));
}

LRESULT SendDlgItemMessage(HWND dialog, int id, UINT msg, WPARAM wParam, LPARAM lParam) {
    HWND control = GetDlgItem(dialog, id);
    return control ? SendMessage(control, msg, wParam, lParam) : 0;
}

}  // namespace win
