#include "platform/win/user_name.h"

#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/win/last_error.h"

namespace win {

namespace {

// The account's name; $USER or $LOGNAME when the account has no entry of its own, as in
// some containers.
std::string UserName() {
    std::vector<char> scratch(16384);
    passwd entry;
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, scratch.data(), scratch.size(), &found) == 0 && found)
        return found->pw_name;
    for (const char* variable : {"USER", "LOGNAME"})
        if (const char* value = getenv(variable); value && *value)
            return value;
    return "";
}

}  // namespace

BOOL GetUserName(LPSTR buffer, LPDWORD size) {
    if (size == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::string name = UserName();
    if (name.empty()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    DWORD needed = static_cast<DWORD>(name.size() + 1);
    if (buffer == nullptr || *size < needed) {
        *size = needed;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::memcpy(buffer, name.c_str(), needed);
    *size = needed;
    return TRUE;
}

}  // namespace win
