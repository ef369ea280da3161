#include "platform/win/window_placement.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/testing/message_log.h"
#include "platform/win/window.h"

namespace win {
namespace {

std::vector<long> Numbers(const WINDOWPLACEMENT& wp) {
    return {static_cast<long>(wp.flags), static_cast<long>(wp.showCmd),
            wp.ptMinPosition.x,          wp.ptMinPosition.y,
            wp.ptMaxPosition.x,          wp.ptMaxPosition.y,
            wp.rcNormalPosition.left,    wp.rcNormalPosition.top,
            wp.rcNormalPosition.right,   wp.rcNormalPosition.bottom};
}

class WindowPlacementTest : public ::testing::Test {
  protected:
    velorand::testing::MessageLog log;
    HWND client = log.Create("client", nullptr, 0, WS_VISIBLE, RECT{0, 0, 800, 600});
    HWND child = log.Create("child", client, 1, 0, RECT{20, 30, 220, 180});
};

TEST_F(WindowPlacementTest, TheTenNumbersRoundTrip) {
    WINDOWPLACEMENT wp;
    ASSERT_TRUE(GetWindowPlacement(child, &wp));
    EXPECT_EQ(Numbers(wp), (std::vector<long>{0, 1, -1, -1, -1, -1, 20, 30, 220, 180}));

    WINDOWPLACEMENT stored;
    stored.showCmd = SW_SHOWNORMAL;
    stored.ptMinPosition = POINT{0, 576};
    stored.ptMaxPosition = POINT{-4, -4};
    stored.rcNormalPosition = RECT{5, 6, 405, 306};
    ASSERT_TRUE(SetWindowPlacement(child, &stored));
    EXPECT_TRUE(IsWindowVisible(child));
    ASSERT_TRUE(GetWindowPlacement(child, &wp));
    EXPECT_EQ(Numbers(wp), Numbers(stored));
    RECT r;
    GetWindowRect(child, &r);
    EXPECT_EQ(r.right, 405);
}

TEST_F(WindowPlacementTest, ShowStatesOfASavedLayout) {
    WINDOWPLACEMENT wp;
    GetWindowPlacement(child, &wp);
    wp.rcNormalPosition = RECT{10, 10, 110, 110};

    wp.showCmd = SW_HIDE;  // a stored hidden window stays hidden
    SetWindowPlacement(child, &wp);
    EXPECT_FALSE(IsWindowVisible(child));

    wp.showCmd = SW_SHOWMAXIMIZED;
    SetWindowPlacement(child, &wp);
    EXPECT_TRUE(IsZoomed(child));
    EXPECT_TRUE(IsWindowVisible(child));

    // SW_SHOWNA takes the new normal place and keeps the window maximised.
    wp.showCmd = SW_SHOWNA;
    wp.rcNormalPosition = RECT{50, 50, 250, 250};
    SetWindowPlacement(child, &wp);
    EXPECT_TRUE(IsZoomed(child));
    WINDOWPLACEMENT now;
    GetWindowPlacement(child, &now);
    EXPECT_EQ(now.showCmd, static_cast<UINT>(SW_SHOWMAXIMIZED));
    EXPECT_EQ(now.rcNormalPosition.right, 250);

    wp.showCmd = SW_SHOWMINIMIZED;
    SetWindowPlacement(child, &wp);
    GetWindowPlacement(child, &now);
    EXPECT_EQ(now.showCmd, static_cast<UINT>(SW_SHOWMINIMIZED));

    wp.showCmd = SW_RESTORE;
    SetWindowPlacement(child, &wp);
    RECT r;
    GetWindowRect(child, &r);
    EXPECT_EQ((std::vector<LONG>{r.left, r.top, r.right, r.bottom}),
              (std::vector<LONG>{50, 50, 250, 250}));

    ShowWindow(child, SW_HIDE);
    wp.showCmd = SW_SHOW;
    SetWindowPlacement(child, &wp);
    EXPECT_TRUE(IsWindowVisible(child));
    EXPECT_FALSE(IsZoomed(child));

    HWND dead = log.Create("dead");
    DestroyWindow(dead);
    EXPECT_FALSE(GetWindowPlacement(dead, &wp));
    EXPECT_FALSE(SetWindowPlacement(dead, &wp));
}

}  // namespace
}  // namespace win
