#include "platform/afx/win_app.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/config_files.h"

namespace afx {
namespace {

class WinAppTest : public velorand::testing::SandboxTest {};

TEST_F(WinAppTest, ProfileCallsGoToTheApplicationsProfile) {
    CWinApp app("Velorand");
    EXPECT_EQ(app.GetProfileInt("Project", "AutoOpenFile", 1), 1u);
    EXPECT_TRUE(app.WriteProfileInt("Settings", "ShowCmd", 3));
    EXPECT_EQ(app.GetProfileInt("Settings", "ShowCmd", 9), 3u);
    EXPECT_EQ(app.GetProfileString("Project", "MRU", "none"), "none");

    std::string longPath = "C:\\" + std::string(700, 'p') + "\\amp.vpj";
    EXPECT_TRUE(app.WriteProfileString("Project", "MRU", longPath.c_str()));
    EXPECT_EQ(app.GetProfileString("Project", "MRU"), longPath);
    EXPECT_NE(velorand::testing::ReadFile(win::AppProfilePath()).find("ShowCmd=3"),
              std::string::npos);
}

TEST_F(WinAppTest, RecentFilesKeepTheNewestFirstWithoutRepeats) {
    CWinApp app;
    for (const char* path :
         {"C:\\a.vpj", "C:\\b.vpj", "C:\\c.vpj", "c:\\A.VPJ", "C:\\d.vpj", "C:\\e.vpj"}) {
        app.AddToRecentFileList(path);
    }
    EXPECT_EQ(app.GetRecentFileList(),
              (std::vector<std::string>{"C:\\e.vpj", "C:\\d.vpj", "c:\\A.VPJ", "C:\\c.vpj"}));
    EXPECT_EQ(AfxGetApp(), &app);
}

}  // namespace
}  // namespace afx
