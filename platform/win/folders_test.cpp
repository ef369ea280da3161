#include "platform/win/folders.h"

#include <cerrno>
#include <filesystem>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

using FoldersTest = SandboxTest;

TEST_F(FoldersTest, CreateMakesOneFolder) {
    EXPECT_TRUE(CreateDirectory("C:\\proj.~PT"));
    EXPECT_TRUE(fs::is_directory(sandbox.Posix("proj.~PT")));
    EXPECT_FALSE(CreateDirectory("C:\\PROJ.~pt", nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(CreateDirectory("C:\\a\\b"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(CreateDirectory("C:\\a?b"));
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
}

TEST_F(FoldersTest, ReadOnlyFoldersStayAsTheyAre) {
    fs::create_directories(sandbox.Posix("ro/inner"));
    fs::permissions(sandbox.Posix("ro"), fs::perms::owner_read | fs::perms::owner_exec,
                    fs::perm_options::replace);
    EXPECT_FALSE(CreateDirectory("C:\\ro\\new"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(RemoveDirectory("C:\\ro\\inner"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(fs::exists(sandbox.Posix("ro/inner")));
}

TEST_F(FoldersTest, RemoveTakesOnlyEmptyFolders) {
    sandbox.Write("full/a.sch", "a");
    fs::create_directories(sandbox.Posix("empty"));
    EXPECT_FALSE(RemoveDirectory("C:\\full"));
    EXPECT_EQ(GetLastError(), ERROR_DIR_NOT_EMPTY);
    EXPECT_TRUE(fs::exists(sandbox.Posix("full/a.sch")));
    EXPECT_FALSE(RemoveDirectory("C:\\full\\a.sch"));
    EXPECT_EQ(GetLastError(), ERROR_DIRECTORY);
    EXPECT_TRUE(RemoveDirectory("C:\\EMPTY"));
    EXPECT_FALSE(fs::exists(sandbox.Posix("empty")));
    EXPECT_FALSE(RemoveDirectory("C:\\empty"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);

    EXPECT_EQ(_rmdir("C:\\full"), -1);
    EXPECT_EQ(errno, ENOTEMPTY);
    EXPECT_EQ(_rmdir("C:\\none"), -1);
    EXPECT_EQ(errno, ENOENT);
    fs::remove(sandbox.Posix("full/a.sch"));
    EXPECT_EQ(_rmdir("C:\\full\\"), 0);
    EXPECT_FALSE(fs::exists(sandbox.Posix("full")));
}

}  // namespace
}  // namespace win
