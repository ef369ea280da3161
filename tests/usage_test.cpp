// How the program answers a command line it can't use, and its help and version.
#include <gtest/gtest.h>

#include "tests/testing/program_fixture.h"

namespace velorand::testing {
namespace {

using UsageTest = ProgramTest;

TEST_F(UsageTest, AMalformedCommandLineExitsWithTwoAndSaysWhy) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{}, "a command is missing"},
        {{"build"}, "unknown command build"},
        {{"open"}, "open takes PROJECT.vpj"},
        {{"open", "a.vpj", "b.vpj"}, "open takes PROJECT.vpj"},
        {{"demo", "extra"}, "demo takes no arguments"},
        {{"--frobnicate", "demo"}, "unknown option --frobnicate"},
        {{"--answer"}, "--answer needs PATTERN=ANSWER"},
        {{"--answer", "no-equals", "demo"}, "pattern=answer"},
        {{"--yes", "--no", "demo"}, "--yes and --no exclude each other"},
    };
    for (const auto& [arguments, reason] : cases) {
        Finished run = Run(arguments);
        EXPECT_EQ(run.exitCode, 2) << reason;
        EXPECT_NE(run.err.find(reason), std::string::npos) << run.err;
        EXPECT_NE(run.err.find("usage: velorand"), std::string::npos) << run.err;
        EXPECT_EQ(run.out, "") << reason;
    }
}

TEST_F(UsageTest, AScriptThatIsNoScriptExitsWithTwoBeforeAnythingIsPlayed) {
    Finished run = RunScript("bad.script", "tree\n\nopen-project\n");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.err.find("bad.script:3: usage: open-project PROJECT.vpj"), std::string::npos)
        << run.err;
    EXPECT_EQ(run.out, "");

    run = RunScript("quote.script", "edit amp2/amp2.sch \":redraw\n");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.err.find("quote.script:1: a quote is not closed"), std::string::npos) << run.err;

    run = Run({"run", "missing.script"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.err.find("can't read the script missing.script"), std::string::npos) << run.err;
}

TEST_F(UsageTest, HelpAndVersionGoToTheStandardOutput) {
    Finished help = Run({"open", "x.vpj", "--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.out.rfind("usage: velorand", 0), 0u);
    for (const char* action : {"open-project PROJECT.vpj", "notify FILE|- FROM CODE", "crash"}) {
        EXPECT_NE(help.out.find(action), std::string::npos) << action;
    }
    Finished version = Run({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out.rfind("velorand ", 0), 0u);
}

}  // namespace
}  // namespace velorand::testing
