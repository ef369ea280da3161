#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "core/warning_dlg.h"
#include "platform/win/app_profile.h"
#include "platform/win/message_box.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;

// The project file as the project commit writes it: no search path yet.
const std::string kNewProject =
    "[Project]\n"
    "ProjectID=amp\n"
    "ProjectRelease=4.0\n"
    "ProjectVersion=40\n"
    "DateCreated=05/14/24 10:20:30\n"
    "LastUpdated=\n"
    "TopLevelSchematic=C:\\amp\\amp.sch\n"
    "Simulator=0\n"
    "Location=C:\\amp\\\n"
    "RelativePath=\n"
    "\n"
    "[Search Paths]\n"
    "\n"
    "\n"
    "[Setting]\n"
    "\n"
    "[Extra]\n"
    "\n";

const std::string kAddPathText =
    "The symbol selected, %s, is not in a current search path.  Its path will be added to "
    "the current project\xE2\x80\x99"
    "s Search Path list.  Errors may occur if a symbol of the same name exists in a path "
    "specified earlier in the list.\n\nYou can view or modify a project\xE2\x80\x99"
    "s Search Path list via the Project menu\xE2\x80\x99"
    "s Modify Project command.";

std::string AddPathText(const std::string& name) {
    std::string text = kAddPathText;
    return text.replace(text.find("%s"), 2, name);
}

int ProfileInt(const char* key) {
    return static_cast<int>(win::GetProfileInt("Project", key, -1));
}

class SearchPathsTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("amp", "amp", kNewProject);
        ASSERT_NE(doc, nullptr);
        doc->topLevelSchematic = WriteFile("amp/amp.sch", "[schematic2]\nver 40\n");
    }

    std::string ProjectFile() const { return sandbox.Read("amp/amp.vpj"); }

    // Adds a symbol's folder, as the tree view passes it on.
    int AddSymbol(std::string text) {
        std::vector<char> buffer(text.begin(), text.end());
        buffer.push_back('\0');
        int result = doc->AddSymbolSearchPath(buffer.data());
        written = buffer.data();
        return result;
    }

    CProjectDoc* doc = nullptr;
    std::string written;  // the text after AddSymbolSearchPath wrote into it
};

TEST_F(SearchPathsTest, TheListEndsAtTheFirstMissingOrEmptyKey) {
    WriteFile("amp/amp.vpj",
              "[Search Paths]\nSearchPath0=C:\\lib\nSearchPath1=  C:\\more  \n"
              "SearchPath3=C:\\after\n[Other]\nSearchPath2=C:\\elsewhere\n");
    Paths out{"stale"};
    doc->searchPaths = {"stale"};
    EXPECT_EQ(doc->LoadSearchPaths(out), 1);
    EXPECT_EQ(out, (Paths{"C:\\lib", "C:\\more"}));
    EXPECT_EQ(doc->searchPaths, out);

    WriteFile("amp/amp.vpj", "[Search Paths]\nSearchPath0=\nSearchPath1=C:\\lib\n");
    EXPECT_EQ(doc->LoadSearchPaths(out), 1);
    EXPECT_TRUE(out.empty());

    // The file the project commit writes has none, and a missing file is no error.
    WriteFile("amp/amp.vpj", kNewProject);
    EXPECT_EQ(doc->LoadSearchPaths(out), 1);
    EXPECT_TRUE(out.empty());
    fs::remove(sandbox.Posix("amp/amp.vpj"));
    doc->searchPaths = {"stale"};
    EXPECT_EQ(doc->LoadSearchPaths(out), 1);
    EXPECT_TRUE(doc->searchPaths.empty());
}

TEST_F(SearchPathsTest, AtMost255PathsOfAtMost259CharactersAreRead) {
    std::string text = "[Search Paths]\n";
    const std::string longPath = "C:\\" + std::string(300, 'x');
    for (int i = 0; i < 300; ++i) {
        text += "SearchPath" + std::to_string(i) + "=" +
                (i == 7 ? longPath : "C:\\p" + std::to_string(i)) + "\n";
    }
    WriteFile("amp/amp.vpj", text);
    Paths out;
    doc->LoadSearchPaths(out);
    ASSERT_EQ(out.size(), 255u);
    EXPECT_EQ(out[254], "C:\\p254");
    EXPECT_EQ(out[7], longPath.substr(0, 259));
    EXPECT_EQ(doc->searchPaths.size(), 255u);
}

