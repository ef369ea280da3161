#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "core/project_doc.h"
#include "core/testing/example_project.h"
#include "host/project_notify.h"
#include "platform/win/app_profile.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kQuestion[] =
    "Some files were saved from previous program exception.\n\nDo you wish to recover these "
    "files?";

// The host dies with a changed schematic, and the project is opened again.
class CrashRecoveryTest : public testing::ExampleProjectTest {
  protected:
    void SetUp() override {
        ExampleProjectTest::SetUp();
        CProjectDoc* doc = Open(kExample);
        ASSERT_NE(doc, nullptr);
        auto* top = dynamic_cast<testing::CSheetDoc*>(doc->topDoc);
        ASSERT_NE(top, nullptr);
        doc->Attach(nullptr, top);
        original = top->text;
        changed = top->text + "\n";
        top->text = changed;
        top->SetModifiedFlag(win::TRUE);
        ProjectNotify record;
        record.code = 329;
        user.Answer(win::IDOK);
        EXPECT_EQ(doc->OnFatalError(&record), 1);
        // The host ends without further questions; its process, and the lock, go.
        top->SetModifiedFlag(win::FALSE);
        doc->OnCloseDocument();
    }

    std::string original;
    std::string changed;
};

TEST_F(CrashRecoveryTest, TheFatalErrorKeepsTheUnsavedWorkAndNotesWhereItLies) {
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Program Exception");
    EXPECT_EQ(user.Record()[0].text, "Program will terminate due to an exception.\n");
    EXPECT_EQ(user.Record()[0].flags, 16u);
    EXPECT_EQ(sandbox.Read("amp2/amp2.~PT/amp2.sch"), changed);
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), original);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), HasSubstr("FatalPath=C:\\amp2\\amp2.~PT\n"));
    char value[260];
    win::GetProfileString("Velorand", "LastOpenProject", "", value, sizeof value);
    EXPECT_EQ(std::string(value), kExample);
    EXPECT_EQ(win::GetProfileInt("Velorand", "DoRecovery", 0), 1u);
}

TEST_F(CrashRecoveryTest, TheNextOpenOffersTheSavedFilesAndYesTakesThemBack) {
    sandbox.Write("amp2/amp2.~PT/deeper/sub.sch", "not taken");
    user.Answer(win::IDYES);
    ASSERT_NE(Open(kExample), nullptr);
    EXPECT_EQ(Boxes().back(), kQuestion);
    EXPECT_EQ(user.Record().back().flags, 36u);
    EXPECT_EQ(sandbox.Read("amp2/amp2.sch"), changed);
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/sub.sch")));
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), Not(HasSubstr("FatalPath")));
}

TEST_F(CrashRecoveryTest, NoEndsTheOpenQuietlyAndTheNextOpenDoesntAsk) {
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

TEST_F(CrashRecoveryTest, ANoteOfAGoneFolderIsDroppedWithoutAQuestion) {
    fs::remove_all(sandbox.Posix("amp2/amp2.~PT"));
    const std::size_t boxes = Boxes().size();
    CProjectDoc* doc = Open(kExample);
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(Boxes().size(), boxes);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), Not(HasSubstr("FatalPath")));

    // Without a project file there is nowhere to recover to.
    doc->SetPathName("", win::FALSE);
    EXPECT_EQ(doc->RecoverFiles("C:\\amp2"), 0);
}

}  // namespace
}  // namespace velorand
