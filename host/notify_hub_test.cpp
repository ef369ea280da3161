#include <gmock/gmock.h>

#include <cstdint>
#include <memory>

#include "app/netlist_view.h"
#include "core/simulator_info.h"
#include "host/notify_codes.h"
#include "host/testing/hub_fixture.h"
#include "platform/win/message_queue.h"
#include "platform/win/private_profile.h"

namespace velorand {
namespace {

using testing::CSheetDoc;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::HubTest;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr win::LRESULT kUntouched = 0x77;

// Calls the hub as the framework does, with an out value that shows whether it was set.
struct HubAnswer {
    win::BOOL handled;
    win::LRESULT out;
};
HubAnswer CallHub(CProjectView* view, ProjectNotify& record) {
    win::LRESULT out = kUntouched;
    win::BOOL handled = view->OnNotify(0, reinterpret_cast<win::LPARAM>(&record), &out);
    return {handled, out};
}

TEST_F(HubTest, RecordsOfOtherSendersAreLeftToTheFramework) {
    ProjectNotify record = Record(99, 247);
    record.result = kUntouched;
    doc->simulator = 0;
    doc->simulatorInfo = std::make_unique<SimulatorInfo>(0);
    HubAnswer answer = CallHub(view, record);
    EXPECT_FALSE(answer.handled);
    EXPECT_EQ(record.result, kUntouched);
}

TEST_F(HubTest, AnUnknownCodeAnswersZeroAndIsNotHandled) {
    for (win::UINT code : {199u, 204u, 246u, 331u}) {
        ProjectNotify record = Record(kFromSchematic, code);
        HubAnswer answer = CallHub(view, record);
        EXPECT_FALSE(answer.handled) << code;
        EXPECT_EQ(answer.out, 0) << code;
    }
}

TEST_F(HubTest, ACodeServesOnlyTheSendersOfItsRow) {
    doc->simulator = 0;
    doc->simulatorInfo = std::make_unique<SimulatorInfo>(0);
    doc->simulatorInfo->shortTag = "QT";

    // Only the schematic editor asks for the simulator.
    ProjectNotify symbol = Record(kFromSymbol, 247);
    symbol.result = kUntouched;
    HubAnswer answer = CallHub(view, symbol);
    EXPECT_TRUE(answer.handled);
    EXPECT_EQ(answer.out, 0);
    EXPECT_EQ(symbol.result, kUntouched);

    ProjectNotify schematic = Record(kFromSchematic, 247);
    EXPECT_EQ(Send(schematic), 0);
    EXPECT_STREQ(reinterpret_cast<const char*>(schematic.result), "QT");

    // The filter tool's import from an editor is served, with no effect.
    ProjectNotify import = Record(kFromSchematic, 245, nullptr, 0,
                                  reinterpret_cast<win::LPARAM>("C:\\filters\\lp.flt"));
    import.result = kUntouched;
    EXPECT_TRUE(CallHub(view, import).handled);
    EXPECT_EQ(import.result, kUntouched);
    EXPECT_TRUE(doc->schematics.empty());
}

TEST_F(HubTest, WithoutAChosenSimulatorTheEditorHearsZero) {
    ProjectNotify record = Record(kFromSchematic, 247);
    record.result = kUntouched;
    Send(record);
    EXPECT_EQ(record.result, 0);
}

class TracedHubTest : public HubTest {
  protected:
    void PrepareProfile() override { win::WriteProfileString("Project", "TraceNotify", trace); }
    const char* trace = "1";
};

TEST_F(TracedHubTest, APositiveTraceShowsEachRecordOnEntryAndExit) {
    ProjectNotify record = Record(kFromSchematic, 247, nullptr, 0, 0x1f);
    record.hwndFrom = win::HandleFromNumber<win::HWND>(0x2a);
    mainWnd->ClearMessages();
    Send(record);
    EXPECT_THAT(StatusLines(),
                ElementsAre("OnNotify (Enter): From=105; HWND=2a; code=247; Document=0; Arg=1f",
                            "OnNotify (Exit): From=105; HWND=2a; code=247; Result:0"));

    // Other senders and unknown codes leave after the entry line.
    mainWnd->ClearMessages();
    ProjectNotify foreign = Record(99, 247);
    Send(foreign);
    ProjectNotify unknown = Record(kFromSchematic, 204);
    Send(unknown);
    EXPECT_THAT(StatusLines(),
                ElementsAre("OnNotify (Enter): From=99; HWND=0; code=247; Document=0; Arg=0",
                            "OnNotify (Enter): From=105; HWND=0; code=204; Document=0; Arg=0"));
}

class EntryTracedHubTest : public TracedHubTest {
  protected:
    EntryTracedHubTest() { trace = "-1"; }
};

TEST_F(EntryTracedHubTest, ANegativeTraceShowsTheEntryOnly) {
    ProjectNotify record = Record(kFromTemplate, 203);
    mainWnd->ClearMessages();
    Send(record);
    EXPECT_THAT(StatusLines(),
                ElementsAre("OnNotify (Enter): From=145; HWND=0; code=203; Document=0; Arg=0"));
}

TEST_F(TracedHubTest, ASaveWhileSavesAreIgnoredIsAnsweredAtOnce) {
    CSheetDoc* sheet = OpenSheet("amp2/amp2.sch", kSheet);
    AddRecord("amp2");
    doc->SetModifiedFlag(win::FALSE);
    EXPECT_FALSE(view->SetIgnoreSaved(win::TRUE));
    mainWnd->ClearMessages();

    ProjectNotify record = Record(kFromSchematic, 202, sheet);
    HubAnswer answer = CallHub(view, record);
    EXPECT_TRUE(answer.handled);
    EXPECT_EQ(answer.out, kUntouched);
    EXPECT_EQ(StatusLines().size(), 1u);  // no exit line
    EXPECT_FALSE(doc->IsModified());
    EXPECT_EQ(doc->schematics["amp2"].state, 0u);

    view->SetIgnoreSaved(win::FALSE);
    Send(record);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(doc->schematics["amp2"].state & SchematicNode::kSaved, SchematicNode::kSaved);
}

TEST_F(HubTest, EditorsGetTheTemplatesMenuWhichTheTemplatesKindsHandOver) {
    auto* menu = win::HandleFromNumber<win::HMENU>(0x4711);
    ProjectNotify handOver =
        Record(kFromTemplate, 209, nullptr, 0, reinterpret_cast<win::LPARAM>(menu));
    Send(handOver);
    EXPECT_EQ(doc->templateMenu, menu);

    // While no template is open an editor gets nothing.
    ProjectNotify ask = Record(kFromSchematic, 209, nullptr, 0, 0x1234);
    Send(ask);
    EXPECT_EQ(ask.argument, 0);

    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    doc->templateDoc = netlist;
    ProjectNotify again = Record(kFromSymbol, 209);
    Send(again);
    EXPECT_EQ(again.argument, reinterpret_cast<win::LPARAM>(menu));

    // Senders that are neither leave both alone.
    ProjectNotify other = Record(115, 209, nullptr, 0, 0x99);
    Send(other);
    EXPECT_EQ(other.argument, 0x99);
    EXPECT_EQ(doc->templateMenu, menu);
}

TEST_F(HubTest, AnEditorsCommandGoesToTheTemplatesView) {
    host::CTextDocument* netlist = OpenHostDocument(hostTemplates.Netlist(0), "amp2/amp2.ckt", "");
    ASSERT_NE(netlist, nullptr);
    ASSERT_EQ(doc->templateDoc, netlist);
    host::CHostView* netlistView = HostView(netlist);
    netlistView->ClearEvents();

    // 1004 asks the simulator for the netlist of a tuning run.
    ProjectNotify fromTemplate = Record(kFromTemplate, 225, nullptr, 1004);
    Send(fromTemplate);
    EXPECT_THAT(netlistView->Events(), IsEmpty());
    ProjectNotify fromEditor = Record(kFromSchematic, 225, nullptr, 1004);
    Send(fromEditor);
    EXPECT_THAT(netlistView->Events(), ElementsAre("tuning netlist request"));
}

TEST_F(HubTest, AStoreOfTheProjectWritesItsDate) {
    ProjectNotify record = Record(kFromSchematic, 303);
    EXPECT_EQ(Send(record), 0);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), HasSubstr("LastUpdated="));
}

