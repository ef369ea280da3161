#include "app/program/script.h"

#include <gtest/gtest.h>

#include "platform/testing/sandbox.h"

namespace velorand::program {
namespace {

std::optional<Action> Parse(const std::string& text, std::string& error) {
    return ParseAction(text, 7, error);
}

TEST(ScriptTest, WordsAreSplitAtBlanksQuotesKeepBlanksAndCommentsEndTheLine) {
    std::string error;
    std::optional<Action> action = Parse(
        "  edit \"my amp/amp2.sch\"\t\":set cpyinst 1;:read \"\"a b.sch\"\"\"  # why\r", error);
    ASSERT_TRUE(action) << error;
    EXPECT_EQ(action->line, 7);
    EXPECT_EQ(action->name, "edit");
    EXPECT_EQ(action->arguments,
              (std::vector<std::string>{"my amp/amp2.sch", ":set cpyinst 1;:read \"a b.sch\""}));

    // A '#' inside a word or inside quotes is no comment; an empty quoted word is a word.
    action = Parse("notify a#b.ckt 145 216 1 \"# not a comment\"", error);
    ASSERT_TRUE(action) << error;
    EXPECT_EQ(action->arguments[0], "a#b.ckt");
    EXPECT_EQ(action->arguments[4], "# not a comment");
    action = Parse("expect \"\"", error);
    ASSERT_TRUE(action) << error;
    EXPECT_EQ(action->arguments, std::vector<std::string>{""});
}

TEST(ScriptTest, BlankAndCommentLinesHoldNoActionAndNoError) {
    for (const char* text : {"", "   \t", "# open-project x.vpj", "   # indented"}) {
        std::string error = "stale";
        EXPECT_FALSE(Parse(text, error)) << text;
        EXPECT_EQ(error, "") << text;
    }
}

TEST(ScriptTest, ALineThatIsNoActionSaysWhy) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"open-projects a.vpj", "unknown action \"open-projects\""},
        {"Tree", "unknown action \"Tree\""},
        {"close-project now", "usage: close-project"},
        {"save", "usage: save FILE [NEW-FILE]"},
        {"notify a.ckt 145", "usage: notify FILE|- FROM CODE [OPTION [ARGUMENT]]"},
        {"answer yes no", "usage: answer yes|no|ok|cancel|..."},
        {"edit a.sch \":redraw", "a quote is not closed"},
        {"edit a.sch \":redraw\"x", "a quoted word must end at a blank"},
    };
    for (const auto& [text, reason] : cases) {
        std::string error;
        EXPECT_FALSE(Parse(text, error)) << text;
        EXPECT_EQ(error, reason) << text;
    }
}

TEST(ScriptTest, AnActionWrittenBackReadsTheSame) {
    Action action{3, "notify", {"amp 2/amp2.ckt", "145", "", "#tag", ":property T \"x\""}};
    std::string error;
    std::optional<Action> again = Parse(FormatAction(action), error);
    ASSERT_TRUE(again) << error;
    EXPECT_EQ(again->arguments, action.arguments);
    EXPECT_EQ(FormatAction(Action{1, "command", {"26456", "tree"}}), "command 26456 tree");
}

class ScriptFileTest : public testing::SandboxTest {};

TEST_F(ScriptFileTest, AScriptIsReadWholeWithItsLineNumbersOrNotAtAll) {
    const std::string path =
        sandbox.Write("a.script", "# amp2\nopen-project amp2.vpj\r\n\ntree\nclose-project")
            .string();
    std::vector<Action> actions;
    std::string error;
    ASSERT_TRUE(ReadScript(path, actions, error)) << error;
    ASSERT_EQ(actions.size(), 3u);
    EXPECT_EQ(actions[0].line, 2);
    EXPECT_EQ(actions[0].arguments, std::vector<std::string>{"amp2.vpj"});
    EXPECT_EQ(actions[1].line, 4);
    EXPECT_EQ(actions[2].name, "close-project");

    const std::string bad = sandbox.Write("b.script", "tree\nfly away\n").string();
    actions.clear();
    EXPECT_FALSE(ReadScript(bad, actions, error));
    EXPECT_EQ(error, bad + ":2: unknown action \"fly\"");
    EXPECT_FALSE(ReadScript(sandbox.Posix("none.script").string(), actions, error));
    EXPECT_EQ(error, "can't read the script " + sandbox.Posix("none.script").string());
}

}  // namespace
}  // namespace velorand::program
