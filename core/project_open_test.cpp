#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "core/project_doc.h"
#include "core/testing/example_project.h"
#include "platform/win/current_directory.h"
#include "platform/win/private_profile.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::ExampleProjectTest;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kUnableToOpen = "\nPlease check if sharing is permitted.";

class ProjectOpenTest : public ExampleProjectTest {
  protected:
    // A project in C:\p without schematics, so that nothing is built or opened.
    std::string WriteBareProject(const std::string& file, const std::string& keys) {
        return WriteFile("p/" + file, "[Project]\n" + keys + "Simulator=1\n");
    }
    std::string Key(const std::string& file, const char* key) const {
        char value[600];
        win::GetPrivateProfileString("Project", key, "(none)", value, sizeof value, file.c_str());
        return value;
    }
};

TEST_F(ProjectOpenTest, TheExampleOpensWithItsTreeAndTellsTheHostEachStep) {
    CProjectDoc* doc = Open(kExample);
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(projectTemplate->currentDoc, doc);
    EXPECT_THAT(Boxes(), IsEmpty());
    // The load is bracketed; the update at its end brackets the netlist run.
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26476u, 26660u, 26477u, 26461u, 26476u, 26477u));

    // The tree came from treescan over the real schematics; the top level schematic and
    // the netlist are open in the host.
    EXPECT_EQ(doc->treeValid, 1);
    EXPECT_EQ(doc->schematics.size(), 6u);
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "ProjectCmdUI"),
              reinterpret_cast<win::HANDLE>(doc->treeView->m_hWnd));
    ASSERT_NE(doc->topDoc, nullptr);
    EXPECT_EQ(doc->topDoc->GetPathName(), "C:\\amp2\\amp2.sch");
    ASSERT_NE(doc->templateDoc, nullptr);

    // The file was copied from elsewhere: its folder is corrected, in memory and on disk.
    EXPECT_EQ(StatusLines().at(0),
              "Project location is changed from C:\\examples\\amp2\\ to "
              "C:\\amp2\\");
    EXPECT_EQ(doc->location, "C:\\amp2\\");
    EXPECT_EQ(Key(kExample, "Location"), "C:\\amp2\\");
    EXPECT_EQ(Key(kExample, "TopLevelSchematic"), "C:\\amp2\\amp2.sch");
    EXPECT_NE(Key(kExample, "LastUpdated"), "");

    EXPECT_EQ(doc->GetPathName(), kExample);
    EXPECT_TRUE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
}

TEST_F(ProjectOpenTest, AFileNamedOtherThanItsProjectLoadsUnderItsProjectsName) {
    const std::string other = WriteBareProject("other.vpj", "ProjectID=proj\nLocation=C:\\p\\\n");
    CProjectDoc* doc = Open(other);
    ASSERT_NE(doc, nullptr);
    // The update at the end of the load wrote the project's own file by key.
    EXPECT_NE(Key("C:\\p\\proj.vpj", "LastUpdated"), "(none)");
    EXPECT_EQ(Key(other, "LastUpdated"), "(none)");
    // Later saves go to the file that was opened.
    EXPECT_EQ(doc->GetPathName(), other);
    EXPECT_EQ(app.GetRecentFileList().front(), other);
    EXPECT_EQ(doc->toolsEnabled, 0);
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "ProjectCmdUI"), nullptr);
    EXPECT_EQ(doc->UpdateProject(win::FALSE), 0);
    EXPECT_NE(Key(other, "LastUpdated"), "(none)");
}

TEST_F(ProjectOpenTest, TheDefaultSessionOpensFromTheCurrentFolderWithoutALock) {
    WriteFile("s/%session.vpj", "[Project]\nProjectID=%session\nSimulator=99\n");
    ASSERT_TRUE(win::SetCurrentDirectory(sandbox.Platform("s").c_str()));
    CProjectDoc* doc = Open("");
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->projectID, "%session");
    EXPECT_EQ(doc->lockHeld, 0);
    EXPECT_FALSE(fs::exists(sandbox.Posix("s/~%%session.vpj")));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectOpenTest, AFileThatIsNoProjectIsRefusedAndLeftAsItIs) {
    const std::string text = WriteFile("amp2/notes.txt", "[Project]\n");
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(Open(text), nullptr);
    EXPECT_THAT(Boxes(), ElementsAre("''C:\\amp2\\notes.txt'' is not a valid project name.\n",
                                     "Unable to open: C:\\amp2\\notes.txt" + kUnableToOpen));
    EXPECT_EQ(user.Record()[0].flags, 0x30u);
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Project Manager");
    EXPECT_EQ(user.Record()[1].flags, 0u);
    EXPECT_EQ(sandbox.Read("amp2/notes.txt"), "[Project]\n");
    EXPECT_FALSE(HasDocument());
    EXPECT_EQ(projectTemplate->currentDoc, nullptr);
    EXPECT_THAT(PostedCommands(), ElementsAre(26454u));
}

