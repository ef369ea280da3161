#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/testing/netlist_template.h"
#include "core/testing/project_fixture.h"
#include "core/testing/template_list.h"
#include "host/project_notify.h"
#include "platform/win/menu.h"
#include "platform/win/window.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand {
namespace {

using testing::NetlistTemplate;

// A menu bar of popups with these texts, each holding one command named after it.
win::HMENU Bar(const std::vector<std::string>& popups) {
    win::HMENU bar = win::CreateMenu();
    win::UINT id = 2000;
    for (const std::string& text : popups) {
        win::HMENU popup = win::CreatePopupMenu();
        win::AppendMenu(popup, win::MF_STRING, id++, ("in " + text).c_str());
        win::AppendMenu(bar, win::MF_POPUP, win::NumberFromHandle(popup), text.c_str());
    }
    return bar;
}

// "text" for a command, "text>" for a popup, "-" for a separator, with the id of a command.
std::vector<std::string> Items(win::HMENU menu) {
    std::vector<std::string> items;
    for (int i = 0; i < win::GetMenuItemCount(menu); ++i) {
        char text[64] = {};
        win::GetMenuString(menu, static_cast<win::UINT>(i), text, sizeof text, win::MF_BYPOSITION);
        if (win::GetSubMenu(menu, i) != nullptr)
            items.push_back(std::string(text) + ">");
        else if (text[0] == '\0')
            items.push_back("-");
        else
            items.push_back(std::string(text) + " " + std::to_string(win::GetMenuItemID(menu, i)));
    }
    return items;
}

using Strings = std::vector<std::string>;

class TemplateMenusTest : public testing::ProjectTest {
  protected:
    void SetUp() override {
        ProjectTest::SetUp();
        netlists = std::make_unique<NetlistTemplate>(mainWnd);
        doc = MakeDocument();
        doc->projectID = "amp";
        doc->topLevelSchematic = "C:\\proj\\amp.sch";
        netlist = netlists->Get()->OpenDocumentFile(WriteFile("proj/amp.ckt", "* amp\n").c_str(),
                                                    win::FALSE);
        ASSERT_NE(netlist, nullptr);
    }

    void TearDown() override {
        doc->ForgetSimulatorTemplate();
        for (win::HMENU menu : menus)
            win::DestroyMenu(menu);
        netlists.reset();
        ProjectTest::TearDown();
    }

    // A host menu that the test destroys at its end.
    win::HMENU Menu(const std::vector<std::string>& popups) {
        menus.push_back(Bar(popups));
        return menus.back();
    }

    static ProjectNotify Record(int from, win::HMENU menu, int option = 0) {
        ProjectNotify record;
        record.idFrom = static_cast<win::UINT_PTR>(from);
        record.code = 208;
        record.option = option;
        record.argument = static_cast<win::LPARAM>(win::NumberFromHandle(menu));
        return record;
    }

    void OpenProjectWithSchematics() {
        win::SetProp(mainWnd->m_hWnd, "ProjectCmdUI",
                     reinterpret_cast<win::HANDLE>(doc->treeView->m_hWnd));
    }

