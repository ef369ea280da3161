#include "platform/win/profile_store.h"

#include <fcntl.h>
#include <limits.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <map>
#include <mutex>

#include "platform/win/file_watch.h"
#include "platform/win/last_error.h"
#include "platform/win/posix_file.h"

namespace win {

namespace {

// What tells one state of a file from another without reading it.
struct Snapshot {
    dev_t device;
    ino_t inode;
    off_t size;
    timespec modified;

    bool operator==(const Snapshot& other) const {
        return device == other.device && inode == other.inode && size == other.size &&
               modified.tv_sec == other.modified.tv_sec &&
               modified.tv_nsec == other.modified.tv_nsec;
    }
};

Snapshot SnapshotOf(const struct stat& info) {
    return Snapshot{info.st_dev, info.st_ino, info.st_size, info.st_mtim};
}

bool Earlier(const timespec& a, const timespec& b) {
    return a.tv_sec < b.tv_sec || (a.tv_sec == b.tv_sec && a.tv_nsec < b.tv_nsec);
}

struct Cached {
    Snapshot snapshot;
    std::shared_ptr<const ProfileFile> file;
    // The file's time stamp lay before the clock tick of the read, so any later change
    // gets a later time stamp. A file changed within the tick of its read is read again,
    // unless its watch vouches for it: the watch reports every change, whatever its time.
    bool settled;
    // Null when the file can't be watched; then every read compares the snapshot.
    std::unique_ptr<internal::FileWatch> watch;
    std::uint64_t lastUse;
};

// A few files are in use at a time: the project file, the profile, the registry.
constexpr std::size_t kCachedFiles = 16;

std::mutex cacheMutex;
std::map<std::string, Cached> cache;
std::uint64_t useCount = 0;
std::atomic<std::uint64_t> parses{0};

const std::shared_ptr<const ProfileFile>& EmptyProfile() {
    static const std::shared_ptr<const ProfileFile> empty = std::make_shared<ProfileFile>("");
    return empty;
}

void Forget(const std::string& posixPath) {
    std::lock_guard lock(cacheMutex);
    cache.erase(posixPath);
}

void Remember(const std::string& posixPath, Cached entry) {
    std::lock_guard lock(cacheMutex);
    entry.lastUse = ++useCount;
    cache.insert_or_assign(posixPath, std::move(entry));
    if (cache.size() > kCachedFiles) {
        auto oldest = cache.begin();
        for (auto it = cache.begin(); it != cache.end(); ++it)
            if (it->second.lastUse < oldest->second.lastUse)
                oldest = it;
        cache.erase(oldest);
    }
}

// The cached file when its watch knows it unchanged; a file known changed is dropped.
std::shared_ptr<const ProfileFile> FromWatched(const std::string& posixPath) {
    std::lock_guard lock(cacheMutex);
    auto found = cache.find(posixPath);
    if (found == cache.end() || !found->second.watch)
        return nullptr;
    switch (found->second.watch->Check()) {
        case internal::FileWatch::State::kUnchanged:
            found->second.lastUse = ++useCount;
            return found->second.file;
        case internal::FileWatch::State::kChanged:
            cache.erase(found);
            return nullptr;
        case internal::FileWatch::State::kUnknown:
            return nullptr;
    }
    return nullptr;
}

std::shared_ptr<const ProfileFile> FromCache(const std::string& posixPath,
                                             const Snapshot& snapshot) {
    std::lock_guard lock(cacheMutex);
    auto found = cache.find(posixPath);
    if (found == cache.end() || !found->second.settled || !(found->second.snapshot == snapshot))
        return nullptr;
    found->second.lastUse = ++useCount;
    return found->second.file;
}

// The parsed file, with `found` set; the empty file when it is missing; null with `error`
// set when it exists but cannot be read.
std::shared_ptr<const ProfileFile> Load(const std::string& posixPath, DWORD& error,
                                        bool* found = nullptr) {
    error = ERROR_SUCCESS;
    if (found)
        *found = false;
    if (auto cached = FromWatched(posixPath)) {
        if (found)
            *found = true;
        return cached;
    }
    struct stat info;
    if (stat(posixPath.c_str(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return EmptyProfile();
        error = ErrorFromErrno(errno);
        return nullptr;
    }
    if (!S_ISREG(info.st_mode)) {
        error = ERROR_ACCESS_DENIED;
        return nullptr;
    }
    if (auto cached = FromCache(posixPath, SnapshotOf(info))) {
        if (found)
            *found = true;
        return cached;
    }

    // Watched before it is read, so that no change after the read goes unseen.
    std::unique_ptr<internal::FileWatch> watch = internal::FileWatch::Start(posixPath);
    timespec started;
    clock_gettime(CLOCK_REALTIME_COARSE, &started);
    int fd = open(posixPath.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0 || fstat(fd, &info) != 0) {
        error = ErrorFromErrno(errno);
        if (fd >= 0)
            close(fd);
        return nullptr;
    }
    std::string text;
    text.resize(static_cast<std::size_t>(info.st_size));
    std::size_t have = 0;
    for (;;) {
        if (have == text.size())
            text.resize(text.size() + 4096);  // the file grew since fstat
        ssize_t got = read(fd, text.data() + have, text.size() - have);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            error = ErrorFromErrno(errno);
            close(fd);
            return nullptr;
        }
        if (got == 0)
            break;
        have += static_cast<std::size_t>(got);
    }
    close(fd);
    text.resize(have);

    auto file = std::make_shared<const ProfileFile>(std::move(text));
    parses.fetch_add(1, std::memory_order_relaxed);
    Remember(posixPath,
             Cached{SnapshotOf(info), file, Earlier(info.st_mtim, started), std::move(watch), 0});
    if (found)
        *found = true;
    return file;
}

// The read-only attribute binds everybody, the superuser too; beyond it the kernel decides.
bool Writable(const std::string& path, const struct stat& info, int mode) {
    return !internal::IsReadOnly(info.st_mode) && access(path.c_str(), mode) == 0;
}

DWORD WriteAll(int fd, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        ssize_t wrote = write(fd, text.data() + done, text.size() - done);
        if (wrote < 0 && errno == EINTR)
            continue;
        if (wrote < 0)
            return ErrorFromErrno(errno);
        done += static_cast<std::size_t>(wrote);
    }
    return fsync(fd) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
}

// Writes the text to a new file in the folder and renames it over `target`.
DWORD Replace(const std::string& target, const std::string& folder, const std::string& text,
              const struct stat* old) {
    static std::atomic<unsigned> serial{0};
    std::string name = std::filesystem::path(target).filename().string();
    std::string temporary;
    int fd = -1;
    while (fd < 0) {
        temporary =
            folder + "/." + name + ".~" + std::to_string(getpid()) + "-" + std::to_string(serial++);
        // A new file gets the mode the process gives new files; a rewritten one keeps its own.
        fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST)
            return ErrorFromErrno(errno);
    }
    DWORD error = WriteAll(fd, text);
    if (error == ERROR_SUCCESS && old && fchmod(fd, old->st_mode & 07777) != 0)
        error = ErrorFromErrno(errno);
    if (close(fd) != 0 && error == ERROR_SUCCESS)
        error = ErrorFromErrno(errno);
    if (error == ERROR_SUCCESS && rename(temporary.c_str(), target.c_str()) != 0)
        error = ErrorFromErrno(errno);
    if (error != ERROR_SUCCESS)
        unlink(temporary.c_str());
    return error;
}

}  // namespace

