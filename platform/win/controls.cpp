#include "platform/win/controls.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "platform/win/focus.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/strings.h"
#include "platform/win/window.h"

namespace win {

namespace {

// What a control keeps beyond its window's text.
struct ControlState {
    WPARAM check = BST_UNCHECKED;
    LPARAM selStart = 0;
    LPARAM selEnd = 0;
    std::vector<std::string> items;
    LRESULT selection = CB_ERR;
};

std::map<HWND, ControlState>& States() {
    static std::map<HWND, ControlState> states;
    return states;
}

ControlState& StateOf(HWND hwnd) {
    return States()[hwnd];
}

DWORD StyleOf(HWND hwnd) {
    return static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
}

// Tells the parent; the call may destroy the control, so nothing of it is touched after.
void Notify(HWND hwnd, WORD code) {
    HWND parent = GetParent(hwnd);
    if (parent != nullptr) {
        const WORD id = static_cast<WORD>(GetDlgCtrlID(hwnd));
        SendMessage(parent, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(hwnd));
    }
}

LRESULT Finish(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_NCDESTROY) {
        States().erase(hwnd);
    }
    return DefWindowProc(hwnd, msg, wParam, lParam);
}

// The automatic radio buttons of the group that `hwnd` belongs to: the siblings from the
// last one with WS_GROUP before it (or the first) up to the next one with WS_GROUP.
std::vector<HWND> RadioGroup(HWND hwnd) {
    std::vector<HWND> group;
    for (HWND sibling = GetWindow(hwnd, GW_HWNDFIRST); sibling != nullptr;
         sibling = GetWindow(sibling, GW_HWNDNEXT)) {
        const DWORD style = StyleOf(sibling);
        if (style & WS_GROUP) {
            if (std::find(group.begin(), group.end(), hwnd) != group.end()) {
                break;
            }
            group.clear();
        }
        if ((style & BS_TYPEMASK) == BS_AUTORADIOBUTTON) {
            char name[16] = {};
            GetClassName(sibling, name, sizeof name);
            if (strcasecmp(name, "BUTTON") == 0) {
                group.push_back(sibling);
            }
        }
    }
    return group;
}

LRESULT ButtonProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case BM_GETCHECK:
            return static_cast<LRESULT>(StateOf(hwnd).check);
        case BM_SETCHECK:
            StateOf(hwnd).check = wParam;
            return 0;
        case BM_CLICK: {
            if (!IsWindowEnabled(hwnd)) {
                return 0;
            }
            const DWORD type = StyleOf(hwnd) & BS_TYPEMASK;
            if (type == BS_GROUPBOX) {
                return 0;
            }
            SetFocus(hwnd);
            if (!IsWindow(hwnd)) {
                return 0;
            }
            if (type == BS_AUTOCHECKBOX) {
                ControlState& state = StateOf(hwnd);
                state.check = state.check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED;
            } else if (type == BS_AUTORADIOBUTTON) {
                for (HWND radio : RadioGroup(hwnd)) {
                    StateOf(radio).check = radio == hwnd ? BST_CHECKED : BST_UNCHECKED;
                }
            }
            Notify(hwnd, BN_CLICKED);
            return 0;
        }
        default:
            return Finish(hwnd, msg, wParam, lParam);
    }
}

LRESULT EditProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_SETTEXT: {
            LRESULT done = DefWindowProc(hwnd, msg, wParam, lParam);
            StateOf(hwnd).selStart = StateOf(hwnd).selEnd = 0;
            Notify(hwnd, EN_CHANGE);
            return done;
        }
        case EM_SETSEL: {
            const int start = static_cast<int>(wParam);
            const int end = static_cast<int>(lParam);
            const LPARAM length = GetWindowTextLength(hwnd);
            auto clamp = [&](int at) { return at < 0 || at > length ? length : LPARAM{at}; };
            ControlState& state = StateOf(hwnd);
            if (start < 0) {
                state.selEnd = state.selStart;  // takes the selection away
            } else {
                state.selStart = clamp(start);
                state.selEnd = clamp(end);
            }
            return 0;
        }
        case EM_GETSEL: {
            const ControlState& state = StateOf(hwnd);
            if (wParam) {
                *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(state.selStart);
            }
            if (lParam) {
                *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(state.selEnd);
            }
            return MAKELONG(static_cast<WORD>(state.selStart), static_cast<WORD>(state.selEnd));
        }
        case EM_SCROLLCARET:
            return TRUE;
        case WM_SETFOCUS:
            Notify(hwnd, EN_SETFOCUS);
            return 0;
        case WM_KILLFOCUS:
            Notify(hwnd, EN_KILLFOCUS);
            return 0;
        default:
            return Finish(hwnd, msg, wParam, lParam);
    }
}

