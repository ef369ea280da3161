// Knowing, mostly without a system call, that a file has not changed since it was read. The
// kernel reports every change of a watched file, and every move or removal of it or of a
// folder on its path; each report sends the main thread a signal whose handler only advances
// a counter. While the counter stands still nothing watched has changed, and a look-up costs
// no system call; when it moves, the reports are read to see which files they concern.
//
// Only the main thread trusts the counter. The signal is aimed at it, so a change ordered
// before its read, by a write of its own or by a writer it waited for (wait, read, lock), has
// run the handler before that call returned. Other threads can't know that and get kUnknown.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace win::internal {

class FileWatch {
  public:
    enum class State { kUnchanged, kChanged, kUnknown };

    // Watches the file at an absolute POSIX path in normal form, and every folder on its
    // path; call it before reading the file, so that no later change goes unseen. Nothing
    // when no watch can be had: the path runs through a symbolic link, the file system does
    // not report every change (a network file system), the watches allowed run out, the
    // process is a forked child, or other code of the process has taken the signal.
    static std::unique_ptr<FileWatch> Start(const std::string& posixPath);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    // Whether the file, its name or a folder on its path may have changed since Start;
    // kUnknown on threads other than the main one, which must ask the file itself.
    State Check();

  private:
    class Registry;

    FileWatch() = default;

    std::vector<int> watches_;
    std::atomic<bool> changed_{false};
    std::atomic<std::uint64_t> seen_{0};
};

}  // namespace win::internal
