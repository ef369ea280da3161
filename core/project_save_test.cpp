#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/win/private_profile.h"
#include "views/project_view.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using testing::CSheetDoc;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr char kProjectFile[] =
    "[Project]\nProjectID=proj\nTopLevelSchematic=C:\\p\\top.sch\nLocation=C:\\p\\\n";

class ProjectSaveTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj", kProjectFile);
        ASSERT_NE(doc, nullptr);
        doc->topLevelSchematic = "C:\\p\\top.sch";
        top = OpenSheet("p/top.sch", "top on disk");
        part = OpenSheet("p/part.sch", "part on disk");
        ASSERT_NE(top, nullptr);
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

    // The host closes a project's document by telling the hub, which takes it out of the
    // project's lists.
    void ForgetClosedSheets() {
        doc->openDocs.clear();
        doc->topDoc = nullptr;
    }

    CProjectDoc* doc = nullptr;
    CSheetDoc* top = nullptr;
    CSheetDoc* part = nullptr;
};

TEST_F(ProjectSaveTest, APlainSaveKeepsTheChangesInWorkFilesAndTheWindowsWhereTheyWere) {
    auto* partFrame = dynamic_cast<afx::CMDIChildWnd*>(ViewOf(part)->GetParentFrame());
    partFrame->MDIActivate();

    EXPECT_EQ(doc->SaveProjectState(win::FALSE, win::FALSE), 1);
    // The changed file and the top level go to the work folder; the user's files stay.
    EXPECT_EQ(sandbox.Read("p/proj.~PT/part.sch"), "part changed");
    EXPECT_EQ(sandbox.Read("p/proj.~PT/top.sch"), "top on disk");
    EXPECT_EQ(sandbox.Read("p/part.sch"), "part on disk");
    EXPECT_TRUE(part->IsModified());
    EXPECT_EQ(part->GetPathName(), sandbox.Platform("p\\part.sch"));
    EXPECT_TRUE(user.Record().empty());
    // Only the end of the save goes along the application's route.
    EXPECT_THAT(app.AppCommands(), ElementsAre(26479u));
    EXPECT_EQ(mainWnd->MDIGetActive(), partFrame);
    EXPECT_EQ(doc->treeView->ignoreSaved, 0);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("[MRU List]\n"));
}

TEST_F(ProjectSaveTest, ATuningRunTellsTheViewBeforeAndAfterItsDocumentIsSaved) {
    doc->tuning = 1;
    doc->topDoc = nullptr;
    ASSERT_EQ(doc->SaveProjectState(win::FALSE, win::FALSE), 1);
    std::vector<ProjectNotify> notes;
    for (const ProjectNotify& note : ViewOf(part)->notes) {
        if (note.code != 309) {  // asked whether it lives
            notes.push_back(note);
        }
    }
    ASSERT_EQ(notes.size(), 2u);
    for (int option : {0, 1}) {
        EXPECT_EQ(notes[option].hwndFrom, doc->treeView->m_hWnd);
        EXPECT_EQ(notes[option].idFrom, 100u);
        EXPECT_EQ(notes[option].code, 304u);
        EXPECT_EQ(notes[option].option, option);
        EXPECT_EQ(notes[option].argument, reinterpret_cast<win::LPARAM>(ViewOf(part)));
    }
    // An unchanged file that isn't the top level is neither told nor saved.
    for (const ProjectNotify& note : ViewOf(top)->notes) {
        EXPECT_EQ(note.code, 309u);
    }
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/proj.~PT/top.sch")));
}

TEST_F(ProjectSaveTest, AClosingSaveAsksTheUserAndClosesEveryFile) {
    user.AnswerWhen("part.sch", win::IDYES);
    EXPECT_EQ(doc->SaveProjectState(win::TRUE, win::FALSE), 1);
    EXPECT_EQ(user.Record().at(0).text, "Save changes to part.sch?");
    EXPECT_EQ(sandbox.Read("p/part.sch"), "part changed");
    EXPECT_TRUE(Sheets().empty());
    EXPECT_THAT(app.AppCommands(), ElementsAre(26478u, 26479u));
    ForgetClosedSheets();
}

TEST_F(ProjectSaveTest, ACloseRefusedByTheUserLeavesEveryFileOpenAndChanged) {
    user.AnswerWhen("part.sch", win::IDCANCEL);
    EXPECT_EQ(doc->SaveProjectState(win::TRUE, win::FALSE), 0);
    EXPECT_THAT(Sheets(), ElementsAre(top, part));
    EXPECT_TRUE(part->IsModified());
    EXPECT_EQ(sandbox.Read("p/part.sch"), "part on disk");
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/proj.~PT")));
    EXPECT_EQ(doc->savingAll, 0);
    EXPECT_EQ(doc->treeView->ignoreSaved, 0);
}

