#include "suite/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/win/paths.h"

namespace suite {

namespace {

std::string Reason(int err) {
    return std::strerror(err);
}

bool IsReadOnly(const struct stat& info) {
    return (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

std::optional<std::string> MappedPath(std::string_view platformPath, std::string& error) {
    std::optional<std::string> posix = win::PosixPath(platformPath);
    if (!posix)
        error = "'" + std::string(platformPath) + "' is no valid path";
    return posix;
}

bool WriteAll(int fd, std::string_view text) {
    while (!text.empty()) {
        ssize_t written = write(fd, text.data(), text.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace

std::optional<std::string> ExistingFile(std::string_view platformPath) {
    std::optional<std::string> posix = win::PosixPath(platformPath);
    struct stat info;
    if (!posix || stat(posix->c_str(), &info) != 0 || !S_ISREG(info.st_mode))
        return std::nullopt;
    return posix;
}

std::optional<std::string> ReadTextFile(std::string_view platformPath, std::string& error) {
    std::optional<std::string> posix = MappedPath(platformPath, error);
    if (!posix)
        return std::nullopt;
    int fd = open(posix->c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = "cannot open '" + std::string(platformPath) + "': " + Reason(errno);
        return std::nullopt;
    }
    std::string text;
    struct stat info;
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        error = "'" + std::string(platformPath) + "' is not a file";
    } else if (static_cast<std::size_t>(info.st_size) > kMaxFileSize) {
        error = "'" + std::string(platformPath) + "' is larger than " +
                std::to_string(kMaxFileSize) + " bytes";
    } else {
        char buffer[65536];
        for (;;) {
            ssize_t got = read(fd, buffer, sizeof buffer);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0) {
                error = "cannot read '" + std::string(platformPath) + "': " + Reason(errno);
                break;
            }
            if (got == 0) {
                close(fd);
                return text;
            }
            text.append(buffer, static_cast<std::size_t>(got));
            if (text.size() > kMaxFileSize) {
                error = "'" + std::string(platformPath) + "' is larger than " +
                        std::to_string(kMaxFileSize) + " bytes";
                break;
            }
        }
    }
    close(fd);
    return std::nullopt;
}

bool WriteTextFile(std::string_view platformPath, std::string_view text, std::string& error) {
    std::optional<std::string> posix = MappedPath(platformPath, error);
    if (!posix)
        return false;
    struct stat info;
    bool exists = stat(posix->c_str(), &info) == 0;
    if (exists && (!S_ISREG(info.st_mode) || IsReadOnly(info))) {
        error = "cannot write '" + std::string(platformPath) + "': it is read-only";
        return false;
    }
    std::string temporary = *posix + ".~new";
    int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) {
        error = "cannot write '" + std::string(platformPath) + "': " + Reason(errno);
        return false;
    }
    // The new contents keep the old file's permissions.
    if (exists)
        fchmod(fd, info.st_mode & 07777);
    bool written = WriteAll(fd, text);
    int err = errno;
    if (close(fd) != 0 && written) {
        written = false;
        err = errno;
    }
    if (written && rename(temporary.c_str(), posix->c_str()) != 0) {
        written = false;
        err = errno;
    }
    if (!written) {
        unlink(temporary.c_str());
        error = "cannot write '" + std::string(platformPath) + "': " + Reason(err);
    }
    return written;
}

bool CopyTextFile(std::string_view fromPlatformPath, std::string_view toPlatformPath,
                  std::string& error) {
    std::optional<std::string> text = ReadTextFile(fromPlatformPath, error);
    return text && WriteTextFile(toPlatformPath, *text, error);
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

}  // namespace suite
