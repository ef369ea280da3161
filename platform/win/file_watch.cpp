#include "platform/win/file_watch.h"

#include <fcntl.h>
#include <limits.h>
#include <linux/magic.h>
#include <pthread.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>
#include <mutex>

namespace win::internal {

namespace {

constexpr std::uint32_t kFileEvents =
    IN_MODIFY | IN_ATTRIB | IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF | IN_DONT_FOLLOW;
// A folder matters when it moves or goes, which changes where the path leads, or when its
// permissions change. A file replaced by rename or removed reports that itself (its link
// count changes), so the folders' own entries need no watching: changes elsewhere in busy
// folders such as /tmp then cost nothing.
constexpr std::uint32_t kFolderEvents =
    IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR | IN_DONT_FOLLOW;

// A standard signal rather than a real-time one: pending reports merge into one, while
// real-time signals queue one each and, past the user's limit, the kernel sends SIGIO anyway.
constexpr int kReportSignal = SIGIO;

std::atomic<std::uint64_t> reports{0};
static_assert(std::atomic<std::uint64_t>::is_always_lock_free);
std::atomic<bool> inForkedChild{false};

void CountReport(int) {
    reports.fetch_add(1, std::memory_order_release);
}

// A forked child shares the parent's watches, and the reports go to the parent; the child
// leaves them alone and asks its files.
void AfterForkInChild() {
    inForkedChild.store(true, std::memory_order_relaxed);
}

bool OnMainThread() {
    static thread_local const bool main = gettid() == getpid();
    return main;
}

// File systems on which the kernel reports every change; a network file system does not
// see changes made on other machines.
bool ReportsEveryChange(const struct statfs& info) {
    switch (static_cast<unsigned long>(info.f_type)) {
        case EXT4_SUPER_MAGIC:
        case XFS_SUPER_MAGIC:
        case BTRFS_SUPER_MAGIC:
        case F2FS_SUPER_MAGIC:
        case TMPFS_MAGIC:
        case RAMFS_MAGIC:
        case OVERLAYFS_SUPER_MAGIC:
            return true;
        default:
            return false;
    }
}

}  // namespace

// The process's one inotify instance and which watches use each of its watch descriptors.
class FileWatch::Registry {
  public:
    // Never destroyed: cached files may be released while the process exits.
    static Registry& Get() {
        static Registry& registry = *new Registry;
        return registry;
    }

    bool Ready() const { return fd_ >= 0 && !inForkedChild.load(std::memory_order_relaxed); }

    bool Add(FileWatch& watch, const std::string& path, std::uint32_t events) {
        // Held across the call, so that no drain reads a report of the new watch before
        // its user is known.
        std::lock_guard lock(mutex_);
        int wd = inotify_add_watch(fd_, path.c_str(), events);
        if (wd < 0)
            return false;
        users_[wd].push_back(&watch);
        watch.watches_.push_back(wd);
        return true;
    }

    void Release(FileWatch& watch) {
        if (inForkedChild.load(std::memory_order_relaxed))
            return;
        std::lock_guard lock(mutex_);
        for (int wd : watch.watches_) {
            auto found = users_.find(wd);
            if (found == users_.end())
                continue;
            std::erase(found->second, &watch);
            if (found->second.empty()) {
                inotify_rm_watch(fd_, wd);
                users_.erase(found);
            }
        }
    }

    // Reads every queued report and marks the watches it concerns. An emptied queue makes
    // the next report a new one, which sends a new signal.
    void Drain() {
        std::lock_guard lock(mutex_);
        alignas(inotify_event) char buffer[4096];
        for (;;) {
            ssize_t got = read(fd_, buffer, sizeof buffer);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0 && errno != EAGAIN) {
                MarkAll();
                return;
            }
            if (got <= 0)
                return;
            for (ssize_t at = 0; at < got;) {
                inotify_event event;
                std::memcpy(&event, buffer + at, sizeof event);
                at += static_cast<ssize_t>(sizeof event + event.len);
                if (event.mask & IN_Q_OVERFLOW) {
                    MarkAll();
                    continue;
                }
                auto found = users_.find(event.wd);
                if (found == users_.end())
                    continue;
                for (FileWatch* watch : found->second)
                    watch->changed_.store(true, std::memory_order_relaxed);
                // The kernel has dropped the watch: its file is gone or unmounted.
                if (event.mask & IN_IGNORED)
                    users_.erase(found);
            }
        }
    }

