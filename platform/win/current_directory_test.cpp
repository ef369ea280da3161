#include "platform/win/current_directory.h"

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"
#include "platform/win/temp_path.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

class CurrentDirectoryTest : public SandboxTest {
  protected:
    ~CurrentDirectoryTest() override { fs::current_path(saved_); }

  private:
    fs::path saved_ = fs::current_path();
};

TEST_F(CurrentDirectoryTest, SetsAndReadsThePlatformPath) {
    fs::create_directories(sandbox.Posix("Proj/Sub"));
    ASSERT_TRUE(SetCurrentDirectory("C:\\proj\\sub\\"));
    EXPECT_EQ(fs::current_path(), sandbox.Posix("Proj/Sub"));
    char buffer[MAX_PATH];
    EXPECT_EQ(GetCurrentDirectory(MAX_PATH, buffer), 11u);
    EXPECT_EQ(std::string(buffer), "C:\\Proj\\Sub");

    ASSERT_TRUE(SetCurrentDirectory(".."));
    EXPECT_EQ(GetCurrentDirectory(MAX_PATH, buffer), 7u);
    EXPECT_EQ(std::string(buffer), "C:\\Proj");
    ASSERT_TRUE(SetCurrentDirectory("C:\\"));
    EXPECT_EQ(GetCurrentDirectory(MAX_PATH, buffer), 3u);
    EXPECT_EQ(std::string(buffer), "C:\\");
}

TEST_F(CurrentDirectoryTest, SmallBufferGetsTheSizeNeeded) {
    fs::create_directories(sandbox.Posix("abc"));
    ASSERT_TRUE(SetCurrentDirectory("C:\\abc"));
    char buffer[7] = "xxxxxx";
    EXPECT_EQ(GetCurrentDirectory(6, buffer), 7u);
    EXPECT_EQ(std::string(buffer), "xxxxxx");
    EXPECT_EQ(GetCurrentDirectory(7, buffer), 6u);
    EXPECT_EQ(std::string(buffer), "C:\\abc");
}

TEST_F(CurrentDirectoryTest, RefusesWhatIsNoFolder) {
    sandbox.Write("file.txt", "");
    EXPECT_FALSE(SetCurrentDirectory("C:\\missing"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(SetCurrentDirectory("C:\\missing\\deeper"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(SetCurrentDirectory("C:\\file.txt"));
    EXPECT_EQ(GetLastError(), ERROR_DIRECTORY);
    EXPECT_FALSE(SetCurrentDirectory("Q:\\"));
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
}

TEST_F(CurrentDirectoryTest, TempPathComesFromTmpdirWithItsBackslash) {
    setenv("TMPDIR", sandbox.Posix("t").c_str(), 1);
    char buffer[MAX_PATH];
    EXPECT_EQ(GetTempPath(MAX_PATH, buffer), 5u);
    EXPECT_EQ(std::string(buffer), "C:\\t\\");
    EXPECT_EQ(GetTempPath(5, buffer), 6u);

    unsetenv("TMPDIR");
    GetTempPath(MAX_PATH, buffer);
    EXPECT_EQ(std::string(buffer), "Z:\\tmp\\");
}

}  // namespace
}  // namespace win
