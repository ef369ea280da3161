#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/win/private_profile.h"
#include "tools/testing/toolchain_fixture.h"

namespace velorand {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::ToolchainTest;

const std::string kExampleTree = R"(amp2 - [Quintaris] (0)
  amp2 (2)
    match_in  [M1] (2)
    match_out  [M2] (2)
    stage  [X1] (2)
      bias  [B1] (2)
        rfc  [L1] (2)
    stage  [X2] (2)
      bias  [B1] (2)
        rfc  [L1] (2)
Documentation (0)
  design_notes - [Info] (6)
)";

const std::string kUnableToBuild = "Unable to build project tree for:\n\nC:\\amp2\\amp2.sch";

void MakeReadOnly(const std::filesystem::path& path) {
    chmod(path.c_str(), 0444);
}

std::vector<std::string> Keys(const CProjectDoc& doc) {
    std::vector<std::string> keys;
    for (const auto& [key, record] : doc.schematics)
        keys.push_back(key);
    return keys;
}

TEST_F(ToolchainTest, BuildsTheExampleTreeThroughTreescan) {
    EXPECT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->treeValid, 1);
    EXPECT_EQ(Tree(), kExampleTree);
    EXPECT_THAT(Keys(*doc), ElementsAre("amp2", "bias", "match_in", "match_out", "rfc", "stage"));
    // The tool read the working copy of the top level; its record names the real file.
    EXPECT_EQ(doc->schematics["amp2"].path, "C:\\amp2\\amp2.sch");
    EXPECT_EQ(doc->schematics["stage"].path, "C:\\amp2\\stage.sch");
    EXPECT_THAT(doc->schematics["stage"].symbols, ElementsAre("C:\\amp2\\bias.sym"));
    EXPECT_EQ(doc->schematics["amp2"].symbols.size(), 5u);
    // The record of a sheet used twice holds its first item.
    afx::CTreeCtrl& tree = doc->treeView->GetTreeCtrl();
    win::HTREEITEM top = doc->schematics["amp2"].treeItem;
    EXPECT_EQ(tree.GetItemText(tree.GetParentItem(doc->schematics["stage"].treeItem)), "amp2");
    EXPECT_EQ(tree.GetItemText(doc->schematics["stage"].treeItem), "stage  [X1]");
    EXPECT_EQ(tree.GetItemState(top, win::TVIS_EXPANDED), win::TVIS_EXPANDED);
    // The documentation item points at the project's list, with the bare file name.
    ASSERT_EQ(doc->pdfFiles.size(), 1u);
    EXPECT_EQ(*doc->pdfFiles[0], "design_notes.pdf");
    EXPECT_EQ(tree.GetItemData(tree.GetChildItem(doc->docTreeItem)),
              reinterpret_cast<win::DWORD_PTR>(doc->pdfFiles[0].get()));
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("amp2/amp2.scf")));
    EXPECT_EQ(mainWnd->Messages().front().text, "Building Schematic Tree...");
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(ToolchainTest, AnUnchangedListingTouchesNeitherTreeNorRecords) {
    ASSERT_EQ(doc->UpdateTree(), 1);
    win::HTREEITEM stageItem = doc->schematics["stage"].treeItem;
    doc->schematics["stage"].state = SchematicNode::kOpened;

    EXPECT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->schematics["stage"].treeItem, stageItem);
    EXPECT_EQ(doc->schematics["stage"].state, SchematicNode::kOpened);
    EXPECT_EQ(Tree(), kExampleTree);
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("amp2/amp2.scf")));

    // A stage without its bias changes the listing: the tree is read anew.
    std::string stage = sandbox.Read("amp2/stage.sch");
    stage.erase(stage.find("use bias"),
                stage.find('\n', stage.find("use bias")) + 1 - stage.find("use bias"));
    sandbox.Write("amp2/stage.sch", stage);
    EXPECT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->schematics["stage"].state, 0u);
    EXPECT_THAT(Keys(*doc), ElementsAre("amp2", "match_in", "match_out", "stage"));
    EXPECT_THAT(Tree(), HasSubstr("    stage  [X1] (2)\n    stage  [X2] (2)\nDocumentation"));
}

TEST_F(ToolchainTest, OpenDocumentsAreLinkedToTheirRecords) {
    afx::CDocument* stage = new afx::CDocument;
    stage->SetPathName("C:\\amp2\\STAGE.SCH", win::FALSE);
    doc->openDocs.push_back(stage);
    ASSERT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->schematics["stage"].openDoc, stage);
    EXPECT_EQ(doc->schematics["bias"].openDoc, nullptr);
    doc->openDocs.clear();
    delete stage;
}

