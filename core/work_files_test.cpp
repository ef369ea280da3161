#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/win/paths.h"
#include "platform/win/temp_path.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;

class WorkFilesTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj", "[Project]\nProjectID=proj\n");
        ASSERT_NE(doc, nullptr);
    }

    static std::string Temp() {
        char buffer[win::MAX_PATH];
        return std::string(buffer, win::GetTempPath(sizeof buffer, buffer));
    }
    static fs::path Posix(const std::string& platformPath) { return *win::PosixPath(platformPath); }
    // The last line the component put on the host's status line.
    std::string Status() const { return mainWnd->StatusText(); }

    CProjectDoc* doc = nullptr;
};

TEST_F(WorkFilesTest, TheWorkFolderIsMadeInTheProjectsFolderAndFoundAgain) {
    EXPECT_EQ(doc->GetWorkFile(nullptr), "");
    EXPECT_EQ(doc->workFolder, sandbox.Platform("p\\proj.~PT"));
    EXPECT_EQ(doc->ownWorkFolder, 1);
    EXPECT_TRUE(fs::is_directory(sandbox.Posix("p/proj.~PT")));
    EXPECT_EQ(doc->GetWorkFile("C:\\elsewhere\\Amp.sch"), sandbox.Platform("p\\proj.~PT\\Amp.sch"));
    EXPECT_EQ(doc->GetWorkFile("bare.sym"), sandbox.Platform("p\\proj.~PT\\bare.sym"));

    // With the folder chosen, null changes nothing.
    doc->workFolder = "C:\\chosen";
    doc->ownWorkFolder = 0;
    EXPECT_EQ(doc->GetWorkFile(nullptr), "");
    EXPECT_EQ(doc->workFolder, "C:\\chosen");
    EXPECT_EQ(doc->ownWorkFolder, 0);

    // A folder left by a crash is used with what it holds.
    sandbox.Write("p/proj.~PT/amp.sch", "crashed");
    doc->workFolder.clear();
    EXPECT_EQ(doc->GetWorkFile("C:\\x\\amp.sch"), sandbox.Platform("p\\proj.~PT\\amp.sch"));
    EXPECT_EQ(sandbox.Read("p/proj.~PT/amp.sch"), "crashed");
    EXPECT_EQ(doc->ownWorkFolder, 1);
}

TEST_F(WorkFilesTest, AReadOnlyProjectFolderSendsTheWorkFilesToTheTemporaryFolder) {
    fs::permissions(sandbox.Posix("p"), fs::perms::owner_read | fs::perms::owner_exec);
    const std::string own = Temp() + "proj.~PT";
    EXPECT_EQ(doc->GetWorkFile("C:\\p\\amp.sch"), own + "\\amp.sch");
    EXPECT_EQ(doc->workFolder, own);
    EXPECT_EQ(doc->ownWorkFolder, 1);
    EXPECT_TRUE(fs::is_directory(Posix(own)));

    // Closing removes that folder; the temporary folder stays.
    sandbox.Write("../tmp/proj.~PT/amp.sch", "work");
    EXPECT_EQ(doc->RemoveWorkFolder(nullptr), 1);
    EXPECT_EQ(doc->workFolder, "");
    EXPECT_FALSE(fs::exists(Posix(own)));
    EXPECT_TRUE(fs::is_directory(Posix(Temp())));
}

TEST_F(WorkFilesTest, WhenNothingCanBeMadeTheWorkFilesLieLooseInTheTemporaryFolder) {
    fs::permissions(sandbox.Posix("p"), fs::perms::owner_read | fs::perms::owner_exec);
    sandbox.Write("../tmp/proj.~PT", "a file in the way");
    EXPECT_EQ(doc->GetWorkFile("C:\\p\\amp.sch"), Temp() + "amp.sch");
    EXPECT_EQ(doc->workFolder, Temp());
    EXPECT_EQ(doc->ownWorkFolder, 0);

    // They are never cleaned up, not even when asked by name.
    sandbox.Write("../tmp/amp.sch", "work");
    EXPECT_EQ(doc->RemoveWorkFolder(nullptr), 0);
    EXPECT_EQ(doc->RemoveWorkFolder(doc->workFolder.c_str()), 1);
    EXPECT_EQ(doc->workFolder, Temp());
    EXPECT_EQ(sandbox.Read("../tmp/amp.sch"), "work");
}

