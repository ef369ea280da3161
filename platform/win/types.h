// The platform's basic types and constants, with their ANSI (8-bit) meaning. The
// component is written against these names, so that its algorithms read as they run
// on the original platform.
#pragma once

#include <cstdint>

namespace win {

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using INT = int;
using LONG = std::int32_t;
using BOOL = int;
using CHAR = char;
using LPSTR = char*;
using LPCSTR = const char*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPDWORD = DWORD*;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using LONG_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using ATOM = WORD;

inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

// Longest path the platform's calls accept, with its terminating zero.
inline constexpr DWORD MAX_PATH = 260;

// Handles are opaque: a small number behind a distinct pointer type, so that handles of
// different kinds do not mix and a stale one can be told from a live one.
#define VELORAND_DECLARE_HANDLE(name) \
    struct name##__;                  \
    using name = name##__*
VELORAND_DECLARE_HANDLE(HWND);
VELORAND_DECLARE_HANDLE(HMENU);
VELORAND_DECLARE_HANDLE(HINSTANCE);
VELORAND_DECLARE_HANDLE(HKEY);
VELORAND_DECLARE_HANDLE(HCURSOR);
VELORAND_DECLARE_HANDLE(HACCEL);
VELORAND_DECLARE_HANDLE(HANDLE);
VELORAND_DECLARE_HANDLE(HTREEITEM);
#undef VELORAND_DECLARE_HANDLE
using HMODULE = HINSTANCE;

template <class Handle>
constexpr Handle HandleFromNumber(std::uintptr_t n) {
    return reinterpret_cast<Handle>(n);
}
template <class Handle>
constexpr std::uintptr_t NumberFromHandle(Handle h) {
    return reinterpret_cast<std::uintptr_t>(h);
}

}  // namespace win