TEST_F(ToolchainTest, OutOfDateFilesAreBroughtUpToTheCurrentVersion) {
    std::string bias = sandbox.Read("amp2/bias.sch");
    bias.replace(bias.find("ver 40"), 6, "ver 30");
    sandbox.Write("amp2/bias.sch", bias);
    std::string rfc = sandbox.Read("amp2/lib/rfc.sch");
    rfc.replace(rfc.find("ver 40"), 6, "ver 31");
    sandbox.Write("amp2/lib/rfc.sch", rfc);
    MakeReadOnly(sandbox.Posix("amp2/lib/rfc.sch"));
    user.Answer(win::IDOK);

    ASSERT_EQ(doc->UpdateTree(), 1);
    EXPECT_THAT(sandbox.Read("amp2/bias.sch"), HasSubstr("\nver 40\n"));
    EXPECT_THAT(sandbox.Read("amp2/lib/rfc.sch"), HasSubstr("\nver 31\n"));
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(
        user.Record()[0].text,
        "The file needs to be updated to the current version.\nC:\\amp2\\lib\\rfc.sch is read "
        "only!");
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Project Manager");
    EXPECT_EQ(user.Record()[0].flags, 0x30u);
}

class FileListTest : public ToolchainTest {
  protected:
    void PrepareProfile() override { win::WriteProfileString("Project", "ShowFileList", "1"); }
};

TEST_F(FileListTest, TheFileListShowsEverySchematicWithItsSymbols) {
    ASSERT_EQ(doc->UpdateTree(), 1);
    EXPECT_THAT(Tree(), HasSubstr(R"(amp2 - Project FileList (0)
  C:\amp2\amp2.~PT\amp2.sch (2)
    C:\amp2\lib\dcfeed.sym (4)
    C:\amp2\lib\titleblk.sym (4)
    C:\amp2\match_in.sym (4)
    C:\amp2\match_out.sym (4)
    C:\amp2\stage.sym (4)
  C:\amp2\bias.sch (2)
)"));
}

TEST_F(ToolchainTest, WithoutToolsTheTreeIsTheTopLevelAlone) {
    doc->toolsEnabled = 0;
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->UpdateTree(), 0);
    EXPECT_EQ(doc->treeValid, 0);
    EXPECT_THAT(Boxes(), ElementsAre(kUnableToBuild));
    EXPECT_EQ(sandbox.Read("amp2/amp2.st%"), "~ amp2 (C:\\amp2\\amp2.sch)");
    EXPECT_EQ(Tree(), R"(amp2 - [Quintaris] (0)
  amp2 (2)
Documentation (0)
  design_notes - [Info] (6)
)");
}

TEST_F(ToolchainTest, InCommandTestModeAFailedBuildIsNotTold) {
    doc->toolsEnabled = 0;
    doc->commandTest = 1;
    EXPECT_EQ(doc->UpdateTree(), 0);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(ToolchainTest, AFailingTreescanLeavesAStubAndHandsOverItsLog) {
    sandbox.Write("amp2/stage.sch", "[schematic2]\nver 40\n[bogus]\n");
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->UpdateTree(), 0);
    EXPECT_THAT(Boxes(), ElementsAre(kUnableToBuild));
    EXPECT_EQ(sandbox.Read("amp2/amp2.st%"), "~ amp2 (C:\\amp2\\amp2.sch)");
    bool notified = false;
    for (const host::HostMessage& message : mainWnd->Messages())
        if (message.message == host::CMainFrame::kShowToolLog)
            notified = message.text == "C:\\amp2\\amp2.~PT\\amp2.dbg";
    EXPECT_TRUE(notified);
    EXPECT_THAT(sandbox.Read("amp2/amp2.~PT/amp2.dbg"), HasSubstr("treescan: error:"));
}

TEST_F(ToolchainTest, ATreescanWithoutMainCannotBuildTheTree) {
    UseStandIns(VELORAND_NO_MAIN_TOOLS_DIR);
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->UpdateTree(), 0);
    EXPECT_THAT(Boxes(), ElementsAre(kUnableToBuild));
}

TEST_F(ToolchainTest, AReadOnlyListingIsNotRebuilt) {
    sandbox.Write("amp2/amp2.st%", "~ amp2 (C:\\amp2\\amp2.sch)\n1  stage (X1 <-> stage.sch)\n");
    MakeReadOnly(sandbox.Posix("amp2/amp2.st%"));
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->UpdateTree(), 0);
    EXPECT_TRUE(Calls().empty());
    EXPECT_THAT(Boxes(), ElementsAre(kUnableToBuild));
    EXPECT_EQ(sandbox.Read("amp2/amp2.st%"),
              "~ amp2 (C:\\amp2\\amp2.sch)\n1  stage (X1 <-> stage.sch)\n");
}

