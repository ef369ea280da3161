#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "suite/loaded_tool.h"

namespace suite {
namespace {

using ::testing::HasSubstr;
using velorand::testing::SandboxTest;
using namespace suite::testing;

// The search list the launcher gives for the example: current folder, then its lib
// folder, then a model folder that doesn't exist.
const std::string kPaths = R"(-pC:\amp2+C:\amp2\lib+C:\bin\QuintarisUDM+)";

const std::string kExampleListing = R"(~ amp2 (C:\amp2\amp2.sch)
1  match_in (M1 <-> C:\amp2\match_in.sch)
1  stage (X1 <-> C:\amp2\stage.sch)
2  .  bias (B1 <-> C:\amp2\bias.sch)
3  ..  rfc (L1 <-> C:\amp2\lib\rfc.sch)
1  stage (X2 <-> C:\amp2\stage.sch)
2  .  bias (B1 <-> C:\amp2\bias.sch)
3  ..  rfc (L1 <-> C:\amp2\lib\rfc.sch)
1  match_out (M2 <-> C:\amp2\match_out.sch)

Schematic: C:\amp2\amp2.sch (0)
Symbol: C:\amp2\match_in.sym
Symbol: C:\amp2\stage.sym
Symbol: C:\amp2\match_out.sym
Symbol: C:\amp2\lib\dcfeed.sym
Symbol: C:\amp2\lib\titleblk.sym
Schematic: C:\amp2\match_in.sch (0)
Schematic: C:\amp2\stage.sch (0)
Symbol: C:\amp2\bias.sym
Schematic: C:\amp2\bias.sch (0)
Symbol: C:\amp2\lib\rfc.sym
Schematic: C:\amp2\lib\rfc.sch (0)
Schematic: C:\amp2\match_out.sch (0)
)";

class TreescanTest : public SandboxTest {
  protected:
    void SetUp() override { CopyExampleProject(sandbox); }

    // The tree build's call: treescan -h0 -p<paths> -l -sh -o<listing> <target>.
    int BuildTree(const std::string& target = R"(C:\amp2\amp2.sch)",
                  const std::string& paths = kPaths) {
        return CallTool("treescan", {"-h0", paths, "-l", "-sh", R"(-oC:\amp2\amp2.st%)", target});
    }