TEST_F(SearchPathsTest, StoringWritesTheKeysInPlaceAndKeepsACopy) {
    const std::string file = doc->GetPathName();
    EXPECT_EQ(doc->StoreSearchPaths(file.c_str(), {"C:\\lib", "C:\\amp\\sym"}), 1);
    std::string expected = kNewProject;
    expected.replace(expected.find("[Search Paths]\n") + 15, 0,
                     "SearchPath0=C:\\lib\nSearchPath1=C:\\amp\\sym\n");
    EXPECT_EQ(ProjectFile(), expected);
    EXPECT_EQ(doc->searchPaths, (Paths{"C:\\lib", "C:\\amp\\sym"}));

    // A shorter list leaves the keys behind it; the copy is the list as given. The list
    // may be the copy itself.
    EXPECT_EQ(doc->StoreSearchPaths(file.c_str(), {"C:\\new"}), 1);
    EXPECT_EQ(doc->searchPaths, Paths{"C:\\new"});
    EXPECT_EQ(doc->StoreSearchPaths(file.c_str(), doc->searchPaths), 1);
    EXPECT_EQ(doc->searchPaths, Paths{"C:\\new"});
    Paths out;
    doc->LoadSearchPaths(out);
    EXPECT_EQ(out, (Paths{"C:\\new", "C:\\amp\\sym"}));
}