TEST_F(ToolchainTest, ATreescanThatLeavesNoListingLeavesTheTreeAsItWas) {
    ASSERT_EQ(doc->UpdateTree(), 1);
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    EXPECT_EQ(doc->UpdateTree(), 0);
    EXPECT_EQ(Tree(), kExampleTree);
    EXPECT_TRUE(Boxes().empty());
    EXPECT_TRUE(std::filesystem::exists(sandbox.Posix("amp2/amp2.scf")));
}

TEST_F(ToolchainTest, ASchematicYetToBeDrawnGetsAStubAndCountsAsValid) {
    doc->topLevelSchematic = "C:\\amp2\\fresh.sch";
    doc->projectID = "fresh";
    EXPECT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->treeValid, 1);
    EXPECT_EQ(sandbox.Read("amp2/fresh.st%"), "~ fresh (C:\\amp2\\fresh.sch)");
    EXPECT_EQ(sandbox.Read("amp2/fresh.sch"),
              "[schematic2]\nver 40\n\n[tools]\n[detail]\n[cell use]\n[comments]\n"
              "ProjectName=fresh\nDirectory=C:\\amp2\\\nSimulator=0\n");
    EXPECT_THAT(Tree(), HasSubstr("fresh - [Quintaris] (0)\n  fresh (2)\nDocumentation"));
}

TEST_F(ToolchainTest, AMovedTopLevelIsFoundBesideTheProject) {
    doc->topLevelSchematic = "D:\\old\\amp2.sch";
    EXPECT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->topLevelSchematic, "C:\\amp2\\amp2.sch");
    EXPECT_EQ(Tree(), kExampleTree);
}

TEST_F(ToolchainTest, ARelativeTopLevelIsStoredWithItsFolder) {
    doc->topLevelSchematic = "amp2.sch";
    EXPECT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->topLevelSchematic, "C:\\amp2\\amp2.sch");
    char value[260];
    win::GetPrivateProfileString("Project", "TopLevelSchematic", "", value, sizeof value,
                                 "C:\\amp2\\amp2.vpj");
    EXPECT_STREQ(value, "C:\\amp2\\amp2.sch");
}

// Listings as a broken or foreign tool might leave them: each is read as far as it goes.
struct ListingCase {
    const char* name;
    std::string listing;
    std::string tree;  // below the top level item
};

class ListingReaderTest : public ToolchainTest,
                          public ::testing::WithParamInterface<ListingCase> {};

void PrintTo(const ListingCase& listing, std::ostream* out) {
    *out << listing.name;
}

TEST_P(ListingReaderTest, ReadsAsFarAsTheListingGoes) {
    StandInListing(GetParam().listing);
    EXPECT_EQ(doc->UpdateTree(), 1);
    std::string tree = Tree();
    std::string top = "amp2 - [Quintaris] (0)\n";
    std::string documentation = "Documentation (0)\n  design_notes - [Info] (6)\n";
    EXPECT_EQ(tree, top + GetParam().tree + documentation);
    EXPECT_TRUE(Boxes().empty());
}

const std::string kRoot = "~ amp2 (C:\\amp2\\amp2.sch)\n";
const std::string kLong(620, 'x');

