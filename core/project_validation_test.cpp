#include <gmock/gmock.h>

#include <string>

#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "platform/win/current_directory.h"
#include "platform/win/private_profile.h"
#include "platform/win/temp_path.h"

namespace velorand {
namespace {

constexpr char kProjectFile[] = "[Project]\nProjectID=proj\n";

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

}  // namespace
}  // namespace velorand
