#include "platform/win/folder_names.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/testing/sandbox.h"

namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

// Gives the folder a stamp of long ago, as a folder has that nobody changes now.
void AgeFolder(const fs::path& folder) {
    timespec times[2] = {{0, UTIME_OMIT}, {1'000'000'000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, folder.c_str(), times, 0), 0);
}

TEST_F(SandboxTest, NamesAreFoundWithoutCaseAndTheFirstInByteOrderWins) {
    sandbox.Write("f/Top.SCH", "");
    sandbox.Write("f/top.sch", "");
    sandbox.Write("f/Bias.sym", "");
    const std::string folder = sandbox.Posix("f").string();
    EXPECT_EQ(win::FindNameNoCase(folder, "TOP.sch"), "Top.SCH");
    EXPECT_EQ(win::FindNameNoCase(folder, "bias.SYM"), "Bias.sym");
    EXPECT_EQ(win::FindNameNoCase(folder, "bias"), std::nullopt);
    EXPECT_EQ(win::FindNameNoCase(sandbox.Posix("none").string(), "top.sch"), std::nullopt);
}

TEST_F(SandboxTest, AChangedFolderIsReadAgain) {
    // Changed just now, and again at once: the second change may carry the same stamp.
    sandbox.Write("f/a.sch", "");
    const std::string folder = sandbox.Posix("f").string();
    EXPECT_EQ(win::FindNameNoCase(folder, "A.SCH"), "a.sch");
    sandbox.Write("f/b.sch", "");
    EXPECT_EQ(win::FindNameNoCase(folder, "B.SCH"), "b.sch");

    // Unchanged for long, its names are kept; a change then is seen all the same.
    AgeFolder(folder);
    EXPECT_EQ(win::FindNameNoCase(folder, "C.SCH"), std::nullopt);
    sandbox.Write("f/c.sch", "");
    fs::remove(sandbox.Posix("f/a.sch"));
    EXPECT_EQ(win::FindNameNoCase(folder, "C.SCH"), "c.sch");
    EXPECT_EQ(win::FindNameNoCase(folder, "A.SCH"), std::nullopt);

    // A folder put in the place of another is another folder.
    AgeFolder(folder);
    EXPECT_EQ(win::FindNameNoCase(folder, "B.SCH"), "b.sch");
    fs::rename(folder, sandbox.Posix("old"));
    sandbox.Write("f/d.sch", "");
    AgeFolder(folder);
    EXPECT_EQ(win::FindNameNoCase(folder, "B.SCH"), std::nullopt);
    EXPECT_EQ(win::FindNameNoCase(folder, "D.SCH"), "d.sch");
}

}  // namespace
