#include "platform/win/dialog_seat.h"

#include <strings.h>

#include <utility>

#include "platform/win/controls.h"
#include "platform/win/dialog.h"
#include "platform/win/focus.h"
#include "platform/win/message_box.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/modal_loop.h"
#include "platform/win/window.h"

namespace win::detail {

namespace {

std::string TextOf(HWND hwnd) {
    std::string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)) + 1, '\0');
    text.resize(
        static_cast<std::size_t>(GetWindowText(hwnd, text.data(), static_cast<int>(text.size()))));
    return text;
}

ControlKind KindOf(HWND control) {
    char name[64] = {};
    GetClassName(control, name, sizeof name);
    const std::string cls = name;
    const DWORD style = static_cast<DWORD>(GetWindowLongPtr(control, GWL_STYLE));
    auto is = [&](const char* n) { return strcasecmp(cls.c_str(), n) == 0; };
    if (is("BUTTON")) {
        switch (style & BS_TYPEMASK) {
            case BS_CHECKBOX:
            case BS_AUTOCHECKBOX:
                return ControlKind::CheckBox;
            case BS_RADIOBUTTON:
            case BS_AUTORADIOBUTTON:
                return ControlKind::RadioButton;
            case BS_GROUPBOX:
                return ControlKind::GroupBox;
            default:
                return ControlKind::PushButton;
        }
    }
    if (is("EDIT")) {
        return ControlKind::Edit;
    }
    if (is("STATIC")) {
        return ControlKind::Static;
    }
    if (is("COMBOBOX")) {
        return ControlKind::ComboBox;
    }
    return ControlKind::Other;
}

}  // namespace

DialogSeat::DialogSeat(HWND dialog, std::shared_ptr<DialogState> state)
    : dialog_(dialog), state_(std::move(state)) {
    Caption();
}

void DialogSeat::Pump() {
    if (!Ended()) {
        RunModalLoop(dialog_);
    }
}

int DialogSeat::ResourceId() const {
    return state_->resourceId;
}

std::string DialogSeat::Caption() const {
    if (IsWindow(dialog_)) {
        caption_ = TextOf(dialog_);
    }
    return caption_;
}

std::vector<ControlView> DialogSeat::Controls() const {
    std::vector<ControlView> controls;
    if (!IsWindow(dialog_)) {
        return controls;
    }
    for (HWND child = GetWindow(dialog_, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        ControlView view;
        view.id = GetDlgCtrlID(child);
        view.kind = KindOf(child);
        view.text = TextOf(child);
        view.enabled = IsWindowEnabled(child) != FALSE;
        if (view.kind == ControlKind::CheckBox || view.kind == ControlKind::RadioButton) {
            view.checked = SendMessage(child, BM_GETCHECK, 0, 0) == BST_CHECKED;
        }
        if (view.kind == ControlKind::ComboBox) {
            const LRESULT count = SendMessage(child, CB_GETCOUNT, 0, 0);
            for (LRESULT i = 0; i < count; ++i) {
                std::string item(
                    static_cast<std::size_t>(SendMessage(child, CB_GETLBTEXTLEN, i, 0)) + 1, '\0');
                SendMessage(child, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(item.data()));
                item.pop_back();
                view.items.push_back(std::move(item));
            }
            view.selection = static_cast<int>(SendMessage(child, CB_GETCURSEL, 0, 0));
        }
        controls.push_back(std::move(view));
    }
    return controls;
}

int DialogSeat::FocusId() const {
    HWND focus = GetFocus();
    return focus != nullptr && IsChild(dialog_, focus) ? GetDlgCtrlID(focus) : 0;
}

bool DialogSeat::Ended() const {
    return state_->ended || !IsWindow(dialog_);
}

int DialogSeat::Result() const {
    return state_->ended ? static_cast<int>(state_->result) : -1;
}

HWND DialogSeat::Workable(int id) const {
    if (Ended()) {
        return nullptr;
    }
    HWND control = GetDlgItem(dialog_, id);
    if (control == nullptr || !IsWindowEnabled(control)) {
        return nullptr;
    }
    const ControlKind kind = KindOf(control);
    if (kind == ControlKind::Static || kind == ControlKind::GroupBox) {
        return nullptr;
    }
    return control;
}

bool DialogSeat::Focus(int id) {
    HWND control = Workable(id);
    if (control == nullptr) {
        return false;
    }
    SetFocus(control);
    Pump();
    return true;
}

bool DialogSeat::Type(int id, const std::string& text) {
    HWND control = Workable(id);
    if (control == nullptr) {
        return false;
    }
    const DWORD style = static_cast<DWORD>(GetWindowLongPtr(control, GWL_STYLE));
    const ControlKind kind = KindOf(control);
    const bool editable = (kind == ControlKind::Edit && !(style & ES_READONLY)) ||
                          (kind == ControlKind::ComboBox && (style & 0x3) == CBS_DROPDOWN);
    if (!editable) {
        return false;
    }
    SetFocus(control);
    // The focus change may have closed the dialog or removed the control.
    if (IsWindow(control) && !Ended()) {
        SetWindowText(control, text.c_str());
    }
    Pump();
    return true;
}

bool DialogSeat::Click(int id) {
    HWND control = Workable(id);
    if (control == nullptr || KindOf(control) == ControlKind::Edit ||
        KindOf(control) == ControlKind::ComboBox || KindOf(control) == ControlKind::Other) {
        return false;
    }
    SendMessage(control, BM_CLICK, 0, 0);
    Pump();
    return true;
}

bool DialogSeat::Choose(int id, const std::string& item) {
    HWND control = Workable(id);
    if (control == nullptr || KindOf(control) != ControlKind::ComboBox) {
        return false;
    }
    const LRESULT index = SendMessage(control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                      reinterpret_cast<LPARAM>(item.c_str()));
    if (index == CB_ERR) {
        return false;
    }
    SetFocus(control);
    if (IsWindow(control) && !Ended()) {
        SendMessage(control, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessage(dialog_, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(id), CBN_SELCHANGE),
                    reinterpret_cast<LPARAM>(control));
    }
    Pump();
    return true;
}

void DialogSeat::Escape() {
    if (Ended()) {
        return;
    }
    SendMessage(dialog_, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                reinterpret_cast<LPARAM>(GetDlgItem(dialog_, IDCANCEL)));
    Pump();
}

void DialogSeat::End(int result) {
    EndDialog(dialog_, result);
}

}  // namespace win::detail
