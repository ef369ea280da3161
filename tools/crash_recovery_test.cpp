#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "core/project_doc.h"
#include "core/testing/example_project.h"
#include "core/testing/loaded_project.h"
#include "host/project_notify.h"
#include "platform/win/app_profile.h"
#include "platform/win/private_profile.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using testing::CSheetDoc;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kQuestion[] =
    "Some files were saved from previous program exception.\n\nDo you wish to recover these "
    "files?";

class CrashRecoveryTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj", "[Project]\nProjectID=proj\n");
        ASSERT_NE(doc, nullptr);
    }

    std::string ProfileValue(const char* key) const {
        char value[260];
        win::GetProfileString("Velorand", key, "", value, sizeof value);
        return value;
    }
    // Notes a crash in the project file, with a work folder that holds the files.
    void LeaveCrashNote(const std::string& folder) {
        WriteFile("p/proj.vpj",
                  "[Project]\nProjectID=proj\nFatalPath=" + sandbox.Platform(folder) + "\n");
    }

    CProjectDoc* doc = nullptr;
};

TEST_F(CrashRecoveryTest, TheFatalErrorKeepsTheUnsavedWorkAndNotesWhereItLies) {
    CSheetDoc* sheet = OpenSheet("p/amp.sch", "on disk");
    ASSERT_NE(sheet, nullptr);
    sheet->text = "unsaved";
    sheet->SetModifiedFlag(win::TRUE);
    doc->openDocs = {sheet};
    doc->ownWorkFolder = 1;

    ProjectNotify record;
    record.code = 329;
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->OnFatalError(&record), 1);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Program Exception");
    EXPECT_EQ(user.Record()[0].text, "Program will terminate due to an exception.\n");
    EXPECT_EQ(user.Record()[0].flags, 16u);

    EXPECT_EQ(sandbox.Read("p/proj.~PT/amp.sch"), "unsaved");
    EXPECT_EQ(sandbox.Read("p/amp.sch"), "on disk");
    EXPECT_EQ(doc->ownWorkFolder, 0);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"),
                HasSubstr("FatalPath=" + sandbox.Platform("p\\proj.~PT") + "\n"));
    EXPECT_EQ(ProfileValue("LastOpenProject"), doc->GetPathName());
    EXPECT_EQ(ProfileValue("DoRecovery"), "1");

    // The work folder outlives the project's close, which asks nothing more.
    sheet->SetModifiedFlag(win::FALSE);
    doc->OnCloseDocument();
    EXPECT_TRUE(fs::exists(sandbox.Posix("p/proj.~PT/amp.sch")));
}

TEST_F(CrashRecoveryTest, TheHostsTextIsShownWhenItGivesOne) {
    const std::string text = "Program will terminate due to an exception:\nBad address\n";
    ProjectNotify record;
    record.argument = reinterpret_cast<win::LPARAM>(text.c_str());
    user.Answer(win::IDOK);
    doc->OnFatalError(&record);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].text, text);
}

TEST_F(CrashRecoveryTest, YesCopiesTheSavedFilesIntoTheProjectsFolderOverTheOldOnes) {
    sandbox.Write("p/proj.~PT/amp.sch", "recovered");
    sandbox.Write("p/proj.~PT/amp.sym", "symbol");
    sandbox.Write("p/proj.~PT/deeper/sub.sch", "not taken");
    sandbox.Write("p/amp.sch", "old");
    LeaveCrashNote("p/proj.~PT");

    user.Answer(win::IDYES);
    EXPECT_EQ(doc->CheckCrashRecovery(doc->GetPathName().c_str()), 1);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Project Manager");
    EXPECT_EQ(user.Record()[0].text, kQuestion);
    EXPECT_EQ(user.Record()[0].flags, 36u);
    EXPECT_EQ(sandbox.Read("p/amp.sch"), "recovered");
    EXPECT_EQ(sandbox.Read("p/amp.sym"), "symbol");
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/sub.sch")));
    EXPECT_FALSE(fs::exists(sandbox.Posix("p/deeper")));
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), Not(HasSubstr("FatalPath")));
}

