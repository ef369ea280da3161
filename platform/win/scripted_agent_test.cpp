#include "platform/win/scripted_agent.h"

#include <gtest/gtest.h>

#include "platform/testing/scripted_user.h"
#include "platform/win/message_box.h"

namespace {

using win::ScriptedAgent;
using win::SeatRecord;

// Installs a bare agent, whose failures the test itself looks at.
class ScriptedAgentTest : public ::testing::Test {
  protected:
    ScriptedAgentTest() : before(win::SetUserAgent(&user)) {}
    ~ScriptedAgentTest() override { win::SetUserAgent(before); }

    ScriptedAgent user;
    win::UserAgent* before;
};

TEST_F(ScriptedAgentTest, RecordsEveryBoxByteForByte) {
    const std::string text = "Top level schematic C:\\amp\\\xE9t\xE9.sch does not exist.\n\n";
    user.Answer(win::IDCANCEL).Answer(win::IDOK);
    win::HWND owner = win::HandleFromNumber<win::HWND>(42);
    EXPECT_EQ(win::MessageBox(owner, text.c_str(), "Velorand - Project Manager", 0x31),
              win::IDCANCEL);
    EXPECT_EQ(win::MessageBox(nullptr, nullptr, nullptr, win::MB_OK), win::IDOK);

    ASSERT_EQ(user.Record().size(), 2u);
    const SeatRecord& first = user.Record()[0];
    EXPECT_EQ(first.kind, SeatRecord::Kind::MessageBox);
    EXPECT_EQ(first.owner, owner);
    EXPECT_EQ(first.text, text);
    EXPECT_EQ(first.caption, "Velorand - Project Manager");
    EXPECT_EQ(first.flags, win::MB_OKCANCEL | win::MB_ICONEXCLAMATION);
    EXPECT_TRUE(first.answered);
    const SeatRecord& second = user.Record()[1];
    EXPECT_EQ(second.caption, "Error");
    EXPECT_EQ(second.text, "");
    EXPECT_TRUE(user.Failures().empty());
}

TEST_F(ScriptedAgentTest, MatchedAnswersGoFirstAndTheRestInOrder) {
    user.Answer(win::IDNO).AnswerWhen("recover", win::IDYES).Answer(win::IDYES);
    EXPECT_EQ(win::MessageBox(nullptr, "Delete it?", "A", win::MB_YESNO), win::IDNO);
    EXPECT_EQ(win::MessageBox(nullptr, "Do you wish to recover these files?", "B", win::MB_YESNO),
              win::IDYES);
    // The caption is searched as well as the text.
    user.AnswerWhen("Exception", win::IDNO);
    EXPECT_EQ(win::MessageBox(nullptr, "x", "Velorand - Program Exception", win::MB_YESNO),
              win::IDNO);
    EXPECT_EQ(win::MessageBox(nullptr, "Go on?", "C", win::MB_YESNO), win::IDYES);
    EXPECT_TRUE(user.Failures().empty());
    EXPECT_TRUE(user.Unused().empty());
}

TEST_F(ScriptedAgentTest, ABoxWithoutAnswerTakesTheSafestButtonAndIsNamed) {
    struct Case {
        win::UINT type;
        int safest;
    } cases[] = {
        {win::MB_OK | win::MB_ICONSTOP, win::IDOK},        {win::MB_OKCANCEL, win::IDCANCEL},
        {win::MB_YESNO | win::MB_ICONQUESTION, win::IDNO}, {win::MB_YESNOCANCEL, win::IDCANCEL},
        {win::MB_ABORTRETRYIGNORE, win::IDABORT},          {win::MB_RETRYCANCEL, win::IDCANCEL},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(win::MessageBox(nullptr, "Overwrite?", "Copy Project", c.type), c.safest)
            << c.type;
        EXPECT_FALSE(user.Record().back().answered);
    }
    ASSERT_EQ(user.Failures().size(), std::size(cases));
    EXPECT_NE(user.Failures()[0].find("\"Copy Project\" \"Overwrite?\""), std::string::npos)
        << user.Failures()[0];
}

TEST_F(ScriptedAgentTest, AnAnswerThatIsNoButtonOfTheBoxIsRefused) {
    user.Answer(win::IDYES);
    EXPECT_EQ(win::MessageBox(nullptr, "Saved.", "Info", win::MB_OKCANCEL), win::IDCANCEL);
    ASSERT_EQ(user.Failures().size(), 1u);
    EXPECT_NE(user.Failures()[0].find("yes is not one of its buttons"), std::string::npos);
}

TEST_F(ScriptedAgentTest, ListsWhatNothingAskedFor) {
    user.AnswerWhen("recover", win::IDYES);
    user.OnDialog("New Project").Click(win::IDOK);
    user.OnDialog(25648);
    const std::vector<std::string> unused = user.Unused();
    ASSERT_EQ(unused.size(), 3u);
    EXPECT_EQ(unused[0], "answer yes for a box holding \"recover\"");
    EXPECT_EQ(unused[1], "script for a dialog titled \"New Project\"");
    EXPECT_EQ(unused[2], "script for dialog resource 25648");
}

TEST(UserAgentTest, InstallingAnAgentGivesBackThePreviousOne) {
    velorand::testing::ScriptedUser outer;
    {
        velorand::testing::ScriptedUser inner;
        inner.Answer(win::IDOK);
        EXPECT_EQ(&win::GetUserAgent(), &inner);
        win::MessageBox(nullptr, "inner", "T", win::MB_OK);
    }
    EXPECT_EQ(&win::GetUserAgent(), &outer);
    EXPECT_TRUE(outer.Record().empty());
}

}  // namespace
