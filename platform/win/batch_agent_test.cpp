#include "platform/win/batch_agent.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/win/message_box.h"

namespace {

using win::BatchAgent;

std::vector<BatchAgent::Rule> Rules(std::initializer_list<const char*> lines) {
    std::vector<BatchAgent::Rule> rules;
    for (const char* line : lines) {
        std::string error;
        std::optional<BatchAgent::Rule> rule = BatchAgent::ParseRule(line, error);
        EXPECT_TRUE(rule) << error;
        rules.push_back(*rule);
    }
    return rules;
}

TEST(BatchAgentTest, ParsesRulesAtTheFirstEqualsSign) {
    std::string error;
    std::optional<BatchAgent::Rule> rule =
        BatchAgent::ParseRule("New Project=type 456 a=b;ok", error);
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->pattern, "New Project");
    EXPECT_EQ(rule->answer, "type 456 a=b;ok");
    EXPECT_FALSE(BatchAgent::ParseRule("no equals sign", error));
    EXPECT_NE(error.find("\"no equals sign\""), std::string::npos);
}

TEST(BatchAgentTest, TheFirstRuleMatchingCaptionOrTextAnswers) {
    BatchAgent agent(Rules({"recover=Yes", "Program Exception=no", "=ok"}));
    win::SetUserAgent(&agent);
    EXPECT_EQ(win::MessageBox(nullptr, "Do you wish to recover these files?",
                              "Velorand - Program Exception", win::MB_YESNO),
              win::IDYES);
    EXPECT_EQ(win::MessageBox(nullptr, "x", "Velorand - Program Exception", win::MB_YESNO),
              win::IDNO);
    // The empty pattern answers everything else.
    EXPECT_EQ(win::MessageBox(nullptr, "Unable to load DLL", "Velorand - Project Manager", 48),
              win::IDOK);
    win::SetUserAgent(nullptr);
    EXPECT_FALSE(agent.Failed());
    ASSERT_EQ(agent.Record().size(), 3u);
    EXPECT_EQ(agent.Record()[2].text, "Unable to load DLL");
}

TEST(BatchAgentTest, AQuestionWithoutAnswerFailsClearlyAndTakesTheSafestWay) {
    std::FILE* err = std::tmpfile();
    ASSERT_NE(err, nullptr);
    BatchAgent agent(Rules({"recover=ok"}), err);
    win::SetUserAgent(&agent);
    EXPECT_EQ(win::MessageBox(nullptr, "Replace the file?\n", "Copy", win::MB_YESNOCANCEL),
              win::IDCANCEL);
    // "ok" is no button of a Yes/No box.
    EXPECT_EQ(win::MessageBox(nullptr, "recover now?", "R", win::MB_YESNO), win::IDNO);
    win::SetUserAgent(nullptr);

    ASSERT_TRUE(agent.Failed());
    ASSERT_EQ(agent.Failures().size(), 2u);
    EXPECT_EQ(agent.Failures()[0],
              "No answer was given for the message box \"Copy\" \"Replace the file?\\n\" "
              "(flags 0x3)");
    EXPECT_EQ(agent.Failures()[1],
              "The answer \"ok\" does not fit the message box \"R\" \"recover now?\" (flags 0x4)");
    EXPECT_FALSE(agent.Record()[0].answered);

    std::rewind(err);
    char buffer[512] = {};
    const std::size_t n = std::fread(buffer, 1, sizeof buffer - 1, err);
    std::fclose(err);
    EXPECT_EQ(std::string(buffer, n), agent.Failures()[0] + "\n" + agent.Failures()[1] + "\n");
}

}  // namespace
