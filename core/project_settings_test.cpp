#include "core/project_settings.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "core/testing/loaded_project.h"
#include "platform/win/private_profile.h"

namespace velorand {
namespace {

using ::testing::ElementsAre;
using Paths = std::vector<std::string>;

class ProjectSettingsTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("p", "proj",
                          "[Project]\nProjectID=proj\n\n[Search Paths]\nSearchPath0=C:\\old\n");
        ASSERT_NE(doc, nullptr);
        doc->topLevelSchematic = sandbox.Platform("p\\top.sch");
        doc->searchPaths = {"C:\\old"};
    }

    std::string Key(const char* section, const char* key) const {
        char value[260];
        win::GetPrivateProfileString(section, key, "(none)", value, sizeof value,
                                     doc->GetPathName().c_str());
        return value;
    }

    CProjectDoc* doc = nullptr;
};

TEST_F(ProjectSettingsTest, ANewProjectTakesTheDialogsValuesInTheirFileForm) {
    ProjectSettings values;
    values.mode = kModeNewProject;
    values.projectID = "amp.VPJ";
    values.topLevelSchematic = sandbox.Platform("new\\sub\\amp");
    values.location = sandbox.Platform("new");
    values.simulator = 1;
    values.searchPaths = {"C:\\lib", "lib2"};
    WriteFile("new/amp.vpj", "[Project]\nProjectID=amp\n");  // as the commit wrote it

    EXPECT_EQ(doc->ApplyProjectSettings(values), 1);
    EXPECT_EQ(doc->projectID, "amp");
    EXPECT_EQ(doc->topLevelSchematic, sandbox.Platform("new\\sub\\amp.sch"));
    EXPECT_EQ(doc->location, sandbox.Platform("new") + "\\");
    EXPECT_EQ(doc->GetPathName(), sandbox.Platform("new\\amp.vpj"));
    EXPECT_EQ(doc->simulator, 1);
    ASSERT_NE(doc->simulatorInfo, nullptr);
    EXPECT_EQ(doc->simulatorInfo->GetDisplayName(), SimulatorInfo(1).GetDisplayName());
    EXPECT_EQ(doc->projectVersion, 40u);
    EXPECT_EQ(doc->relativePath, "sub\\");
    EXPECT_THAT(doc->searchPaths, ElementsAre("C:\\lib", "lib2"));
    // The file gets these keys; the project commit has written the rest.
    EXPECT_EQ(Key("Project", "RelativePath"), "sub\\");
    EXPECT_EQ(Key("Project", "ProjectVersion"), "40");
    EXPECT_EQ(Key("Search Paths", "SearchPath1"), "lib2");
    EXPECT_TRUE(Sheets().empty());
}

TEST_F(ProjectSettingsTest, AChangedProjectKeepsItsFolderAndTellsTheEditorTheNewPaths) {
    WriteFile("p/top.sch", "");
    testing::CSheetDoc* editor = OpenSheet("p/top.sch", "");
    ASSERT_NE(editor, nullptr);
    doc->activeDoc = editor;

    ProjectSettings values;
    values.mode = kModeModifyProject;
    values.projectID = "proj";
    values.topLevelSchematic = sandbox.Platform("p\\top.SCH");
    values.location = "C:\\elsewhere";
    values.simulator = 0;
    values.searchPaths = {"C:\\new"};
    EXPECT_EQ(doc->ApplyProjectSettings(values), 1);
    EXPECT_EQ(doc->location, sandbox.Platform("p") + "\\");
    EXPECT_EQ(doc->topLevelSchematic, sandbox.Platform("p\\top.SCH"));
    EXPECT_THAT(ViewOf(editor)->scriptLines, ElementsAre(":delpathdir C:\\old", ":path +C:\\new"));
    EXPECT_EQ(Key("Search Paths", "SearchPath0"), "C:\\new");
}

TEST_F(ProjectSettingsTest, TheDialogOfAChangeRunsOnceAndNeverInTheSuitesCommandTests) {
    WriteFile("p/proj.vpj", "[Search Paths]\nSearchPath0=C:\\from file\n");
    doc->projectDlgOpen = 1;
    EXPECT_EQ(doc->ModifyProject(), 0);
    EXPECT_EQ(doc->projectDlgOpen, 1);
    EXPECT_THAT(doc->searchPaths, ElementsAre("C:\\old"));

    // The dialog is given the file's paths, then stays away in a command test.
    doc->projectDlgOpen = 0;
    doc->commandTest = 1;
    EXPECT_EQ(doc->ModifyProject(), 0);
    EXPECT_EQ(doc->projectDlgOpen, 0);
    EXPECT_THAT(doc->searchPaths, ElementsAre("C:\\from file"));
    EXPECT_TRUE(user.Record().empty());
}

}  // namespace
}  // namespace velorand
