#include "platform/win/message_queue.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/testing/message_log.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace win {
namespace {

using velorand::testing::MessageLog;
using Seq = std::vector<std::pair<HWND, UINT>>;

constexpr UINT kPing = WM_USER + 1;
constexpr UINT kPong = WM_USER + 2;
constexpr UINT kLater = WM_USER + 3;

class MessageQueueTest : public ::testing::Test {
  protected:
    MessageLog log;
};

TEST_F(MessageQueueTest, SendRunsAtOnceAndPostWaitsForTheLoop) {
    HWND a = log.Create("a");
    HWND b = log.Create("b");
    log.On(a, kPing, [&](WPARAM w, LPARAM) -> LRESULT {
        PostMessage(b, kLater, 0, 0);
        return static_cast<LRESULT>(w) * 2 + SendMessage(b, kPong, 0, 0);
    });
    log.On(b, kPong, [](WPARAM, LPARAM) -> LRESULT { return 1; });
    log.Clear();

    EXPECT_EQ(SendMessage(a, kPing, 20, 0), 41);
    EXPECT_EQ(log.Sequence({kPing, kPong, kLater}), (Seq{{a, kPing}, {b, kPong}}));

    PostMessage(a, kLater, 1, 0);
    MSG msg;
    ASSERT_EQ(GetMessage(&msg, nullptr, 0, 0), 1);
    EXPECT_EQ(msg.hwnd, b);
    DispatchMessage(&msg);
    ASSERT_EQ(GetMessage(&msg, nullptr, 0, 0), 1);
    EXPECT_EQ(msg.hwnd, a);
    EXPECT_EQ(msg.wParam, 1u);
    DispatchMessage(&msg);
    EXPECT_EQ(log.Sequence({kLater}), (Seq{{b, kLater}, {a, kLater}}));
    EXPECT_EQ(GetMessage(&msg, nullptr, 0, 0), -1);
}

TEST_F(MessageQueueTest, RecursiveSendsNestOnTheStack) {
    HWND hwnd = log.Create("self");
    int depth = 0;
    int deepest = 0;
    log.On(hwnd, kPing, [&](WPARAM w, LPARAM) -> LRESULT {
        ++depth;
        deepest = std::max(deepest, depth);
        LRESULT r = w == 0 ? 0 : 1 + SendMessage(hwnd, kPing, w - 1, 0);
        --depth;
        return r;
    });
    EXPECT_EQ(SendMessage(hwnd, kPing, 100, 0), 100);
    EXPECT_EQ(deepest, 101);
}

TEST_F(MessageQueueTest, DeadWindowsGetNothing) {
    HWND hwnd = log.Create("doomed");
    PostMessage(hwnd, kLater, 0, 0);
    DestroyWindow(hwnd);
    log.Clear();
    MSG msg;
    EXPECT_EQ(GetMessage(&msg, nullptr, 0, 0), -1);  // the posted message was dropped
    EXPECT_EQ(SendMessage(hwnd, kPing, 0, 0), 0);
    EXPECT_FALSE(PostMessage(hwnd, kPing, 0, 0));
    msg = MSG{hwnd, kPing, 0, 0, 0, {}};
    EXPECT_EQ(DispatchMessage(&msg), 0);
    EXPECT_TRUE(log.Of(hwnd).empty());
}

TEST_F(MessageQueueTest, FiltersAndPeekLeaveOtherMessagesQueued) {
    HWND parent = log.Create("parent");
    HWND child = log.Create("child", parent, 1);
    HWND other = log.Create("other");
    PostMessage(other, kPing, 0, 0);
    PostMessage(child, kPong, 0, 0);
    PostMessage(parent, kLater, 0, 0);

    MSG msg;
    ASSERT_TRUE(PeekMessage(&msg, parent, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(msg.hwnd, child);
    ASSERT_TRUE(PeekMessage(&msg, nullptr, kLater, kLater, PM_REMOVE));
    EXPECT_EQ(msg.hwnd, parent);
    EXPECT_FALSE(PeekMessage(&msg, nullptr, kLater, kLater, PM_REMOVE));

    PostQuitMessage(3);
    std::vector<UINT> order;
    BOOL got;
    while ((got = GetMessage(&msg, nullptr, 0, 0)) > 0) {
        order.push_back(msg.message);
    }
    EXPECT_EQ(got, 0);
    EXPECT_EQ(msg.message, WM_QUIT);
    EXPECT_EQ(msg.wParam, 3u);
    EXPECT_EQ(order, (std::vector<UINT>{kPing, kPong}));
}

}  // namespace
}  // namespace win
