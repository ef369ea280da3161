// Windows for tests of the windowing layer: each logs every message it gets, in order,
// and runs the test's own reaction to a message when one is set. Windows that a test
// leaves alive are destroyed with the log.
#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace velorand::testing {

struct LoggedMessage {
    win::HWND hwnd;
    win::UINT message;
    win::WPARAM wParam;
    win::LPARAM lParam;
};

class MessageLog {
  public:
    using Reaction = std::function<win::LRESULT(win::WPARAM, win::LPARAM)>;

    static constexpr const char* kClassName = "VelorandTestLog";

    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    // A window of the logging class: a child when parent is given, else top-level.
    win::HWND Create(const char* title, win::HWND parent = nullptr, int id = 0,
                     win::DWORD style = win::WS_VISIBLE, win::RECT rect = {0, 0, 100, 50});
    // Runs the reaction instead of the default handling of the message.
    void On(win::HWND hwnd, win::UINT message, Reaction reaction);

    // The messages a window got, in order, only those of the given numbers when given.
    std::vector<win::UINT> Of(win::HWND hwnd, std::vector<win::UINT> only = {}) const;
    // (window, message) pairs of all windows, only the given numbers.
    std::vector<std::pair<win::HWND, win::UINT>> Sequence(std::vector<win::UINT> only) const;
    void Clear() { log_.clear(); }

  private:
    static win::LRESULT Proc(win::HWND, win::UINT, win::WPARAM, win::LPARAM);

    std::vector<LoggedMessage> log_;
    std::map<std::pair<win::HWND, win::UINT>, Reaction> reactions_;
    std::vector<win::HWND> made_;
};

}  // namespace velorand::testing