    std::string Listing() const { return sandbox.Read("amp2/amp2.st%"); }
    std::string Log() const { return sandbox.Read("amp2/amp2.dbg"); }
};

TEST_F(TreescanTest, ListsTheExampleHierarchyInTheListingGrammar) {
    EXPECT_EQ(BuildTree(), 0) << Log();
    EXPECT_EQ(Listing(), kExampleListing);
    EXPECT_THAT(Log(), HasSubstr("treescan: done\n"));
    EXPECT_FALSE(ToolIsLoaded("treescan"));
}

TEST_F(TreescanTest, SectionsFollowTheListOptions) {
    ASSERT_EQ(CallTool("treescan", {kPaths, R"(-oC:\amp2\amp2.st%)", R"(C:\amp2\amp2.sch)"}), 0);
    EXPECT_EQ(Listing(), "~ amp2 (C:\\amp2\\amp2.sch)\n\n");
    ASSERT_EQ(CallTool("treescan", {kPaths, "-sh", R"(-oC:\amp2\amp2.st%)", R"(C:\amp2\amp2.sch)"}),
              0);
    EXPECT_EQ(Listing(), "~ amp2 (C:\\amp2\\amp2.sch)\n\n" +
                             kExampleListing.substr(kExampleListing.find("Schematic:")));
}

TEST_F(TreescanTest, WorkingCopiesWinOverTheRealFiles) {
    // The work folder stands first in the list: its copies of the top level and of a
    // stage that lost its bias are what the listing names.
    std::filesystem::create_directory(sandbox.Posix("amp2/amp2.~PT"));
    std::filesystem::copy_file(sandbox.Posix("amp2/amp2.sch"),
                               sandbox.Posix("amp2/amp2.~PT/amp2.sch"));
    std::string stage = sandbox.Read("amp2/stage.sch");
    stage.erase(stage.find("use bias"),
                stage.find('\n', stage.find("use bias")) + 1 - stage.find("use bias"));
    sandbox.Write("amp2/amp2.~PT/stage.sch", stage);

    ASSERT_EQ(
        BuildTree(R"(C:\amp2\amp2.~PT\amp2.sch)", R"(-pC:\amp2\amp2.~PT+C:\amp2+C:\amp2\lib+)"), 0);
    std::string listing = Listing();
    EXPECT_EQ(listing.substr(0, listing.find("\n\n") + 2), R"(~ amp2 (C:\amp2\amp2.~PT\amp2.sch)
1  match_in (M1 <-> C:\amp2\match_in.sch)
1  stage (X1 <-> C:\amp2\amp2.~PT\stage.sch)
1  stage (X2 <-> C:\amp2\amp2.~PT\stage.sch)
1  match_out (M2 <-> C:\amp2\match_out.sch)

)");
    // The log lies beside the target, in the work folder.
    EXPECT_THAT(sandbox.Read("amp2/amp2.~PT/amp2.dbg"), HasSubstr("done"));
}

TEST_F(TreescanTest, OldFilesAreMarkedAndNamesFollowTheDisk) {
    std::string bias = sandbox.Read("amp2/bias.sch");
    bias.replace(bias.find("ver 40"), 6, "ver 30");
    std::filesystem::remove(sandbox.Posix("amp2/bias.sch"));
    sandbox.Write("amp2/Bias.sch", bias);
    std::string stage = sandbox.Read("amp2/stage.sch");
    stage.replace(stage.find("use bias"), 8, "use BIAS");
    sandbox.Write("amp2/stage.sch", stage);

    ASSERT_EQ(BuildTree(), 0) << Log();
    EXPECT_THAT(Listing(), HasSubstr("2  .  Bias (B1 <-> C:\\amp2\\Bias.sch)\n"));
    EXPECT_THAT(Listing(), HasSubstr("Schematic: C:\\amp2\\Bias.sch (1)\n"));
    EXPECT_THAT(Listing(), HasSubstr("Schematic: C:\\amp2\\stage.sch (0)\n"));
}

TEST_F(TreescanTest, DeepHierarchiesAddOneDotPerLevel) {
    // a -> s1 -> s2 -> ... -> s11: the level number keeps three columns.
    std::string head = "[schematic2]\nver 40\n\n[cell use]\n";
    sandbox.Write("deep/a.sch", head + "use s1 U1\n");
    for (int i = 1; i <= 11; ++i)
        sandbox.Write("deep/s" + std::to_string(i) + ".sch",
                      head + (i < 11 ? "use s" + std::to_string(i + 1) + " U1\n" : ""));
    ASSERT_EQ(
        CallTool("treescan", {R"(-pC:\deep+)", "-l", R"(-oC:\deep\a.st%)", R"(C:\deep\a.sch)"}), 0);
    std::string listing = sandbox.Read("deep/a.st%");
    EXPECT_THAT(listing, HasSubstr("\n1  s1 (U1 <-> C:\\deep\\s1.sch)\n2  .  s2 (U1"));
    EXPECT_THAT(listing, HasSubstr("\n10 .........  s10 (U1 <-> C:\\deep\\s10.sch)\n"));
    EXPECT_THAT(listing, HasSubstr("\n11 ..........  s11 (U1 <-> C:\\deep\\s11.sch)\n\n"));
}

TEST_F(TreescanTest, PathListNamesEveryFileOfTheProjectOnce) {
    // The delete dialog's call.
    ASSERT_EQ(
        CallTool("treescan", {"-h0", R"(-pC:\amp2+C:\amp2\lib+)", "-r", "-l", "-sh",
                              R"(-oC:\amp2\amp2.del)", R"(-cC:\amp2\)", R"(C:\amp2\amp2.sch)"}),
        0);
    EXPECT_EQ(sandbox.Read("amp2/amp2.del"), R"(C:\amp2\amp2.sch
C:\amp2\match_in.sym
C:\amp2\stage.sym
C:\amp2\match_out.sym
C:\amp2\lib\dcfeed.sym
C:\amp2\lib\titleblk.sym
C:\amp2\match_in.sch
C:\amp2\stage.sch
C:\amp2\bias.sym
C:\amp2\lib\rfparts.lib
C:\amp2\bfp640.s2p
C:\amp2\bias.sch
C:\amp2\lib\rfc.sym
C:\amp2\lib\rfc.sch
C:\amp2\match_out.sch
)");
    // Confined to the lib folder, only its files are named.
    ASSERT_EQ(CallTool("treescan", {R"(-pC:\amp2+C:\amp2\lib+)", "-r", R"(-oC:\amp2\amp2.del)",
                                    R"(-cC:\amp2\LIB)", R"(C:\amp2\amp2.sch)"}),
              0);
    EXPECT_EQ(sandbox.Read("amp2/amp2.del"), R"(C:\amp2\lib\dcfeed.sym
C:\amp2\lib\titleblk.sym
C:\amp2\lib\rfparts.lib
C:\amp2\lib\rfc.sym
C:\amp2\lib\rfc.sch
)");
}

TEST_F(TreescanTest, CopyTakesTheProjectFolderAndArchiveEverything) {
    // The library moves out of the project, to be shared with others.
    std::filesystem::rename(sandbox.Posix("amp2/lib"), sandbox.Posix("shared"));
    std::filesystem::create_directories(sandbox.Posix("copy"));
    std::filesystem::create_directories(sandbox.Posix("archive"));
    const std::string paths = R"(-pC:\amp2+C:\shared+)";
    auto folder = [&](const std::string& name) {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(sandbox.Posix(name)))
            files.push_back(entry.path().filename().string());
        std::sort(files.begin(), files.end());
        return files;
    };

