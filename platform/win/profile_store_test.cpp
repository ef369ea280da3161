#include "platform/win/profile_store.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include "platform/testing/sandbox.h"
#include "platform/win/private_profile.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

class ProfileStoreTest : public SandboxTest {
  protected:
    std::string Get(const std::string& name) {
        char buffer[64];
        DWORD n = GetPrivateProfileString("A", "k", "missing", buffer, sizeof buffer,
                                          sandbox.Platform(name).c_str());
        return std::string(buffer, n);
    }

    // Gives the file a time stamp long past, down to the nanosecond given.
    void SetModified(const std::string& name, long nanoseconds = 0) {
        timespec times[2] = {{1700000000, nanoseconds}, {1700000000, nanoseconds}};
        ASSERT_EQ(utimensat(AT_FDCWD, sandbox.Posix(name).c_str(), times, 0), 0);
    }

    // Gives the file a time stamp ahead of the clock, as a file changed within the clock
    // tick of its read looks: stat() can't vouch that it stays unchanged.
    void SetUnsettled(const std::string& name) {
        timespec times[2];
        clock_gettime(CLOCK_REALTIME, &times[0]);
        times[0].tv_sec += 3600;
        times[1] = times[0];
        ASSERT_EQ(utimensat(AT_FDCWD, sandbox.Posix(name).c_str(), times, 0), 0);
    }

