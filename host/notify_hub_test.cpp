#include <gmock/gmock.h>

#include <memory>

#include "core/simulator_info.h"
#include "host/notify_codes.h"
#include "host/testing/hub_fixture.h"
#include "platform/win/message_queue.h"

namespace velorand {
namespace {

using testing::CSheetDoc;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::HubTest;
using ::testing::IsEmpty;

constexpr win::LRESULT kUntouched = 0x77;

class NotifyHubTest : public HubTest {
  protected:
    // Calls the hub as the framework does; whether it handled the record, and `out`.
    bool CallHub(ProjectNotify& record, win::LRESULT& out) {
        out = kUntouched;
        return view->OnNotify(0, reinterpret_cast<win::LPARAM>(&record), &out) != win::FALSE;
    }
    void ChooseSimulator(const char* shortTag) {
        doc->simulator = 0;
        doc->simulatorInfo = std::make_unique<SimulatorInfo>(0);
        doc->simulatorInfo->shortTag = shortTag;
    }
};

TEST_F(NotifyHubTest, OtherSendersGoToTheFrameworkAndUnknownCodesAnswerZero) {
    ChooseSimulator("QT");
    ProjectNotify foreign;
    foreign.idFrom = 99;
    foreign.code = 247;
    foreign.result = kUntouched;
    win::LRESULT out;
    EXPECT_FALSE(CallHub(foreign, out));
    EXPECT_EQ(foreign.result, kUntouched);

    for (win::UINT code : {199u, 204u, 246u, 331u}) {
        ProjectNotify unknown;
        unknown.idFrom = kFromSchematic;
        unknown.code = code;
        EXPECT_FALSE(CallHub(unknown, out)) << code;
        EXPECT_EQ(out, 0) << code;
    }
}

TEST_F(NotifyHubTest, ACodeServesOnlyTheSendersOfItsRow) {
    EXPECT_EQ(Send(kFromSchematic, 247).result, 0);  // no simulator chosen
    ChooseSimulator("QT");
    EXPECT_STREQ(reinterpret_cast<const char*>(Send(kFromSchematic, 247).result), "QT");

    ProjectNotify symbol;
    symbol.idFrom = kFromSymbol;
    symbol.code = 247;
    symbol.result = kUntouched;
    win::LRESULT out;
    EXPECT_TRUE(CallHub(symbol, out));
    EXPECT_EQ(out, 0);
    EXPECT_EQ(symbol.result, kUntouched);

    // Tree texts open nothing here yet, and editors import no filter designs.
    CSheetDoc* sheet = OpenSheet("amp2/amp2.sch", kSheet);
    Send(kFromTextSender, kCodeDocumentOpened, sheet);
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_EQ(Send(kFromSchematic, 245, nullptr, 0, 0x1234).result, 0);

    // Editors take the menu that the template's kind of document hands over.
    auto menu = win::HandleFromNumber<win::HMENU>(0x4711);
    Send(kFromTemplate, 209, nullptr, 0, reinterpret_cast<win::LPARAM>(menu));
    EXPECT_EQ(Send(kFromSchematic, 209, nullptr, 0, 1).argument, 0);  // no template open
    doc->templateDoc = sheet;
    EXPECT_EQ(Send(kFromSymbol, 209).argument, reinterpret_cast<win::LPARAM>(menu));
    EXPECT_EQ(Send(115, 209, nullptr, 0, 9).argument, 9);
}

TEST_F(NotifyHubTest, APositiveTraceShowsEntryAndExitANegativeOneTheEntryOnly) {
    view->traceNotify = 1;
    mainWnd->ClearMessages();
    ProjectNotify record;
    record.hwndFrom = win::HandleFromNumber<win::HWND>(0x2a);
    record.idFrom = kFromSchematic;
    record.code = 247;
    record.argument = 0x1f;
    view->SendMessage(win::WM_NOTIFY, 0, reinterpret_cast<win::LPARAM>(&record));
    Send(99, 247);
    Send(kFromSchematic, 204);
    view->traceNotify = -1;
    Send(kFromTemplate, 203);
    EXPECT_THAT(StatusLines(),
                ElementsAre("OnNotify (Enter): From=105; HWND=2a; code=247; Document=0; Arg=1f",
                            "OnNotify (Exit): From=105; HWND=2a; code=247; Result:0",
                            "OnNotify (Enter): From=99; HWND=0; code=247; Document=0; Arg=0",
                            "OnNotify (Enter): From=105; HWND=0; code=204; Document=0; Arg=0",
                            "OnNotify (Enter): From=145; HWND=0; code=203; Document=0; Arg=0"));
}

TEST_F(NotifyHubTest, ASaveWhileSavesAreIgnoredIsAnsweredAtOnce) {
    CSheetDoc* sheet = OpenSheet("amp2/amp2.sch", kSheet);
    AddRecord("amp2");
    doc->SetModifiedFlag(win::FALSE);
    view->SetIgnoreSaved(win::TRUE);
    view->traceNotify = 1;
    mainWnd->ClearMessages();
    ProjectNotify record;
    record.idFrom = kFromSchematic;
    record.code = kCodeDocumentSaved;
    record.document = sheet;
    win::LRESULT out;
    EXPECT_TRUE(CallHub(record, out));
    EXPECT_EQ(out, kUntouched);
    EXPECT_EQ(StatusLines().size(), 1u);  // no exit line
    EXPECT_FALSE(doc->IsModified());

    view->SetIgnoreSaved(win::FALSE);
    Send(kFromSchematic, kCodeDocumentSaved, sheet);
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(NotifyHubTest, TheProjectIsStoredOnRequestAndTheTemplateAsksOnlyAfterAChange) {
    auto stored = [&] {
        return sandbox.Read("amp2/amp2.vpj").find("LastUpdated=") != std::string::npos;
    };
    doc->SetModifiedFlag(win::FALSE);
    Send(kFromTemplate, 215);
    doc->SetModifiedFlag(win::TRUE);
    Send(kFromSchematic, 215);
    EXPECT_FALSE(stored());
    Send(kFromTemplate, 215);
    EXPECT_TRUE(stored());
    EXPECT_EQ(doc->reportToolLog, 1);
}

TEST_F(NotifyHubTest, TheHostsFatalErrorKeepsTheWorkAndPostsTheLastStep) {
    user.Answer(win::IDOK);
    Send(115, kCodeFatalError, nullptr, 0, reinterpret_cast<win::LPARAM>("Bad element\n"));
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].text, "Bad element\n");
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), HasSubstr("FatalPath="));
    win::MSG msg;
    ASSERT_TRUE(
        win::PeekMessage(&msg, mainWnd->m_hWnd, win::WM_COMMAND, win::WM_COMMAND, win::PM_REMOVE));
    EXPECT_EQ(msg.wParam, 25612u);
}

}  // namespace
}  // namespace velorand
