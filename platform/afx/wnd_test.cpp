#include "platform/afx/wnd.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/win/message_queue.h"
#include "platform/win/messages.h"

namespace afx {
namespace {

constexpr UINT kAsk = win::WM_USER + 7;
constexpr UINT kHello = win::WM_USER + 8;

// A window that logs what reaches it, and can be told to delete itself on kAsk.
class CLogWnd : public CWnd {
  public:
    explicit CLogWnd(std::vector<std::string>* log, bool ownsItself = false)
        : log_(log), ownsItself_(ownsItself) {}

    LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) override {
        if (msg == kAsk) {
            log_->push_back("ask " + std::to_string(wParam));
            if (wParam == 0) {
                delete this;  // the object goes in its own handler; the window stays
                return 1;
            }
            return 10 + SendMessage(kAsk, wParam - 1, 0);
        }
        if (msg == kHello) {
            std::string text;
            GetWindowText(text);
            log_->push_back("hello " + text);
            return 0;
        }
        return CWnd::WindowProc(msg, wParam, lParam);
    }
    void OnSave() { log_->push_back("save"); }

  protected:
    int OnCreate(win::CREATESTRUCT* cs) override {
        log_->push_back("create");
        return CWnd::OnCreate(cs);
    }
    void OnDestroy() override { log_->push_back("destroy"); }
    void OnSize(UINT type, int cx, int cy) override {
        log_->push_back("size " + std::to_string(cx));
    }
    void PostNcDestroy() override {
        log_->push_back("gone");
        if (ownsItself_) {
            delete this;
        }
    }
    std::vector<std::string>* log_;
    bool ownsItself_;
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CLogWnd, CWnd)
ON_COMMAND(1, OnSave)
END_MESSAGE_MAP()

class WndTest : public ::testing::Test {
  protected:
    void TearDown() override {
        win::MSG msg;
        while (win::PeekMessage(&msg, nullptr, 0, 0, win::PM_REMOVE)) {
        }
    }
    std::vector<std::string> log;
};

TEST_F(WndTest, MessagesReachTheObjectsHandlers) {
    CLogWnd top(&log);
    ASSERT_TRUE(
        top.CreateEx(0, nullptr, "top", win::WS_VISIBLE, win::RECT{0, 0, 300, 200}, nullptr, 0));
    EXPECT_EQ(CWnd::FromHandle(top.m_hWnd), &top);
    auto* child = new CLogWnd(&log, true);
    ASSERT_TRUE(
        child->Create(nullptr, "child", win::WS_VISIBLE, win::RECT{0, 0, 50, 20}, &top, 42));
    EXPECT_EQ(top.GetDlgItem(42), child);
    EXPECT_EQ(child->GetParent(), &top);
    EXPECT_EQ(child->GetDlgCtrlID(), 42);

    // A button click (WM_COMMAND, code 0) reaches the command table; the text and move
    // calls go through the window.
    top.SendMessage(win::WM_COMMAND, win::MAKEWPARAM(1, 0), 0);
    child->SetWindowText("renamed");
    std::string text;
    child->GetWindowText(text);
    EXPECT_EQ(text, "renamed");
    child->MoveWindow(0, 0, 80, 20);
    EXPECT_EQ(log, (std::vector<std::string>{"create", "size 300", "create", "size 50", "save",
                                             "size 80"}));

    log.clear();
    HWND childHandle = child->m_hWnd;
    ASSERT_TRUE(top.DestroyWindow());
    EXPECT_EQ(log, (std::vector<std::string>{"destroy", "destroy", "gone", "gone"}));
    EXPECT_EQ(top.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandle(childHandle), nullptr);
    EXPECT_EQ(win::SendMessage(childHandle, kAsk, 0, 0), 0);
}

TEST_F(WndTest, DeletingTheObjectDestroysItsWindow) {
    auto* wnd = new CLogWnd(&log);
    ASSERT_TRUE(wnd->CreateEx(0, nullptr, "w", 0, win::RECT{}, nullptr, 0));
    HWND hwnd = wnd->m_hWnd;
    delete wnd;
    EXPECT_FALSE(win::IsWindow(hwnd));
    EXPECT_EQ(CWnd::FromHandle(hwnd), nullptr);
}

TEST_F(WndTest, AnObjectDeletedInItsOwnHandlerLeavesNoDanglingObject) {
    auto* wnd = new CLogWnd(&log);
    ASSERT_TRUE(wnd->CreateEx(0, nullptr, "w", 0, win::RECT{}, nullptr, 0));
    HWND hwnd = wnd->m_hWnd;
    // Three nested sends, the innermost deletes the object (and so its window).
    EXPECT_EQ(win::SendMessage(hwnd, kAsk, 2, 0), 21);
    EXPECT_FALSE(win::IsWindow(hwnd));
    EXPECT_EQ(CWnd::FromHandle(hwnd), nullptr);
    EXPECT_EQ(win::SendMessage(hwnd, kAsk, 2, 0), 0);
}

TEST_F(WndTest, DescendantsAreReachedInCreationOrder) {
    CLogWnd top(&log);
    top.CreateEx(0, nullptr, "top", 0, win::RECT{}, nullptr, 0);
    auto* a = new CLogWnd(&log, true);
    a->Create(nullptr, "a", 0, win::RECT{}, &top, 1);
    auto* a1 = new CLogWnd(&log, true);
    a1->Create(nullptr, "a1", 0, win::RECT{}, a, 2);
    // A window without an object takes messages only when all windows are asked.
    HWND bare = win::CreateWindowEx(0, AfxRegisterWndClass(0), "bare", win::WS_CHILD, 0, 0, 1, 1,
                                    top.m_hWnd, nullptr, nullptr, nullptr);
    ASSERT_NE(bare, nullptr);
    win::SetWindowText(bare, "bare");
    auto* b = new CLogWnd(&log, true);
    b->Create(nullptr, "b", 0, win::RECT{}, &top, 3);
    log.clear();
    top.SendMessageToDescendants(kHello, 0, 0, FALSE, TRUE);
    EXPECT_EQ(log, (std::vector<std::string>{"hello a", "hello b"}));
    log.clear();
    top.SendMessageToDescendants(kHello, 0, 0, TRUE, TRUE);
    EXPECT_EQ(log, (std::vector<std::string>{"hello a", "hello a1", "hello b"}));
    top.DestroyWindow();
}

TEST_F(WndTest, AttachTiesAHandleWithoutTakingItsMessages) {
    CLogWnd owner(&log);
    owner.CreateEx(0, nullptr, "owner", 0, win::RECT{}, nullptr, 0);
    HWND bare = win::CreateWindowEx(0, AfxRegisterWndClass(0), "bare", 0, 0, 0, 1, 1, nullptr,
                                    nullptr, nullptr, nullptr);
    CWnd wrapper;
    ASSERT_TRUE(wrapper.Attach(bare));
    EXPECT_FALSE(wrapper.Attach(bare));
    EXPECT_EQ(CWnd::FromHandle(bare), &wrapper);
    wrapper.SetOwner(&owner);
    EXPECT_EQ(wrapper.GetOwner(), &owner);
    EXPECT_EQ(wrapper.Detach(), bare);
    EXPECT_EQ(CWnd::FromHandle(bare), nullptr);
    win::DestroyWindow(bare);
}

}  // namespace
}  // namespace afx
