#include <gtest/gtest.h>

#include <string>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/win/app_profile.h"

namespace velorand {
namespace {

class DocTitleTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj", "[Project]\nProjectID=proj\n");
        ASSERT_NE(doc, nullptr);
        sheet = OpenSheet("p/amp.sch", "");
        ASSERT_NE(sheet, nullptr);
    }

    CProjectDoc* doc = nullptr;
    testing::CSheetDoc* sheet = nullptr;
};

TEST_F(DocTitleTest, AProjectsFileIsTitledWithTheProjectsNameInFront) {
    doc->SetDocTitle(sheet, win::TRUE, nullptr);
    EXPECT_EQ(sheet->GetTitle(), "proj - " + sandbox.Platform("p\\amp.sch"));

    // A title that has its project already keeps it.
    sheet->SetPathName("C:\\p\\old - amp.sch", win::FALSE);
    doc->SetDocTitle(sheet, win::TRUE, nullptr);
    EXPECT_EQ(sheet->GetTitle(), "C:\\p\\old - amp.sch");

    doc->SetDocTitle(sheet, win::FALSE, "ignored");
    EXPECT_EQ(sheet->GetTitle(), "C:\\p\\old - amp.sch");
}

TEST_F(DocTitleTest, TheProfileMayAskForTheFileNameAlone) {
    win::WriteProfileInt("Project", "ShortTitle", 1);
    doc->SetDocTitle(sheet, win::TRUE, "ignored");
    EXPECT_EQ(sheet->GetTitle(), "proj - amp.sch");
    doc->SetDocTitle(sheet, win::FALSE, nullptr);
    EXPECT_EQ(sheet->GetTitle(), "amp.sch");
}

TEST_F(DocTitleTest, ADocumentWithoutAPathTakesTheTextUnlessItIsAnExtension) {
    sheet->SetPathName("", win::FALSE);
    doc->SetDocTitle(sheet, win::TRUE, "Netlist");
    EXPECT_EQ(sheet->GetTitle(), "proj - Netlist");

    doc->SetDocTitle(sheet, win::TRUE, ".ckt");
    EXPECT_EQ(sheet->GetTitle(), "proj - Netlist");

    doc->SetDocTitle(sheet, win::FALSE, "Untitled");
    EXPECT_EQ(sheet->GetTitle(), "Untitled");
}

}  // namespace
}  // namespace velorand
