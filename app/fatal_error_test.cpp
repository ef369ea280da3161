// The host's message loop meets an exception that escapes a handler.
#include <gtest/gtest.h>

#include <stdexcept>

#include "app/host_messages.h"
#include "app/testing/host_fixture.h"

namespace velorand::host {
namespace {

using testing::Received;
using FatalErrorTest = testing::HostTest;

TEST_F(FatalErrorTest, AnExceptionInTheLoopTellsTheProjectAndTheLoopEndsInOrder) {
    // The project answers code 329 as its hub does: the last step is posted to the host.
    owner->answer = [this](ProjectNotify& record) {
        if (record.code == 329) {
            frame->PostMessage(win::WM_COMMAND, ID_FATAL_END, 0);
        }
    };
    std::vector<std::string> ran;
    frame->PostAction([&] { ran.push_back("first"); });
    frame->PostAction([] { throw std::runtime_error("Bad element address"); });
    frame->PostAction([&] { ran.push_back("queued before the end"); });

    EXPECT_EQ(app.Run(), 1);
    EXPECT_TRUE(app.Crashed());
    EXPECT_EQ(owner->received,
              (std::vector<Received>{
                  {frame->m_hWnd, 115, 329, nullptr, 0,
                   "Program will terminate due to an exception:\nBad element address\n"}}));
    EXPECT_EQ(ran, (std::vector<std::string>{"first", "queued before the end"}));
    EXPECT_EQ(frame->Commands(), std::vector<win::UINT>{ID_FATAL_END});
}

TEST_F(FatalErrorTest, ASecondFaultWhileEndingIsNotReportedAgain) {
    frame->PostAction([] { throw 42; });
    frame->PostAction([] { throw std::logic_error("again"); });
    EXPECT_EQ(app.Run(), 1);
    // Without a text of its own the project shows its own; nobody posted the end, and the
    // loop ran dry.
    ASSERT_EQ(owner->Codes(), std::vector<win::UINT>{329});
    EXPECT_EQ(owner->received[0].text, "");
}

TEST_F(FatalErrorTest, WithoutAProjectTheLoopStillEnds) {
    win::RemoveProp(frame->m_hWnd, "Project");
    frame->PostAction([] { throw std::runtime_error("no project"); });
    EXPECT_EQ(app.Run(), 1);
    EXPECT_TRUE(owner->received.empty());
}

TEST_F(FatalErrorTest, ALoopWithoutFaultsEndsWithItsOwnCode) {
    int count = 0;
    frame->PostAction([&] { ++count; });
    EXPECT_EQ(app.Run(), 0);
    EXPECT_EQ(count, 1);
    EXPECT_FALSE(app.Crashed());
}

}  // namespace
}  // namespace velorand::host
