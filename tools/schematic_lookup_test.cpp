#include <gtest/gtest.h>

#include <string>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/win/current_directory.h"

namespace velorand {
namespace {

class SchematicLookupTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj", "[Project]\nProjectID=proj\n");
        ASSERT_NE(doc, nullptr);
    }

    static std::string CurrentFolder() {
        char buffer[win::MAX_PATH];
        return std::string(buffer, win::GetCurrentDirectory(sizeof buffer, buffer));
    }
    static std::string TextOf(afx::CDocument* opened) {
        return static_cast<testing::CSheetDoc*>(opened)->text;
    }

    CProjectDoc* doc = nullptr;
};

TEST_F(SchematicLookupTest, ARecordIsFoundByItsNameOrByAPathOfTheSameFile) {
    doc->schematics["amp"].path = "C:\\p\\amp.sch";
    doc->schematics["filt"].path = "C:\\lib\\Filt.sch";
    EXPECT_EQ(doc->FindSchematicByPath("AMP"), &doc->schematics["amp"]);
    EXPECT_EQ(doc->FindSchematicByPath("c:\\P\\AMP.SCH"), &doc->schematics["amp"]);
    // Folders play no part.
    EXPECT_EQ(doc->FindSchematicByPath("D:\\other\\FILT.SCH"), &doc->schematics["filt"]);
    EXPECT_EQ(doc->FindSchematicByPath("C:\\lib\\filt.sym"), nullptr);
    EXPECT_EQ(doc->FindSchematicByPath("filter"), nullptr);
    EXPECT_EQ(doc->FindSchematicByPath(nullptr), nullptr);
}

TEST_F(SchematicLookupTest, AFileInTheProjectsFolderWinsOverTheSameNameElsewhere) {
    WriteFile("p/amp.sch", "project's");
    const std::string elsewhere = WriteFile("lib/amp.sch", "library's");
    sandbox.Write("start/x", "");
    const std::string start = sandbox.Platform("start");
    win::SetCurrentDirectory(start.c_str());

    afx::CDocument* opened = doc->OpenFile(elsewhere.c_str(), 0);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->GetPathName(), sandbox.Platform("p\\amp.sch"));
    EXPECT_EQ(TextOf(opened), "project's");
    EXPECT_EQ(CurrentFolder(), start);  // given back after the open

    // A file only elsewhere opens where it is.
    const std::string filter = WriteFile("lib/filt.sch", "filter");
    opened = doc->OpenFile(filter.c_str(), 0);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->GetPathName(), filter);
    EXPECT_EQ(Sheets().size(), 2u);
}

TEST_F(SchematicLookupTest, TheRelativePathFindsAMovedTopLevelSchematic) {
    const std::string moved = WriteFile("sch/top.sch", "top");
    doc->relativePath = "..\\sch\\";
    doc->topLevelSchematic = "D:\\old\\TOP.sch";

    afx::CDocument* opened = doc->OpenFile("d:\\old\\top.sch", 0);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->GetPathName(), moved);
    EXPECT_EQ(doc->topLevelSchematic, moved);
    // The relative folder stands in for the folder before.
    EXPECT_EQ(CurrentFolder(), sandbox.Platform("sch"));

    // Found nowhere: nothing opens, the field stays.
    EXPECT_EQ(doc->OpenFile("D:\\old\\gone.sch", 0), nullptr);
    EXPECT_EQ(doc->topLevelSchematic, moved);
    EXPECT_EQ(Sheets().size(), 1u);
}

TEST_F(SchematicLookupTest, OnlyAForcedOpenGoesAheadWhenFilesAreNotOpenedByThemselves) {
    const std::string file = WriteFile("p/amp.sch", "amp");
    doc->autoOpenFile = 0;
    EXPECT_EQ(doc->OpenFile(file.c_str(), 0), nullptr);
    EXPECT_TRUE(Sheets().empty());
    EXPECT_NE(doc->OpenFile(file.c_str(), 1), nullptr);
    EXPECT_EQ(doc->OpenFile(nullptr, 1), nullptr);
}

TEST_F(SchematicLookupTest, ASchematicOpenAlreadyIsBroughtUpThroughItsRecord) {
    const std::string amp = WriteFile("p/amp.sch", "amp");
    const std::string filt = WriteFile("p/filt.sch", "filt");
    afx::CDocument* first = doc->OpenFile(amp.c_str(), 0);
    ASSERT_NE(doc->OpenFile(filt.c_str(), 0), nullptr);
    doc->schematics["amp"].path = amp;
    doc->schematics["amp"].openDoc = first;

    EXPECT_EQ(doc->OpenFile("C:\\elsewhere\\AMP.sch", 0), first);
    EXPECT_EQ(Sheets().size(), 2u);
    afx::CFrameWnd* frame = CProjectDoc::GetFirstDocView(first)->GetParentFrame();
    EXPECT_EQ(mainWnd->MDIGetActive(), frame);
}

TEST_F(SchematicLookupTest, AnInstanceOpenedFromItsTreeTextJoinsItsRecord) {
    const std::string stage = WriteFile("p/stage.sch", "stage");
    doc->schematics["stage"].path = stage;

    afx::CDocument* opened = doc->OpenSchematicInstance(stage, "Stage  [X1]");
    ASSERT_NE(opened, nullptr);
    const SchematicNode& record = doc->schematics["stage"];
    EXPECT_EQ(record.openDoc, opened);
    EXPECT_EQ(record.state, SchematicNode::kOpened);
    EXPECT_EQ(doc->activeDoc, opened);
    // A second double click brings up the same document.
    EXPECT_EQ(doc->OpenSchematicInstance(stage, "Stage  [X1]"), opened);
    EXPECT_EQ(Sheets().size(), 1u);
}

}  // namespace
}  // namespace velorand
