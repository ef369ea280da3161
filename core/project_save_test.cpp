#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/afx/mdi_child_wnd.h"
#include "views/project_view.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using testing::CSheetDoc;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class ProjectSaveTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj", "[Project]\nProjectID=proj\n");
        ASSERT_NE(doc, nullptr);
        doc->topLevelSchematic = "C:\\p\\top.sch";
        top = OpenSheet("p/top.sch", "top on disk");
        part = OpenSheet("p/part.sch", "part on disk");
        ASSERT_NE(part, nullptr);
        doc->openDocs = {top, part};
        doc->topDoc = top;
        part->text = "part changed";
        part->SetModifiedFlag(win::TRUE);
    }

    // The project closes at the end of the test: the user's answers are over by then.
    void TearDown() override {
        for (CSheetDoc* sheet : Sheets()) {
            sheet->SetModifiedFlag(win::FALSE);
        }
        LoadedProjectTest::TearDown();
    }

    CProjectDoc* doc = nullptr;
    CSheetDoc* top = nullptr;
    CSheetDoc* part = nullptr;
};

TEST_F(ProjectSaveTest, APlainSaveKeepsTheChangesInWorkFilesAndTheWindowsWhereTheyWere) {
    auto* partFrame = dynamic_cast<afx::CMDIChildWnd*>(ViewOf(part)->GetParentFrame());
    partFrame->MDIActivate();
    doc->tuning = 1;
    EXPECT_EQ(doc->SaveProjectState(win::FALSE, win::FALSE), 1);
    // The changed file and the top level go to the work folder; the user's files stay.
    EXPECT_EQ(sandbox.Read("p/proj.~PT/part.sch"), "part changed");
    EXPECT_EQ(sandbox.Read("p/proj.~PT/top.sch"), "top on disk");
    EXPECT_EQ(sandbox.Read("p/part.sch"), "part on disk");
    EXPECT_TRUE(part->IsModified());
    EXPECT_TRUE(user.Record().empty());
    EXPECT_THAT(app.AppCommands(), ElementsAre(26479u));
    EXPECT_EQ(mainWnd->MDIGetActive(), partFrame);
    EXPECT_EQ(doc->treeView->ignoreSaved, 0);
    // A tuning run's view hears of the save before and after (code 304).
    std::vector<int> options;
    for (const ProjectNotify& note : ViewOf(part)->notes) {
        if (note.code == 304 && note.argument == reinterpret_cast<win::LPARAM>(ViewOf(part))) {
            options.push_back(note.option);
        }
    }
    EXPECT_THAT(options, ElementsAre(0, 1));
}

TEST_F(ProjectSaveTest, AClosingSaveAsksTheUserAndClosesEveryFileUnlessRefused) {
    user.AnswerWhen("part.sch", win::IDCANCEL);
    EXPECT_EQ(doc->SaveProjectState(win::TRUE, win::FALSE), 0);
    EXPECT_THAT(Sheets(), ElementsAre(top, part));
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/proj.~PT")));

    user.AnswerWhen("part.sch", win::IDYES);
    EXPECT_EQ(doc->SaveProjectState(win::TRUE, win::FALSE), 1);
    EXPECT_EQ(user.Record().at(1).text, "Save changes to part.sch?");
    EXPECT_EQ(sandbox.Read("p/part.sch"), "part changed");
    EXPECT_TRUE(Sheets().empty());
    EXPECT_THAT(app.AppCommands(), ElementsAre(26478u, 26479u, 26478u, 26479u));
    doc->openDocs.clear();  // the hub's part, as the host tells of each close
    doc->topDoc = nullptr;
}

TEST_F(ProjectSaveTest, AFileWithoutAProjectNameGetsAllOfItsKeysUnlessItIsTheSession) {
    WriteFile("p/proj.vpj", "[Project]\n");
    doc->searchPaths = {"C:\\lib"};
    ASSERT_EQ(doc->SaveProjectState(win::FALSE, win::FALSE), 1);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("ProjectID=proj\n"));
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("SearchPath0=C:\\lib\n"));

    WriteFile("p/proj.vpj", "[Project]\n");
    doc->projectID = "%session";
    ASSERT_EQ(doc->SaveProjectState(win::FALSE, win::FALSE), 1);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), Not(HasSubstr("ProjectID")));
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("[MRU List]\n"));
}

TEST_F(ProjectSaveTest, AnUpdateWritesItsKeysAndNetlistsOnlyAChangedProjectWithSchematics) {
    doc->autoOpenFile = 0;  // no template: the netlist step only brackets itself
    EXPECT_EQ(doc->UpdateProject(win::FALSE), 1);
    EXPECT_EQ(sandbox.Read("p/proj.~PT/part.sch"), "part changed");
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26476u, 26477u));
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("TopLevelSchematic=C:\\p\\top.sch\n"));

    mainWnd->ClearMessages();
    doc->topLevelSchematic.clear();
    EXPECT_EQ(doc->UpdateProject(win::TRUE), 0);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("TopLevelSchematic=\n"));
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("LastUpdated="));
    EXPECT_TRUE(mainWnd->Commands().empty());
}

}  // namespace
}  // namespace velorand