TEST_F(WorkFilesTest, CleaningNeverTouchesTheTemporaryFolder) {
    sandbox.Write("../tmp/a.log", "log");
    std::string temp = Temp();
    EXPECT_EQ(doc->CleanFolder(temp.c_str(), "*.*"), 0);
    temp.pop_back();
    EXPECT_EQ(doc->CleanFolder(temp.c_str(), "*.*"), 0);
    EXPECT_EQ(doc->CleanFolder("", "*.*"), 0);
    EXPECT_EQ(sandbox.Read("../tmp/a.log"), "log");
}

TEST_F(WorkFilesTest, CleaningTakesEveryFileOrOnlyTheOutputsOfAName) {
    for (const char* name : {"name.sch", "name.log", "name.ckt", "other.log", "sub/x.log"}) {
        sandbox.Write(std::string("d/") + name, "x");
    }
    const std::string folder = sandbox.Platform("d");
    EXPECT_EQ(doc->CleanFolder(folder.c_str(), "name.*"), 1);
    EXPECT_TRUE(fs::exists(sandbox.Posix("d/name.sch")));
    EXPECT_FALSE(fs::exists(sandbox.Posix("d/name.log")));
    EXPECT_FALSE(fs::exists(sandbox.Posix("d/name.ckt")));
    EXPECT_TRUE(fs::exists(sandbox.Posix("d/other.log")));

    // Subfolders are passed over, so the folder stays.
    EXPECT_EQ(doc->CleanFolder((folder + "\\").c_str(), "*.*"), 1);
    EXPECT_FALSE(fs::exists(sandbox.Posix("d/name.sch")));
    EXPECT_TRUE(fs::exists(sandbox.Posix("d/sub/x.log")));
    fs::remove_all(sandbox.Posix("d/sub"));
    EXPECT_EQ(doc->CleanFolder(folder.c_str(), "*.*"), 1);
    EXPECT_FALSE(fs::exists(sandbox.Posix("d")));

    EXPECT_EQ(doc->DeleteOutputFile("C:\\d\\", "name.sch"), 0);
    EXPECT_EQ(doc->DeleteOutputFile("C:\\d\\", ""), 0);
    EXPECT_EQ(doc->DeleteOutputFile("C:\\d\\", nullptr), 0);
}

TEST_F(WorkFilesTest, RemovingTheWorkFolderNeedsItToBeTheProjectsOwn) {
    doc->GetWorkFile(nullptr);
    sandbox.Write("p/proj.~PT/amp.sch", "work");
    doc->ownWorkFolder = 0;  // as after a crash
    EXPECT_EQ(doc->RemoveWorkFolder(nullptr), 0);
    EXPECT_TRUE(fs::exists(sandbox.Posix("p/proj.~PT/amp.sch")));

    // A folder named by the caller goes all the same.
    EXPECT_EQ(doc->RemoveWorkFolder(doc->workFolder.c_str()), 1);
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/proj.~PT")));
    EXPECT_EQ(doc->workFolder, "");
}

TEST_F(WorkFilesTest, AWorkFileLeadsBackToItsRealFile) {
    const std::string work = sandbox.Platform("p\\proj.~PT\\a.sch");
    std::string real;
    doc->GetRealFile(work.c_str(), real);
    EXPECT_EQ(real, sandbox.Platform("p\\a.sch"));
    EXPECT_EQ(Status(), "Could not find work file mapping (" + work + ") ...");

    doc->workFiles[work] = "D:\\lib\\a.sch";
    doc->GetRealFile(work.c_str(), real);
    EXPECT_EQ(real, "D:\\lib\\a.sch");
    EXPECT_EQ(Status(), "Using work file (" + work + ") <-> (D:\\lib\\a.sch)");

    // Any path outside a work folder is its own real path, without a word.
    mainWnd->ClearMessages();
    doc->GetRealFile("C:\\p\\b.sch", real);
    EXPECT_EQ(real, "C:\\p\\b.sch");
    doc->GetRealFile("\\\\server\\share\\x.~PT\\c.sch", real);
    EXPECT_EQ(real, "\\\\server\\share\\c.sch");
    doc->GetRealFile("", real);
    EXPECT_EQ(real, "");
    EXPECT_EQ(mainWnd->Messages().size(), 1u);
}