TEST_F(SearchPathsTest, AReadOnlyProjectFileStaysAsItWasButTheCopyFollows) {
    fs::permissions(sandbox.Posix("amp/amp.vpj"), fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(doc->StoreSearchPaths(doc->GetPathName().c_str(), {"C:\\lib"}), 1);
    EXPECT_EQ(ProjectFile(), kNewProject);
    EXPECT_EQ(doc->searchPaths, Paths{"C:\\lib"});
}

TEST_F(SearchPathsTest, TheEditorIsToldThePathsInTheirOrderAndForm) {
    afx::CDocument* sheet = app.OpenDocumentFile(doc->topLevelSchematic.c_str());
    ASSERT_NE(sheet, nullptr);
    doc->activeDoc = sheet;
    // A path within the project file's own path goes in the first form.
    doc->searchPaths = {sandbox.Platform("amp"), "C:\\lib", sandbox.Platform("AMP")};
    doc->SendAddPaths();
    doc->SendRemovePaths();
    const Paths expected = {
        ":path " + sandbox.Platform("amp") + "+", ":path +C:\\lib",
        ":path +" + sandbox.Platform("AMP"),  // the part must match with its case
        ":delpathdir " + sandbox.Platform("amp"), ":delpathdir C:\\lib",
        ":delpathdir " + sandbox.Platform("AMP"),
    };
    EXPECT_EQ(ViewOf(sheet)->scriptLines, expected);
}

TEST_F(SearchPathsTest, WithoutAnActiveSchematicTheTopLevelOneIsOpenedToTakeTheLines) {
    doc->searchPaths = {"C:\\lib"};
    doc->SendAddPaths();
    ASSERT_NE(doc->topDoc, nullptr);
    EXPECT_EQ(ViewOf(doc->topDoc)->scriptLines, Paths{":path +C:\\lib"});

    // No paths: the editor is opened all the same, and told nothing.
    doc->searchPaths.clear();
    doc->SendRemovePaths();
    EXPECT_EQ(ViewOf(doc->topDoc)->scriptLines.size(), 1u);
}

TEST_F(SearchPathsTest, AnEditorThatCantBeReachedGetsNothing) {
    doc->searchPaths = {"C:\\lib"};
    doc->treeValid = 0;
    doc->SendAddPaths();
    EXPECT_EQ(doc->topDoc, nullptr);
    EXPECT_TRUE(Sheets().empty());

    doc->treeValid = 1;
    fs::remove(sandbox.Posix("amp/amp.sch"));
    doc->SendRemovePaths();
    EXPECT_EQ(doc->topDoc, nullptr);
    EXPECT_EQ(doc->treeValid, 0);
}

TEST_F(SearchPathsTest, TheHostSeesTheProjectFileOnlyWhileTheTopLevelSchematicLoads) {
    win::WriteProfileString("Velorand", "ProjectSearchPath", "C:\\old\\old.vpj");
    EXPECT_EQ(doc->OpenTopSchematic(), 1);
    ASSERT_NE(doc->topDoc, nullptr);
    EXPECT_EQ(static_cast<testing::CSheetDoc*>(doc->topDoc)->projectSearchPath, doc->GetPathName());
    char value[64];
    EXPECT_EQ(win::GetProfileString("Velorand", "ProjectSearchPath", "gone", value, 64), 4u);

    // A failed open removes it too, and marks the tree invalid.
    win::WriteProfileString("Velorand", "ProjectSearchPath", "C:\\old\\old.vpj");
    doc->topLevelSchematic = sandbox.Platform("amp/missing.sch");
    EXPECT_EQ(doc->OpenTopSchematic(), 0);
    EXPECT_EQ(doc->topDoc, nullptr);
    EXPECT_EQ(doc->treeValid, 0);
    EXPECT_EQ(win::GetProfileString("Velorand", "ProjectSearchPath", "gone", value, 64), 4u);

    // Without a tree or a schematic nothing is tried.
    EXPECT_EQ(doc->OpenTopSchematic(), 0);
    doc->treeValid = 1;
    doc->topLevelSchematic.clear();
    EXPECT_EQ(doc->OpenTopSchematic(), 0);
    EXPECT_EQ(Sheets().size(), 1u);
}

TEST_F(SearchPathsTest, APickedSymbolsFolderIsAddedAfterAWarningThatCanBeSkipped) {
    int shown = 0;
    user.OnDialog(CWarningDlg::IDD)
        .Inspect([&](win::ModalDialog& dialog) {
            ++shown;
            EXPECT_EQ(dialog.Caption(), "Adding Project Search Path");
            EXPECT_EQ(dialog.Text(CWarningDlg::IDC_MESSAGE), AddPathText("opamp"));
            EXPECT_EQ(dialog.Text(CWarningDlg::IDC_SKIP), "Skip this warning. ");
            EXPECT_FALSE(dialog.Control(CWarningDlg::IDC_SKIP)->checked);
        })
        .Click(CWarningDlg::IDC_SKIP)
        .Click(win::IDOK);
    EXPECT_EQ(AddSymbol("C:\\lib\\v1.2+opamp.lib.sym"), 1);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(written, "C:\\lib\\v1.2");
    EXPECT_EQ(ProfileInt("SkipAddPathDlg"), 1);
    // The folder keeps its dot; the editor isn't told yet.
    EXPECT_EQ(doc->searchPaths, Paths{"C:\\lib\\v1.2"});
    EXPECT_TRUE(Sheets().empty());

    // Skipped from now on.
    EXPECT_EQ(AddSymbol("C:\\parts+r.sym"), 1);
    EXPECT_EQ(user.Record().size(), 1u);
    std::string expected = kNewProject;
    expected.replace(expected.find("[Search Paths]\n") + 15, 0,
                     "SearchPath0=C:\\lib\\v1.2\nSearchPath1=C:\\parts\n");
    EXPECT_EQ(ProjectFile(), expected);
}

TEST_F(SearchPathsTest, FoldersOfTheProjectOrAlreadyInTheListAddNothingAndAskNothing) {
    WriteFile("amp/amp.vpj", "[Search Paths]\nSearchPath0=C:\\Lib\n");
    doc->topLevelSchematic = "C:\\sch\\top\\amp.sch";
    EXPECT_EQ(AddSymbol(sandbox.Platform("AMP") + "+a.sym"), 0);  // location, case ignored
    EXPECT_EQ(AddSymbol("c:\\SCH\\top+a.sym"), 0);                // the schematic's folder
    EXPECT_EQ(AddSymbol("C:\\LIB+a.sym"), 0);
    EXPECT_EQ(sandbox.Read("amp/amp.vpj"), "[Search Paths]\nSearchPath0=C:\\Lib\n");
    EXPECT_TRUE(user.Record().empty());
}

TEST_F(SearchPathsTest, TheWarningComesBackUnlessTheBoxWasCheckedAndClosedWithTheButton) {
    // No '+': the whole text is the folder and the name is empty.
    user.OnDialog(CWarningDlg::IDD)
        .Inspect([&](win::ModalDialog& dialog) {
            EXPECT_EQ(dialog.Text(CWarningDlg::IDC_MESSAGE), AddPathText(""));
        })
        .Click(win::IDOK);
    EXPECT_EQ(AddSymbol("C:\\one"), 1);
    EXPECT_EQ(ProfileInt("SkipAddPathDlg"), 0);

    // The cancel key writes nothing, whatever the box says.
    user.OnDialog(CWarningDlg::IDD).Click(CWarningDlg::IDC_SKIP).Cancel();
    EXPECT_EQ(AddSymbol("C:\\two+b.sym"), 1);
    EXPECT_EQ(ProfileInt("SkipAddPathDlg"), 0);
    EXPECT_EQ(doc->searchPaths, (Paths{"C:\\one", "C:\\two"}));
    EXPECT_EQ(user.Record().size(), 2u);
}

}  // namespace
}  // namespace velorand
