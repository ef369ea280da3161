#include "platform/win/folders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/win/last_error.h"
#include "platform/win/posix_file.h"

namespace win {

BOOL CreateDirectory(LPCSTR pathName, LPVOID securityAttributes) {
    std::optional<std::string> posix = internal::PosixPathOf(pathName);
    if (!posix)
        return FALSE;
    struct stat info;
    if (lstat(posix->c_str(), &info) == 0) {
        SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    if (!internal::MayChangeFolderOf(*posix))
        return FALSE;
    if (mkdir(posix->c_str(), 0777) != 0) {
        // Whatever is missing here is a folder on the way.
        SetLastError(errno == ENOENT ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
        return FALSE;
    }
    return TRUE;
}

BOOL RemoveDirectory(LPCSTR pathName) {
    std::optional<std::string> posix = internal::PosixPathOf(pathName);
    if (!posix)
        return FALSE;
    struct stat info;
    if (lstat(posix->c_str(), &info) != 0) {
        internal::SetLastErrorForPath(errno, *posix);
        return FALSE;
    }
    if (!S_ISDIR(info.st_mode)) {
        SetLastError(ERROR_DIRECTORY);
        return FALSE;
    }
    if (!internal::MayReplace(*posix) || !internal::MayChangeFolderOf(*posix))
        return FALSE;
    if (rmdir(posix->c_str()) != 0) {
        SetLastError(errno == EEXIST ? ERROR_DIR_NOT_EMPTY : ErrorFromErrno(errno));
        return FALSE;
    }
    return TRUE;
}

int _rmdir(const char* dirName) {
    if (RemoveDirectory(dirName))
        return 0;
    switch (GetLastError()) {
        case ERROR_DIR_NOT_EMPTY:
            errno = ENOTEMPTY;
            break;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            errno = ENOENT;
            break;
        case ERROR_BAD_PATHNAME:
        case ERROR_INVALID_PARAMETER:
        case ERROR_DIRECTORY:
            errno = EINVAL;
            break;
        default:
            errno = EACCES;
            break;
    }
    return -1;
}

}  // namespace win
