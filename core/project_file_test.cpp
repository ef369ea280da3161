#include "core/project_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <regex>
#include <string>

#include "core/testing/project_fixture.h"
#include "platform/win/app_profile.h"
#include "platform/win/private_profile.h"

namespace velorand {
namespace {

using testing::ProjectTest;

// The file with its creation time, which changes from run to run, as "<date>".
std::string WithoutDate(const std::string& text) {
    static const std::regex stamp("DateCreated=\\d\\d/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d\\n");
    return std::regex_replace(text, stamp, "DateCreated=<date>\n");
}

std::string Lines(int count, const std::string& format) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += std::regex_replace(format, std::regex("%d"), std::to_string(i));
    }
    return text;
}

TEST_F(ProjectTest, TheLineWritersWriteANewFileByteForByte) {
    sandbox.Write("amp2/amp2.vpj", "[MRU List]\nC:\\amp2\\amp2.sch=0,5,0,0,0,0,1,2,3,4\n");
    ASSERT_EQ(
        WriteNewProjectFile("C:\\amp2\\amp2.vpj", "amp2", "C:\\amp2\\amp2.sch", 1, "C:\\amp2\\"),
        1);
    EXPECT_EQ(WithoutDate(sandbox.Read("amp2/amp2.vpj")),
              "[Project]\n"
              "ProjectID=amp2\n"
              "ProjectRelease=4.0\n"
              "ProjectVersion=40\n"
              "DateCreated=<date>\n"
              "LastUpdated=\n"
              "TopLevelSchematic=C:\\amp2\\amp2.sch\n"
              "Simulator=1\n"
              "Location=C:\\amp2\\\n"
              "RelativePath=\n"
              "\n"
              "[Search Paths]\n"
              "\n"
              "\n"
              "[Setting]\n"
              "\n"
              "[Extra]\n"
              "\n");

    WriteImportedProjectFile("C:\\imp\\lowpass.vpj", "C:\\imp\\");  // its folder is missing
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("imp")));
    std::filesystem::create_directories(sandbox.Posix("imp"));
    WriteImportedProjectFile("C:\\imp\\lowpass.vpj", "C:\\imp\\");
    EXPECT_EQ(WithoutDate(sandbox.Read("imp/lowpass.vpj")),
              "[Project]\n"
              "ProjectID=lowpass\n"
              "ProjectRelease=4.0\n"
              "ProjectVersion=40\n"
              "DateCreated=<date>\n"
              "LastUpdated=\n"
              "TopLevelSchematic=C:\\imp\\lowpass.sch\n"
              "Simulator=0\n"
              "Location=C:\\imp\\\n"
              "RelativePath=\n"
              "\n"
              "[Search Paths]\n"
              "\n"
              "SearchPath0=C:\\imp\n"
              "[Setting]\n"
              "\n"
              "[Extra]\n"
              "\n");
}

TEST_F(ProjectTest, ALineWriterThatCannotOpenItsFileFailsAndLeavesItAlone) {
    sandbox.Write("ro/amp.vpj", "[Project]\nProjectID=amp\n");
    chmod(sandbox.Posix("ro/amp.vpj").c_str(), 0444);
    EXPECT_EQ(WriteNewProjectFile("C:\\ro\\amp.vpj", "amp", "", 0, "C:\\ro\\"), 0);
    EXPECT_EQ(sandbox.Read("ro/amp.vpj"), "[Project]\nProjectID=amp\n");
    EXPECT_EQ(WriteNewProjectFile("C:\\missing\\amp.vpj", "amp", "", 0, "C:\\missing\\"), 0);
    EXPECT_EQ(WriteNewProjectFile("C:\\bad|name\\amp.vpj", "amp", "", 0, "C:\\"), 0);
}