TEST_F(WorkFilesTest, ADocumentIsSavedToItsWorkFileAndStaysModifiedOnItsRealPath) {
    const std::string real = WriteFile("sch/amp.sch", "on disk");
    auto* sheet = static_cast<testing::CSheetDoc*>(app.OpenDocumentFile(real.c_str()));
    ASSERT_NE(sheet, nullptr);
    sheet->text = "on screen";
    sheet->SetModifiedFlag(win::TRUE);

    EXPECT_EQ(doc->SaveToWorkFile(sheet), 1);
    EXPECT_EQ(sandbox.Read("p/proj.~PT/amp.sch"), "on screen");
    EXPECT_EQ(sandbox.Read("sch/amp.sch"), "on disk");
    EXPECT_TRUE(sheet->IsModified());
    EXPECT_EQ(sheet->GetPathName(), real);
    const std::string work = sandbox.Platform("p\\proj.~PT\\amp.sch");
    EXPECT_EQ(doc->workFiles.at(work), real);

    // An unmodified one stays unmodified; the map keeps its first entry.
    sheet->SetModifiedFlag(win::FALSE);
    const std::string other = WriteFile("other/amp.sch", "other");
    sheet->SetPathName(other.c_str(), win::FALSE);
    EXPECT_EQ(doc->SaveToWorkFile(sheet), 1);
    EXPECT_FALSE(sheet->IsModified());
    EXPECT_EQ(doc->workFiles.at(work), real);

    // Saved or closed, the real file replaces the work file.
    EXPECT_EQ(doc->RefreshWorkFile(sheet), 1);
    EXPECT_EQ(sandbox.Read("p/proj.~PT/amp.sch"), "other");
    EXPECT_EQ(doc->workFiles.size(), 1u);
}

TEST_F(WorkFilesTest, ADocumentWithoutPathGoesByItsTitleOrNotAtAll) {
    testing::CSheetDoc sheet;
    EXPECT_EQ(doc->RefreshWorkFile(&sheet), 0);
    EXPECT_EQ(doc->SaveToWorkFile(&sheet), 0);
    EXPECT_EQ(doc->RefreshWorkFile(nullptr), 0);
    EXPECT_TRUE(doc->workFiles.empty());

    sheet.SetTitle("Sheet1");
    sheet.text = "new";
    EXPECT_EQ(doc->SaveToWorkFile(&sheet), 1);
    EXPECT_EQ(sandbox.Read("p/proj.~PT/Sheet1"), "new");
    EXPECT_EQ(sheet.GetPathName(), "Sheet1");
}

TEST_F(WorkFilesTest, ASchematicIsSetAsideAndRestoredWithItsSymbol) {
    sandbox.Write("p/filt.sch", "schematic");
    sandbox.Write("p/filt.sym", "symbol");
    const std::string base = sandbox.Platform("p\\filt");
    EXPECT_EQ(doc->SetAsideSchematic(base.c_str()), 1);
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/filt.sch")));
    EXPECT_EQ(sandbox.Read("p/proj.~PT/filt.sch"), "schematic");
    EXPECT_EQ(sandbox.Read("p/proj.~PT/filt.sym"), "symbol");

    doc->RestoreSchematic(base.c_str());
    EXPECT_EQ(sandbox.Read("p/filt.sch"), "schematic");
    EXPECT_EQ(sandbox.Read("p/filt.sym"), "symbol");
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/proj.~PT/filt.sch")));

    // Without a symbol the schematic is moved all the same, and the result says so.
    fs::remove(sandbox.Posix("p/filt.sym"));
    EXPECT_EQ(doc->SetAsideSchematic(base.c_str()), 0);
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/filt.sch")));
    doc->RestoreSchematic(base.c_str());
    EXPECT_EQ(sandbox.Read("p/filt.sch"), "schematic");
    EXPECT_EQ(doc->SetAsideSchematic(sandbox.Platform("p\\none").c_str()), 0);
}

}  // namespace
}  // namespace velorand
