#include "platform/afx/cmd_target.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/afx/cmd_ui.h"
#include "platform/win/menu.h"

namespace afx {
namespace {

std::vector<std::string> calls;

class CBaseTarget : public CCmdTarget {
  public:
    void OnOpen() { calls.push_back("base open"); }
    void OnClose() { calls.push_back("base close"); }
    void OnUpdateClose(CCmdUI* ui) { ui->Enable(FALSE); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBaseTarget, CCmdTarget)
ON_COMMAND(26449, OnOpen)
ON_COMMAND(26450, OnClose)
ON_UPDATE_COMMAND_UI(26450, OnUpdateClose)
END_MESSAGE_MAP()

class CDerivedTarget : public CBaseTarget {
  public:
    void OnOpen2() { calls.push_back("derived open"); }
    void OnUpdateShown(CCmdUI* ui) { ui->SetCheck(1); }
    void OnChanged() { calls.push_back("changed"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerivedTarget, CBaseTarget)
ON_COMMAND(26449, OnOpen2)
ON_UPDATE_COMMAND_UI(26448, OnUpdateShown)
ON_CONTROL(0x300, 1001, OnChanged)
END_MESSAGE_MAP()

class CommandTableTest : public ::testing::Test {
  protected:
    void SetUp() override { calls.clear(); }
    CDerivedTarget target;
};

TEST_F(CommandTableTest, DerivedEntriesComeBeforeTheBase) {
    EXPECT_TRUE(target.OnCmdMsg(26449, CN_COMMAND, nullptr, nullptr));
    EXPECT_TRUE(target.OnCmdMsg(26450, CN_COMMAND, nullptr, nullptr));
    EXPECT_FALSE(target.OnCmdMsg(26451, CN_COMMAND, nullptr, nullptr));
    EXPECT_TRUE(target.OnCmdMsg(1001, 0x300, nullptr, nullptr));
    EXPECT_FALSE(target.OnCmdMsg(1001, CN_COMMAND, nullptr, nullptr));  // another code
    EXPECT_EQ(calls, (std::vector<std::string>{"derived open", "base close", "changed"}));

    AFX_CMDHANDLERINFO info;
    EXPECT_TRUE(target.OnCmdMsg(26450, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(info.pTarget, &target);
    EXPECT_EQ(calls.size(), 3u);  // asked, not run
}

TEST_F(CommandTableTest, StateQueriesAnswerThroughCCmdUI) {
    CCmdUI close(26450);
    EXPECT_TRUE(close.DoUpdate(&target, TRUE));
    EXPECT_FALSE(close.IsEnabled());

    CCmdUI shown(26448);
    EXPECT_TRUE(shown.DoUpdate(&target, TRUE));
    EXPECT_EQ(shown.GetCheck(), 1);
    EXPECT_TRUE(shown.IsEnabled());  // a state handler that does not touch Enable

    // Without a state handler: enabled if a command handler exists, else disabled when
    // asked to.
    CCmdUI open(26449);
    EXPECT_FALSE(open.DoUpdate(&target, TRUE));
    EXPECT_TRUE(open.IsEnabled());
    CCmdUI unknown(30000);
    EXPECT_FALSE(unknown.DoUpdate(&target, FALSE));
    EXPECT_TRUE(unknown.IsEnabled());
    EXPECT_FALSE(unknown.DoUpdate(&target, TRUE));
    EXPECT_FALSE(unknown.IsEnabled());
    EXPECT_FALSE(target.OnCmdMsg(26450, CN_UPDATE_COMMAND_UI, nullptr, nullptr));
    EXPECT_TRUE(calls.empty());
}

TEST_F(CommandTableTest, AMenuBoundQueryGraysAndChecksTheItem) {
    win::HMENU menu = win::CreatePopupMenu();
    win::AppendMenu(menu, win::MF_STRING, 26448, "Project &Tree");
    win::AppendMenu(menu, win::MF_STRING, 26450, "&Close Project");
    CCmdUI ui;
    ui.m_hMenu = menu;
    for (UINT i = 0; i < 2; ++i) {
        ui.m_nIndex = i;
        ui.m_nID = win::GetMenuItemID(menu, static_cast<int>(i));
        ui.DoUpdate(&target, TRUE);
    }
    EXPECT_EQ(win::GetMenuState(menu, 0, win::MF_BYPOSITION), win::MF_CHECKED);
    EXPECT_EQ(win::GetMenuState(menu, 1, win::MF_BYPOSITION), win::MF_GRAYED);
    win::DestroyMenu(menu);
}

}  // namespace
}  // namespace afx