    std::unique_ptr<NetlistTemplate> netlists;
    CProjectDoc* doc = nullptr;
    afx::CDocument* netlist = nullptr;
    std::vector<win::HMENU> menus;
};

TEST_F(TemplateMenusTest, TheNetlistsMenuGetsLayoutAndParts) {
    testing::InstallTemplateList("Simulator=Quintaris\nLayout=Velorand Layout\n");
    doc = MakeDocument();
    doc->topLevelSchematic = "C:\\proj\\amp.sch";
    doc->templateDoc = netlist;
    win::HMENU menu = Menu({"&File", "&Edit", "&Simulate", "&Window", "&Help"});
    ProjectNotify record = Record(145, menu);
    doc->SetupTemplateMenus(&record);

    EXPECT_EQ(doc->hostMenu, menu);
    EXPECT_EQ(Items(menu), (Strings{"&File>", "&Edit>", "&Simulate>", "&Parts>", "&Layout>",
                                    "&Window>", "&Help>"}));
    EXPECT_EQ(win::GetSubMenu(menu, 3), doc->partsMenu.m_hMenu);
    EXPECT_EQ(win::GetSubMenu(menu, 4), doc->layoutMenu.m_hMenu);
    EXPECT_EQ(Items(doc->layoutMenu.m_hMenu), (Strings{"&Auto-Generate Layout 26534"}));
    EXPECT_EQ(Items(doc->partsMenu.m_hMenu),
              (Strings{"&Search Paths... 26459", "-", "Electrical &Rule Check 26485"}));

    // The menus stay the project's: another menu gets neither again.
    win::HMENU other = Menu({"&File", "&Edit", "&Simulate", "&Window"});
    record = Record(145, other);
    doc->SetupTemplateMenus(&record);
    EXPECT_EQ(doc->hostMenu, other);
    EXPECT_EQ(win::GetMenuItemCount(other), 4);
}

TEST_F(TemplateMenusTest, NoLayoutWithoutTheToolOrASchematicAndNoPartsForOtherNetlists) {
    testing::InstallTemplateList("Simulator=Quintaris\n");
    doc = MakeDocument();
    doc->topLevelSchematic = "C:\\proj\\amp.sch";
    doc->templateDoc = doc;  // a document whose template announces ".vpj"
    win::HMENU menu = Menu({"&File", "&Edit", "&Simulate", "&Window"});
    ProjectNotify record = Record(145, menu);
    doc->SetupTemplateMenus(&record);
    EXPECT_EQ(win::GetMenuItemCount(menu), 4);
    EXPECT_EQ(doc->partsMenu.m_hMenu, nullptr);

    testing::InstallTemplateList("Simulator=Quintaris\nLayout=Velorand Layout\n");
    doc->topLevelSchematic.clear();
    doc->templateDoc = nullptr;
    doc->SetupTemplateMenus(&record);
    EXPECT_EQ(win::GetMenuItemCount(menu), 4);
    EXPECT_EQ(doc->layoutMenu.m_hMenu, nullptr);
}

TEST_F(TemplateMenusTest, TheTemplatesMenuOnAProjectWithoutSchematicIsOnlyShown) {
    doc->topLevelSchematic.clear();
    doc->templateDoc = netlist;
    doc->hostMenu = Menu({"&File", "&Tools"});
    OpenProjectWithSchematics();
    win::HMENU menu = Menu({"&File", "&Edit", "&Parts", "&Window", "&Help"});
    mainWnd->ClearMessages();
    ProjectNotify record = Record(145, menu);
    doc->MergeTemplateMenus(&record);
    EXPECT_EQ(win::GetMenu(mainWnd->m_hWnd), menu);
    EXPECT_EQ(mainWnd->Commands(), std::vector<win::UINT>{26467});
    EXPECT_EQ(Items(menu), (Strings{"&File>", "&Edit>", "&Parts>", "&Window>", "&Help>"}));
    EXPECT_EQ(doc->partsMenu.m_hMenu, nullptr);
}

TEST_F(TemplateMenusTest, ASchematicsMenuTakesTheTemplatesOwnPopupsAndSettings) {
    testing::InstallTemplateList("Simulator=Quintaris\nLayout=Velorand Layout\n");
    doc = MakeDocument();
    doc->topLevelSchematic = "C:\\proj\\amp.sch";
    doc->templateDoc = netlist;
    OpenProjectWithSchematics();
    win::HMENU netlistMenu = Menu({"&File", "&Edit", "&Simulate", "&Settings", "&Window", "&Help"});
    win::HMENU settings = win::GetSubMenu(netlistMenu, 3);
    win::AppendMenu(settings, win::MF_SEPARATOR, 0, nullptr);
    win::HMENU units = win::CreatePopupMenu();
    win::AppendMenu(units, win::MF_STRING, 3000, "&GHz");
    win::AppendMenu(settings, win::MF_POPUP, win::NumberFromHandle(units), "&Units");
    ProjectNotify record = Record(145, netlistMenu);
    doc->SetupTemplateMenus(&record);
    doc->MergeTemplateMenus(&record);
    ASSERT_EQ(Items(netlistMenu), (Strings{"&File>", "&Edit>", "&Simulate>", "&Parts>", "&Layout>",
                                           "&Settings>", "&Window>", "&Help>"}));

    win::HMENU menu = Menu({"&File", "&Edit", "&parts", "&Settings", "&Tools", "&Window", "&Help"});
    mainWnd->ClearMessages();
    record = Record(105, menu);
    doc->MergeTemplateMenus(&record);
    EXPECT_EQ(Items(menu), (Strings{"&File>", "&Edit>", "&parts>", "&Settings>", "&Simulate>",
                                    "&Layout>", "&Tools>", "&Window>", "&Help>"}));
    // The popups stay the template's.
    EXPECT_EQ(win::GetSubMenu(menu, 4), win::GetSubMenu(netlistMenu, 2));
    EXPECT_EQ(win::GetSubMenu(menu, 5), doc->layoutMenu.m_hMenu);
    EXPECT_EQ(Items(win::GetSubMenu(menu, 3)),
              (Strings{"in &Settings 2003", "in &Settings 2003", "-", "&Units>", "-"}));
    EXPECT_EQ(Items(win::GetSubMenu(menu, 2)),
              (Strings{"in &parts 2002", "Device Library ... 26529", "-"}));
    EXPECT_TRUE(mainWnd->Commands().empty());
}

TEST_F(TemplateMenusTest, WithoutTheTemplateThePartsMenuFollowsTheOption) {
    OpenProjectWithSchematics();
    doc->templateDoc = netlist;
    doc->hostMenu = nullptr;
    win::HMENU menu = Menu({"&File", "&Edit", "&Parts", "&Settings", "&Window", "&Help"});

    ProjectNotify record = Record(110, menu, 0);
    doc->MergeTemplateMenus(&record);
    ASSERT_NE(doc->partsMenu.m_hMenu, nullptr);
    EXPECT_EQ(win::GetMenuItemCount(menu), 6);
    EXPECT_EQ(Items(win::GetSubMenu(menu, 2)),
              (Strings{"in &Parts 2002", "Device Library ... 26529", "-"}));

    record = Record(110, menu, 1);
    doc->MergeTemplateMenus(&record);
    EXPECT_EQ(doc->partsMenu.m_hMenu, nullptr);
    EXPECT_EQ(win::GetMenu(mainWnd->m_hWnd), menu);
    EXPECT_EQ(win::GetMenuItemCount(win::GetSubMenu(menu, 2)), 3);
}

TEST_F(TemplateMenusTest, NoMergeWhileNoProjectWithSchematicsIsOpen) {
    doc->templateDoc = netlist;
    doc->hostMenu = Menu({"&File", "&Simulate", "&Settings", "&Window"});
    win::HMENU menu = Menu({"&File", "&Settings", "&Tools", "&Window", "&Help"});
    ProjectNotify record = Record(105, menu, 1);
    doc->MergeTemplateMenus(&record);
    EXPECT_EQ(Items(menu), (Strings{"&File>", "&Settings>", "&Tools>", "&Window>", "&Help>"}));
    EXPECT_EQ(win::GetMenuItemCount(win::GetSubMenu(menu, 1)), 1);
}

}  // namespace
}  // namespace velorand
