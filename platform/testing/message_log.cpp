#include "platform/testing/message_log.h"

#include <algorithm>

#include "platform/win/message_queue.h"

namespace velorand::testing {

namespace {
MessageLog* current = nullptr;
}

MessageLog::MessageLog() {
    current = this;
    win::WNDCLASS wc;
    wc.lpfnWndProc = &MessageLog::Proc;
    wc.lpszClassName = kClassName;
    win::RegisterClass(&wc);
}

MessageLog::~MessageLog() {
    reactions_.clear();
    for (auto it = made_.rbegin(); it != made_.rend(); ++it) {
        win::DestroyWindow(*it);
    }
    win::MSG left;
    while (win::PeekMessage(&left, nullptr, 0, 0, win::PM_REMOVE)) {
    }
    current = nullptr;
}

win::HWND MessageLog::Create(const char* title, win::HWND parent, int id, win::DWORD style,
                             win::RECT rect) {
    if (parent != nullptr) {
        style |= win::WS_CHILD;
    }
    win::HWND hwnd = win::CreateWindowEx(0, kClassName, title, style, rect.left, rect.top,
                                         rect.right - rect.left, rect.bottom - rect.top, parent,
                                         win::HandleFromNumber<win::HMENU>(id), nullptr, nullptr);
    if (hwnd != nullptr) {
        made_.push_back(hwnd);
    }
    return hwnd;
}

void MessageLog::On(win::HWND hwnd, win::UINT message, Reaction reaction) {
    reactions_[{hwnd, message}] = std::move(reaction);
}

std::vector<win::UINT> MessageLog::Of(win::HWND hwnd, std::vector<win::UINT> only) const {
    std::vector<win::UINT> out;
    for (const LoggedMessage& m : log_) {
        if (m.hwnd == hwnd &&
            (only.empty() || std::find(only.begin(), only.end(), m.message) != only.end())) {
            out.push_back(m.message);
        }
    }
    return out;
}

std::vector<std::pair<win::HWND, win::UINT>> MessageLog::Sequence(
    std::vector<win::UINT> only) const {
    std::vector<std::pair<win::HWND, win::UINT>> out;
    for (const LoggedMessage& m : log_) {
        if (std::find(only.begin(), only.end(), m.message) != only.end()) {
            out.emplace_back(m.hwnd, m.message);
        }
    }
    return out;
}

win::LRESULT MessageLog::Proc(win::HWND hwnd, win::UINT msg, win::WPARAM wParam,
                              win::LPARAM lParam) {
    if (current == nullptr) {
        return win::DefWindowProc(hwnd, msg, wParam, lParam);
    }
    current->log_.push_back(LoggedMessage{hwnd, msg, wParam, lParam});
    auto it = current->reactions_.find({hwnd, msg});
    if (it != current->reactions_.end()) {
        Reaction reaction = it->second;  // the reaction may replace itself
        return reaction(wParam, lParam);
    }
    return win::DefWindowProc(hwnd, msg, wParam, lParam);
}

}  // namespace velorand::testing
