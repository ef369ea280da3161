#include "platform/win/window_props.h"

#include "platform/win/window_table.h"

namespace win {

BOOL SetProp(HWND hwnd, LPCSTR name, HANDLE data) {
    detail::WindowRecord* rec = detail::FindWindowRecord(hwnd);
    if (rec == nullptr || name == nullptr) {
        return FALSE;
    }
    rec->props[name] = data;
    return TRUE;
}

HANDLE GetProp(HWND hwnd, LPCSTR name) {
    detail::WindowRecord* rec = detail::FindWindowRecord(hwnd);
    if (rec == nullptr || name == nullptr) {
        return nullptr;
    }
    auto it = rec->props.find(name);
    return it == rec->props.end() ? nullptr : it->second;
}

HANDLE RemoveProp(HWND hwnd, LPCSTR name) {
    detail::WindowRecord* rec = detail::FindWindowRecord(hwnd);
    if (rec == nullptr || name == nullptr) {
        return nullptr;
    }
    auto it = rec->props.find(name);
    if (it == rec->props.end()) {
        return nullptr;
    }
    HANDLE value = it->second;
    rec->props.erase(it);
    return value;
}

}  // namespace win
