#include "platform/win/mdi_client.h"

#include <algorithm>
#include <map>
#include <vector>

#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/system_metrics.h"
#include "platform/win/window.h"
#include "platform/win/window_table.h"

namespace win::detail {

namespace {

struct ClientState {
    HWND active = nullptr;
    std::vector<HWND> order;  // front: the active child; back: the one passed over last
};

std::map<HWND, ClientState>& States() {
    static std::map<HWND, ClientState> states;
    return states;
}

// The children in activation order: dead entries go, new children join at the back.
std::vector<HWND>& Order(HWND client, ClientState& state) {
    WindowRecord* rec = FindWindowRecord(client);
    auto& order = state.order;
    order.erase(std::remove_if(order.begin(), order.end(),
                               [&](HWND h) { return !IsWindow(h) || !IsChild(client, h); }),
                order.end());
    for (HWND c : rec->children) {
        if (std::find(order.begin(), order.end(), c) == order.end()) {
            order.push_back(c);
        }
    }
    return order;
}

bool Usable(HWND child) {
    WindowRecord* rec = FindWindowRecord(child);
    return rec && !rec->destroying && IsWindowVisible(child);
}

void Activate(HWND client, HWND child) {
    ClientState& state = States()[client];
    auto& order = Order(client, state);
    auto at = std::find(order.begin(), order.end(), child);
    if (at == order.end()) {
        return;
    }
    std::rotate(order.begin(), at, at + 1);
    HWND old = IsWindow(state.active) ? state.active : nullptr;
    if (old == child) {
        return;
    }
    state.active = child;
    bool wasMaximised = old && IsZoomed(old);
    auto w = reinterpret_cast<WPARAM>(old);
    auto l = reinterpret_cast<LPARAM>(child);
    if (old) {
        SendMessage(old, WM_MDIACTIVATE, w, l);
        if (wasMaximised && IsWindow(old)) {
            ShowWindow(old, SW_SHOWNOACTIVATE);
        }
    }
    if (IsWindow(child)) {
        SendMessage(child, WM_MDIACTIVATE, w, l);
        if (wasMaximised && IsWindow(child)) {
            ShowWindow(child, SW_SHOWMAXIMIZED);
        }
    }
}

void Next(HWND client, HWND from, bool previous) {
    ClientState& state = States()[client];
    std::vector<HWND> order = Order(client, state);
    if (from == nullptr) {
        from = state.active;
    }
    HWND target = nullptr;
    if (previous) {
        for (auto it = order.rbegin(); it != order.rend() && !target; ++it) {
            if (*it != from && Usable(*it)) {
                target = *it;
            }
        }
    } else {
        auto at = std::find(order.begin(), order.end(), from);
        std::size_t start = at == order.end() ? 0 : (at - order.begin()) + 1;
        for (std::size_t i = 0; i < order.size() && !target; ++i) {
            HWND h = order[(start + i) % order.size()];
            if (h != from && Usable(h)) {
                target = h;
            }
        }
    }
    if (target == nullptr) {
        return;
    }
    Activate(client, target);
    auto& live = Order(client, States()[client]);
    if (auto it = std::find(live.begin(), live.end(), from); it != live.end() && !previous) {
        live.erase(it);
        live.push_back(from);
    }
}

void ArrangeIcons(HWND client) {
    RECT area;
    GetClientRect(client, &area);
    int cx = GetSystemMetrics(SM_CXMINIMIZED);
    int cy = GetSystemMetrics(SM_CYMINIMIZED);
    int x = 0;
    int y = area.bottom - cy;
    std::vector<HWND> children = FindWindowRecord(client)->children;
    for (HWND c : children) {
        if (!IsIconic(c) || !IsWindowVisible(c)) {
            continue;
        }
        if (x > 0 && x + cx > area.right) {
            x = 0;
            y -= cy;
        }
        if (WindowRecord* rec = FindWindowRecord(c)) {
            rec->minPosition = POINT{x, y};
        }
        SetWindowPos(c, nullptr, x, y, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE);
        x += cx;
    }
}

void ChildGone(HWND client, HWND child) {
    ClientState& state = States()[client];
    auto& order = Order(client, state);
    order.erase(std::remove(order.begin(), order.end(), child), order.end());
    if (state.active != child) {
        return;
    }
    state.active = nullptr;
    for (HWND h : order) {
        if (Usable(h)) {
            Activate(client, h);
            return;
        }
    }
    // No child is left to take over: the one going is told that it is no longer active.
    SendMessage(child, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(child), 0);
}

}  // namespace

LRESULT MdiClientProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    auto child = reinterpret_cast<HWND>(wParam);
    switch (msg) {
        case WM_CREATE:
            States()[hwnd];
            return 0;
        case WM_NCDESTROY:
            States().erase(hwnd);
            return 0;
        case WM_MDIACTIVATE:
            if (IsChild(hwnd, child)) {
                Activate(hwnd, child);
            }
            return 0;
        case WM_MDIGETACTIVE: {
            ClientState& state = States()[hwnd];
            HWND active = IsWindow(state.active) ? state.active : nullptr;
            if (auto* maximised = reinterpret_cast<BOOL*>(lParam)) {
                *maximised = active && IsZoomed(active) ? TRUE : FALSE;
            }
            return reinterpret_cast<LRESULT>(active);
        }
        case WM_MDINEXT:
            Next(hwnd, IsChild(hwnd, child) ? child : nullptr, lParam != 0);
            return 0;
        case WM_MDIMAXIMIZE:
            if (IsChild(hwnd, child)) {
                ShowWindow(child, SW_SHOWMAXIMIZED);
            }
            return 0;
        case WM_MDIRESTORE:
            if (IsChild(hwnd, child)) {
                ShowWindow(child, SW_RESTORE);
            }
            return 0;
        case WM_MDIDESTROY:
            if (IsChild(hwnd, child)) {
                DestroyWindow(child);
            }
            return 0;
        case WM_MDIICONARRANGE:
            ArrangeIcons(hwnd);
            return 0;
        case WM_PARENTNOTIFY:
            if (LOWORD(wParam) == WM_DESTROY) {
                ChildGone(hwnd, reinterpret_cast<HWND>(lParam));
            }
            return 0;
        case WM_SIZE: {
            std::vector<HWND> children = FindWindowRecord(hwnd)->children;
            for (HWND c : children) {
                if (IsZoomed(c)) {
                    SetWindowPos(c, nullptr, 0, 0, LOWORD(lParam), HIWORD(lParam),
                                 SWP_NOZORDER | SWP_NOACTIVATE);
                }
            }
            return 0;
        }
        default:
            return DefWindowProc(hwnd, msg, wParam, lParam);
    }
}

}  // namespace win::detail
