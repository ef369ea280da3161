#include "platform/win/window.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/testing/message_log.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/system_metrics.h"

namespace win {
namespace {

using velorand::testing::MessageLog;

class WindowTest : public ::testing::Test {
  protected:
    MessageLog log;
};

TEST_F(WindowTest, HandlesLiveUntilDestroyedAndAreNeverReused) {
    HWND first = log.Create("first");
    ASSERT_TRUE(IsWindow(first));
    EXPECT_TRUE(DestroyWindow(first));
    EXPECT_FALSE(IsWindow(first));
    EXPECT_FALSE(DestroyWindow(first));

    std::vector<HWND> later;
    for (int i = 0; i < 50; ++i) {
        later.push_back(log.Create("later"));
    }
    for (HWND h : later) {
        EXPECT_NE(h, first);
    }
    EXPECT_FALSE(IsWindow(first));
    EXPECT_FALSE(IsWindow(nullptr));
    EXPECT_FALSE(IsWindow(HandleFromNumber<HWND>(7)));
}

TEST_F(WindowTest, CreationSendsCreateMessagesAndARefusalLeavesNoWindow) {
    HWND hwnd = log.Create("made");
    EXPECT_EQ(log.Of(hwnd), (std::vector<UINT>{WM_NCCREATE, WM_CREATE, WM_SIZE}));

    HWND parent = log.Create("parent");
    log.On(parent, WM_PARENTNOTIFY, [&](WPARAM w, LPARAM l) -> LRESULT {
        // The refused child tells its parent neither of its birth nor of its death.
        ADD_FAILURE() << "parent notified of a refused child";
        return 0;
    });
    WNDCLASS wc;
    wc.lpszClassName = "RefusesCreation";
    wc.lpfnWndProc = [](HWND h, UINT m, WPARAM w, LPARAM l) -> LRESULT {
        return m == WM_CREATE ? -1 : DefWindowProc(h, m, w, l);
    };
    RegisterClass(&wc);
    HWND refused = CreateWindowEx(0, "refusescreation", "x", WS_CHILD, 0, 0, 1, 1, parent, nullptr,
                                  nullptr, nullptr);
    EXPECT_EQ(refused, nullptr);
    EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
    EXPECT_EQ(
        CreateWindowEx(0, "NoSuchClass", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr),
        nullptr);
    EXPECT_FALSE(RegisterClass(&wc));
    UnregisterClass("RefusesCreation", nullptr);
}

TEST_F(WindowTest, DestructionGoesOwnedFirstThenParentBeforeChildren) {
    HWND parent = log.Create("parent");
    HWND child = log.Create("child", parent, 1);
    HWND grandchild = log.Create("grandchild", child, 2);
    HWND owned = CreateWindowEx(0, MessageLog::kClassName, "owned", WS_POPUP, 0, 0, 1, 1, parent,
                                nullptr, nullptr, nullptr);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), parent);
    EXPECT_EQ(GetParent(owned), parent);
    log.Clear();

    DestroyWindow(parent);
    using Seq = std::vector<std::pair<HWND, UINT>>;
    EXPECT_EQ(log.Sequence({WM_DESTROY, WM_NCDESTROY}), (Seq{{owned, WM_DESTROY},
                                                             {owned, WM_NCDESTROY},
                                                             {parent, WM_DESTROY},
                                                             {child, WM_DESTROY},
                                                             {grandchild, WM_DESTROY},
                                                             {grandchild, WM_NCDESTROY},
                                                             {child, WM_NCDESTROY},
                                                             {parent, WM_NCDESTROY}}));
    for (HWND h : {parent, child, grandchild, owned}) {
        EXPECT_FALSE(IsWindow(h));
    }
}

TEST_F(WindowTest, AWindowMayDestroyItselfInsideItsOwnHandlers) {
    HWND hwnd = log.Create("self");
    BOOL againInDestroy = TRUE;
    log.On(hwnd, WM_COMMAND, [&](WPARAM, LPARAM) -> LRESULT {
        DestroyWindow(hwnd);
        return 7;
    });
    log.On(hwnd, WM_DESTROY, [&](WPARAM, LPARAM) -> LRESULT {
        againInDestroy = DestroyWindow(hwnd);
        return 0;
    });
    EXPECT_EQ(SendMessage(hwnd, WM_COMMAND, 1, 0), 7);
    EXPECT_FALSE(againInDestroy);
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(SendMessage(hwnd, WM_COMMAND, 1, 0), 0);

    // A child that destroys its parent while it is being destroyed ends cleanly too.
    HWND parent = log.Create("parent");
    HWND child = log.Create("child", parent, 1);
    log.On(child, WM_DESTROY, [&](WPARAM, LPARAM) -> LRESULT {
        DestroyWindow(parent);
        return 0;
    });
    EXPECT_TRUE(DestroyWindow(child));
    EXPECT_FALSE(IsWindow(parent));
    EXPECT_FALSE(IsWindow(child));
}