    // Copy: "-c" + the source folder leaves the shared library where it is.
    ASSERT_EQ(CallTool("treescan", {"-h0", paths, "-l", "-sh", R"(-oC:\amp2\amp2.st%)",
                                    R"(-aC:\copy\)", R"(-cC:\amp2\)", R"(C:\amp2\amp2.sch)"}),
              0)
        << Log();
    EXPECT_EQ(folder("copy"),
              (std::vector<std::string>{"amp2.sch", "bfp640.s2p", "bias.sch", "bias.sym",
                                        "match_in.sch", "match_in.sym", "match_out.sch",
                                        "match_out.sym", "stage.sch", "stage.sym"}));
    EXPECT_EQ(sandbox.Read("copy/stage.sch"), sandbox.Read("amp2/stage.sch"));
    EXPECT_THAT(Listing(), HasSubstr("3  ..  rfc (L1 <-> C:\\shared\\rfc.sch)\n"));

    // Archive: everything the hierarchy needs, side by side.
    ASSERT_EQ(CallTool("treescan", {"-h0", paths, "-l", "-sh", R"(-oC:\amp2\amp2.st%)",
                                    R"(-aC:\archive)", R"(C:\amp2\amp2.sch)"}),
              0);
    EXPECT_EQ(folder("archive").size(), 15u);
    for (const char* name : {"rfc.sch", "rfc.sym", "titleblk.sym", "dcfeed.sym", "rfparts.lib"})
        EXPECT_EQ(sandbox.Read(std::string("archive/") + name),
                  sandbox.Read(std::string("shared/") + name))
            << name;
}

TEST_F(TreescanTest, ACopyIntoAMissingFolderFails) {
    EXPECT_EQ(CallTool("treescan", {kPaths, "-l", R"(-oC:\amp2\amp2.st%)", R"(-aC:\nowhere\)",
                                    R"(C:\amp2\amp2.sch)"}),
              14);
    EXPECT_THAT(Log(), HasSubstr("treescan: error: the copy's folder C:\\nowhere does not exist"));
}

