#include "platform/win/last_error.h"

#include <cerrno>

namespace win {

namespace {
thread_local DWORD lastError = ERROR_SUCCESS;
}

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD code) {
    lastError = code;
}

DWORD ErrorFromErrno(int err) {
    switch (err) {
        case 0:
            return ERROR_SUCCESS;
        case ENOENT:
            return ERROR_FILE_NOT_FOUND;
        case ENOTDIR:
            return ERROR_PATH_NOT_FOUND;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
            return ERROR_ACCESS_DENIED;
        case EEXIST:
            return ERROR_ALREADY_EXISTS;
        case ENOTEMPTY:
            return ERROR_DIR_NOT_EMPTY;
        case ENAMETOOLONG:
        case EINVAL:
            return ERROR_BAD_PATHNAME;
        case ENOMEM:
            return ERROR_NOT_ENOUGH_MEMORY;
        case EWOULDBLOCK:
            return ERROR_SHARING_VIOLATION;
        default:
            return ERROR_ACCESS_DENIED;
    }
}

}  // namespace win