    // Overwrites the file in place with a text of the same size and puts its time stamp
    // back: nothing that stat() shows tells the change.
    void Rewrite(const std::string& name, const std::string& text) {
        std::string path = sandbox.Posix(name).string();
        struct stat before;
        ASSERT_EQ(stat(path.c_str(), &before), 0);
        ASSERT_EQ(before.st_size, static_cast<off_t>(text.size()));
        int fd = open(path.c_str(), O_WRONLY);
        ASSERT_GE(fd, 0);
        ASSERT_EQ(write(fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
        close(fd);
        timespec times[2] = {before.st_atim, before.st_mtim};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }

    // Runs `work` in a forked child and waits for it; the child's exit status.
    static int InChild(const std::function<bool()>& work) {
        pid_t child = fork();
        if (child == 0)
            _exit(work() ? 0 : 1);
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // How many parses the reads made.
    std::uint64_t ParsesOf(const std::function<void()>& reads) {
        std::uint64_t before = ProfileParses();
        reads();
        return ProfileParses() - before;
    }
};

TEST_F(ProfileStoreTest, UnchangedFileIsParsedOnceEvenWhenJustWritten) {
    sandbox.Write("p.ini", "[A]\nk=one\n");
    SetUnsettled("p.ini");
    EXPECT_EQ(ParsesOf([&] {
                  for (int i = 0; i < 20; ++i)
                      EXPECT_EQ(Get("p.ini"), "one");
              }),
              1u);
}

TEST_F(ProfileStoreTest, ChangeInPlaceThatStatCannotSeeIsReadAnew) {
    sandbox.Write("p.ini", "[A]\nk=one\n");
    SetModified("p.ini");
    EXPECT_EQ(Get("p.ini"), "one");
    Rewrite("p.ini", "[A]\nk=two\n");
    EXPECT_EQ(Get("p.ini"), "two");
    EXPECT_EQ(ParsesOf([&] { EXPECT_EQ(Get("p.ini"), "two"); }), 0u);
}

TEST_F(ProfileStoreTest, ChangesByAnotherProcessAreReadAnew) {
    for (const char* name : {"p.ini", "q.ini"}) {
        sandbox.Write(name, "[A]\nk=one\n");
        SetModified(name);
        EXPECT_EQ(Get(name), "one");
    }
    // A report the parent has not read yet when it forks. The child reads as well, and
    // must neither take the parent's reports nor trust the parent's count of them.
    Rewrite("q.ini", "[A]\nk=two\n");
    EXPECT_EQ(InChild([&] {
                  Rewrite("p.ini", "[A]\nk=two\n");
                  SetModified("q.ini", 1);
                  return Get("q.ini") == "two";
              }),
              0);
    EXPECT_EQ(Get("p.ini"), "two");
    EXPECT_EQ(Get("q.ini"), "two");

    sandbox.Write("next.ini", "[A]\nk=six\n");
    SetModified("next.ini");
    EXPECT_EQ(InChild([&] {
                  fs::rename(sandbox.Posix("next.ini"), sandbox.Posix("p.ini"));
                  return true;
              }),
              0);
    EXPECT_EQ(Get("p.ini"), "six");
}

TEST_F(ProfileStoreTest, FileReplacedOrRemovedIsReadAnew) {
    sandbox.Write("p.ini", "[A]\nk=one\n");
    SetModified("p.ini");
    EXPECT_EQ(Get("p.ini"), "one");
    sandbox.Write("next.ini", "[A]\nk=two\n");
    SetModified("next.ini");
    fs::rename(sandbox.Posix("next.ini"), sandbox.Posix("p.ini"));
    EXPECT_EQ(Get("p.ini"), "two");

    fs::remove(sandbox.Posix("p.ini"));
    EXPECT_EQ(Get("p.ini"), "missing");
}

TEST_F(ProfileStoreTest, RenamedFolderHigherUpIsSeen) {
    sandbox.Write("a/b/p.ini", "[A]\nk=one\n");
    SetModified("a/b/p.ini");
    EXPECT_EQ(Get("a/b/p.ini"), "one");
    // Another tree takes the old one's name; its file has the same size and time stamp.
    fs::rename(sandbox.Posix("a"), sandbox.Posix("old"));
    sandbox.Write("a/b/p.ini", "[A]\nk=two\n");
    SetModified("a/b/p.ini");
    EXPECT_EQ(Get("a/b/p.ini"), "two");

    // Renamed back from another process.
    EXPECT_EQ(InChild([&] {
                  fs::rename(sandbox.Posix("a"), sandbox.Posix("new"));
                  fs::rename(sandbox.Posix("old"), sandbox.Posix("a"));
                  return true;
              }),
              0);
    EXPECT_EQ(Get("a/b/p.ini"), "one");
}

TEST_F(ProfileStoreTest, WritesThroughTheProfileCallsAreReadBack) {
    sandbox.Write("p.ini", "[A]\nk=one\n");
    EXPECT_EQ(Get("p.ini"), "one");
    EXPECT_TRUE(WritePrivateProfileString("A", "k", "two", sandbox.Platform("p.ini").c_str()));
    EXPECT_EQ(Get("p.ini"), "two");
    EXPECT_EQ(ParsesOf([&] { EXPECT_EQ(Get("p.ini"), "two"); }), 0u);
}

// A path through a symbolic link can't be watched: each read asks the file, and a file
// changed within the clock tick of its read is read again until its time stamp settles.
TEST_F(ProfileStoreTest, UnwatchedFileIsCheckedAtEveryRead) {
    sandbox.Write("real/p.ini", "[A]\nk=one\n");
    SetUnsettled("real/p.ini");
    fs::create_directory_symlink(sandbox.Posix("real"), sandbox.Posix("folder"));
    fs::create_symlink(sandbox.Posix("real/p.ini"), sandbox.Posix("file.ini"));
    for (const char* link : {"folder/p.ini", "file.ini"}) {
        EXPECT_EQ(ParsesOf([&] {
                      EXPECT_EQ(Get(link), "one");
                      EXPECT_EQ(Get(link), "one");
                  }),
                  2u)
            << link;
    }
    Rewrite("real/p.ini", "[A]\nk=two\n");
    EXPECT_EQ(Get("file.ini"), "two");

    SetModified("real/p.ini");
    EXPECT_EQ(Get("file.ini"), "two");
    EXPECT_EQ(ParsesOf([&] { EXPECT_EQ(Get("file.ini"), "two"); }), 0u);
    SetModified("real/p.ini", 1);
    EXPECT_EQ(ParsesOf([&] { EXPECT_EQ(Get("file.ini"), "two"); }), 1u);
}

// Only the main thread takes the reports; another thread asks the file. The main thread
// holds its signals back meanwhile, so that it can't have counted the report in time.
TEST_F(ProfileStoreTest, OtherThreadsAskTheFile) {
    sandbox.Write("p.ini", "[A]\nk=one\n");
    SetUnsettled("p.ini");
    EXPECT_EQ(Get("p.ini"), "one");
    sigset_t all, old;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, &old);
    std::string seen;
    std::thread([&] {
        Rewrite("p.ini", "[A]\nk=two\n");
        seen = Get("p.ini");
    }).join();
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
    EXPECT_EQ(seen, "two");
    EXPECT_EQ(Get("p.ini"), "two");
}

}  // namespace
}  // namespace win
