#include <gtest/gtest.h>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/win/app_profile.h"

namespace velorand {
namespace {

using DocTitleTest = testing::LoadedProjectTest;

TEST_F(DocTitleTest, AProjectsFileGetsTheProjectsNameInFront) {
    CProjectDoc* doc = MakeProject("p", "proj", "[Project]\nProjectID=proj\n");
    testing::CSheetDoc* sheet = OpenSheet("p/amp.sch", "");
    ASSERT_NE(sheet, nullptr);
    doc->SetDocTitle(sheet, win::TRUE, "ignored");
    EXPECT_EQ(sheet->GetTitle(), "proj - " + sandbox.Platform("p\\amp.sch"));
    win::WriteProfileInt("Project", "ShortTitle", 1);
    doc->SetDocTitle(sheet, win::FALSE, nullptr);
    EXPECT_EQ(sheet->GetTitle(), "amp.sch");

    // Without a path the text is the title, unless it is an extension.
    sheet->SetPathName("", win::FALSE);
    doc->SetDocTitle(sheet, win::TRUE, "Netlist");
    EXPECT_EQ(sheet->GetTitle(), "proj - Netlist");
    doc->SetDocTitle(sheet, win::FALSE, ".ckt");
    EXPECT_EQ(sheet->GetTitle(), "proj - Netlist");
}

}  // namespace
}  // namespace velorand
