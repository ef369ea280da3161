// A host that dies of an exception leaves its unsaved work in the project's work folder
// and a note in the project file; the next open offers the work back.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/testing/program_fixture.h"

namespace velorand::testing {
namespace {

using CrashRecoveryTest = ProgramTest;

constexpr const char* kCrash =
    "open-project amp2/amp2.vpj\n"
    "edit amp2/amp2.sch \":findsymbol S1;:property T V:5.0\"\n"
    "crash \"Bad element address\"\n"
    "tree\n";

TEST_F(CrashRecoveryTest, TheCrashKeepsTheWorkAndYesBringsItBack) {
    const std::string original = sandbox.Read("amp2/amp2.sch");
    Finished crash = RunScript("crash.script", kCrash);
    EXPECT_EQ(crash.exitCode, 1);
    EXPECT_NE(crash.out.find("box: Velorand - Program Exception | Program will terminate due to "
                             "an exception:\\nBad element address\\n -> ok"),
              std::string::npos)
        << crash.out;
    EXPECT_NE(crash.out.find("command: 25612\n"), std::string::npos) << crash.out;
    EXPECT_NE(crash.out.find("error: line 3: the host ended by an exception\n"), std::string::npos);
    // Nothing after the crash is played, and the user's own file is as it was.
    EXPECT_EQ(crash.out.find("> tree"), std::string::npos) << crash.out;
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), original);

    const std::string project = sandbox.Read("amp2/amp2.vpj");
    EXPECT_NE(project.find("FatalPath=C:\\amp2\\amp2.~PT"), std::string::npos) << project;
    const std::string saved = sandbox.Read("amp2/amp2.~PT/amp2.sch");
    EXPECT_NE(saved.find("use dcfeed S1 vcc V=5.0"), std::string::npos) << saved;

    Finished recover =
        RunScript("recover.script", "answer yes\nopen-project amp2/amp2.vpj\nclose-project\n");
    EXPECT_EQ(recover.exitCode, 0) << recover.out;
    EXPECT_NE(recover.out.find("box: Velorand - Project Manager | Some files were saved from "
                               "previous program exception.\\n\\nDo you wish to recover these "
                               "files? -> yes"),
              std::string::npos)
        << recover.out;
    EXPECT_NE(sandbox.Read("amp2/amp2.sch").find("use dcfeed S1 vcc V=5.0"), std::string::npos);
    EXPECT_EQ(sandbox.Read("amp2/amp2.vpj").find("FatalPath"), std::string::npos);
}

TEST_F(CrashRecoveryTest, NoLeavesTheFilesAsTheyAreAndTheOpenFails) {
    RunScript("crash.script", kCrash);
    const std::string original = sandbox.Read("amp2/amp2.sch");
    Finished refuse = RunScript("refuse.script", "answer no\nopen-project amp2/amp2.vpj\n");
    EXPECT_EQ(refuse.exitCode, 1);
    EXPECT_NE(refuse.out.find("Do you wish to recover these files? -> no"), std::string::npos);
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), original);
    // The question is asked once: the next open goes ahead without it.
    Finished again = Run({"open", "amp2/amp2.vpj"});
    EXPECT_EQ(again.exitCode, 0) << again.out;
    EXPECT_EQ(again.out.find("recover"), std::string::npos) << again.out;
}

}  // namespace
}  // namespace velorand::testing
