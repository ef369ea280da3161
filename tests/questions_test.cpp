// Who answers the questions of a batch run: the script, the options, or nobody.
#include <gtest/gtest.h>

#include "tests/testing/program_fixture.h"

namespace velorand::testing {
namespace {

using QuestionsTest = ProgramTest;

// Leaves the top level schematic changed, so that the end asks whether to save it.
constexpr const char* kChange =
    "open-project amp2/amp2.vpj\n"
    "edit amp2/amp2.sch \":findsymbol S1;:property T V:5.0\"\n";
constexpr const char* kSaveQuestion = "box: Velorand | Save changes to amp2 - amp2/amp2.sch? -> ";

TEST_F(QuestionsTest, AQuestionNobodyAnswersTakesTheSafestWayAndFailsTheRun) {
    const std::string original = sandbox.Read("amp2/amp2.sch");
    Finished run = RunScript("change.script", kChange);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.out.find(std::string(kSaveQuestion) + "cancel (unanswered)\n"), std::string::npos)
        << run.out;
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), original);
}

TEST_F(QuestionsTest, TheOptionsAnswerWhatTheScriptLeavesOpen) {
    Finished run = RunScript("change.script", kChange, {"--no"});
    EXPECT_EQ(run.exitCode, 0) << run.out;
    EXPECT_NE(run.out.find(std::string(kSaveQuestion) + "no\n"), std::string::npos) << run.out;

    // The first matching rule wins over the catch-all.
    run = RunScript("change.script", kChange, {"--answer", "Save changes=yes", "--no"});
    EXPECT_EQ(run.exitCode, 0) << run.out;
    EXPECT_NE(run.out.find(std::string(kSaveQuestion) + "yes\n"), std::string::npos) << run.out;
    EXPECT_NE(sandbox.Read("amp2/amp2.sch").find("use dcfeed S1 vcc V=5.0"), std::string::npos);
}

TEST_F(QuestionsTest, AScriptsAnswerThatTheBoxDoesntOfferFailsTheAction) {
    Finished run = RunScript("close.script", std::string(kChange) +
                                                 "answer retry\n"
                                                 "close-project\n"
                                                 "tree\n");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.out.find(std::string(kSaveQuestion) +
                           "cancel (the script's answer retry does not fit)\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("error: line 4: the project stays open\n"), std::string::npos)
        << run.out;
    EXPECT_EQ(run.out.find("> tree"), std::string::npos) << run.out;
}

}  // namespace
}  // namespace velorand::testing
