#include "app/schematic_view.h"

#include <gtest/gtest.h>

#include "app/host_messages.h"
#include "app/schematic_document.h"
#include "app/testing/host_fixture.h"
#include "platform/afx/frame_wnd.h"

namespace velorand::host {
namespace {

using testing::Received;

constexpr char kSheet[] =
    "[schematic2]\nver 40\n\n[tools]\ngrid=25\n[detail]\nw titleblk 0 0 0\n"
    "l 60 300 amp input\n[cell use]\nuse PORT P1 rfin Z=50\nuse stage X1 rfin out vcc\n"
    "use PORT P2 out Z=50\n[comments]\nProjectName=amp\n";

class SchematicViewTest : public testing::HostTest {};

TEST_F(SchematicViewTest, AnOpenedSchematicTellsItsOwnerEachStepOfItsLife) {
    sandbox.Write("amp/amp.sch", kSheet);
    const std::string real = sandbox.Platform("amp/amp.sch");
    const std::string work = sandbox.Platform("amp/amp.~PT/amp.sch");
    std::filesystem::create_directories(sandbox.Posix("amp/amp.~PT"));
    // The project answers the title request with the title of a project's document.
    owner->answer = [](ProjectNotify& record) {
        if (record.code == 234) {
            std::string title =
                std::string("amp - ") + reinterpret_cast<const char*>(record.argument);
            record.document->SetTitle(title.c_str());
        }
    };

    afx::CDocument* doc = Open("amp/amp.sch");
    ASSERT_NE(doc, nullptr);
    auto* view = static_cast<CSchematicView*>(testing::HostTest::ViewOf(doc));
    EXPECT_EQ(view->SenderId(), 105);
    EXPECT_EQ(doc->GetTitle(), "amp - amp.sch");

    // Edits through the editor's command lines, as the project sends them.
    EXPECT_EQ(Script(doc, ":findsymbol p2;:property T Z:75"), 1);
    EXPECT_TRUE(doc->IsModified());

    // The project keeps the change in a work file; the document stays on its real file.
    const win::BOOL modified = doc->IsModified();
    ASSERT_TRUE(doc->OnSaveDocument(work.c_str()));
    doc->SetModifiedFlag(modified);
    doc->SetPathName(real.c_str(), win::TRUE);
    EXPECT_NE(sandbox.Read("amp/amp.~PT/amp.sch").find("use PORT P2 out Z=75\n"),
              std::string::npos);
    EXPECT_EQ(sandbox.Read("amp/amp.sch"), kSheet);
    EXPECT_EQ(doc->GetPathName(), real);
    EXPECT_TRUE(doc->IsModified());

    // The user's own save writes the real file and tells the project.
    ASSERT_TRUE(doc->DoFileSave());
    std::string saved = kSheet;
    saved.replace(saved.find("P2 out Z=50"), 11, "P2 out Z=75");
    EXPECT_EQ(sandbox.Read("amp/amp.sch"), saved);

    const win::HWND from = view->m_hWnd;
    doc->OnCloseDocument();
    EXPECT_EQ(owner->received, (std::vector<Received>{{from, 105, 200, doc, 0, ""},
                                                      {from, 105, 234, doc, 0, "amp.sch"},
                                                      {from, 105, 202, doc, 0, ""},
                                                      {from, 105, 201, doc, 0, ""}}));
}

TEST_F(SchematicViewTest, TheOwnerThatTheProjectGivesTheViewTakesThePropertysPlace) {
    sandbox.Write("amp/bias.sym", "[symbol2]\nver 40\n\n[pins]\n[detail]\n");
    afx::CDocument* doc = Open("amp/bias.sym");
    ASSERT_NE(doc, nullptr);
    CHostView* view = ViewOf(doc);
    EXPECT_EQ(view->SenderId(), 110);
    testing::RecordingOwner other;
    other.Create(nullptr, "Tree", win::WS_CHILD, win::RECT{}, frame, 2);
    view->SetOwner(&other);

    EXPECT_TRUE(view->Notify(231, nullptr, 1).delivered);
    ASSERT_EQ(other.Codes(), std::vector<win::UINT>{231});
    EXPECT_EQ(other.received[0].idFrom, 110u);
    EXPECT_EQ(owner->Codes(), (std::vector<win::UINT>{200, 234}));

    // Without any project the records have nowhere to go, and the title is the file's.
    view->SetOwner(nullptr);
    win::RemoveProp(frame->m_hWnd, "Project");
    EXPECT_FALSE(view->Notify(231).delivered);
    doc->SetTitle(nullptr);
    EXPECT_EQ(doc->GetTitle(), "bias.sym");
}

TEST_F(SchematicViewTest, ANewSchematicGetsTheSectionsAndIsAnnouncedWithoutAPath) {
    afx::CDocument* doc = app.Templates().Schematic()->OpenDocumentFile(nullptr);
    ASSERT_NE(doc, nullptr);
    ASSERT_EQ(owner->Codes(), (std::vector<win::UINT>{200, 234}));
    EXPECT_EQ(owner->received[1].text, "Schematic1");
    EXPECT_EQ(doc->GetTitle(), "Schematic1");

    EXPECT_EQ(Script(doc, ":filtertool  CAPQ C1 in n1 C=1pF, INDQ L1 n1 0 L=2nH"), 1);
    const std::string path = sandbox.Platform("new.sch");
    ASSERT_TRUE(doc->DoSave(path.c_str()));
    EXPECT_EQ(sandbox.Read("new.sch"),
              "[schematic2]\nver 40\n\n[tools]\n[detail]\n[cell use]\nuse CAPQ C1 in n1 C=1pF\n"
              "use INDQ L1 n1 0 L=2nH\n[comments]\n");
    EXPECT_EQ(doc->GetPathName(), path);
}

TEST_F(SchematicViewTest, TheProjectsRecordsAreRunAnsweredAndKept) {
    sandbox.Write("amp/amp.sch", kSheet);
    afx::CDocument* doc = Open("amp/amp.sch");
    ASSERT_NE(doc, nullptr);
    auto* view = static_cast<CSchematicView*>(ViewOf(doc));
    view->ClearEvents();
    auto send = [&](win::UINT code, int option, const char* text) {
        ProjectNotify record;
        record.hwndFrom = owner->m_hWnd;
        record.idFrom = 100;
        record.code = code;
        record.option = option;
        record.argument = reinterpret_cast<win::LPARAM>(text);
        view->SendMessage(win::WM_NOTIFY, 0, reinterpret_cast<win::LPARAM>(&record));
        return record.result;
    };

    EXPECT_EQ(send(304, 0, nullptr), 0);
    EXPECT_TRUE(view->Locked());
    send(310, 0, ":unselect");
    send(310, 0, ":findsymbol X1");
    send(310, 0, ":property T Amp :10");
    send(304, 1, nullptr);
    send(225, 0, ":redraw");
    EXPECT_EQ(send(246, 0, "STAGE"), 1);
    EXPECT_EQ(send(246, 0, "bias"), 0);
    send(240, 0, "stage stage2 C:\\amp\\");

    EXPECT_FALSE(view->Locked());
    CSchematicDoc* sheet = view->GetSchematic();
    EXPECT_EQ(sheet->Lines()[sheet->FindElement("X1")], "use stage2 X1 rfin out vcc Amp=10");
    EXPECT_EQ(
        view->Events(),
        (std::vector<std::string>{
            "notify 304 from 100 option 0", "locked", "notify 310 from 100 option 0 \":unselect\"",
            "notify 310 from 100 option 0 \":findsymbol X1\"",
            "notify 310 from 100 option 0 \":property T Amp :10\"", "notify 304 from 100 option 1",
            "unlocked", "notify 225 from 100 option 0 \":redraw\"", "redraw",
            "notify 246 from 100 option 0 \"STAGE\"", "notify 246 from 100 option 0 \"bias\"",
            "notify 240 from 100 option 0 \"stage stage2 C:\\amp\\\"", "renamed stage to stage2"}));
}

TEST_F(SchematicViewTest, AFileThatIsNoSchematicOrIsMissingOpensNothingAndSaysWhy) {
    sandbox.Write("notes.sch", "Just some notes\n");
    EXPECT_EQ(Open("notes.sch"), nullptr);
    EXPECT_EQ(frame->StatusText(), "Unable to open " + sandbox.Platform("notes.sch") +
                                       ": its first line is not \"[schematic2]\".");
    sandbox.Write("old.sch", "[schematic2]\nversion 4\n");
    EXPECT_EQ(Open("old.sch"), nullptr);
    EXPECT_EQ(frame->StatusText(), "Unable to open " + sandbox.Platform("old.sch") +
                                       ": its second line is not \"ver\" and a number.");
    sandbox.Write("long.sch",
                  "[schematic2]\nver 40\n[detail]\nl 0 0 " + std::string(600, 'x') + "\n");
    EXPECT_EQ(Open("long.sch"), nullptr);
    EXPECT_EQ(frame->StatusText(), "Unable to open " + sandbox.Platform("long.sch") +
                                       ": line 4 is longer than 599 characters.");
    EXPECT_EQ(Open("missing.sch"), nullptr);
    EXPECT_EQ(frame->StatusText(),
              "Unable to open " + sandbox.Platform("missing.sch") + ": the file does not exist.");
    // A symbol is no schematic.
    sandbox.Write("bias.sym", kSheet);
    EXPECT_EQ(Open("bias.sym"), nullptr);

    EXPECT_TRUE(owner->received.empty());
    EXPECT_EQ(app.Templates().Schematic()->GetFirstDocPosition(), nullptr);
}

TEST_F(SchematicViewTest, ASaveThatCannotBeWrittenKeepsTheDocumentAndTellsNobody) {
    sandbox.Write("amp/amp.sch", kSheet);
    afx::CDocument* doc = Open("amp/amp.sch");
    ASSERT_NE(doc, nullptr);
    Script(doc, ":findsymbol P1;:property T Z:75");
    std::filesystem::permissions(sandbox.Posix("amp/amp.sch"), std::filesystem::perms::owner_read);
    EXPECT_FALSE(doc->DoFileSave());
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(sandbox.Read("amp/amp.sch"), kSheet);
    EXPECT_EQ(frame->StatusText(),
              "Unable to save " + sandbox.Platform("amp/amp.sch") + ": access is denied.");
    EXPECT_EQ(owner->Codes(), (std::vector<win::UINT>{200, 234}));
}

}  // namespace
}  // namespace velorand::host
