#include "app/program/seat.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "app/program/transcript.h"
#include "platform/testing/sandbox.h"
#include "platform/win/message_box.h"

namespace velorand::program {
namespace {

class SeatTest : public testing::SandboxTest {
  protected:
    SeatTest() : out(open_memstream(&buffer, &size)), transcript(out, "/") {}
    ~SeatTest() override {
        std::fclose(out);
        std::free(buffer);
    }
    std::vector<std::string> Lines() { return transcript.TakeRecent(); }

    char* buffer = nullptr;
    std::size_t size = 0;
    std::FILE* out;
    Transcript transcript;
};

int Ask(const char* text, win::UINT type) {
    return win::MessageBox(nullptr, text, "Velorand - Project Manager", type);
}

TEST_F(SeatTest, TheScriptsAnswersComeFirstThenTheRulesAndEveryBoxIsWritten) {
    Seat seat(transcript, {{"recover", "yes"}, {"", "no"}}, false);
    EXPECT_TRUE(seat.QueueAnswer("Cancel"));
    EXPECT_FALSE(seat.QueueAnswer("maybe"));

    EXPECT_EQ(Ask("Save changes?", win::MB_YESNOCANCEL), win::IDCANCEL);
    EXPECT_EQ(Ask("Do you wish to recover these files?", win::MB_YESNO), win::IDYES);
    EXPECT_EQ(Ask("Modify?", win::MB_YESNO), win::IDNO);
    EXPECT_EQ(seat.Unanswered(), 0);
    EXPECT_EQ(Lines(), (std::vector<std::string>{
                           "box: Velorand - Project Manager | Save changes? -> cancel",
                           "box: Velorand - Project Manager | Do you wish to recover these "
                           "files? -> yes",
                           "box: Velorand - Project Manager | Modify? -> no"}));
}

TEST_F(SeatTest, ANoticeNeedsNoAnswerAndAnUnansweredQuestionTakesTheSafestWay) {
    Seat seat(transcript, {}, false);
    EXPECT_EQ(Ask("Unable to open: C:\\amp\\a.vpj\nPlease check", win::MB_OK), win::IDOK);
    EXPECT_EQ(seat.Unanswered(), 0);
    EXPECT_EQ(Ask("Top level schematic x does not exist.", win::MB_OKCANCEL | 0x30), win::IDCANCEL);
    EXPECT_EQ(seat.Unanswered(), 1);
    // A script's answer that the box doesn't offer counts as none.
    seat.QueueAnswer("yes");
    EXPECT_EQ(Ask("Again?", win::MB_OKCANCEL), win::IDCANCEL);
    EXPECT_EQ(seat.Unanswered(), 2);
    EXPECT_EQ(Lines(),
              (std::vector<std::string>{
                  "box: Velorand - Project Manager | Unable to open: " +
                      sandbox.Posix("amp/a.vpj").string() + "\\nPlease check -> ok",
                  "box: Velorand - Project Manager | Top level schematic x does not exist. -> "
                  "cancel (unanswered)",
                  "box: Velorand - Project Manager | Again? -> cancel (the script's answer yes "
                  "does not fit)"}));
}

TEST_F(SeatTest, TheSeatIsTheProcesssAgentWhileItLives) {
    win::UserAgent* before = &win::GetUserAgent();
    {
        Seat seat(transcript, {}, false);
        EXPECT_EQ(&win::GetUserAgent(), &seat);
    }
    EXPECT_EQ(&win::GetUserAgent(), before);
}

}  // namespace
}  // namespace velorand::program
