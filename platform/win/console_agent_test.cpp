#include "platform/win/console_agent.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/win/message_box.h"

namespace {

// A console agent whose terminal is a pipe holding the given input, and whose output is
// kept in memory.
class ConsoleAgentTest : public ::testing::Test {
  protected:
    void Type(const std::string& input) {
        int fds[2];
        ASSERT_EQ(pipe(fds), 0);
        ASSERT_EQ(write(fds[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
        close(fds[1]);
        in = fdopen(fds[0], "r");
        out = open_memstream(&output, &outputSize);
        agent.emplace(in, out);
    }

    std::string Output() {
        std::fflush(out);
        return std::string(output, outputSize);
    }

    void TearDown() override {
        if (in)
            std::fclose(in);
        if (out)
            std::fclose(out);
        std::free(output);
    }

    std::FILE* in = nullptr;
    std::FILE* out = nullptr;
    char* output = nullptr;
    std::size_t outputSize = 0;
    std::optional<win::ConsoleAgent> agent;
};

TEST_F(ConsoleAgentTest, ShowsTheBoxAndReadsAnAnswerByItsFirstLetters) {
    Type("maybe\n  Y \n");
    EXPECT_EQ(agent->AskMessageBox(nullptr, "Directory does not exist.\n\nCreate it?\n",
                                   "Velorand - Project Manager", win::MB_YESNO),
              win::IDYES);
    EXPECT_EQ(Output(),
              "[Velorand - Project Manager]\nDirectory does not exist.\n\nCreate it?\n"
              "(yes/no)? Please answer yes/no.\n(yes/no)? ");
}

TEST_F(ConsoleAgentTest, AnAmbiguousBeginningIsAskedAgain) {
    Type("c\ncont\n");
    EXPECT_EQ(agent->AskMessageBox(nullptr, "t", "c", win::MB_CANCELTRYCONTINUE), win::IDCONTINUE);
    EXPECT_NE(Output().find("(cancel/tryagain/continue)? Please answer"), std::string::npos);
}

TEST_F(ConsoleAgentTest, TheEndOfTheInputAnswersTheSafestWay) {
    Type("");
    EXPECT_EQ(agent->AskMessageBox(nullptr, "Save?", "c", win::MB_YESNO), win::IDNO);
    EXPECT_EQ(agent->AskMessageBox(nullptr, "Save?", "c", win::MB_YESNOCANCEL), win::IDCANCEL);
    EXPECT_EQ(agent->AskMessageBox(nullptr, "Failed.", "c", win::MB_OK), win::IDOK);
}

}  // namespace
