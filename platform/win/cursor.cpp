#include "platform/win/cursor.h"

#include <map>
#include <utility>

namespace win {

namespace {

struct Cursors {
    std::map<std::pair<std::uintptr_t, UINT>, HCURSOR> loaded;
    std::uintptr_t next = 0x30000;
    HCURSOR current = nullptr;
    POINT position;
};

Cursors& C() {
    static Cursors cursors;
    return cursors;
}

}  // namespace

HCURSOR LoadCursor(HINSTANCE instance, UINT id) {
    auto key = std::make_pair(NumberFromHandle(instance), id);
    auto [it, added] = C().loaded.emplace(key, nullptr);
    if (added) {
        it->second = HandleFromNumber<HCURSOR>(C().next++);
    }
    return it->second;
}

HCURSOR SetCursor(HCURSOR cursor) {
    return std::exchange(C().current, cursor);
}

HCURSOR GetCursor() {
    return C().current;
}

BOOL GetCursorPos(POINT* point) {
    if (point == nullptr) {
        return FALSE;
    }
    *point = C().position;
    return TRUE;
}

BOOL SetCursorPos(int x, int y) {
    C().position = POINT{x, y};
    return TRUE;
}

}  // namespace win