TEST_F(TreescanTest, BadInputFailsWithALogAndNoListing) {
    struct Case {
        const char* what;
        std::string file;  // replaces stage.sch
        int result;
        const char* logged;
    };
    std::string head = "[schematic2]\nver 40\n\n[cell use]\n";
    const Case cases[] = {
        {"cycle", head + "use amp2 U1 a b\n", 13,
         "the hierarchy has a cycle: amp2 -> stage -> amp2"},
        {"first line", "schematic2\nver 40\n", 12,
         "line 1: the file does not begin with [schematic2]"},
        {"version", "[schematic2]\nversion 40\n", 12, "line 2: the second line is not 'ver NN'"},
        {"use without instance", head + "use bias\n", 12,
         "line 5: a use line needs a cell and an instance name"},
        {"use outside", "[schematic2]\nver 40\n[detail]\nuse bias B1\n", 12,
         "line 4: a use line outside [cell use]"},
        {"unknown section", head + "[cells]\n", 12, "line 5: unknown section [cells]"},
        {"bad cell", head + "use ../x U1\n", 12, "line 5: '../x' is no cell name"},
        {"long line", head + "use RES R1 a b R=" + std::string(600, '1') + "\n", 12,
         "line 5: longer than 599 characters"},
    };
    for (const Case& c : cases) {
        sandbox.Write("amp2/stage.sch", c.file);
        std::filesystem::remove(sandbox.Posix("amp2/amp2.st%"));
        EXPECT_EQ(BuildTree(), c.result) << c.what;
        EXPECT_THAT(Log(), HasSubstr(c.logged)) << c.what;
        EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("amp2/amp2.st%"))) << c.what;
    }
}

TEST_F(TreescanTest, MissingFilesAndBadCommandLinesFail) {
    EXPECT_EQ(BuildTree(R"(C:\amp2\none.sch)"), 11);
    EXPECT_THAT(sandbox.Read("amp2/none.dbg"), HasSubstr("cannot open 'C:\\amp2\\none.sch'"));

    EXPECT_EQ(CallTool("treescan", {kPaths, "-l", R"(C:\amp2\amp2.sch)"}), 10);
    EXPECT_THAT(Log(), HasSubstr("no listing file given (-o)"));
    EXPECT_EQ(CallTool("treescan", {kPaths, "-x", R"(-oC:\amp2\amp2.st%)", R"(C:\amp2\amp2.sch)"}),
              10);
    EXPECT_THAT(Log(), HasSubstr("unknown option '-x'"));
    EXPECT_EQ(CallTool("treescan", {R"(C:\amp2\amp2.sch)", "-l"}), 10);
    EXPECT_EQ(CallTool("treescan", {}), 10);

    // A read-only listing is left as it was.
    sandbox.Write("amp2/amp2.st%", "old");
    chmod(sandbox.Posix("amp2/amp2.st%").c_str(), 0444);
    EXPECT_EQ(BuildTree(), 14);
    EXPECT_EQ(Listing(), "old");
    EXPECT_THAT(Log(), HasSubstr("read-only"));
}

TEST_F(TreescanTest, ListingsThatTheComponentCouldNotReadAreRefused) {
    sandbox.Write("odd dir/a.sch", "[schematic2]\nver 40\n");
    EXPECT_EQ(CallTool("treescan", {"-l", R"(-oC:\odd dir\a.st%)", R"(C:\odd dir\a.sch)"}), 0);
    sandbox.Write("odd dir/a b.sch", "[schematic2]\nver 40\n");
    EXPECT_EQ(CallTool("treescan", {"-l", R"(-oC:\odd dir\a.st%)", R"(C:\odd dir\a b.sch)"}), 12);
    EXPECT_THAT(sandbox.Read("odd dir/a b.dbg"), HasSubstr("the name 'a b' holds a blank"));
}

}  // namespace
}  // namespace suite
