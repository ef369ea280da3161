// Starting a program. The command line is split into arguments by the platform's quoting
// rules, and a program named by a platform path is found through the drive table. The new
// process runs on its own; nothing waits for it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/win/types.h"

namespace win {

inline constexpr DWORD DETACHED_PROCESS = 0x08;
inline constexpr DWORD CREATE_NEW_CONSOLE = 0x10;
inline constexpr DWORD NORMAL_PRIORITY_CLASS = 0x20;

// The start-up data. Only `cb` is looked at: the new process keeps the standard streams
// of this one.
struct STARTUPINFO {
    DWORD cb = {};
    LPSTR lpReserved = {};
    LPSTR lpDesktop = {};
    LPSTR lpTitle = {};
    DWORD dwX = {};
    DWORD dwY = {};
    DWORD dwXSize = {};
    DWORD dwYSize = {};
    DWORD dwXCountChars = {};
    DWORD dwYCountChars = {};
    DWORD dwFillAttribute = {};
    DWORD dwFlags = {};
    WORD wShowWindow = {};
    WORD cbReserved2 = {};
    BYTE* lpReserved2 = {};
    HANDLE hStdInput = {};
    HANDLE hStdOutput = {};
    HANDLE hStdError = {};
};
using LPSTARTUPINFO = STARTUPINFO*;

struct PROCESS_INFORMATION {
    HANDLE hProcess = {};
    HANDLE hThread = {};
    DWORD dwProcessId = {};
    DWORD dwThreadId = {};
};
using LPPROCESS_INFORMATION = PROCESS_INFORMATION*;

// Starts the program `applicationName`, or the first argument of `commandLine` when that
// is null. A program named without a folder is looked for along PATH; when a named
// program is missing, the same name without ".exe" is tried. `environment` is null or a
// block of "name=value" strings ending in an empty one. CREATE_NEW_CONSOLE and
// DETACHED_PROCESS give the process a session of its own; without `inheritHandles` it gets
// only the standard streams. FALSE with error 2 for a missing program, 5 for one that
// cannot be run.
BOOL CreateProcess(LPCSTR applicationName, LPSTR commandLine, LPVOID processAttributes,
                   LPVOID threadAttributes, BOOL inheritHandles, DWORD creationFlags,
                   LPVOID environment, LPCSTR currentDirectory, LPSTARTUPINFO startupInfo,
                   LPPROCESS_INFORMATION processInformation);

// Closes a process or thread handle of CreateProcess; the process runs on. FALSE with
// error 6 for a handle that is not open.
BOOL CloseHandle(HANDLE object);

// The arguments of a command line: blanks and tabs part them, double quotes group, and
// backslashes count only before a double quote (2n give n and a quote that groups, 2n+1
// give n and a literal quote); "" inside quotes is a literal quote. The first argument,
// the program, ends at the next blank or closing quote, backslashes and all.
std::vector<std::string> SplitCommandLine(std::string_view commandLine);

}  // namespace win