INSTANTIATE_TEST_SUITE_P(
    BadInput, ListingReaderTest,
    ::testing::Values(
        ListingCase{"Empty", "", ""},
        ListingCase{"PreambleOnly", "treescan 4.0\nno hierarchy\n", ""},
        // The level-3 line hangs on the last level-1 item; the level-2 line behind it is
        // then read at level 1, where its dot is no name.
        ListingCase{
            "LevelJump",
            kRoot + "1  a (A1 <-> a.sch)\n3  ..  c (C1 <-> c.sch)\n2  .  b (B1 <-> b.sch)\n",
            "  amp2 (2)\n    a  [A1] (2)\n      c  [C1] (2)\n"},
        ListingCase{"FirstLineTooDeep", kRoot + "2  .  b (B1 <-> b.sch)\n1  a (A1 <-> a.sch)\n",
                    "  amp2 (2)\n    a  [A1] (2)\n    b  [B1] (2)\n"},
        ListingCase{"MissingDots", kRoot + "1  a (A1 <-> a.sch)\n2  b (B1 <-> b.sch)\n",
                    "  amp2 (2)\n    a  [A1] (2)\n"},
        ListingCase{"BlankLineInHierarchy", kRoot + "1  a (A1 <-> a.sch)\n\n1  b (B1 <-> b.sch)\n",
                    "  amp2 (2)\n    a  [A1] (2)\n"},
        ListingCase{"BlankLinesBeforeRoot", "\n\n" + kRoot + "1  a (A1 <-> a.sch)\n",
                    "  amp2 (2)\n    a  [A1] (2)\n"},
        ListingCase{"SpaceBeforeRoot", " " + kRoot + "1  a (A1 <-> a.sch)\n", ""},
        ListingCase{
            "OverlongLine",
            kRoot + "1  a (A1 <-> a.sch)\n1  " + kLong + " (L1 <-> l.sch)\n1  b (B1 <-> b.sch)\n",
            "  amp2 (2)\n    a  [A1] (2)\n"},
        ListingCase{"PathWithSpaces", kRoot + "1  a (A1 <-> C:\\my amp\\a.sch)\n",
                    "  amp2 (2)\n    a  [A1] (2)\n"},
        ListingCase{"CutOffInAPath", kRoot + "1  a (A1 <-> C:\\amp2\\a.s",
                    "  amp2 (2)\n    a  [A1] (2)\n"},
        ListingCase{"CutOffInAName", kRoot + "1  a (A1 <-> a.sch)\n1  b",
                    "  amp2 (2)\n    a  [A1] (2)\n"},
        ListingCase{"CutOffInTheRoot", "~ amp2 (C:\\amp2\\am", "  amp2 (2)\n"},
        ListingCase{"CrLfLineEnds", "~ amp2 (C:\\amp2\\amp2.sch)\r\n1  a (A1 <-> a.sch)\r\n\r\n",
                    "  amp2 (2)\n    a  [A1] (2)\n"}),
    [](const ::testing::TestParamInfo<ListingCase>& info) { return info.param.name; });

TEST_F(ToolchainTest, TheFileListIsReadWhateverItsShape) {
    StandInListing(kRoot + "1  stage (X1 <-> C:\\amp2\\stage.sch)\n" +
                   "Schematic: C:\\amp2\\amp2.sch (0)\n"  // ends the hierarchy, not seen
                   "\n"
                   " indented preamble\n"
                   "Schematic: C:\\amp2\\stage.sch (0)\n"
                   "Symbol: C:/amp2/bias.sym\n"
                   "Symbol: C:\\my amp\\spaced.sym\n"
                   "Schematic: C:\\my amp\\bias.sch\n"  // no count, no record: no update
                   "Symbol: C:\\amp2\\orphan.sym\n"
                   "Schematic: C:\\my amp\\amp2.sch (0)\n"
                   "Symbol: C:\\amp2\\top.sym\n"
                   "\n"
                   "Schematic: C:\\amp2\\stage.sch (0)\n"
                   "Symbol: C:\\amp2\\after_blank.sym\n");
    ASSERT_EQ(doc->UpdateTree(), 1);
    EXPECT_THAT(doc->schematics["stage"].symbols, ElementsAre("C:\\amp2\\bias.sym", "C:\\my"));
    EXPECT_THAT(doc->schematics["amp2"].symbols, ElementsAre("C:\\amp2\\top.sym"));
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(ToolchainTest, SchematicLinesWithoutACountAskForNoUpdate) {
    std::string bias = sandbox.Read("amp2/bias.sch");
    bias.replace(bias.find("ver 40"), 6, "ver 30");
    sandbox.Write("amp2/bias.sch", bias);
    StandInListing(kRoot + "\nSchematic: C:\\amp2\\bias.sch\nSchematic: C:\\amp2\\bias.sch (x)\n");
    ASSERT_EQ(doc->UpdateTree(), 1);
    EXPECT_THAT(sandbox.Read("amp2/bias.sch"), HasSubstr("\nver 30\n"));
}

TEST_F(ToolchainTest, RecordsAreFoundByItemTextAndBySymbol) {
    ASSERT_EQ(doc->UpdateTree(), 1);
    EXPECT_EQ(doc->FindSchematicByText("Stage  [X2]"), "C:\\amp2\\stage.sch");
    EXPECT_EQ(doc->FindSchematicByText("amp2"), "C:\\amp2\\amp2.sch");
    EXPECT_EQ(doc->FindSchematicByText("stateckt  [S1]"), "");

    doc->schematics["bias"].symbols.push_back("C:\\amp2\\stage.sym");
    std::vector<std::string> users;
    std::string position;
    do {
        std::string user = doc->FindSymbolUser("C:\\amp2\\stage.sym", position);
        if (!user.empty())
            users.push_back(user);
    } while (!position.empty());
    EXPECT_THAT(users, ElementsAre("C:\\amp2\\amp2.sch", "C:\\amp2\\bias.sch"));
    EXPECT_EQ(doc->FindSymbolUser("C:\\amp2\\none.sym", position), "");
    EXPECT_TRUE(position.empty());
}

}  // namespace
}  // namespace velorand