TEST_F(ProjectTest, WriteProjectKeysAddsTheWholeProjectSectionBehindWhatIsThere) {
    CProjectDoc* doc = MakeDocument();
    sandbox.Write("p/amp.vpj", "[MRU List]\nC:\\p\\amp.sch=0,5,0,0,0,0,1,2,3,4\n");
    doc->SetPathName("C:\\p\\amp.vpj", win::FALSE);
    doc->projectID = "amp";
    doc->dateCreated = "01/02/24 10:11:12";
    doc->topLevelSchematic = "C:\\p\\amp.sch";
    doc->simulator = -1;
    doc->location = "C:\\p\\";
    doc->searchPaths = {"C:\\lib", "C:\\parts"};
    doc->WriteProjectKeys();
    std::string text = sandbox.Read("p/amp.vpj");
    std::regex updated("LastUpdated=\\d\\d/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d\\n");
    EXPECT_TRUE(std::regex_search(text, updated)) << text;
    EXPECT_EQ(std::regex_replace(text, updated, "LastUpdated=<now>\n"),
              "[MRU List]\n"
              "C:\\p\\amp.sch=0,5,0,0,0,0,1,2,3,4\n"
              "[Project]\n"
              "ProjectID=amp\n"
              "ProjectRelease=4.0\n"
              "ProjectVersion=40\n"
              "DateCreated=01/02/24 10:11:12\n"
              "LastUpdated=<now>\n"
              "TopLevelSchematic=C:\\p\\amp.sch\n"
              "Simulator=-1\n"
              "Location=C:\\p\\\n"
              "RelativePath=\n"
              "[Search Paths]\n"
              "SearchPath0=C:\\lib\n"
              "SearchPath1=C:\\parts\n");
}

TEST_F(ProjectTest, WritesToAReadOnlyProjectFileFailWithoutAWord) {
    CProjectDoc* doc = MakeDocument();
    const std::string before = "[Project]\nProjectID=amp\nLocation=C:\\ro\\\n";
    sandbox.Write("ro/amp.vpj", before);
    chmod(sandbox.Posix("ro/amp.vpj").c_str(), 0444);
    std::string owner;
    ASSERT_EQ(doc->ReadProjectFile("C:\\ro\\amp.vpj", owner), 1);
    EXPECT_EQ(doc->projectID, "amp");
    doc->SetPathName("C:\\ro\\amp.vpj", win::FALSE);
    doc->WriteProjectKeys();
    EXPECT_EQ(sandbox.Read("ro/amp.vpj"), before);
    EXPECT_TRUE(user.Record().empty());
}

TEST_F(ProjectTest, RelativePathIsTheWayFromTheProjectToTheTopSchematicsFolder) {
    CProjectDoc* doc = MakeDocument();
    struct Case {
        const char* project;
        const char* schematic;
        const char* relative;
    };
    const Case cases[] = {
        {"C:\\a\\proj\\amp.vpj", "C:\\a\\sch\\amp.sch", "..\\sch\\"},
        {"C:\\a\\proj\\amp.vpj", "C:\\a\\proj\\amp.sch", ""},
        {"C:\\a\\proj\\amp.vpj", "D:\\a\\proj\\amp.sch", ""},  // no common root
        {"C:\\a\\amp.vpj", "C:\\a\\sch\\sub\\amp.sch", "sch\\sub\\"},
        {"C:\\a\\b\\c\\amp.vpj", "C:\\x\\amp.sch", "..\\..\\..\\x\\"},
        {"C:\\A\\Proj\\amp.vpj", "c:\\a\\SCH\\amp.sch", "..\\SCH\\"},  // case ignored
        {"C:\\ab\\amp.vpj", "C:\\abc\\amp.sch", "..\\abc\\"},          // no prefix match
    };
    for (const Case& c : cases) {
        doc->SetPathName(c.project, win::FALSE);
        doc->topLevelSchematic = c.schematic;
        doc->relativePath = "stale";
        doc->ComputeRelativePath();
        EXPECT_EQ(doc->relativePath, c.relative) << c.project << " " << c.schematic;
    }
    doc->topLevelSchematic.clear();
    doc->ComputeRelativePath();
    EXPECT_EQ(doc->relativePath, "");
}

