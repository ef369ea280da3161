#include "core/entry_points.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "core/component_module.h"
#include "core/testing/project_fixture.h"
#include "platform/afx/frame_wnd.h"
#include "platform/win/menu.h"
#include "platform/win/window.h"
#include "views/project_view.h"

namespace velorand {
namespace {

using testing::ProjectTest;

TEST_F(ProjectTest, LinkingMakesTheTemplateAndRegistersTheToolGroup) {
    EXPECT_EQ(projectTemplate->groupName, "Project");
    EXPECT_EQ(projectTemplate->m_nIDResource, 430u);
    EXPECT_NE(projectTemplate->m_hMenuShared, nullptr);
    char instance[32];
    std::snprintf(instance, sizeof instance, "%p", static_cast<void*>(ComponentInstance()));
    EXPECT_EQ(SuiteLog(), std::string("ToolGroupKit: RegisterToolGroup(Project, Standard, ") +
                              instance + ", [26449,26450,0,26452,26458,26456,26457], 7, null)\n");
}

TEST_F(ProjectTest, TheTemplateMakesTheDocumentWithItsFrameAndTreeView) {
    CProjectDoc* doc = MakeDocument();
    ASSERT_NE(doc, nullptr);
    EXPECT_STREQ(doc->GetRuntimeClass()->m_lpszClassName, "CProjectDoc");
    ASSERT_NE(doc->treeView, nullptr);
    EXPECT_EQ(doc->treeView->GetDocument(), doc);
    EXPECT_EQ(doc->treeView->GetParentFrame(), doc->treeFrame);
    EXPECT_EQ(doc->mainWnd, mainWnd);
    EXPECT_EQ(projectTemplate->currentDoc, doc);

    // Unlinking closes the document and its frame and takes the group down for good.
    win::HWND frame = doc->treeFrame->m_hWnd;
    app.UnloadComponent();
    EXPECT_FALSE(win::IsWindow(frame));
    EXPECT_NE(SuiteLog().find("ToolGroupKit: UnloadToolGroup(Project, 0)\n"
                              "ToolGroupKit: UnloadToolGroup(Project, 1)\n"),
              std::string::npos);
}

TEST_F(ProjectTest, TheHostKeepsTheTemplateAndAttachingGivesTheSameOne) {
    const std::vector<afx::CDocTemplate*>& templates = app.GetDocTemplates();
    EXPECT_NE(std::find(templates.begin(), templates.end(), projectTemplate), templates.end());
    EXPECT_EQ(AttachDll(), projectTemplate);
    EXPECT_EQ(LinkProjectDll(), projectTemplate);
    char shared[32];
    EXPECT_GT(win::GetMenuString(projectTemplate->m_hMenuShared, 1, shared, sizeof shared,
                                 win::MF_BYPOSITION),
              0);
    EXPECT_STREQ(shared, "Pr&oject");
}

TEST_F(ProjectTest, TheLastDocumentToGoUnloadsTheGroupAndClosingAllForgetsTheCurrentOne) {
    MakeDocument();
    MakeDocument();
    projectTemplate->statusTexts[0] = "Opening";
    projectTemplate->CloseAllDocuments(win::FALSE);
    EXPECT_EQ(projectTemplate->currentDoc, nullptr);
    EXPECT_EQ(projectTemplate->GetFirstDocPosition(), nullptr);
    EXPECT_EQ(projectTemplate->statusTexts[0], "Ready");
    EXPECT_EQ(projectTemplate->toolGroupEnabled, 0);
    // Once, for the last document only.
    std::string log = SuiteLog();
    std::size_t first = log.find("UnloadToolGroup(Project, 0)");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(log.find("UnloadToolGroup", first + 1), std::string::npos);
}

TEST_F(ProjectTest, UnlinkingTwiceOrWithoutTheSiblingLibrariesIsHarmless) {
    app.UnloadComponent();
    EXPECT_EQ(UnlinkProjectDll(), 0);
    EXPECT_EQ(UnlinkProjectDll(), 0);

    std::filesystem::remove(sandbox.Root() / "suite.log");
    sandbox.Write("nolibs/readme.txt", "");
    setenv("VELORAND_LIBRARY_PATH", sandbox.Posix("nolibs").c_str(), 1);
    Relink();
    EXPECT_EQ(projectTemplate->groupName, "Project");
    CProjectDoc* doc = MakeDocument();
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->commandTest, 0);
    app.UnloadComponent();
    EXPECT_EQ(SuiteLog(), "");
}

}  // namespace
}  // namespace velorand
