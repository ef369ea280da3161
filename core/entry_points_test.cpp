#include "core/entry_points.h"

#include <gtest/gtest.h>

#include "core/component_module.h"
#include "core/testing/project_fixture.h"
#include "platform/afx/frame_wnd.h"
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

}  // namespace
}  // namespace velorand