TEST_F(HubTest, TheTemplatesStoreWaitsForAChangeAndOnlyTheTemplateAsks) {
    doc->SetModifiedFlag(win::FALSE);
    ProjectNotify record = Record(kFromTemplate, 215);
    Send(record);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), Not(HasSubstr("LastUpdated=")));

    doc->SetModifiedFlag(win::TRUE);
    ProjectNotify editor = Record(kFromSchematic, 215);
    Send(editor);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), Not(HasSubstr("LastUpdated=")));
    Send(record);
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), HasSubstr("LastUpdated="));
    EXPECT_EQ(doc->reportToolLog, 1);
}

TEST_F(HubTest, AFatalErrorOfTheHostEndsWithItsLastStepPosted) {
    ProjectNotify record =
        Record(115, 329, nullptr, 0, reinterpret_cast<win::LPARAM>("Bad element address\n"));
    user.Answer(win::IDOK);
    Send(record);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].text, "Bad element address\n");
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), HasSubstr("FatalPath="));
    win::MSG msg;
    ASSERT_TRUE(
        win::PeekMessage(&msg, mainWnd->m_hWnd, win::WM_COMMAND, win::WM_COMMAND, win::PM_REMOVE));
    EXPECT_EQ(msg.wParam, 25612u);
}

}  // namespace
}  // namespace velorand
