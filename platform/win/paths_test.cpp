#include "platform/win/paths.h"

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

// Changes the process's current folder for one test and puts it back afterwards.
class CurrentFolder {
  public:
    explicit CurrentFolder(const fs::path& folder) : saved_(fs::current_path()) {
        fs::current_path(folder);
    }
    ~CurrentFolder() { fs::current_path(saved_); }

  private:
    fs::path saved_;
};

using PathsTest = SandboxTest;

TEST_F(PathsTest, RoundTripsThroughTheDriveTable) {
    sandbox.Write("amp/amp.vpj", "");
    std::string posix = sandbox.Posix("amp/amp.vpj").string();
    EXPECT_EQ(PlatformPath(posix), "C:\\amp\\amp.vpj");
    EXPECT_EQ(PosixPath("C:\\amp\\amp.vpj"), posix);
    EXPECT_EQ(PlatformPath(sandbox.Posix("").string()), "C:\\");
    EXPECT_EQ(PosixPath("c:\\"), sandbox.Posix("").lexically_normal().parent_path().string());

    // Z: stands for / wherever no other drive holds the path.
    EXPECT_EQ(PlatformPath("/usr/lib/x.so"), "Z:\\usr\\lib\\x.so");
    EXPECT_EQ(PosixPath("Z:\\usr\\lib\\x.so"), "/usr/lib/x.so");
    EXPECT_EQ(PosixPath("Z:\\"), "/");
    EXPECT_EQ(PlatformPath("/"), "Z:\\");
}

TEST_F(PathsTest, DriveTableFollowsTheEnvironment) {
    sandbox.Write("sub/data/f.txt", "");
    std::string sub = sandbox.Posix("sub").string();
    setenv("VELORAND_DRIVES", ("C=" + sandbox.Posix("").string() + ";d=" + sub + "/").c_str(), 1);
    // The longest drive folder wins.
    EXPECT_EQ(PlatformPath(sub + "/data/f.txt"), "D:\\data\\f.txt");
    EXPECT_EQ(PosixPath("D:\\data\\f.txt"), sub + "/data/f.txt");
    EXPECT_EQ(PosixPath("C:\\sub\\data\\f.txt"), sub + "/data/f.txt");

    setenv("VELORAND_DRIVES", ("Z=" + sub).c_str(), 1);
    EXPECT_EQ(PosixPath("Z:\\data"), sub + "/data");
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(PosixPath("C:\\sub"), std::nullopt);
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
}

TEST_F(PathsTest, LooksUpEachNameWithoutRegardToCase) {
    sandbox.Write("Amp/Sheets/Top.SCH", "");
    std::string root = sandbox.Posix("").string();
    EXPECT_EQ(PosixPath("C:\\amp\\sheets\\top.sch"), root + "Amp/Sheets/Top.SCH");
    // A missing name is kept as written, and so is everything below it.
    EXPECT_EQ(PosixPath("C:\\AMP\\new\\Top.sch"), root + "Amp/new/Top.sch");
    // The exact name wins over one that differs only in case.
    sandbox.Write("Amp/top.sch", "");
    sandbox.Write("Amp/TOP.sch", "");
    EXPECT_EQ(PosixPath("C:\\amp\\top.sch"), root + "Amp/top.sch");
    EXPECT_EQ(PosixPath("C:\\amp\\Top.sch"), root + "Amp/TOP.sch");
}

TEST_F(PathsTest, RefusesPathsThatCannotNameAFile) {
    for (const char* bad : {"Q:\\x", "C:\\a<b", "C:\\a>b", "C:\\a|b", "C:\\a\"b", "C:\\a*b",
                            "C:\\a?b", "C:\\a:b", "C:\\a\tb"}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(PosixPath(bad), std::nullopt) << bad;
        EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME) << bad;
    }
    std::string longest = "C:\\" + std::string(MAX_PATH - 4, 'a');
    EXPECT_NE(PosixPath(longest), std::nullopt);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(PosixPath(longest + "a"), std::nullopt);
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
}

TEST_F(PathsTest, FullPathsFoldRelativeAndDottedNames) {
    fs::create_directories(sandbox.Posix("p/q"));
    CurrentFolder here(sandbox.Posix("p"));
    EXPECT_EQ(FullPlatformPath("a.sch"), "C:\\p\\a.sch");
    EXPECT_EQ(FullPlatformPath("q/../b.sch"), "C:\\p\\b.sch");
    EXPECT_EQ(FullPlatformPath(".\\q\\"), "C:\\p\\q\\");
    EXPECT_EQ(FullPlatformPath("\\x\\.\\y"), "C:\\x\\y");
    EXPECT_EQ(FullPlatformPath("c:\\..\\..\\z"), "C:\\z");
    EXPECT_EQ(FullPlatformPath("C:rel"), "C:\\p\\rel");
    EXPECT_EQ(FullPlatformPath("D:rel"), "D:\\rel");
    EXPECT_EQ(FullPlatformPath("C:"), "C:\\p");
    EXPECT_EQ(PlatformPath("q/file"), "C:\\p\\q\\file");
    EXPECT_EQ(PosixPath("q"), sandbox.Posix("p/q").string());
}

TEST_F(PathsTest, EightBitNamesPassThroughUntouched) {
    std::string name = "caf\xe9 \xff\x80.sch";
    sandbox.Write(name, "");
    std::string posix = sandbox.Posix(name).string();
    EXPECT_EQ(PlatformPath(posix), "C:\\" + name);
    EXPECT_EQ(PosixPath("C:\\" + name), posix);
}

}  // namespace
}  // namespace win
