#include "platform/win/files.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>

#include "platform/win/last_error.h"
#include "platform/win/paths.h"
#include "platform/win/posix_file.h"

namespace win {

namespace {

using internal::ParentFolder;
using internal::SetLastErrorForPath;

bool WriteAll(int fd, const char* data, ssize_t size) {
    while (size > 0) {
        ssize_t written = write(fd, data, static_cast<size_t>(size));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        size -= written;
    }
    return true;
}

bool CopyData(int from, int to) {
    char buffer[1 << 16];
    for (;;) {
        ssize_t got = read(from, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return false;
        if (got == 0)
            return true;
        if (!WriteAll(to, buffer, got))
            return false;
    }
}

// Copies content, permission bits and time of last change through a temporary file beside
// the target, renamed over it at the end, so that a failure never leaves half a file.
bool CopyContents(const std::string& source, const std::string& target) {
    int from = open(source.c_str(), O_RDONLY | O_CLOEXEC);
    if (from < 0) {
        SetLastErrorForPath(errno, source);
        return false;
    }
    std::string temporary = ParentFolder(target) + "/.velorand-copy-XXXXXX";
    int to = mkostemp(temporary.data(), O_CLOEXEC);
    if (to < 0) {
        SetLastErrorForPath(errno, target);
        close(from);
        return false;
    }
    struct stat info;
    bool done =
        fstat(from, &info) == 0 && CopyData(from, to) && fchmod(to, info.st_mode & 07777) == 0;
    if (done) {
        const timespec times[2] = {info.st_atim, info.st_mtim};
        futimens(to, times);
    }
    int err = errno;
    done = close(to) == 0 && done;
    close(from);
    if (done && rename(temporary.c_str(), target.c_str()) != 0) {
        err = errno;
        done = false;
    }
    if (!done) {
        unlink(temporary.c_str());
        SetLastErrorForPath(err, target);
    }
    return done;
}

// The POSIX path and status of a file that must exist.
std::optional<std::string> ExistingFile(LPCSTR platformPath, struct stat& info) {
    std::optional<std::string> posix = internal::PosixPathOf(platformPath);
    if (posix && lstat(posix->c_str(), &info) != 0) {
        SetLastErrorForPath(errno, *posix);
        return std::nullopt;
    }
    return posix;
}

// The last name of a platform path as the caller wrote it.
std::string LastName(LPCSTR platformPath) {
    std::string full = FullPlatformPath(platformPath);
    return full.substr(full.find_last_of('\\') + 1);
}

// The POSIX paths of an existing file and of the path it is to be copied or moved to;
// false with the error set when either can't be had.
bool SourceAndTarget(LPCSTR existingFileName, LPCSTR newFileName, struct stat& source,
                     std::optional<std::string>& from, std::optional<std::string>& to) {
    from = ExistingFile(existingFileName, source);
    if (!from)
        return false;
    to = internal::PosixPathOf(newFileName);
    return to.has_value();
}

}  // namespace

BOOL CopyFile(LPCSTR existingFileName, LPCSTR newFileName, BOOL failIfExists) {
    struct stat source;
    std::optional<std::string> from, to;
    if (!SourceAndTarget(existingFileName, newFileName, source, from, to))
        return FALSE;
    if (S_ISDIR(source.st_mode)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    struct stat target;
    if (stat(to->c_str(), &target) == 0) {
        if (failIfExists) {
            SetLastError(ERROR_FILE_EXISTS);
            return FALSE;
        }
        if (S_ISDIR(target.st_mode) || internal::IsReadOnly(target.st_mode)) {
            SetLastError(ERROR_ACCESS_DENIED);
            return FALSE;
        }
    }
    if (!internal::MayChangeFolderOf(*to))
        return FALSE;
    return CopyContents(*from, *to) ? TRUE : FALSE;
}

BOOL MoveFileEx(LPCSTR existingFileName, LPCSTR newFileName, DWORD flags) {
    struct stat source;
    std::optional<std::string> from, to;
    if (!SourceAndTarget(existingFileName, newFileName, source, from, to))
        return FALSE;
    if (!internal::MayChangeFolderOf(*from) || !internal::MayChangeFolderOf(*to))
        return FALSE;

    struct stat target;
    if (lstat(to->c_str(), &target) == 0) {
        if (target.st_dev == source.st_dev && target.st_ino == source.st_ino) {
            // The target's lookup found the source itself: a change of letter case only.
            *to = ParentFolder(*to) + "/" + LastName(newFileName);
        } else if (!(flags & MOVEFILE_REPLACE_EXISTING)) {
            SetLastError(ERROR_ALREADY_EXISTS);
            return FALSE;
        } else if (S_ISDIR(source.st_mode) || S_ISDIR(target.st_mode) ||
                   internal::IsReadOnly(target.st_mode)) {
            SetLastError(ERROR_ACCESS_DENIED);
            return FALSE;
        }
    }
    if (rename(from->c_str(), to->c_str()) == 0)
        return TRUE;
    if (errno != EXDEV) {
        SetLastErrorForPath(errno, *to);
        return FALSE;
    }
    if (S_ISDIR(source.st_mode)) {
        SetLastError(ERROR_NOT_SAME_DEVICE);
        return FALSE;
    }
    if (!CopyContents(*from, *to))
        return FALSE;
    if (unlink(from->c_str()) != 0) {
        // Both files are kept: better twice than lost.
        SetLastErrorForPath(errno, *from);
        return FALSE;
    }
    return TRUE;
}

BOOL DeleteFile(LPCSTR fileName) {
    struct stat info;
    std::optional<std::string> posix = ExistingFile(fileName, info);
    if (!posix)
        return FALSE;
    if (S_ISDIR(info.st_mode) || (!S_ISLNK(info.st_mode) && internal::IsReadOnly(info.st_mode))) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (!internal::MayChangeFolderOf(*posix))
        return FALSE;
    if (unlink(posix->c_str()) != 0) {
        SetLastErrorForPath(errno, *posix);
        return FALSE;
    }
    return TRUE;
}

}  // namespace win
