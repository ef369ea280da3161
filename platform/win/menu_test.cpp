#include "platform/win/menu.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/win/resources.h"

namespace win {
namespace {

std::string Text(HMENU menu, UINT item, UINT flags = MF_BYPOSITION) {
    char buffer[64];
    GetMenuString(menu, item, buffer, sizeof buffer, flags);
    return buffer;
}

UINT_PTR AsId(HMENU popup) {
    return NumberFromHandle(popup);
}

TEST(MenuTest, PopupsAreInsertedByPositionAndFoundByCommand) {
    HMENU bar = CreateMenu();
    HMENU file = CreatePopupMenu();
    AppendMenu(file, MF_STRING, 26449, "&Open Project...");
    AppendMenu(file, MF_SEPARATOR, 0, nullptr);
    AppendMenu(file, MF_STRING, 26450, "&Close Project");
    AppendMenu(bar, MF_POPUP, AsId(file), "&File");
    for (const char* name : {"&Edit", "&Window", "&Help"}) {
        AppendMenu(bar, MF_POPUP, AsId(CreatePopupMenu()), name);
    }
    HMENU layout = CreatePopupMenu();
    ASSERT_TRUE(InsertMenu(bar, 3, MF_BYPOSITION | MF_POPUP, AsId(layout), "&Layout"));
    EXPECT_EQ(GetMenuItemCount(bar), 5);
    EXPECT_EQ(Text(bar, 2), "&Window");
    EXPECT_EQ(Text(bar, 3), "&Layout");
    EXPECT_EQ(Text(bar, 4), "&Help");
    EXPECT_EQ(GetSubMenu(bar, 3), layout);
    EXPECT_EQ(GetMenuItemID(bar, 0), static_cast<UINT>(-1));
    EXPECT_EQ(GetMenuItemID(file, 1), 0u);
    EXPECT_EQ(GetMenuItemID(file, 2), 26450u);
    EXPECT_EQ(GetMenuState(bar, 0, MF_BYPOSITION), MF_POPUP | (3u << 8));

    // By command, items inside popups are found too.
    EXPECT_EQ(Text(bar, 26450, MF_BYCOMMAND), "&Close Project");
    EXPECT_EQ(EnableMenuItem(bar, 26450, MF_BYCOMMAND | MF_GRAYED), MF_ENABLED);
    EXPECT_EQ(GetMenuState(file, 2, MF_BYPOSITION), MF_GRAYED);
    EXPECT_EQ(EnableMenuItem(bar, 3, MF_BYPOSITION | MF_GRAYED), MF_ENABLED);
    EXPECT_EQ(EnableMenuItem(bar, 3, MF_BYPOSITION | MF_ENABLED), MF_GRAYED);
    EXPECT_EQ(CheckMenuItem(file, 26449, MF_BYCOMMAND | MF_CHECKED), MF_UNCHECKED);
    EXPECT_EQ(GetMenuState(file, 0, MF_BYPOSITION), MF_CHECKED);
    EXPECT_EQ(EnableMenuItem(bar, 9, MF_BYPOSITION | MF_GRAYED), static_cast<UINT>(-1));
    EXPECT_EQ(EnableMenuItem(bar, 12345, MF_BYCOMMAND), static_cast<UINT>(-1));

    // A short buffer takes what fits; a null buffer asks for the length.
    char small[4];
    EXPECT_EQ(GetMenuString(file, 0, small, sizeof small, MF_BYPOSITION), 3);
    EXPECT_STREQ(small, "&Op");
    EXPECT_EQ(GetMenuString(file, 0, nullptr, 0, MF_BYPOSITION), 16);
    EXPECT_EQ(GetMenuString(file, 7, small, sizeof small, MF_BYPOSITION), 0);

    ASSERT_TRUE(RemoveMenu(bar, 3, MF_BYPOSITION));
    EXPECT_TRUE(IsMenu(layout));
    EXPECT_TRUE(DestroyMenu(layout));
    ASSERT_TRUE(DestroyMenu(bar));
    EXPECT_FALSE(IsMenu(bar));
    EXPECT_FALSE(IsMenu(file));  // popups go with their menu
    EXPECT_EQ(GetMenuItemCount(file), -1);
    EXPECT_FALSE(DestroyMenu(bar));
    EXPECT_FALSE(InsertMenu(bar, 0, MF_BYPOSITION, 1, "x"));
}

TEST(MenuTest, ASharedPopupDiesWithTheFirstMenuDestroyed) {
    HMENU host = CreateMenu();
    HMENU shown = CreateMenu();
    HMENU settings = CreatePopupMenu();
    AppendMenu(host, MF_POPUP, AsId(settings), "&Settings");
    InsertMenu(shown, 0, MF_BYPOSITION | MF_POPUP, AsId(settings), "&Settings");
    DestroyMenu(shown);
    EXPECT_FALSE(IsMenu(settings));
    EXPECT_EQ(GetSubMenu(host, 0), settings);
    EXPECT_EQ(GetMenuItemCount(GetSubMenu(host, 0)), -1);
    EXPECT_TRUE(DestroyMenu(host));
}

TEST(MenuTest, ResourcesAreLoadedFromTheirOwnModule) {
    auto component = HandleFromNumber<HINSTANCE>(0x7001);
    auto host = HandleFromNumber<HINSTANCE>(0x7002);
    RegisterMenuResource(component, 26530,
                         {{"&Parts", 0, MF_POPUP, {{"&Find", 26529}, {"", 0, MF_SEPARATOR}}},
                          {"&Grey", 26531, MF_GRAYED}});
    RegisterStringResource(component, 430, "Project\nProject\nProject\nProject (*.vpj)\n.vpj");

    HMENU menu = LoadMenu(component, 26530);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(GetMenuItemCount(menu), 2);
    EXPECT_EQ(Text(GetSubMenu(menu, 0), 0), "&Find");
    EXPECT_EQ(GetMenuItemID(GetSubMenu(menu, 0), 0), 26529u);
    EXPECT_EQ(GetMenuState(menu, 1, MF_BYPOSITION), MF_GRAYED);
    HMENU second = LoadMenu(component, 26530);
    EXPECT_NE(second, menu);  // each load makes a menu of its own
    DestroyMenu(menu);
    EXPECT_EQ(GetMenuItemCount(second), 2);
    DestroyMenu(second);

    EXPECT_EQ(LoadMenu(host, 26530), nullptr);
    char buffer[8];
    EXPECT_EQ(LoadString(component, 430, buffer, sizeof buffer), 7);
    EXPECT_STREQ(buffer, "Project");
    EXPECT_EQ(LoadString(host, 430, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");

    UnregisterResources(component);
    EXPECT_EQ(LoadMenu(component, 26530), nullptr);
    EXPECT_EQ(LoadString(component, 430, buffer, sizeof buffer), 0);
}

}  // namespace
}  // namespace win
