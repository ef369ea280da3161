#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "core/project_doc.h"
#include "core/testing/example_project.h"
#include "platform/afx/file.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::ExampleProjectTest;

constexpr char kLock[] = "C:\\amp2\\~%amp2.vpj";
const std::string kInUse =
    "Unable to open: C:\\amp2\\amp2.vpj\nThis file is already in use or can't be shared.";
const std::string kUnableToOpen =
    "Unable to open: C:\\amp2\\amp2.vpj\nPlease check if sharing is permitted.";

bool TakeLock(afx::CFile& file) {
    return file.Open(kLock, afx::CFile::modeCreate | afx::CFile::shareExclusive);
}

TEST(LockFileNameTest, TheLockKeepsTheLengthOfLongNamesAndPrefixesShortOnes) {
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\p\\abcdefghijk.vpj"), "C:\\p\\~%cdefghijk.vpj");
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\p\\abc.vpj"), "C:\\p\\~%abc.vpj");
    // Ten characters are short, eleven long.
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\abcdef.vpj"), "C:\\~%abcdef.vpj");
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\abcdefg.vpj"), "C:\\~%cdefg.vpj");
    EXPECT_EQ(CProjectDoc::GetLockFileName("amp2.vpj"), "~%amp2.vpj");
}

using LockFileTest = ExampleProjectTest;

TEST_F(LockFileTest, AnOpenProjectHoldsItsLockUntilItCloses) {
    CProjectDoc* doc = Open(kExample);
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->lockHeld, 1);
    afx::CFile other;
    EXPECT_FALSE(TakeLock(other));

    doc->OnCloseDocument();
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
    EXPECT_TRUE(TakeLock(other));
}

TEST_F(LockFileTest, ASecondOpenerIsRefusedAndTheHoldersFilesStayAsTheyAre) {
    afx::CFile holder;
    ASSERT_TRUE(TakeLock(holder));
    const std::string before = sandbox.Read("amp2/amp2.vpj");
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(Open(kExample), nullptr);
    EXPECT_THAT(Boxes(), ElementsAre(kInUse, kUnableToOpen));
    EXPECT_EQ(user.Record()[0].caption, "Velorand");
    EXPECT_EQ(user.Record()[0].flags, 0u);
    EXPECT_TRUE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
    EXPECT_EQ(sandbox.Read("amp2/amp2.vpj"), before);
    EXPECT_FALSE(HasDocument());

    // Once the holder lets go, the project opens.
    holder.Close();
    EXPECT_NE(Open(kExample), nullptr);
}

TEST_F(LockFileTest, AProjectInAFolderThatCantBeWrittenCantBeLocked) {
    fs::permissions(sandbox.Posix("amp2"), fs::perms::owner_write, fs::perm_options::remove);
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(Open(kExample), nullptr);
    fs::permissions(sandbox.Posix("amp2"), fs::perms::owner_write, fs::perm_options::add);
    EXPECT_THAT(Boxes(), ElementsAre(kInUse, kUnableToOpen));
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
}

}  // namespace
}  // namespace velorand
