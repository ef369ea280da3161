#include "platform/win/mdi_client.h"

#include <gtest/gtest.h>

#include "platform/testing/message_log.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/system_metrics.h"
#include "platform/win/window.h"

namespace win {
namespace {

class MdiClientTest : public ::testing::Test {
  protected:
    HWND Active() const {
        return reinterpret_cast<HWND>(SendMessage(client, WM_MDIGETACTIVE, 0, 0));
    }
    void Activate(HWND child) {
        SendMessage(client, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(child), 0);
    }

    velorand::testing::MessageLog log;
    HWND frame = log.Create("frame", nullptr, 0, WS_VISIBLE, RECT{0, 0, 800, 600});
    HWND client = CreateWindowEx(0, MDICLIENT_CLASS, "", WS_CHILD | WS_VISIBLE, 0, 0, 800, 600,
                                 frame, nullptr, nullptr, nullptr);
    HWND a = log.Create("a", client, 1);
    HWND b = log.Create("b", client, 2);
    HWND c = log.Create("c", client, 3);
};

TEST_F(MdiClientTest, ActivationTellsBothChildren) {
    EXPECT_EQ(Active(), nullptr);
    Activate(a);
    Activate(b);
    EXPECT_EQ(Active(), b);
    auto received = log.Sequence({WM_MDIACTIVATE});
    ASSERT_EQ(received.size(), 3u);
    EXPECT_EQ(received[1], std::make_pair(a, WM_MDIACTIVATE));
    EXPECT_EQ(received[2], std::make_pair(b, WM_MDIACTIVATE));

    // A maximised child hands its state to the next one.
    ShowWindow(b, SW_SHOWMAXIMIZED);
    BOOL maximised = FALSE;
    SendMessage(client, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(&maximised));
    EXPECT_TRUE(maximised);
    Activate(c);
    EXPECT_TRUE(IsZoomed(c));
    EXPECT_FALSE(IsZoomed(b));
}

TEST_F(MdiClientTest, NextPassesOverHiddenChildren) {
    Activate(c);
    Activate(b);
    Activate(a);  // order now a, b, c
    ShowWindow(b, SW_HIDE);
    SendMessage(client, WM_MDINEXT, 0, 0);
    EXPECT_EQ(Active(), c);
    SendMessage(client, WM_MDINEXT, 0, 0);
    EXPECT_EQ(Active(), a);
    SendMessage(client, WM_MDINEXT, 0, 1);  // back again
    EXPECT_EQ(Active(), c);
}

TEST_F(MdiClientTest, DestroyingTheActiveChildActivatesTheNext) {
    Activate(a);
    Activate(b);
    DestroyWindow(b);
    EXPECT_EQ(Active(), a);
    SendMessage(client, WM_MDIDESTROY, reinterpret_cast<WPARAM>(a), 0);
    EXPECT_FALSE(IsWindow(a));
    EXPECT_EQ(Active(), c);
    DestroyWindow(frame);
    EXPECT_FALSE(IsWindow(client));
}

TEST_F(MdiClientTest, IconsAreArrangedAlongTheBottom) {
    ShowWindow(a, SW_MINIMIZE);
    ShowWindow(c, SW_MINIMIZE);
    SetWindowPos(a, nullptr, 300, 10, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SendMessage(client, WM_MDIICONARRANGE, 0, 0);
    int cy = GetSystemMetrics(SM_CYMINIMIZED);
    RECT ra;
    RECT rc;
    GetWindowRect(a, &ra);
    GetWindowRect(c, &rc);
    EXPECT_EQ(ra.left, 0);
    EXPECT_EQ(ra.top, 600 - cy);
    EXPECT_EQ(rc.left, GetSystemMetrics(SM_CXMINIMIZED));
    EXPECT_EQ(rc.top, 600 - cy);
    RECT rb;
    GetWindowRect(b, &rb);
    EXPECT_EQ(rb.top, 0);  // b is not minimised and stays
}

}  // namespace
}  // namespace win