  private:
    Registry() {
        struct sigaction old;
        if (sigaction(kReportSignal, nullptr, &old) != 0 || (old.sa_flags & SA_SIGINFO) ||
            old.sa_handler != SIG_DFL)
            return;
        int fd = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
        if (fd < 0)
            return;
        struct sigaction mine {};
        mine.sa_handler = CountReport;
        sigemptyset(&mine.sa_mask);
        mine.sa_flags = SA_RESTART;
        f_owner_ex owner{F_OWNER_TID, getpid()};
        if (sigaction(kReportSignal, &mine, nullptr) != 0) {
            close(fd);
            return;
        }
        if (fcntl(fd, F_SETOWN_EX, &owner) != 0 || fcntl(fd, F_SETSIG, kReportSignal) != 0 ||
            fcntl(fd, F_SETFL, O_NONBLOCK | O_ASYNC) != 0 ||
            pthread_atfork(nullptr, nullptr, AfterForkInChild) != 0) {
            close(fd);
            sigaction(kReportSignal, &old, nullptr);
            return;
        }
        fd_ = fd;
    }

    void MarkAll() {
        for (auto& [wd, watches] : users_)
            for (FileWatch* watch : watches)
                watch->changed_.store(true, std::memory_order_relaxed);
    }

    int fd_ = -1;
    std::mutex mutex_;
    std::map<int, std::vector<FileWatch*>> users_;
};

std::unique_ptr<FileWatch> FileWatch::Start(const std::string& posixPath) {
    if (inForkedChild.load(std::memory_order_relaxed) || posixPath.empty() ||
        posixPath.front() != '/' ||
        std::filesystem::path(posixPath).lexically_normal().string() != posixPath)
        return nullptr;
    Registry& registry = Registry::Get();
    struct statfs fileSystem;
    if (!registry.Ready() || statfs(posixPath.c_str(), &fileSystem) != 0 ||
        !ReportsEveryChange(fileSystem))
        return nullptr;

    std::unique_ptr<FileWatch> watch(new FileWatch);
    // Taken before the watches: a report that comes while they are added is read at the
    // next Check.
    watch->seen_.store(reports.load(std::memory_order_acquire), std::memory_order_relaxed);
    for (std::size_t slash = 0; slash != std::string::npos;
         slash = posixPath.find('/', slash + 1)) {
        if (!registry.Add(*watch, slash == 0 ? "/" : posixPath.substr(0, slash), kFolderEvents))
            return nullptr;
    }
    if (!registry.Add(*watch, posixPath, kFileEvents))
        return nullptr;
    // Checked with the watches in place, so that a link put in later is reported: through
    // a symbolic link the path depends on names outside the watched folders.
    char resolved[PATH_MAX];
    if (!realpath(posixPath.c_str(), resolved) || posixPath != resolved)
        return nullptr;
    return watch;
}

FileWatch::~FileWatch() {
    if (!watches_.empty())
        Registry::Get().Release(*this);
}

FileWatch::State FileWatch::Check() {
    if (!OnMainThread() || inForkedChild.load(std::memory_order_relaxed))
        return State::kUnknown;
    std::uint64_t now = reports.load(std::memory_order_acquire);
    if (now != seen_.load(std::memory_order_relaxed)) {
        Registry::Get().Drain();
        seen_.store(now, std::memory_order_relaxed);
    }
    return changed_.load(std::memory_order_relaxed) ? State::kChanged : State::kUnchanged;
}

}  // namespace win::internal
