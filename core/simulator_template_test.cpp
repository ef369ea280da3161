#include <gtest/gtest.h>

#include <string>

#include "core/netlist_header.h"
#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "core/testing/netlist_template.h"
#include "core/testing/project_fixture.h"
#include "core/testing/template_list.h"
#include "platform/afx/controls.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/menu.h"
#include "platform/win/app_profile.h"
#include "platform/win/clock.h"
#include "platform/win/config_files.h"
#include "platform/win/controls.h"
#include "platform/win/file_attributes.h"
#include "platform/win/window.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand {
namespace {

using testing::NetlistTemplate;

class SimulatorTemplateTest : public testing::ProjectTest {
  protected:
    // A named project in C:\proj\ whose tools are on, so that it has a netlist.
    CProjectDoc* MakeProject(int simulator = 0) {
        win::WriteProfileInt("Project", "SkipNetlist", 0);
        CProjectDoc* doc = MakeDocument();
        doc->projectID = "amp";
        doc->location = sandbox.Platform("proj") + "\\";
        doc->topLevelSchematic = doc->location + "amp.sch";
        doc->simulator = simulator;
        doc->simulatorInfo = std::make_unique<SimulatorInfo>(simulator);
        sandbox.Write("proj/amp.sch", "[schematic2]\n");
        return doc;
    }
};

TEST_F(SimulatorTemplateTest, TheSimulatorTestAgainstTheInstalledSimulators) {
    struct Case {
        const char* installed;
        const char* value;
        int passes;
        const char* displayName;
    };
    const Case cases[] = {
        {"Quintaris,Lumentra", "0", 1, "Quintaris"},
        {"Quintaris,Lumentra", "1", 1, "Lumentra"},
        {"Lumentra", "0", 0, "Not Installed"},
        {"Lumentra", "1", 1, "Lumentra"},
        {"Quintaris,Lumentra", "2", 0, ""},
        {"Quintaris,Lumentra", "-1", 0, ""},
        // A plain substring, with the letter case counted.
        {"Quintaris,Lumentra2", "1", 1, "Lumentra"},
        {"Quintaris,LUMENTRA", "1", 0, "Lumentra"},
    };
    for (const Case& c : cases) {
        testing::InstallTemplateList(std::string("Simulator=") + c.installed + "\n");
        CProjectDoc* doc = MakeDocument();
        EXPECT_EQ(doc->TestSimulator(c.value), c.passes) << c.installed << " " << c.value;
        EXPECT_EQ(doc->simulator, std::stoi(c.value));
        ASSERT_NE(doc->simulatorInfo, nullptr);
        EXPECT_EQ(doc->simulatorInfo->GetDisplayName(), c.displayName) << c.installed;
        doc->OnCloseDocument();
    }
}

TEST_F(SimulatorTemplateTest, WithoutTheRegistryTheSettingsFileNamesTheSimulators) {
    testing::WriteFile(win::AppProfilePath(), "[Template List]\nSimulator=Quintaris,Lumentra\n");
    CProjectDoc* doc = MakeDocument();
    EXPECT_EQ(doc->TestSimulator("1"), 1);
    // Index 0 takes its name from the registry alone, so without it it is never installed.
    EXPECT_EQ(doc->TestSimulator("0"), 0);
    EXPECT_EQ(doc->simulatorInfo->GetDisplayName(), "Not Installed");
    EXPECT_EQ(doc->TestSimulator("x"), 0);
    EXPECT_EQ(doc->simulator, 0);
}

TEST_F(SimulatorTemplateTest, TheListShowsEachInstalledSimulatorsTemplates) {
    testing::InstallTemplateList(
        "Simulator=Quintaris,Lumentra\n"
        "Template0=Quintaris,a,b,c,d,e,Quintaris Linear\n"
        "Template1=Lumentra,a,b,c,d,e,Lumentra Planar,x\n"
        "Template2=quintaris HB,a,b,c,d,e,Quintaris Harmonic\n"
        "Template3=Quintaris,a,b,c,d,e\n"
        "Template15=Quintaris,,,,,,Quintaris Last\n"
        "Template16=Quintaris,a,b,c,d,e,Beyond\n");
    win::RegisterControlClasses();
    afx::CComboBox combo;
    ASSERT_TRUE(combo.Create("COMBOBOX", "", win::WS_CHILD | win::CBS_DROPDOWNLIST,
                             win::RECT{0, 0, 100, 100}, mainWnd, 1001));
    combo.AddString("left over");
    CProjectDoc* doc = MakeDocument();
    EXPECT_EQ(doc->FillSimulatorList(combo), 1);
    std::vector<std::string> items;
    for (int i = 0; i < combo.GetCount(); ++i) {
        std::string text;
        combo.GetLBText(i, text);
        items.push_back(text);
    }
    EXPECT_EQ(items, (std::vector<std::string>{"Quintaris Linear", "Quintaris Harmonic",
                                               "Quintaris Last", "Lumentra Planar"}));
}

TEST_F(SimulatorTemplateTest, AnEmptyListLeavesTheComboBoxAlone) {
    testing::WriteFile(win::AppProfilePath(), "[Template List]\nTemplate0=Quintaris,,,,,,Q\n");
    win::RegisterControlClasses();
    afx::CComboBox combo;
    ASSERT_TRUE(combo.Create("COMBOBOX", "", win::WS_CHILD | win::CBS_DROPDOWNLIST,
                             win::RECT{0, 0, 100, 100}, mainWnd, 1001));
    combo.AddString("kept");
    EXPECT_EQ(MakeDocument()->FillSimulatorList(combo), 0);
    EXPECT_EQ(combo.GetCount(), 1);
}

TEST(NetlistHeaderTest, TheLinesOfANewNetlist) {
    EXPECT_EQ(
        NetlistHeaderText("C:\\proj\\amp.ckt", "C:\\proj\\amp.sch", "Friday, January 05, 2024"),
        "* FileName: C:\\proj\\amp.ckt\n"
        "* Schematic: C:\\proj\\amp.sch\n"
        "* Date:     Friday, January 05, 2024\n"
        "\n"
        "* This file is generated by Velorand Project Manager\n"
        "\n");
}

TEST_F(SimulatorTemplateTest, TheNetlistHeaderGoesIntoANewFileOnly) {
    testing::InstallTemplateList("Simulator=Quintaris\n");
    CProjectDoc* doc = MakeProject();
    const std::string before = win::LongDate();
    EXPECT_EQ(doc->WriteNetlistHeader(), 1);
    EXPECT_EQ(doc->netlistFile, doc->location + "amp.ckt");
    const std::string text = sandbox.Read("proj/amp.ckt");
    EXPECT_TRUE(text == NetlistHeaderText(doc->netlistFile, doc->topLevelSchematic, before) ||
                text ==
                    NetlistHeaderText(doc->netlistFile, doc->topLevelSchematic, win::LongDate()))
        << text;

    sandbox.Write("proj/amp.ckt", "R1 1 2 50\n");
    EXPECT_EQ(doc->WriteNetlistHeader(), 1);
    EXPECT_EQ(sandbox.Read("proj/amp.ckt"), "R1 1 2 50\n");

    // The other simulator's netlist has its own extension.
    doc->simulatorInfo = std::make_unique<SimulatorInfo>(1);
    EXPECT_EQ(doc->WriteNetlistHeader(), 1);
    EXPECT_EQ(doc->netlistFile, doc->location + "amp.lmt");
    EXPECT_NE(sandbox.Read("proj/amp.lmt"), "");
}

TEST_F(SimulatorTemplateTest, NoNetlistWithTheToolsOffOrNoFolder) {
    CProjectDoc* doc = MakeProject();
    doc->netlistFile = "C:\\before.ckt";
    doc->toolsEnabled = 0;
    EXPECT_EQ(doc->WriteNetlistHeader(), 0);
    EXPECT_EQ(doc->netlistFile, "C:\\before.ckt");
    EXPECT_EQ(win::GetFileAttributes((doc->location + "amp.ckt").c_str()),
              win::INVALID_FILE_ATTRIBUTES);

    doc->toolsEnabled = 1;
    doc->location = sandbox.Platform("missing") + "\\";
    EXPECT_EQ(doc->WriteNetlistHeader(), 0);
}

TEST_F(SimulatorTemplateTest, TheTemplateOpensTheNetlistAndTakesTheFramesMenuOnce) {
    testing::InstallTemplateList("Simulator=Quintaris\n");
    NetlistTemplate netlists(mainWnd);
    CProjectDoc* doc = MakeProject();
    afx::CMenu hostMenu;
    ASSERT_TRUE(hostMenu.CreateMenu());
    mainWnd->m_hMenuDefault = hostMenu.m_hMenu;
    const win::HMENU frameMenu = hostMenu.m_hMenu;

    EXPECT_EQ(doc->OpenSimulatorTemplate(), 1);
    auto* netlist = dynamic_cast<testing::CSheetDoc*>(doc->templateDoc);
    ASSERT_NE(netlist, nullptr);
    EXPECT_EQ(netlist->GetDocTemplate(), netlists.Get());
    EXPECT_EQ(netlist->GetPathName(), doc->location + "amp.ckt");
    EXPECT_EQ(netlist->text.rfind("* FileName: " + doc->netlistFile + "\n", 0), 0u);
    EXPECT_EQ(doc->templateDisabled, 0);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(doc->savedFrameMenu, frameMenu);
    EXPECT_EQ(mainWnd->m_hMenuDefault, netlists.Get()->m_hMenuShared);
    EXPECT_EQ(win::GetMenu(mainWnd->m_hWnd), netlists.Get()->m_hMenuShared);

    // The template goes: the frame has its own menu back.
    doc->templateDoc->OnCloseDocument();
    doc->ForgetSimulatorTemplate();
    EXPECT_EQ(doc->templateDoc, nullptr);
    EXPECT_EQ(mainWnd->m_hMenuDefault, frameMenu);
    EXPECT_EQ(win::GetMenu(mainWnd->m_hWnd), frameMenu);
    EXPECT_EQ(doc->savedFrameMenu, frameMenu);

    // A second opening leaves the frame's menu alone, and a template that is still open
    // is closed first.
    EXPECT_EQ(doc->OpenSimulatorTemplate(), 1);
    EXPECT_EQ(mainWnd->m_hMenuDefault, frameMenu);
    EXPECT_EQ(doc->OpenSimulatorTemplate(), 1);
    ASSERT_NE(doc->templateDoc, nullptr);
    afx::POSITION pos = netlists.Get()->GetFirstDocPosition();
    EXPECT_EQ(netlists.Get()->GetNextDoc(pos), doc->templateDoc);
    EXPECT_EQ(pos, nullptr) << "the template document before is still open";
    mainWnd->m_hMenuDefault = nullptr;
}

TEST_F(SimulatorTemplateTest, TheTemplateIsNotOpenedWithoutATreeAProjectOrWhileOpening) {
    NetlistTemplate netlists(mainWnd);
    CProjectDoc* doc = MakeProject();
    doc->treeValid = 0;
    doc->templateDisabled = 1;
    EXPECT_EQ(doc->OpenSimulatorTemplate(), 0);

    doc->treeValid = 1;
    EXPECT_EQ(doc->OpenSimulatorTemplate(), -1);
    EXPECT_EQ(doc->templateDisabled, 1);

    doc->templateDisabled = 0;
    doc->projectID.clear();
    EXPECT_EQ(doc->OpenSimulatorTemplate(), 0);
    EXPECT_EQ(doc->templateDisabled, 0);
    EXPECT_EQ(netlists.Get()->GetFirstDocPosition(), nullptr);

    // With the tools off no netlist is made, and a missing netlist can't be opened.
    doc->projectID = "amp";
    doc->toolsEnabled = 0;
    doc->netlistFile = doc->location + "amp.ckt";
    EXPECT_EQ(doc->OpenSimulatorTemplate(), 0);
    EXPECT_EQ(doc->templateDoc, nullptr);
    EXPECT_EQ(doc->templateDisabled, 0);
    EXPECT_FALSE(doc->IsModified());
}

TEST_F(SimulatorTemplateTest, WithoutAPublishedTemplateTheApplicationChoosesOne) {
    NetlistTemplate netlists(mainWnd);
    win::RemoveProp(mainWnd->m_hWnd, "SimulatorTemplate0");
    CProjectDoc* doc = MakeProject();
    EXPECT_EQ(doc->OpenSimulatorTemplate(), 1);
    ASSERT_NE(doc->templateDoc, nullptr);
    EXPECT_EQ(doc->templateDoc->GetDocTemplate(), netlists.Get());
}

TEST_F(SimulatorTemplateTest, TheTemplatesViewIsAskedWithTheComponentsRecord) {
    NetlistTemplate netlists(mainWnd);
    CProjectDoc* doc = MakeProject();
    EXPECT_EQ(doc->QueryTemplateView(7), 0);
    EXPECT_EQ(doc->CanCloseTemplate(), 1);

    ASSERT_EQ(doc->OpenSimulatorTemplate(), 1);
    testing::CNetlistView* view = NetlistTemplate::ViewOf(doc->templateDoc);
    ASSERT_NE(view, nullptr);
    view->notes.clear();
    view->queryAnswer = 42;
    view->closeAnswer = 0;
    EXPECT_EQ(doc->QueryTemplateView(7), 42);
    EXPECT_EQ(doc->CanCloseTemplate(), 0);
    ASSERT_EQ(view->notes.size(), 2u);
    EXPECT_EQ(view->notes[0].idFrom, 100u);
    EXPECT_EQ(view->notes[0].code, 334u);
    EXPECT_EQ(view->notes[0].option, 1);
    EXPECT_EQ(view->notes[0].argument, 7);
    EXPECT_EQ(view->notes[0].hwndFrom, doc->treeView->m_hWnd);
    EXPECT_EQ(view->notes[1].code, 235u);
    EXPECT_EQ(view->notes[1].option, 1);
    EXPECT_EQ(view->closeText, "Close");
}

}  // namespace
}  // namespace velorand
