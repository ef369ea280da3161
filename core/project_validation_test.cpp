#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/win/current_directory.h"
#include "platform/win/private_profile.h"
#include "platform/win/temp_path.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kProjectFile[] =
    "[Project]\nProjectID=proj\n\n[MRU List]\nC:\\p\\top.sch=0,1,0,0,0,0,0,0,10,10\n";

class ProjectValidationTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj", kProjectFile);
        ASSERT_NE(doc, nullptr);
        WriteFile("p/top.sch", "");
        doc->topLevelSchematic = sandbox.Platform("p\\top.sch");
    }

    static std::string CurrentFolder() {
        char folder[win::MAX_PATH];
        return std::string(folder, win::GetCurrentDirectory(sizeof folder, folder));
    }

    CProjectDoc* doc = nullptr;
};

TEST_F(ProjectValidationTest, AValidProjectsFolderBecomesTheCurrentOne) {
    doc->netlistFile = sandbox.Platform("p\\proj.ckt");
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 1);
    EXPECT_EQ(CurrentFolder(), sandbox.Platform("p"));
    // A netlist that isn't there is forgotten.
    EXPECT_EQ(doc->netlistFile, "");
    EXPECT_TRUE(user.Record().empty());

    // Without a folder the project lives in the temporary folder, which it doesn't own.
    doc->location.clear();
    doc->ownWorkFolder = 1;
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 1);
    char temp[win::MAX_PATH];
    EXPECT_EQ(doc->location, std::string(temp, win::GetTempPath(sizeof temp, temp)));
    EXPECT_EQ(doc->ownWorkFolder, 0);
}

TEST_F(ProjectValidationTest, ANameMustBeAFileNameOfAtMost256Characters) {
    doc->projectID = std::string(256, 'a');
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 1);

    doc->projectID = std::string(257, 'a');
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 0);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Project Manager");
    EXPECT_EQ(user.Record()[0].text, "The project name " + doc->projectID +
                                         " is not valid.\n\nIt has more than 256 characters\n");
    EXPECT_EQ(user.Record()[0].flags, 0x30u);

    doc->projectID = "two words";
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 0);
    ASSERT_EQ(user.Record().size(), 2u);
    EXPECT_EQ(user.Record()[1].caption, "Velorand");
}

TEST_F(ProjectValidationTest, AMovedSchematicIsFoundBesideTheProjectFile) {
    WriteFile("p/sub/amp.sch", "");
    doc->topLevelSchematic = "C:\\before\\sub\\amp.sch";
    doc->relativePath = "sub\\";
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 1);
    EXPECT_EQ(doc->topLevelSchematic, "sub\\amp.sch");
    char value[260];
    win::GetPrivateProfileString("Project", "TopLevelSchematic", "", value, sizeof value,
                                 doc->GetPathName().c_str());
    EXPECT_EQ(std::string(value), sandbox.Platform("p\\sub\\amp.sch"));
    EXPECT_TRUE(user.Record().empty());
}

TEST_F(ProjectValidationTest, AMissingSchematicIsNoFaultOfANewProject) {
    doc->topLevelSchematic = sandbox.Platform("p\\new.sch");
    EXPECT_EQ(doc->ValidateProject(win::TRUE), 1);
    EXPECT_TRUE(user.Record().empty());
}

TEST_F(ProjectValidationTest, AMissingSchematicAsksWhetherToChangeTheProject) {
    fs::remove(sandbox.Posix("p/top.sch"));
    user.Answer(win::IDCANCEL);
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 0);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].text,
              "Top level schematic top.sch does not exist.\n\n"
              "Do you want to modify the project?\n");
    EXPECT_EQ(user.Record()[0].flags, 0x31u);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), HasSubstr("[MRU List]"));

    // OK forgets the saved windows and closes the project's files; the dialog decides.
    testing::CSheetDoc* sheet = OpenSheet("p/other.sch", "");
    doc->openDocs = {sheet};
    doc->mruFiles = {"C:\\p\\top.sch"};
    doc->netlistFile = sandbox.Platform("p\\proj.vpj");
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->ValidateProject(win::FALSE), 0);
    EXPECT_THAT(sandbox.Read("p/proj.vpj"), Not(HasSubstr("[MRU List]")));
    EXPECT_TRUE(doc->mruFiles.empty());
    EXPECT_EQ(doc->netlistFile, "");
    EXPECT_TRUE(Sheets().empty());
    doc->openDocs.clear();  // the hub's part, when the host tells of the close
}

}  // namespace
}  // namespace velorand