TEST_F(ProjectSaveTest, ACrashSavesIntoWorkFilesWithoutAQuestionAndClosesNothing) {
    EXPECT_EQ(doc->SaveProjectState(win::TRUE, win::TRUE), 1);
    EXPECT_TRUE(user.Record().empty());
    EXPECT_EQ(sandbox.Read("p/proj.~PT/part.sch"), "part changed");
    EXPECT_EQ(sandbox.Read("p/part.sch"), "part on disk");
    EXPECT_THAT(Sheets(), ElementsAre(top, part));
    EXPECT_THAT(app.AppCommands(), ElementsAre(26478u, 26479u));
}

TEST_F(ProjectSaveTest, AFileWithoutAProjectNameGetsAllOfItsKeysUnlessItIsTheSession) {
    WriteFile("p/proj.vpj", "[Project]\nTopLevelSchematic=C:\\p\\top.sch\n");
    doc->searchPaths = {"C:\\lib"};
    ASSERT_EQ(doc->SaveProjectState(win::FALSE, win::FALSE), 1);
    const std::string written = sandbox.Read("p/proj.vpj");
    EXPECT_THAT(written, HasSubstr("ProjectID=proj\n"));
    EXPECT_THAT(written, HasSubstr("SearchPath0=C:\\lib\n"));
    EXPECT_THAT(written, ::testing::Not(HasSubstr("[MRU List]")));

    // The session keeps its file as it is, but for the layout.
    WriteFile("p/proj.vpj", "[Project]\n");
    doc->projectID = "%session";
    ASSERT_EQ(doc->SaveProjectState(win::FALSE, win::FALSE), 1);
    const std::string session = sandbox.Read("p/proj.vpj");
    EXPECT_THAT(session, ::testing::Not(HasSubstr("ProjectID")));
    EXPECT_THAT(session, HasSubstr("[MRU List]\n"));
}

TEST_F(ProjectSaveTest, WithoutATreeViewThereIsNothingToSave) {
    doc->treeView = nullptr;
    EXPECT_EQ(doc->SaveProjectState(win::TRUE, win::FALSE), 1);
    EXPECT_TRUE(user.Record().empty());
    EXPECT_THAT(Sheets(), ElementsAre(top, part));
    EXPECT_TRUE(app.AppCommands().empty());
}

TEST_F(ProjectSaveTest, AnUpdateOfAProjectWithoutSchematicsWritesItsTwoKeysAndStops) {
    doc->topLevelSchematic.clear();
    EXPECT_EQ(doc->UpdateProject(win::TRUE), 0);
    char value[64];
    EXPECT_EQ(win::GetPrivateProfileString("Project", "TopLevelSchematic", "missing", value,
                                           sizeof value, doc->GetPathName().c_str()),
              0u);
    EXPECT_GT(win::GetPrivateProfileString("Project", "LastUpdated", "", value, sizeof value,
                                           doc->GetPathName().c_str()),
              0u);
    EXPECT_TRUE(doc->CDocument::IsModified());
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/proj.~PT")));

    // Without a project file there is nothing to write to.
    doc->SetPathName("", win::FALSE);
    EXPECT_EQ(doc->UpdateProject(win::FALSE), 0);
}

TEST_F(ProjectSaveTest, AnUnchangedProjectIsUpToDateAfterItsKeysAreWritten) {
    part->SetModifiedFlag(win::FALSE);
    EXPECT_EQ(doc->UpdateProject(win::FALSE), 1);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("TopLevelSchematic=C:\\p\\top.sch\n"));
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/proj.~PT")));
    EXPECT_TRUE(mainWnd->Commands().empty());
}

TEST_F(ProjectSaveTest, AChangedProjectIsSavedValidatedAndNetlisted) {
    // Neither tools nor template: the netlist step only brackets itself.
    doc->autoOpenFile = 0;
    EXPECT_EQ(doc->UpdateProject(win::FALSE), 1);
    EXPECT_EQ(sandbox.Read("p/proj.~PT/part.sch"), "part changed");
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26476u, 26477u));
    EXPECT_EQ(doc->treeStale, 0);

    // A project that fails its validation gets no netlist.
    mainWnd->ClearMessages();
    doc->projectID = std::string(257, 'a');
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->UpdateProject(win::FALSE), 0);
    EXPECT_THAT(user.Record().at(0).text, HasSubstr("It has more than 256 characters\n"));
    EXPECT_TRUE(mainWnd->Commands().empty());
}

}  // namespace
}  // namespace velorand