TEST_F(WindowTest, TextIsCopiedWithinTheBuffer) {
    HWND hwnd = log.Create("Amplifier - top.sch");
    char buffer[8];
    EXPECT_EQ(GetWindowText(hwnd, buffer, sizeof buffer), 7);
    EXPECT_STREQ(buffer, "Amplifi");
    EXPECT_EQ(GetWindowTextLength(hwnd), 19);
    EXPECT_TRUE(SetWindowText(hwnd, "\xE9t\xE9"));
    EXPECT_EQ(GetWindowText(hwnd, buffer, sizeof buffer), 3);
    EXPECT_STREQ(buffer, "\xE9t\xE9");
    HWND dead = log.Create("dead");
    DestroyWindow(dead);
    EXPECT_FALSE(SetWindowText(dead, "x"));
    EXPECT_EQ(GetWindowText(dead, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");
}

TEST_F(WindowTest, FamilyIsEnumeratedInCreationOrder) {
    HWND parent = log.Create("parent");
    HWND a = log.Create("a", parent, 10);
    HWND b = log.Create("b", parent, 20);
    HWND a1 = log.Create("a1", a, 11);
    HWND c = log.Create("c", parent, 30);

    EXPECT_EQ(GetWindow(parent, GW_CHILD), a);
    EXPECT_EQ(GetWindow(a, GW_HWNDNEXT), b);
    EXPECT_EQ(GetWindow(c, GW_HWNDPREV), b);
    EXPECT_EQ(GetWindow(c, GW_HWNDNEXT), nullptr);
    EXPECT_EQ(GetDlgItem(parent, 20), b);
    EXPECT_EQ(GetDlgItem(parent, 11), nullptr);
    EXPECT_EQ(GetDlgCtrlID(a1), 11);
    EXPECT_TRUE(IsChild(parent, a1));
    EXPECT_FALSE(IsChild(a, b));

    std::vector<HWND> seen;
    EnumChildWindows(
        parent,
        [](HWND h, LPARAM l) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(l)->push_back(h);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&seen));
    EXPECT_EQ(seen, (std::vector<HWND>{a, a1, b, c}));

    EXPECT_EQ(SetParent(c, a), parent);
    EXPECT_EQ(GetParent(c), a);
    EXPECT_EQ(GetWindow(a1, GW_HWNDNEXT), c);
    EXPECT_EQ(SetParent(a, a1), nullptr);  // a window cannot go below its own child
}

TEST_F(WindowTest, FindWindowMatchesTopLevelTitlesWithoutCase) {
    HWND first = log.Create("Velorand");
    log.Create("Velorand", first, 1);
    log.Create("VELORAND");
    EXPECT_EQ(FindWindow(nullptr, "velorand"), first);
    EXPECT_EQ(FindWindow("velorandtestlog", nullptr), first);
    EXPECT_EQ(FindWindow("OtherClass", "Velorand"), nullptr);
    DestroyWindow(first);
    EXPECT_NE(FindWindow(nullptr, "Velorand"), nullptr);
}

TEST_F(WindowTest, VisibilityFollowsTheAncestors) {
    HWND parent = log.Create("parent", nullptr, 0, 0);
    HWND child = log.Create("child", parent, 1, WS_VISIBLE);
    EXPECT_FALSE(IsWindowVisible(child));
    log.Clear();
    EXPECT_FALSE(ShowWindow(parent, SW_SHOW));
    EXPECT_TRUE(ShowWindow(parent, SW_SHOW));
    EXPECT_EQ(log.Of(parent, {WM_SHOWWINDOW}).size(), 1u);
    EXPECT_TRUE(IsWindowVisible(child));
    EXPECT_EQ(GetActiveWindow(), parent);
    EXPECT_TRUE(ShowWindow(parent, SW_HIDE));
    EXPECT_FALSE(IsWindowVisible(child));
    EXPECT_EQ(GetActiveWindow(), nullptr);

    EXPECT_FALSE(EnableWindow(child, FALSE));
    EXPECT_FALSE(IsWindowEnabled(child));
    EXPECT_TRUE(EnableWindow(child, TRUE));
    EXPECT_EQ(log.Of(child, {WM_ENABLE}).size(), 2u);
}

TEST_F(WindowTest, GeometryIsKeptAsNumbers) {
    HWND top = log.Create("top", nullptr, 0, WS_VISIBLE, RECT{100, 50, 600, 450});
    HWND child = log.Create("child", top, 1, WS_VISIBLE, RECT{10, 20, 110, 70});
    RECT r;
    GetWindowRect(child, &r);
    EXPECT_EQ((std::vector<LONG>{r.left, r.top, r.right, r.bottom}),
              (std::vector<LONG>{110, 70, 210, 120}));
    GetClientRect(child, &r);
    EXPECT_EQ((std::vector<LONG>{r.left, r.top, r.right, r.bottom}),
              (std::vector<LONG>{0, 0, 100, 50}));
    POINT p{5, 5};
    ClientToScreen(child, &p);
    EXPECT_EQ(p.x, 115);
    EXPECT_EQ(p.y, 75);
    ScreenToClient(top, &p);
    EXPECT_EQ(p.x, 15);
    EXPECT_EQ(p.y, 25);

    // A handler of WM_WINDOWPOSCHANGING may change the move; WM_SIZE tells the outcome.
    log.On(child, WM_WINDOWPOSCHANGING, [](WPARAM, LPARAM l) -> LRESULT {
        reinterpret_cast<WINDOWPOS*>(l)->cx = 40;
        return 0;
    });
    log.Clear();
    MoveWindow(child, 0, 0, 300, 30, FALSE);
    GetClientRect(child, &r);
    EXPECT_EQ(r.right, 40);
    EXPECT_EQ(log.Of(child, {WM_SIZE, WM_MOVE}), (std::vector<UINT>{WM_SIZE, WM_MOVE}));
    log.Clear();
    SetWindowPos(child, nullptr, 0, 0, 40, 30, SWP_NOZORDER);
    EXPECT_TRUE(log.Of(child, {WM_SIZE, WM_MOVE}).empty());
}

TEST_F(WindowTest, MaximisedAndMinimisedWindowsReturnToTheirNormalPlace) {
    HWND frame = log.Create("frame", nullptr, 0, WS_VISIBLE, RECT{0, 0, 800, 600});
    HWND child = log.Create("child", frame, 1, WS_VISIBLE, RECT{10, 10, 210, 110});
    log.Clear();
    ShowWindow(child, SW_SHOWMAXIMIZED);
    EXPECT_TRUE(IsZoomed(child));
    RECT r;
    GetClientRect(child, &r);
    EXPECT_EQ(r.right, 800);
    EXPECT_EQ(r.bottom, 600);
    ASSERT_FALSE(log.Of(child, {WM_SIZE}).empty());
    EXPECT_EQ(log.Sequence({WM_SIZE}).back(), std::make_pair(child, WM_SIZE));

    ShowWindow(child, SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(child));
    EXPECT_FALSE(IsZoomed(child));
    GetClientRect(child, &r);
    EXPECT_EQ(r.right, GetSystemMetrics(SM_CXMINIMIZED));

    ShowWindow(child, SW_RESTORE);
    GetWindowRect(child, &r);
    EXPECT_EQ((std::vector<LONG>{r.left, r.top, r.right, r.bottom}),
              (std::vector<LONG>{10, 10, 210, 110}));

    // A top-level window fills the configured screen.
    ASSERT_TRUE(SetScreenSize(1024, 768));
    ShowWindow(frame, SW_MAXIMIZE);
    GetClientRect(frame, &r);
    EXPECT_EQ(r.right, 1024);
    EXPECT_EQ(r.bottom, 768);
    EXPECT_FALSE(SetScreenSize(0, 768));
    SetScreenSize(1280, 1024);
}

TEST_F(WindowTest, CaptureGoesToOneWindowAndDiesWithIt) {
    HWND a = log.Create("a");
    HWND b = log.Create("b");
    EXPECT_EQ(SetCapture(a), nullptr);
    EXPECT_EQ(SetCapture(b), a);
    EXPECT_EQ(log.Of(a, {WM_CAPTURECHANGED}).size(), 1u);
    EXPECT_EQ(GetCapture(), b);
    DestroyWindow(b);
    EXPECT_EQ(GetCapture(), nullptr);
    SetCapture(a);
    ReleaseCapture();
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(log.Of(a, {WM_CAPTURECHANGED}).size(), 2u);
}

TEST_F(WindowTest, UpdateWindowPaintsOnlyWhatWasInvalidated) {
    HWND hwnd = log.Create("paint");
    log.Clear();
    UpdateWindow(hwnd);
    EXPECT_TRUE(log.Of(hwnd, {WM_PAINT}).empty());
    RECT part{1, 2, 3, 4};
    InvalidateRect(hwnd, &part, TRUE);
    RECT r;
    EXPECT_TRUE(GetUpdateRect(hwnd, &r, FALSE));
    EXPECT_EQ(r.right, 3);
    UpdateWindow(hwnd);
    UpdateWindow(hwnd);
    EXPECT_EQ(log.Of(hwnd, {WM_PAINT}).size(), 1u);
    EXPECT_FALSE(GetUpdateRect(hwnd, &r, FALSE));
}

}  // namespace
}  // namespace win