TEST_F(CrashRecoveryTest, NoRefusesOnceAndTheNoteIsGoneForTheNextOpen) {
    sandbox.Write("p/proj.~PT/amp.sch", "recovered");
    sandbox.Write("p/amp.sch", "old");
    LeaveCrashNote("p/proj.~PT");

    user.Answer(win::IDNO);
    EXPECT_EQ(doc->CheckCrashRecovery(doc->GetPathName().c_str()), 0);
    EXPECT_EQ(sandbox.Read("p/amp.sch"), "old");
    EXPECT_EQ(sandbox.Read("p/proj.~PT/amp.sch"), "recovered");

    EXPECT_EQ(doc->CheckCrashRecovery(doc->GetPathName().c_str()), 1);
    EXPECT_EQ(user.Record().size(), 1u);
}

TEST_F(CrashRecoveryTest, ANoteOfAGoneFolderIsDroppedWithoutAQuestion) {
    LeaveCrashNote("p/proj.~PT");
    EXPECT_EQ(doc->CheckCrashRecovery(doc->GetPathName().c_str()), 1);
    EXPECT_TRUE(user.Record().empty());
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), Not(HasSubstr("FatalPath")));

    // Nor does a project that ended normally ask.
    EXPECT_EQ(doc->CheckCrashRecovery(doc->GetPathName().c_str()), 1);
    EXPECT_TRUE(user.Record().empty());
}

TEST_F(CrashRecoveryTest, FilesAreRecoveredOnlyIntoTheFolderOfAProjectFile) {
    sandbox.Write("kept/amp.sch", "saved");
    EXPECT_EQ(doc->RecoverFiles(sandbox.Platform("kept").c_str()), 1);
    EXPECT_EQ(sandbox.Read("p/amp.sch"), "saved");

    doc->SetPathName("", win::FALSE);
    EXPECT_EQ(doc->RecoverFiles(sandbox.Platform("kept").c_str()), 0);
}

// The whole way: the host dies with a changed schematic, and the project is opened again.
class CrashAndReopenTest : public testing::ExampleProjectTest {
  protected:
    void SetUp() override {
        ExampleProjectTest::SetUp();
        CProjectDoc* doc = Open(kExample);
        ASSERT_NE(doc, nullptr);
        auto* top = dynamic_cast<CSheetDoc*>(doc->topDoc);
        ASSERT_NE(top, nullptr);
        doc->Attach(nullptr, top);
        changed = top->text + "\n";
        top->text = changed;
        top->SetModifiedFlag(win::TRUE);
        ProjectNotify record;
        user.Answer(win::IDOK);
        doc->OnFatalError(&record);
        // The host ends without further questions; its process, and the lock, go.
        top->SetModifiedFlag(win::FALSE);
        doc->OnCloseDocument();
        original = sandbox.Read("amp2/amp2.sch");
    }

    std::string changed;
    std::string original;
};

TEST_F(CrashAndReopenTest, TheNextOpenOffersTheSavedFilesAndYesTakesThemBack) {
    EXPECT_EQ(sandbox.Read("amp2/amp2.~PT/amp2.sch"), changed);
    EXPECT_NE(original, changed);
    user.Answer(win::IDYES);
    ASSERT_NE(Open(kExample), nullptr);
    EXPECT_EQ(Boxes().back(), kQuestion);
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), changed);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), Not(HasSubstr("FatalPath")));
}

TEST_F(CrashAndReopenTest, NoEndsTheOpenQuietlyAndTheNextOpenDoesntAsk) {
    user.Answer(win::IDNO);
    EXPECT_EQ(Open(kExample), nullptr);
    // Still in recovery: the failure has no message of its own.
    EXPECT_EQ(Boxes().back(), kQuestion);
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), original);
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));

    const std::size_t boxes = Boxes().size();
    ASSERT_NE(Open(kExample), nullptr);
    EXPECT_EQ(Boxes().size(), boxes);
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), original);
}

}  // namespace
}  // namespace velorand