std::shared_ptr<const ProfileFile> LoadProfile(const std::string& posixPath, bool* found) {
    DWORD error;
    std::shared_ptr<const ProfileFile> file = Load(posixPath, error, found);
    return file ? file : EmptyProfile();
}

std::uint64_t ProfileParses() {
    return parses.load(std::memory_order_relaxed);
}

DWORD EditProfile(const std::string& posixPath, const ProfileEdit& edit, bool makeFolder) {
    // One write at a time in this process, so that no edit builds on a text another replaces.
    static std::mutex writeMutex;
    std::lock_guard lock(writeMutex);
    // Through a symbolic link the file it names gets the new text, and the link stays.
    std::string target = posixPath;
    char resolved[PATH_MAX];
    if (realpath(posixPath.c_str(), resolved))
        target = resolved;
    std::string folder = std::filesystem::path(target).parent_path().string();
    if (folder.empty())
        folder = ".";

    struct stat info;
    if (stat(folder.c_str(), &info) != 0) {
        if (errno != ENOENT || !makeFolder)
            return errno == ENOENT ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno);
        std::error_code failed;
        std::filesystem::create_directories(folder, failed);
        if (failed)
            return ErrorFromErrno(failed.value());
        if (stat(folder.c_str(), &info) != 0)
            return ErrorFromErrno(errno);
    }
    if (!S_ISDIR(info.st_mode))
        return ERROR_PATH_NOT_FOUND;
    if (!Writable(folder, info, W_OK | X_OK))
        return ERROR_ACCESS_DENIED;

    struct stat old;
    bool exists = stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        return ErrorFromErrno(errno);
    if (exists && (!S_ISREG(old.st_mode) || !Writable(target, old, W_OK)))
        return ERROR_ACCESS_DENIED;

    DWORD error;
    std::shared_ptr<const ProfileFile> current = Load(target, error);
    if (!current)
        return error;
    std::optional<std::string> next = edit(*current);
    if (!next)
        return ERROR_SUCCESS;
    error = Replace(target, folder, *next, exists ? &old : nullptr);
    Forget(target);
    Forget(posixPath);
    return error;
}

}  // namespace win