TEST_F(ProjectTest, TheLineReaderTakesItsKeysFromAnySectionAndTheLastOneWins) {
    CProjectDoc* doc = MakeDocument();
    std::string path = WriteFile("p/amp.vpj",
                                 "[Project]\r\n"
                                 "ProjectID=   amp\r\n"
                                 "ProjectVersion=7\r\n"
                                 "DateCreated=01/02/24 10:11:12\r\n"
                                 "TopLevelSchematic=  C:\\p\\amp.sch\r\n"
                                 "Location=C:\\old\\\r\n"
                                 "RelativePath= ..\\sch\\\r\n"
                                 "Owner=\t mia\r\n"
                                 "projectid=lower case keys count for nothing\r\n"
                                 "[Search Paths]\r\n"
                                 "SearchPath0=C:\\lib\r\n"
                                 "Location=   C:\\x\\\r\n");
    std::string owner;
    ASSERT_EQ(doc->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(doc->projectID, "   amp");
    EXPECT_EQ(doc->projectVersion, 7u);
    EXPECT_EQ(doc->dateCreated, "01/02/24 10:11:12");
    EXPECT_EQ(doc->topLevelSchematic, "C:\\p\\amp.sch");
    EXPECT_EQ(doc->location, "C:\\x\\");
    EXPECT_EQ(doc->relativePath, " ..\\sch\\");
    EXPECT_EQ(owner, "mia");
    EXPECT_EQ(doc->simulator, -1);  // no Simulator line: no test, no simulator
    EXPECT_EQ(doc->simulatorInfo, nullptr);
    EXPECT_TRUE(doc->mruFiles.empty());
}

TEST_F(ProjectTest, TheDefaultSessionSkipsTheSimulatorLineWhateverTheCase) {
    CProjectDoc* doc = MakeDocument();
    std::string path = WriteFile("p/%session.vpj",
                                 "[Project]\nProjectID=%SESSION\nSimulator=5\nLocation=C:\\p\\\n");
    std::string owner;
    ASSERT_EQ(doc->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(doc->simulator, -1);
    EXPECT_EQ(doc->simulatorInfo, nullptr);
    EXPECT_EQ(doc->location, "C:\\p\\");
}

TEST_F(ProjectTest, TheSimulatorLineRunsTheSimulatorTestWhichCanFailTheRead) {
    win::WriteProfileString("Template List", "Simulator", "Lumentra");
    CProjectDoc* doc = MakeDocument();
    std::string path =
        WriteFile("p/amp.vpj", "[Project]\nProjectID=amp\nSimulator=1\nLocation=C:\\p\\\n");
    std::string owner;
    ASSERT_EQ(doc->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(doc->simulator, 1);
    ASSERT_NE(doc->simulatorInfo, nullptr);
    EXPECT_EQ(doc->location, "C:\\p\\");

    // Index 0 is "Not Installed" here: the reading stops at once.
    CProjectDoc* other = MakeDocument();
    path = WriteFile("p/qt.vpj", "[Project]\nProjectID=qt\nSimulator=0\nLocation=C:\\p\\\n");
    EXPECT_EQ(other->ReadProjectFile(path.c_str(), owner), 0);
    EXPECT_EQ(other->simulator, 0);
    EXPECT_EQ(other->location, "");
    EXPECT_TRUE(user.Record().empty());
}

TEST_F(ProjectTest, TheFileListTakesExistingFilesFromEveryLineBehindItsHead) {
    CProjectDoc* doc = MakeDocument();
    sandbox.Write("p/amp.sch", "");
    sandbox.Write("p/bias.sym", "");
    sandbox.Write("p/folder/readme.txt", "");
    std::string path = WriteFile("p/amp.vpj",
                                 "[Project]\n"
                                 "ProjectID=amp\n"
                                 "[MRU List]\n"
                                 "C:\\p\\amp.sch=0,5,0,0,0,0,1,2,3,4\n"
                                 "C:\\p\\gone.sch=0,5,0,0,0,0,1,2,3,4\n"
                                 "C:\\p\\folder=0,5,0,0,0,0,1,2,3,4\n"
                                 "[PdfFiles]\n"
                                 "PdfFiles0=C:\\p\\notes.pdf\n"
                                 "==C:\\p\\bias.sym=0,3\n"
                                 "=\n"
                                 "\n"
                                 "ProjectID=behind the list\n");
    std::string owner;
    ASSERT_EQ(doc->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(doc->projectID, "amp");
    EXPECT_EQ(doc->mruFiles, (std::list<std::string>{"C:\\p\\amp.sch", "C:\\p\\bias.sym"}));
}

TEST_F(ProjectTest, BadProjectFilesAreReadAsFarAsTheyGoAndNothingOverruns) {
    CProjectDoc* doc = MakeDocument();
    std::string owner;
    EXPECT_EQ(doc->ReadProjectFile("C:\\p\\missing.vpj", owner), 0);
    std::filesystem::create_directories(sandbox.Posix("p/dir.vpj"));
    EXPECT_EQ(doc->ReadProjectFile("C:\\p\\dir.vpj", owner), 0);

    // A line of 600 characters ends the reading; what stood before it counts.
    std::string path = WriteFile(
        "p/long.vpj", "ProjectID=long\nLocation=" + std::string(591, 'x') + "\nProjectID=after\n");
    ASSERT_EQ(doc->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(doc->projectID, "long");
    EXPECT_EQ(doc->location, "");
    path = WriteFile("p/fits.vpj", "Location=" + std::string(590, 'x') + "\n");
    ASSERT_EQ(doc->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(doc->location.size(), 590u);

    // Binary bytes and NULs: a value ends at its NUL, garbage lines match nothing.
    const char head[] = "\x01\xff\xfe[Proj\0ect]\n";
    const char id[] = "ProjectID=am\0p2\n";
    std::string binary = std::string(head, sizeof head - 1) + std::string(id, sizeof id - 1) +
                         "\x80\x81=\x82\n" + "TopLevelSchematic=C:\\p\\amp.sch\n";
    path = WriteFile("p/binary.vpj", binary);
    ASSERT_EQ(doc->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(doc->projectID, "am");
    EXPECT_EQ(doc->topLevelSchematic, "C:\\p\\amp.sch");

    // No [Project] at all, and 300 search paths that this reader has no use for.
    CProjectDoc* fresh = MakeDocument();
    path = WriteFile("p/paths.vpj", "[Search Paths]\n" + Lines(300, "SearchPath%d=C:\\lib%d\n"));
    ASSERT_EQ(fresh->ReadProjectFile(path.c_str(), owner), 1);
    EXPECT_EQ(fresh->projectID, "");
    EXPECT_EQ(fresh->location, "");
    EXPECT_EQ(fresh->simulator, -1);
    EXPECT_TRUE(fresh->searchPaths.empty());
    EXPECT_EQ(sandbox.Read("p/paths.vpj"),
              "[Search Paths]\n" + Lines(300, "SearchPath%d=C:\\lib%d\n"));
}

TEST(ProjectSummary, TheDeleteDialogsReaderTakesEveryPathOfTheSectionInFileOrder) {
    testing::Sandbox sandbox;
    sandbox.Write("p/amp.vpj",
                  "[Project]\r\n"
                  "ProjectID=amp\r\n"
                  "TopLevelSchematic= C:\\p\\amp.sch\r\n"
                  "RelativePath=\r\n"
                  "[Search Paths]\r\n"
                  "SearchPath5=C:\\lib\r\n"
                  "no equals sign\r\n"
                  "SearchPath0=[odd\r\n"
                  "x=y=C:\\parts\r\n"
                  "[Setting]\r\n"
                  "SearchPath9=C:\\not a path\r\n"
                  "Location=  C:\\p\\\r\n");
    ProjectFileSummary summary;
    ASSERT_TRUE(ReadProjectSummary("C:\\p\\amp.vpj", summary));
    EXPECT_EQ(summary.projectID, "amp");
    EXPECT_EQ(summary.topLevelSchematic, "C:\\p\\amp.sch");
    EXPECT_EQ(summary.location, "C:\\p\\");
    EXPECT_EQ(summary.searchPaths, (std::vector<std::string>{"C:\\lib", "C:\\parts"}));
    EXPECT_FALSE(ReadProjectSummary("C:\\p\\missing.vpj", summary));

    sandbox.Write("p/many.vpj", "[Search Paths]\n" + Lines(300, "SearchPath%d=C:\\lib%d\n"));
    ASSERT_TRUE(ReadProjectSummary("C:\\p\\many.vpj", summary));
    ASSERT_EQ(summary.searchPaths.size(), 300u);
    EXPECT_EQ(summary.searchPaths.back(), "C:\\lib299");
}

TEST(DocumentationFiles, AreReadUpToTheFirstGapAndAtMost255) {
    testing::Sandbox sandbox;
    sandbox.Write("p/amp.vpj",
                  "[PdfFiles]\nPdfFiles0=C:\\p\\a.pdf\nPdfFiles1=C:\\p\\b.pdf\n"
                  "PdfFiles3=C:\\p\\d.pdf\n");
    EXPECT_EQ(ReadDocumentationFiles("C:\\p\\amp.vpj"),
              (std::vector<std::string>{"C:\\p\\a.pdf", "C:\\p\\b.pdf"}));
    sandbox.Write("p/empty.vpj", "[PdfFiles]\nPdfFiles0=\nPdfFiles1=C:\\p\\b.pdf\n");
    EXPECT_TRUE(ReadDocumentationFiles("C:\\p\\empty.vpj").empty());
    sandbox.Write("p/many.vpj", "[PdfFiles]\n" + Lines(300, "PdfFiles%d=C:\\p\\%d.pdf\n"));
    std::vector<std::string> many = ReadDocumentationFiles("C:\\p\\many.vpj");
    ASSERT_EQ(many.size(), 255u);
    EXPECT_EQ(many.back(), "C:\\p\\254.pdf");
}

}  // namespace
}  // namespace velorand
