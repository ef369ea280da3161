#include "platform/win/posix_file.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/win/last_error.h"
#include "platform/win/paths.h"

namespace win::internal {

std::optional<std::string> PosixPathOf(LPCSTR platformPath) {
    if (platformPath == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return std::nullopt;
    }
    return PosixPath(platformPath);
}

std::string ParentFolder(const std::string& posixPath) {
    std::size_t slash = posixPath.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    if (slash == 0)
        return "/";
    return posixPath.substr(0, slash);
}

void SetLastErrorForPath(int err, const std::string& posixPath) {
    if (err == ENOENT || err == ENOTDIR) {
        struct stat info;
        bool folderThere =
            stat(ParentFolder(posixPath).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
        SetLastError(folderThere ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND);
        return;
    }
    SetLastError(ErrorFromErrno(err));
}

bool IsReadOnly(mode_t mode) {
    return (mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool MayReplace(const std::string& posixPath) {
    struct stat info;
    if (stat(posixPath.c_str(), &info) == 0 && IsReadOnly(info.st_mode)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    return true;
}

bool MayChangeFolderOf(const std::string& posixPath) {
    return MayReplace(ParentFolder(posixPath));
}

}  // namespace win::internal
