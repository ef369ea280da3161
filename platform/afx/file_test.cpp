#include "platform/afx/file.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"
#include "platform/win/process.h"

namespace afx {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

constexpr win::UINT kLock = CFile::modeCreate | CFile::shareExclusive;

// Whether another process can take the lock now.
bool OtherProcessGetsLock(const std::string& path) {
    pid_t child = fork();
    if (child == 0) {
        CFile file;
        _exit(file.Open(path.c_str(), kLock) ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

using CFileTest = SandboxTest;

TEST_F(CFileTest, LockHeldAgainstSecondOpenerUntilClosed) {
    std::string path = sandbox.Platform("~%amp.vpj");
    CFile holder;
    ASSERT_TRUE(holder.Open(path.c_str(), kLock));
    EXPECT_TRUE(fs::exists(sandbox.Posix("~%amp.vpj")));
    EXPECT_EQ(holder.GetFilePath(), path);

    CFile second;
    EXPECT_FALSE(second.Open("C:\\~%AMP.VPJ", kLock));
    EXPECT_EQ(win::GetLastError(), win::ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(OtherProcessGetsLock(path));

    holder.Close();
    EXPECT_EQ(holder.GetFilePath(), "");
    EXPECT_TRUE(OtherProcessGetsLock(path));
    {
        CFile scoped;
        EXPECT_TRUE(scoped.Open(path.c_str(), kLock));
        EXPECT_FALSE(OtherProcessGetsLock(path));
    }
    EXPECT_TRUE(second.Open(path.c_str(), kLock));
}

TEST_F(CFileTest, LockOfAKilledHolderIsGone) {
    std::string path = sandbox.Platform("~%amp.vpj");
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    pid_t holder = fork();
    if (holder == 0) {
        CFile file;
        char held = file.Open(path.c_str(), kLock) ? 'y' : 'n';
        (void)!write(ready[1], &held, 1);
        for (;;)
            pause();
    }
    char held = 0;
    ASSERT_EQ(read(ready[0], &held, 1), 1);
    close(ready[0]);
    close(ready[1]);
    ASSERT_EQ(held, 'y');

    CFile file;
    EXPECT_FALSE(file.Open(path.c_str(), kLock));
    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    EXPECT_TRUE(file.Open(path.c_str(), kLock));
}

TEST_F(CFileTest, StartedProgramsDoNotInheritTheLock) {
    std::string path = sandbox.Platform("~%amp.vpj");
    CFile holder;
    ASSERT_TRUE(holder.Open(path.c_str(), kLock));
    std::string command = "sleep 30";
    win::STARTUPINFO startup = {sizeof(win::STARTUPINFO)};
    win::PROCESS_INFORMATION info{};
    ASSERT_TRUE(win::CreateProcess(nullptr, command.data(), nullptr, nullptr, win::TRUE, 0, nullptr,
                                   nullptr, &startup, &info));
    holder.Close();
    CFile next;
    EXPECT_TRUE(next.Open(path.c_str(), kLock));
    kill(static_cast<pid_t>(info.dwProcessId), SIGKILL);
    waitpid(static_cast<pid_t>(info.dwProcessId), nullptr, 0);
    win::CloseHandle(info.hProcess);
    win::CloseHandle(info.hThread);
}

TEST_F(CFileTest, RefusedOpenLeavesFilesAsTheyWere) {
    sandbox.Write("held.txt", "content");
    CFile holder;
    ASSERT_TRUE(holder.Open("C:\\held.txt", kLock | CFile::modeNoTruncate | CFile::modeReadWrite));
    CFile second;
    EXPECT_FALSE(second.Open("C:\\held.txt", kLock | CFile::modeWrite));
    EXPECT_EQ(sandbox.Read("held.txt"), "content");

    sandbox.Write("ro.txt", "keep");
    fs::permissions(sandbox.Posix("ro.txt"), fs::perms::owner_read, fs::perm_options::replace);
    EXPECT_FALSE(second.Open("C:\\ro.txt", kLock));
    EXPECT_EQ(win::GetLastError(), win::ERROR_ACCESS_DENIED);
    EXPECT_TRUE(second.Open("C:\\ro.txt", CFile::modeRead | CFile::shareExclusive));
    second.Close();

    fs::create_directories(sandbox.Posix("ro"));
    fs::permissions(sandbox.Posix("ro"), fs::perms::owner_read | fs::perms::owner_exec,
                    fs::perm_options::replace);
    EXPECT_FALSE(second.Open("C:\\ro\\~%amp.vpj", kLock));
    EXPECT_EQ(win::GetLastError(), win::ERROR_ACCESS_DENIED);
    EXPECT_FALSE(fs::exists(sandbox.Posix("ro/~%amp.vpj")));
    EXPECT_FALSE(second.Open("C:\\missing\\~%amp.vpj", kLock));
    EXPECT_EQ(win::GetLastError(), win::ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(second.Open("C:\\ro", kLock));
    EXPECT_EQ(win::GetLastError(), win::ERROR_ACCESS_DENIED);
}

}  // namespace
}  // namespace afx