TEST_F(ProjectOpenTest, AMissingFileFailsWithTheHostsMessageAlone) {
    user.Answer(win::IDOK);
    EXPECT_EQ(Open("C:\\amp2\\gone.vpj"), nullptr);
    EXPECT_THAT(Boxes(), ElementsAre("Unable to open: C:\\amp2\\gone.vpj" + kUnableToOpen));
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/gone.vpj")));

    // A restart that reopens the last project says nothing.
    win::WriteProfileInt("Velorand", "OpenLastSession", 1);
    EXPECT_EQ(Open("C:\\amp2\\gone.vpj"), nullptr);
    EXPECT_EQ(Boxes().size(), 1u);
}

TEST_F(ProjectOpenTest, AnUnknownSimulatorFailsTheOpenAndGivesTheLockBack) {
    const std::string file = WriteFile("p/proj.vpj", "[Project]\nProjectID=proj\nSimulator=7\n");
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(Open(file), nullptr);
    EXPECT_THAT(Boxes(), ElementsAre("Simulator used in this project is not installed or is not "
                                     "correct",
                                     "Unable to open: " + file + kUnableToOpen));
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/~%proj.vpj")));
    EXPECT_EQ(sandbox.Read("p/proj.vpj"), "[Project]\nProjectID=proj\nSimulator=7\n");
}

TEST_F(ProjectOpenTest, ANameOfMoreThan256CharactersFailsTheOpen) {
    const std::string file =
        WriteBareProject("long.vpj", "ProjectID=" + std::string(257, 'n') + "\nLocation=C:\\p\\\n");
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(Open(file), nullptr);
    ASSERT_EQ(Boxes().size(), 2u);
    EXPECT_THAT(Boxes()[0], HasSubstr("It has more than 256 characters\n"));
    EXPECT_EQ(Boxes()[1], "Unable to open: " + file + kUnableToOpen);
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26476u, 26477u));
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/~%long.vpj")));
}

TEST_F(ProjectOpenTest, AMissingTopLevelSchematicAsksAndEitherAnswerEndsTheOpenHere) {
    fs::remove(sandbox.Posix("amp2/amp2.sch"));
    const std::string question =
        "Top level schematic amp2.sch does not exist.\n\nDo you want to modify the project?\n";
    user.Answer(win::IDCANCEL).Answer(win::IDOK);
    EXPECT_EQ(Open(kExample), nullptr);
    EXPECT_THAT(Boxes(),
                ElementsAre(question, "Unable to open: " + std::string(kExample) + kUnableToOpen));

    // OK goes to the project dialog, which has nothing to offer while the suite has no
    // project dialog to show: the open fails the same way, with its saved windows gone.
    WriteFile("amp2/amp2.vpj", sandbox.Read("amp2/amp2.vpj") + "\n[MRU List]\nC:\\amp2\\x.sch=\n");
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(Open(kExample), nullptr);
    EXPECT_EQ(Boxes().size(), 4u);
    EXPECT_EQ(Boxes()[2], question);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), Not(HasSubstr("[MRU List]")));
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
}

TEST_F(ProjectOpenTest, ANewProjectWithoutItsDialogMakesNothing) {
    EXPECT_EQ(projectTemplate->OpenDocumentFile(nullptr), nullptr);
    EXPECT_FALSE(HasDocument());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_THAT(PostedCommands(), ElementsAre(26454u));
}

TEST_F(ProjectOpenTest, OpeningAProjectClosesTheOneThatIsOpen) {
    CProjectDoc* first = Open(kExample);
    ASSERT_NE(first, nullptr);
    const std::string file = WriteBareProject("proj.vpj", "ProjectID=proj\nLocation=C:\\p\\\n");
    CProjectDoc* second = Open(file);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(projectTemplate->currentDoc, second);
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/amp2.~PT")));
    EXPECT_TRUE(fs::exists(sandbox.Posix("p/~%proj.vpj")));
}

}  // namespace
}  // namespace velorand
