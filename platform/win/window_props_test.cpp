#include "platform/win/window_props.h"

#include <gtest/gtest.h>

#include "platform/testing/message_log.h"
#include "platform/win/window.h"

namespace win {
namespace {

TEST(WindowPropsTest, PropertiesLiveOnTheirWindowOnly) {
    velorand::testing::MessageLog log;
    HWND main = log.Create("main");
    HWND view = log.Create("view", main, 1);
    auto value = HandleFromNumber<HANDLE>(NumberFromHandle(view));

    EXPECT_TRUE(SetProp(main, "Project", value));
    EXPECT_EQ(GetProp(main, "PROJECT"), value);
    EXPECT_EQ(GetProp(view, "Project"), nullptr);
    EXPECT_EQ(GetProp(main, "ProjectCmdUI"), nullptr);
    EXPECT_TRUE(SetProp(main, "project", nullptr));  // a null value is still a property
    EXPECT_EQ(RemoveProp(main, "Project"), nullptr);
    EXPECT_TRUE(SetProp(main, "Project", value));
    EXPECT_EQ(RemoveProp(main, "Project"), value);
    EXPECT_EQ(GetProp(main, "Project"), nullptr);
    EXPECT_EQ(RemoveProp(main, "Project"), nullptr);
    EXPECT_FALSE(SetProp(main, nullptr, value));

    SetProp(main, "ProjectCmdUI", value);
    DestroyWindow(main);
    EXPECT_FALSE(SetProp(main, "ProjectCmdUI", value));
    EXPECT_EQ(GetProp(main, "ProjectCmdUI"), nullptr);
    EXPECT_EQ(RemoveProp(main, "ProjectCmdUI"), nullptr);
}

}  // namespace
}  // namespace win
