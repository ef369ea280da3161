// Two velorand processes on one project: the lock file keeps the second out for as long
// as the first holds the project open, and no longer than the first lives.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/testing/program_fixture.h"

namespace velorand::testing {
namespace {

using ProjectLockTest = ProgramTest;

TEST_F(ProjectLockTest, ASecondProcessIsRefusedWhileTheFirstHoldsTheProjectOpen) {
    VelorandProcess first({"shell", "amp2/amp2.vpj"}, Folder());
    // The shell plays its input in order: the tree comes when the project is open.
    first.Write("tree\n");
    ASSERT_TRUE(first.WaitForLine("tree:")) << first.Out();

    Finished second = Run({"open", "amp2/amp2.vpj"});
    EXPECT_EQ(second.exitCode, 1);
    const std::vector<std::string> lines = Lines(second.out);
    auto has = [&](const std::string& text) {
        for (const std::string& line : lines) {
            if (line.find(text) != std::string::npos) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(
        has("| Unable to open: amp2/amp2.vpj\\nThis file is already in use or can't be "
            "shared. -> ok"))
        << second.out;
    EXPECT_TRUE(
        has("| Unable to open: amp2/amp2.vpj\\nPlease check if sharing is permitted. -> ok"))
        << second.out;
    EXPECT_TRUE(has("error: line 0: the project amp2/amp2.vpj was not opened")) << second.out;
    EXPECT_FALSE(has("tree:")) << second.out;

    // The first goes on with its project, and its lock stays.
    EXPECT_TRUE(std::filesystem::exists(sandbox.Posix("amp2/~%amp2.vpj")));
    first.Write("tree\n");
    EXPECT_TRUE(first.WaitForLine("tree:")) << first.Out();

    // A holder that dies leaves the lock file behind, but not the lock.
    first.Kill();
    Finished third = Run({"open", "amp2/amp2.vpj"});
    EXPECT_EQ(third.exitCode, 0) << third.out << third.err;
    EXPECT_NE(third.out.find("tree:\n  amp2 - [Quintaris]\n"), std::string::npos) << third.out;
}

}  // namespace
}  // namespace velorand::testing
