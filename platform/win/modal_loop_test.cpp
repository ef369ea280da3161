#include "platform/win/modal_loop.h"

#include <gtest/gtest.h>

#include "platform/testing/message_log.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace win {
namespace {

using velorand::testing::MessageLog;

constexpr UINT kStep = WM_USER + 1;
constexpr UINT kEnd = WM_USER + 2;

class ModalLoopTest : public ::testing::Test {
  protected:
    MessageLog log;
};

TEST_F(ModalLoopTest, EndsFromInsideWithTheFirstResult) {
    HWND dialog = log.Create("dialog");
    BOOL second = TRUE;
    log.On(dialog, kEnd, [&](WPARAM w, LPARAM) -> LRESULT {
        EXPECT_TRUE(EndModalLoop(dialog, static_cast<INT_PTR>(w)));
        second = EndModalLoop(dialog, 99);
        return 0;
    });
    PostMessage(dialog, kStep, 0, 0);
    PostMessage(dialog, kEnd, 1, 0);
    PostMessage(dialog, kStep, 0, 0);
    EXPECT_EQ(RunModalLoop(dialog), 1);
    EXPECT_FALSE(second);
    EXPECT_EQ(log.Of(dialog, {kStep, kEnd}), (std::vector<UINT>{kStep, kEnd}));
    EXPECT_FALSE(EndModalLoop(dialog, 2));  // no loop runs any more
    MSG left;
    EXPECT_TRUE(PeekMessage(&left, dialog, kStep, kStep, PM_REMOVE));  // the rest waits
}

TEST_F(ModalLoopTest, NestedLoopsEndInnermostFirst) {
    HWND outer = log.Create("outer");
    HWND inner = log.Create("inner");
    INT_PTR innerResult = 0;
    BOOL outerInModal = FALSE;
    log.On(outer, kStep, [&](WPARAM, LPARAM) -> LRESULT {
        PostMessage(inner, kEnd, 0, 0);
        innerResult = RunModalLoop(inner);
        return 0;
    });
    log.On(inner, kEnd, [&](WPARAM, LPARAM) -> LRESULT {
        EndModalLoop(outer, 5);  // the outer loop ends after the inner one
        outerInModal = IsInModalLoop(outer);
        EndModalLoop(inner, 6);
        return 0;
    });
    PostMessage(outer, kStep, 0, 0);
    EXPECT_EQ(RunModalLoop(outer), 5);
    EXPECT_EQ(innerResult, 6);
    EXPECT_FALSE(outerInModal);
}

TEST_F(ModalLoopTest, AbortsWhenNothingCanEndIt) {
    HWND dialog = log.Create("dialog");
    EXPECT_EQ(RunModalLoop(dialog), MODAL_LOOP_ABORTED);  // dry queue

    log.On(dialog, kStep, [&](WPARAM, LPARAM) -> LRESULT {
        DestroyWindow(dialog);
        return 0;
    });
    PostMessage(dialog, kStep, 0, 0);
    PostMessage(nullptr, kStep, 0, 0);
    EXPECT_EQ(RunModalLoop(dialog), MODAL_LOOP_ABORTED);
    EXPECT_EQ(RunModalLoop(dialog), MODAL_LOOP_ABORTED);  // dead window

    HWND other = log.Create("other");
    PostQuitMessage(4);
    EXPECT_EQ(RunModalLoop(other), MODAL_LOOP_ABORTED);
    MSG msg;  // the quit is queued again, for the loop outside
    EXPECT_EQ(GetMessage(&msg, nullptr, 0, 0), 0);
    EXPECT_EQ(msg.wParam, 4u);
}

}  // namespace
}  // namespace win
