#include "tools/tool_launcher.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/win/private_profile.h"
#include "tools/testing/toolchain_fixture.h"

namespace velorand {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ToolchainTest;

// The model folders behind every search list, with "~p3" unset.
const std::string kModelFolders =
    "bin\\QuintarisUDM+bin\\LumentraUDM\\compiled+bin\\LumentraUDM\\MATLAB+";

class ToolLauncherTest : public ToolchainTest {
  protected:
    std::string Host() const {
        return "-h" + std::to_string(win::NumberFromHandle(mainWnd->m_hWnd));
    }
    // The logs the host was handed, in order.
    std::vector<std::string> LogNotices() const {
        std::vector<std::string> logs;
        for (const host::HostMessage& message : mainWnd->Messages())
            if (message.message == kToolLogNotice)
                logs.push_back(message.text);
        return logs;
    }
};

TEST_F(ToolLauncherTest, WithToolsOffNothingIsDone) {
    doc->toolsEnabled = 0;
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    EXPECT_EQ(doc->RunTool("sch2qt", TF_HOST_WINDOW | TF_PATHS | TF_OUTPUT), 1);
    EXPECT_THAT(Calls(), IsEmpty());
    EXPECT_TRUE(mainWnd->Messages().empty());
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("amp2/amp2.~PT")));
}

TEST_F(ToolLauncherTest, TheNetlistRunGetsItsCommandLine) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    EXPECT_EQ(doc->RunTool("sch2qt", TF_HOST_WINDOW | TF_PATHS | TF_OUTPUT), 0);
    // The work folder first, then the current folder (which is also the schematic's and the
    // project's), the project's search path as written, and the model folders.
    EXPECT_THAT(Calls(), ElementsAre(ElementsAre(
                             "sch2qt", Host(), "-pC:\\amp2\\amp2.~PT+C:\\amp2+lib+" + kModelFolders,
                             "-oC:\\amp2\\amp2.ckt", "C:\\amp2\\amp2.~PT\\amp2.sch")));
    EXPECT_EQ(sandbox.Read("amp2/amp2.~PT/amp2.sch"), sandbox.Read("amp2/amp2.sch"));
    EXPECT_EQ(doc->workFiles["C:\\amp2\\amp2.~PT\\amp2.sch"], "C:\\amp2\\amp2.sch");
    EXPECT_EQ(doc->toolLogFile, "C:\\amp2\\amp2.~PT\\amp2.log");
    EXPECT_THAT(LogNotices(), IsEmpty());
    EXPECT_EQ(mainWnd->StatusText(), "Ready");
}

TEST_F(ToolLauncherTest, EveryFlagTakesItsPlaceInTheVector) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    doc->netlistFile = "C:\\amp2\\out\\amp2.lmt";
    EXPECT_EQ(doc->RunTool("treescan", TF_DEBUG | TF_TREE_LOG | TF_OUTPUT | TF_NO_LOG_NOTICE,
                           {"-l", "-o C:\\x y"}),
              0);
    EXPECT_THAT(Calls(),
                ElementsAre(ElementsAre("treescan", "-debug", Host(),
                                        "-pC:\\amp2\\amp2.~PT+C:\\amp2+lib+" + kModelFolders,
                                        "-oC:\\amp2\\out\\amp2.lmt", "-d", "-l", "-o C:\\x y",
                                        "C:\\amp2\\amp2.~PT\\amp2.sch")));
    EXPECT_EQ(doc->toolLogFile, "C:\\amp2\\amp2.~PT\\amp2.dbg");
}

TEST_F(ToolLauncherTest, ThePathListNamesEachFolderOnce) {
    // The current folder in other letters among the search paths, the schematic's folder
    // equal to the project's, and the model folders below the suite's folder.
    sandbox.Write("amp2/amp2.vpj",
                  "[Project]\nProjectID=amp2\n[Search Paths]\nSearchPath0=C:\\\n"
                  "SearchPath1=C:\\AMP2\\lib\nSearchPath2=c:\\\n");
    win::WriteProfileString("Velorand", "~p3", "C:\\Velorand\\velorand.exe");
    ASSERT_TRUE(win::SetCurrentDirectory("C:\\"));
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    EXPECT_EQ(doc->RunTool("sch2qt", TF_PATHS), 0);
    ASSERT_EQ(Calls().size(), 1u);
    EXPECT_EQ(Calls()[0][1],
              "-pC:\\amp2\\amp2.~PT+C:\\+C:\\amp2+C:\\AMP2\\lib+C:\\Velorand\\bin\\QuintarisUDM+"
              "C:\\Velorand\\bin\\LumentraUDM\\compiled+C:\\Velorand\\bin\\LumentraUDM\\MATLAB+");
}

TEST_F(ToolLauncherTest, AMissingLibraryIsToldAndLeavesTheLogFileAlone) {
    doc->toolLogFile = "C:\\amp2\\before.log";
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->RunTool("nosuchtool", TF_PATHS), kToolNotLoaded);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].text, "Unable to load DLL: 'nosuchtool' \n\nerror code: 7e\n");
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Project Manager");
    EXPECT_EQ(user.Record()[0].flags, 0x30u);
    EXPECT_EQ(doc->toolLogFile, "C:\\amp2\\before.log");
    EXPECT_EQ(mainWnd->StatusText(), "Ready");
}