LRESULT ComboBoxProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    auto count = [&] { return static_cast<LRESULT>(StateOf(hwnd).items.size()); };
    auto index = static_cast<LRESULT>(static_cast<int>(wParam));
    switch (msg) {
        case CB_ADDSTRING:
        case CB_INSERTSTRING: {
            std::vector<std::string>& items = StateOf(hwnd).items;
            const char* text = lParam ? reinterpret_cast<LPCSTR>(lParam) : "";
            LRESULT at = msg == CB_ADDSTRING || index < 0 ? count() : index;
            if (at > count()) {
                return CB_ERR;
            }
            items.insert(items.begin() + at, text);
            LRESULT& selection = StateOf(hwnd).selection;
            if (selection != CB_ERR && selection >= at) {
                ++selection;
            }
            return at;
        }
        case CB_DELETESTRING: {
            if (index < 0 || index >= count()) {
                return CB_ERR;
            }
            ControlState& state = StateOf(hwnd);
            state.items.erase(state.items.begin() + index);
            if (state.selection == index) {
                state.selection = CB_ERR;
            } else if (state.selection > index) {
                --state.selection;
            }
            return count();
        }
        case CB_GETCOUNT:
            return count();
        case CB_GETCURSEL:
            return StateOf(hwnd).selection;
        case CB_SETCURSEL: {
            const bool valid = index >= 0 && index < count();
            StateOf(hwnd).selection = valid ? index : CB_ERR;
            const std::string text = valid ? StateOf(hwnd).items[index] : std::string();
            DefWindowProc(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
            return valid ? index : CB_ERR;
        }
        case CB_GETLBTEXTLEN:
            return index >= 0 && index < count()
                       ? static_cast<LRESULT>(StateOf(hwnd).items[index].size())
                       : CB_ERR;
        case CB_GETLBTEXT: {
            if (index < 0 || index >= count() || lParam == 0) {
                return CB_ERR;
            }
            const std::string& item = StateOf(hwnd).items[index];
            std::memcpy(reinterpret_cast<LPSTR>(lParam), item.c_str(), item.size() + 1);
            return static_cast<LRESULT>(item.size());
        }
        case CB_RESETCONTENT: {
            ControlState& state = StateOf(hwnd);
            state.items.clear();
            state.selection = CB_ERR;
            DefWindowProc(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
            return TRUE;
        }
        case CB_FINDSTRINGEXACT: {
            const char* text = lParam ? reinterpret_cast<LPCSTR>(lParam) : "";
            const std::vector<std::string>& items = StateOf(hwnd).items;
            const LRESULT n = count();
            for (LRESULT step = 1; step <= n; ++step) {
                const LRESULT at = ((index < 0 ? -1 : index) + step) % n;
                if (EqualNoCase(items[at], text)) {
                    return at;
                }
            }
            return CB_ERR;
        }
        case WM_SETTEXT: {
            // Only a drop-down combo box has an edit to take a text of its own.
            if ((StyleOf(hwnd) & 0x3) != CBS_DROPDOWN) {
                return CB_ERR;
            }
            LRESULT done = DefWindowProc(hwnd, msg, wParam, lParam);
            Notify(hwnd, CBN_EDITCHANGE);
            return done;
        }
        case WM_SETFOCUS:
            Notify(hwnd, CBN_SETFOCUS);
            return 0;
        case WM_KILLFOCUS:
            Notify(hwnd, CBN_KILLFOCUS);
            return 0;
        default:
            return Finish(hwnd, msg, wParam, lParam);
    }
}

}  // namespace

void RegisterControlClasses() {
    static const bool registered = [] {
        const std::pair<const char*, WNDPROC> classes[] = {
            {"BUTTON", ButtonProc},
            {"EDIT", EditProc},
            {"STATIC", DefWindowProc},
            {"COMBOBOX", ComboBoxProc},
        };
        for (const auto& [name, proc] : classes) {
            WNDCLASS wc;
            wc.lpfnWndProc = proc;
            wc.lpszClassName = name;
            RegisterClass(&wc);
        }
        return true;
    }();
    (void)registered;
}

}  // namespace win
