#include "platform/win/files.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/file_attributes.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::ReadFile;
using velorand::testing::SandboxTest;
using velorand::testing::WriteFile;

void MakeReadOnly(const fs::path& path) {
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read,
                    fs::perm_options::replace);
}

using FilesTest = SandboxTest;

TEST_F(FilesTest, AttributesTellFoldersReadOnlyAndMissingFiles) {
    sandbox.Write("p/a.sch", "x");
    sandbox.Write("p/ro.sch", "x");
    MakeReadOnly(sandbox.Posix("p/ro.sch"));
    EXPECT_EQ(GetFileAttributes(sandbox.Platform("p/a.sch").c_str()), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(GetFileAttributes("C:\\P\\RO.SCH"), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(GetFileAttributes("C:\\p"), FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(GetFileAttributes("C:\\p\\"), FILE_ATTRIBUTE_DIRECTORY);

    EXPECT_EQ(GetFileAttributes("C:\\p\\missing.sch"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(GetFileAttributes("C:\\q\\missing.sch"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(GetFileAttributes("C:\\p\\a.sch\\x"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(GetFileAttributes("C:\\p\\a|b.sch"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
    EXPECT_EQ(GetFileAttributes(("C:\\" + std::string(300, 'a')).c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
}

TEST_F(FilesTest, CopyKeepsContentAndReadOnlyAttribute) {
    std::string text = "line\r\nline\n\xff\x80";
    sandbox.Write("a.sch", text);
    ASSERT_TRUE(CopyFile("C:\\a.sch", "C:\\b.sch", TRUE));
    EXPECT_EQ(sandbox.Read("b.sch"), text);

    EXPECT_FALSE(CopyFile("C:\\a.sch", "C:\\b.sch", TRUE));
    EXPECT_EQ(GetLastError(), ERROR_FILE_EXISTS);
    sandbox.Write("a.sch", "new");
    EXPECT_TRUE(CopyFile("C:\\a.sch", "C:\\B.SCH", FALSE));
    EXPECT_EQ(sandbox.Read("b.sch"), "new");

    MakeReadOnly(sandbox.Posix("a.sch"));
    ASSERT_TRUE(CopyFile("C:\\a.sch", "C:\\c.sch", FALSE));
    EXPECT_EQ(GetFileAttributes("C:\\c.sch"), FILE_ATTRIBUTE_READONLY);
    // A read-only target is never written over, by root neither.
    sandbox.Write("d.sch", "other");
    EXPECT_FALSE(CopyFile("C:\\d.sch", "C:\\c.sch", FALSE));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(sandbox.Read("c.sch"), "new");

    EXPECT_FALSE(CopyFile("C:\\missing.sch", "C:\\e.sch", FALSE));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(CopyFile("C:\\a.sch", "C:\\nofolder\\e.sch", FALSE));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    // Nothing is left behind by the failed copies.
    EXPECT_EQ(std::distance(fs::directory_iterator(sandbox.Posix("")), fs::directory_iterator()),
              4);
}

TEST_F(FilesTest, CopyIntoAReadOnlyFolderFails) {
    sandbox.Write("a.sch", "x");
    fs::create_directories(sandbox.Posix("locked"));
    MakeReadOnly(sandbox.Posix("locked"));
    fs::permissions(sandbox.Posix("locked"), fs::perms::owner_exec, fs::perm_options::add);
    EXPECT_FALSE(CopyFile("C:\\a.sch", "C:\\locked\\a.sch", FALSE));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(MoveFileEx("C:\\a.sch", "C:\\locked\\a.sch", MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(fs::exists(sandbox.Posix("a.sch")));
}

TEST_F(FilesTest, MoveReplacesOnlyWhenAskedAndNeverAReadOnlyFile) {
    sandbox.Write("a.sch", "a");
    sandbox.Write("b.sch", "b");
    EXPECT_FALSE(MoveFileEx("C:\\a.sch", "C:\\b.sch", 0));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    ASSERT_TRUE(MoveFileEx("C:\\a.sch", "C:\\b.sch", MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(sandbox.Read("b.sch"), "a");
    EXPECT_FALSE(fs::exists(sandbox.Posix("a.sch")));

    sandbox.Write("c.sch", "c");
    MakeReadOnly(sandbox.Posix("b.sch"));
    EXPECT_FALSE(MoveFileEx("C:\\c.sch", "C:\\b.sch", MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(sandbox.Read("b.sch"), "a");
    EXPECT_EQ(sandbox.Read("c.sch"), "c");
    // A read-only file itself may move.
    ASSERT_TRUE(MoveFileEx("C:\\b.sch", "C:\\sub.sch", 0));
    EXPECT_EQ(GetFileAttributes("C:\\sub.sch"), FILE_ATTRIBUTE_READONLY);

    EXPECT_FALSE(MoveFileEx("C:\\gone.sch", "C:\\x.sch", MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(FilesTest, MoveRenamesFoldersAndChangesLetterCase) {
    sandbox.Write("proj.~PT/a.sch", "a");
    ASSERT_TRUE(MoveFileEx("C:\\proj.~PT", "C:\\other", 0));
    EXPECT_EQ(sandbox.Read("other/a.sch"), "a");
    ASSERT_TRUE(MoveFileEx("C:\\other\\a.sch", "C:\\other\\A.SCH", 0));
    EXPECT_TRUE(fs::exists(sandbox.Posix("other/A.SCH")));
    EXPECT_FALSE(fs::exists(sandbox.Posix("other/a.sch")));
}

TEST_F(FilesTest, MoveBetweenFileSystemsCopiesAndDeletes) {
    std::string other = "/dev/shm/velorand-test-XXXXXX";
    struct stat shm, here;
    if (stat("/dev/shm", &shm) != 0 || stat(sandbox.Root().c_str(), &here) != 0 ||
        shm.st_dev == here.st_dev || mkdtemp(other.data()) == nullptr)
        GTEST_SKIP() << "no second file system at /dev/shm";
    setenv("VELORAND_DRIVES", ("C=" + sandbox.Posix("").string() + ";D=" + other).c_str(), 1);
    sandbox.Write("a.sch", "content");
    WriteFile(fs::path(other) / "a.sch", "old");
    bool moved = MoveFileEx("C:\\a.sch", "D:\\a.sch", MOVEFILE_REPLACE_EXISTING);
    std::string arrived = ReadFile(fs::path(other) / "a.sch");
    fs::create_directories(sandbox.Posix("dir"));
    bool folderMoved = MoveFileEx("C:\\dir", "D:\\dir", 0);
    DWORD folderError = GetLastError();
    fs::remove_all(other);

    EXPECT_TRUE(moved);
    EXPECT_EQ(arrived, "content");
    EXPECT_FALSE(fs::exists(sandbox.Posix("a.sch")));
    EXPECT_FALSE(folderMoved);
    EXPECT_EQ(folderError, ERROR_NOT_SAME_DEVICE);
    EXPECT_TRUE(fs::exists(sandbox.Posix("dir")));
}

TEST_F(FilesTest, DeleteRefusesFoldersAndReadOnlyFiles) {
    sandbox.Write("a.sch", "a");
    sandbox.Write("ro.sch", "r");
    MakeReadOnly(sandbox.Posix("ro.sch"));
    fs::create_directories(sandbox.Posix("dir"));
    EXPECT_TRUE(DeleteFile("C:\\A.sch"));
    EXPECT_FALSE(fs::exists(sandbox.Posix("a.sch")));
    EXPECT_FALSE(DeleteFile("C:\\a.sch"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(DeleteFile("C:\\ro.sch"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(fs::exists(sandbox.Posix("ro.sch")));
    EXPECT_FALSE(DeleteFile("C:\\dir"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(DeleteFile(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

}  // namespace
}  // namespace win