TEST_F(ToolLauncherTest, ALibraryWithoutMainGivesMinusTwoAndItsLog) {
    UseStandIns(VELORAND_NO_MAIN_TOOLS_DIR);
    sandbox.Write("amp2/amp2.~PT/amp2.log", "left from before\n");
    EXPECT_EQ(doc->RunTool("sch2qt", TF_HOST_WINDOW | TF_PATHS | TF_OUTPUT), kToolNotLoaded);
    EXPECT_THAT(LogNotices(), ElementsAre("C:\\amp2\\amp2.~PT\\amp2.log"));
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(ToolLauncherTest, AReadOnlyLogKeepsTheToolFromRunning) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    sandbox.Write("amp2/amp2.~PT/amp2.log", "kept\n");
    chmod(sandbox.Posix("amp2/amp2.~PT/amp2.log").c_str(), 0444);
    EXPECT_EQ(doc->RunTool("sch2qt", TF_PATHS | TF_OUTPUT), kToolLogReadOnly);
    EXPECT_THAT(Calls(), IsEmpty());
    EXPECT_THAT(LogNotices(), ElementsAre("C:\\amp2\\amp2.~PT\\amp2.log"));
}

TEST_F(ToolLauncherTest, AFailedRunHandsItsLogToTheHostUnlessToldOnce) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR, 12);
    sandbox.Write("amp2/amp2.~PT/amp2.log", "sch2qt: error: broken\n");
    doc->reportToolLog = 0;
    EXPECT_EQ(doc->RunTool("sch2qt", TF_PATHS | TF_OUTPUT), 12);
    EXPECT_THAT(LogNotices(), IsEmpty());
    EXPECT_EQ(doc->reportToolLog, 1);
    EXPECT_EQ(doc->RunTool("sch2qt", TF_PATHS | TF_OUTPUT), 12);
    EXPECT_THAT(LogNotices(), ElementsAre("C:\\amp2\\amp2.~PT\\amp2.log"));
    EXPECT_EQ(doc->RunTool("sch2qt", TF_PATHS | TF_OUTPUT | TF_NO_LOG_NOTICE), 12);
    EXPECT_EQ(LogNotices().size(), 1u);
}

TEST_F(ToolLauncherTest, ASuccessfulRunGivesNoNoticeWhateverTheLogHolds) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    sandbox.Write("amp2/amp2.~PT/amp2.log", "sch2qt: warning\n");
    doc->reportToolLog = 0;
    EXPECT_EQ(doc->RunTool("sch2qt", TF_PATHS | TF_OUTPUT), 0);
    EXPECT_THAT(LogNotices(), IsEmpty());
    EXPECT_EQ(doc->reportToolLog, 0);
}

TEST_F(ToolLauncherTest, AWorkingCopyThatCannotBeMadeLeavesTheRealFileAsTarget) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    ASSERT_EQ(doc->RunTool("sch2qt", TF_PATHS), 0);
    std::filesystem::remove(sandbox.Posix("amp2/amp2.~PT/amp2.sch"));
    chmod(sandbox.Posix("amp2/amp2.~PT").c_str(), 0555);
    ASSERT_EQ(doc->RunTool("sch2qt", TF_PATHS), 0);
    ASSERT_EQ(Calls().size(), 2u);
    EXPECT_EQ(Calls()[1].back(), "C:\\amp2\\amp2.sch");
    EXPECT_EQ(doc->toolLogFile, "C:\\amp2\\amp2.log");
}

TEST_F(ToolLauncherTest, TheDeleteDialogListsAProjectThatIsNotOpen) {
    EXPECT_EQ(RunListingForDelete(mainWnd->m_hWnd, "C:\\amp2\\amp2.sch", "C:\\amp2\\", {"lib"},
                                  "C:\\amp2\\amp2.st%", nullptr),
              0);
    std::string paths = sandbox.Read("amp2/amp2.st%");
    EXPECT_THAT(paths, ::testing::HasSubstr("C:\\amp2\\amp2.sch\n"));
    EXPECT_THAT(paths, ::testing::HasSubstr("C:\\amp2\\lib\\rfc.sch\n"));
    EXPECT_THAT(paths, ::testing::HasSubstr("C:\\amp2\\bfp640.s2p\n"));
    EXPECT_TRUE(mainWnd->Messages().empty());
}

TEST_F(ToolLauncherTest, TheDeleteDialogsRunHasItsOwnCommandLine) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR, 11);
    doc->toolsEnabled = 0;  // plays no part here
    sandbox.Write("amp2/amp2.dbg", "old log\n");
    EXPECT_EQ(RunListingForDelete(nullptr, "C:\\amp2\\amp2.sch", "C:\\amp2\\", {"lib", "C:\\amp2"},
                                  "C:\\tmp\\list.st%", nullptr),
              11);
    EXPECT_THAT(Calls(), ElementsAre(ElementsAre("treescan", "-h0", "-pC:\\amp2+lib+", "-r", "-l",
                                                 "-sh", "-oC:\\tmp\\list.st%", "-cC:\\amp2\\",
                                                 "C:\\amp2\\amp2.sch")));
    EXPECT_TRUE(mainWnd->Messages().empty());
    chmod(sandbox.Posix("amp2/amp2.dbg").c_str(), 0444);
    EXPECT_EQ(
        RunListingForDelete(nullptr, "C:\\amp2\\amp2.sch", "C:\\amp2\\", {}, "C:\\tmp\\l", nullptr),
        kToolLogReadOnly);
    EXPECT_EQ(Calls().size(), 1u);
}

}  // namespace
}  // namespace velorand
