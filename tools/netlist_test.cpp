#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/win/messages.h"
#include "tools/testing/toolchain_fixture.h"
#include "tools/tool_launcher.h"

namespace velorand {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::ToolchainTest;

const std::string kOutputsReadOnly =
    "One or more output files are ReadOnly.\n\nAnalysis could not be done for this project.\n";

// The simulator's netlist document of the host: it notes the commands routed to it.
class NetlistDocument : public afx::CDocument {
  public:
    win::BOOL OnCmdMsg(win::UINT id, int code, void* extra,
                       afx::AFX_CMDHANDLERINFO* info) override {
        commands.push_back(id);
        return win::TRUE;
    }
    std::vector<win::UINT> commands;
};

class NetlistTest : public ToolchainTest {
  protected:
    void SetUp() override {
        ToolchainTest::SetUp();
        doc->netlistFile = "C:\\amp2\\amp2.ckt";
        doc->templateDoc = &netlist;
    }
    void TearDown() override {
        doc->templateDoc = nullptr;
        ToolchainTest::TearDown();
    }
    NetlistDocument netlist;
};

TEST_F(NetlistTest, AReadOnlyOutputBlocksAnalysisForTheDocumentsLife) {
    EXPECT_EQ(doc->CheckOutputsWritable(), 1);
    // The netlist itself is no output that the check looks at.
    sandbox.Write("amp2/amp2.ckt", "* netlist\n");
    chmod(sandbox.Posix("amp2/amp2.ckt").c_str(), 0444);
    EXPECT_EQ(doc->CheckOutputsWritable(), 1);

    sandbox.Write("amp2/amp2.log", "old\n");
    chmod(sandbox.Posix("amp2/amp2.log").c_str(), 0444);
    user.Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(doc->CheckOutputsWritable(), 0);
    chmod(sandbox.Posix("amp2/amp2.log").c_str(), 0644);
    EXPECT_EQ(doc->CheckOutputsWritable(), 0);
    EXPECT_THAT(Boxes(), ElementsAre(kOutputsReadOnly, kOutputsReadOnly));
    EXPECT_EQ(user.Record()[0].flags, 0x30u);
}

TEST_F(NetlistTest, TheTranslatorBringsTheNetlistUpToDate) {
    doc->SetModifiedFlag(win::TRUE);
    EXPECT_EQ(doc->RunNetlist(), 0);
    std::string text = sandbox.Read("amp2/amp2.ckt");
    EXPECT_THAT(text, HasSubstr("* FileName: C:\\amp2\\amp2.ckt\n"));
    EXPECT_THAT(text, HasSubstr(".TITLE amp2\n"));
    EXPECT_THAT(text, HasSubstr("FILE="));
    EXPECT_FALSE(doc->IsModified());
    EXPECT_THAT(netlist.commands, ElementsAre(25621u));
    EXPECT_THAT(StatusLines(), ElementsAre("Netlisting...", "Ready"));
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("amp2/amp2.scf")));

    // The same circuit gives the same file: the template hears nothing.
    EXPECT_EQ(doc->RunNetlist(), 0);
    EXPECT_EQ(sandbox.Read("amp2/amp2.ckt"), text);
    EXPECT_THAT(netlist.commands, ElementsAre(25621u));
}

TEST_F(NetlistTest, AFailingTranslatorKeepsTheProjectModified) {
    sandbox.Write("amp2/amp2.ckt", "* old netlist\n");
    sandbox.Write("amp2/amp2.~PT/amp2.log", "sch2qt: error: a data file is missing\n");
    UseStandIns(VELORAND_FAKE_TOOLS_DIR, 11);
    doc->SetModifiedFlag(win::TRUE);
    EXPECT_EQ(doc->RunNetlist(), 11);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(sandbox.Read("amp2/amp2.ckt"), "* old netlist\n");
    EXPECT_THAT(netlist.commands, IsEmpty());
    bool notified = false;
    for (const host::HostMessage& message : mainWnd->Messages())
        notified |=
            message.message == kToolLogNotice && message.text == "C:\\amp2\\amp2.~PT\\amp2.log";
    EXPECT_TRUE(notified);
}

TEST_F(NetlistTest, AMissingTranslatorIsTold) {
    doc->simulatorInfo = std::make_unique<SimulatorInfo>(7);
    doc->SetModifiedFlag(win::TRUE);
    user.Answer(win::IDOK);
    EXPECT_EQ(doc->RunNetlist(), kToolNotLoaded);
    EXPECT_THAT(Boxes(), ElementsAre("Unable to load DLL: '' \n\nerror code: 7e\n"));
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(NetlistTest, DuringTuningTheTranslatorDoesNotRun) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    doc->tuning = 1;
    EXPECT_EQ(doc->RunNetlist(), 0);
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(NetlistTest, ARefreshRetitlesTheDocumentsAndRunsTheTranslator) {
    UseStandIns(VELORAND_FAKE_TOOLS_DIR);
    afx::CDocument stage;
    stage.SetTitle("stage.sch *");
    netlist.SetTitle("amp2.ckt");
    doc->openDocs = {&stage, &netlist};
    doc->treeStale = 1;
    EXPECT_EQ(doc->RefreshAndNetlist(), 1);
    EXPECT_EQ(stage.GetTitle(), "");
    EXPECT_EQ(netlist.GetTitle(), "amp2.ckt");
    EXPECT_EQ(doc->treeStale, 0);
    EXPECT_EQ(Calls().size(), 1u);
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26476u, 26477u));
    doc->openDocs.clear();
}

}  // namespace
}  // namespace velorand
