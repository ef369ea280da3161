// The host's documents as they open, close, are saved and get their titles.
#include <gmock/gmock.h>

#include <algorithm>

#include "core/warning_dlg.h"
#include "host/notify_codes.h"
#include "host/testing/hub_fixture.h"
#include "platform/win/menu.h"
#include "platform/win/window.h"

namespace velorand {
namespace {

using testing::CSheetDoc;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::HubTest;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kNotPartText =
    "The schematic file you are opening is not part of the current project.  It will not be "
    "used during analysis of the project, nor will be it analyzed along with the project.";
constexpr const char* kNoSimulatorText =
    "You are opening a schematic file directly, rather than as part of a project.  You will not "
    "be able to analyze the schematic because it is not associated with a simulator.  To enable "
    "simulation, open the schematic as part of a project.";

class DocumentNotifyTest : public HubTest {
  protected:
    void Notify(win::UINT_PTR from, win::UINT code, afx::CDocument* document,
                win::LPARAM argument = 0) {
        ProjectNotify record = Record(from, code, document, 0, argument);
        Send(record);
    }
    // A sheet of the project, opened and joined to its record.
    CSheetDoc* OpenProjectSheet(const std::string& name) {
        AddRecord(name);
        CSheetDoc* sheet = OpenSheet("amp2/" + name + ".sch", kSheet);
        Notify(kFromSchematic, kCodeDocumentOpened, sheet);
        return sheet;
    }
    bool Stored() const { return sandbox.Read("amp2/amp2.vpj").find("LastUpdated=") != npos; }
    static constexpr auto npos = std::string::npos;
};

TEST_F(DocumentNotifyTest, ASchematicOutsideTheProjectIsWarnedAboutUntilTheUserSkipsIt) {
    user.OnDialog("Schematic Not Part of Current Project")
        .Inspect([](win::ModalDialog& dialog) {
            EXPECT_EQ(dialog.Text(CWarningDlg::IDC_MESSAGE), kNotPartText);
        })
        .Click(CWarningDlg::IDC_SKIP)
        .Click(win::IDOK);
    CSheetDoc* lone = OpenSheet("elsewhere/lone.sch", kSheet);
    Notify(kFromSchematic, kCodeDocumentOpened, lone);
    EXPECT_EQ(win::GetProfileInt("Project", "SkipAssociationDlg", 0), 1u);
    // It joins the project all the same, and reports to the tree view from now on.
    EXPECT_EQ(doc->activeDoc, lone);
    EXPECT_THAT(doc->openDocs, ElementsAre(lone));
    EXPECT_EQ(LoadedProjectTest::ViewOf(lone)->GetOwner(), view);

    CSheetDoc* second = OpenSheet("elsewhere/second.sch", kSheet);
    Notify(kFromSchematic, kCodeDocumentOpened, second);
    EXPECT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(doc->activeDoc, second);
}

TEST_F(DocumentNotifyTest, WithoutSchematicsTheWarningIsAboutTheMissingSimulator) {
    doc->topLevelSchematic.clear();
    user.OnDialog("Schematic Not Associated with Simulator")
        .Inspect([](win::ModalDialog& dialog) {
            EXPECT_EQ(dialog.Text(CWarningDlg::IDC_MESSAGE), kNoSimulatorText);
        })
        .Click(win::IDOK);
    CSheetDoc* lone = OpenSheet("elsewhere/lone.sch", kSheet);
    Notify(kFromSchematic, kCodeDocumentOpened, lone);
    EXPECT_EQ(win::GetProfileInt("Project", "SkipAssociationDlg", 7), 0u);

    // Only the schematic editor's documents are warned about.
    CSheetDoc* symbol = OpenSheet("elsewhere/lone.sym", "");
    Notify(kFromSymbol, kCodeDocumentOpened, symbol);
    EXPECT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(doc->activeDoc, lone);
}

TEST_F(DocumentNotifyTest, AProjectSchematicJoinsItsRecordAndFilesSortIntoTheList) {
    CSheetDoc* top = OpenProjectSheet("amp2");
    EXPECT_THAT(user.Record(), IsEmpty());
    const SchematicNode& node = doc->schematics["amp2"];
    EXPECT_EQ(node.state, SchematicNode::kOpened);
    EXPECT_EQ(node.openDoc, top);
    EXPECT_EQ(doc->topDoc, top);
    EXPECT_EQ(doc->activeDoc, top);

    // Schematics and symbols at the head, all else at the tail; a second notice of the
    // same document changes nothing.
    CSheetDoc* notes = OpenSheet("amp2/notes.txt", "");
    Notify(115, kCodeDocumentOpened, notes);
    CSheetDoc* stage = OpenProjectSheet("stage");
    Notify(kFromSchematic, kCodeDocumentOpened, stage);
    EXPECT_THAT(doc->openDocs, ElementsAre(stage, top, notes));
    EXPECT_EQ(doc->activeDoc, stage);
    EXPECT_EQ(doc->topDoc, top);
}

TEST_F(DocumentNotifyTest, TheTemplatesViewBringsItsMenuWhileTheProjectHasNoSchematics) {
    win::HMENU menu = win::CreateMenu();
    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    Notify(kFromTemplate, kCodeDocumentOpened, netlist, reinterpret_cast<win::LPARAM>(menu));
    EXPECT_EQ(doc->templateDoc, netlist);
    EXPECT_NE(win::GetMenu(mainWnd->m_hWnd), menu);

    doc->topLevelSchematic.clear();
    mainWnd->ClearMessages();
    Notify(kFromTemplate, kCodeDocumentOpened, netlist, reinterpret_cast<win::LPARAM>(menu));
    EXPECT_EQ(win::GetMenu(mainWnd->m_hWnd), menu);
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26467u));
}

TEST_F(DocumentNotifyTest, ClosingAChangedProjectSchematicStoresTheProject) {
    CSheetDoc* top = OpenProjectSheet("amp2");
    CSheetDoc* stage = OpenProjectSheet("stage");
    top->SetModifiedFlag(win::TRUE);
    Notify(kFromSchematic, kCodeDocumentClosing, top);
    const SchematicNode& node = doc->schematics["amp2"];
    EXPECT_EQ(node.openDoc, nullptr);
    EXPECT_EQ(node.state, SchematicNode::kOpened | SchematicNode::kClosed);
    EXPECT_EQ(doc->topDoc, nullptr);
    EXPECT_THAT(doc->openDocs, ElementsAre(stage));
    EXPECT_TRUE(Stored());
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(DocumentNotifyTest, ClosingStoresNothingForAnUnchangedOrForeignDocumentOrDuringAClose) {
    CSheetDoc* top = OpenProjectSheet("amp2");
    CSheetDoc* stage = OpenProjectSheet("stage");
    CSheetDoc* lone = OpenSheet("elsewhere/lone.sch", kSheet);
    win::WriteProfileInt("Project", "SkipAssociationDlg", 1);
    Notify(kFromSchematic, kCodeDocumentOpened, lone);

    Notify(kFromSchematic, kCodeDocumentClosing, stage);
    lone->SetModifiedFlag(win::TRUE);
    Notify(kFromSchematic, kCodeDocumentClosing, lone);
    top->SetModifiedFlag(win::TRUE);
    doc->busy = 1;
    Notify(kFromSchematic, kCodeDocumentClosing, top);
    doc->busy = 0;
    EXPECT_FALSE(Stored());
    EXPECT_THAT(doc->openDocs, IsEmpty());

    // A closing record without a document only marks the project.
    doc->SetModifiedFlag(win::FALSE);
    Notify(kFromSchematic, kCodeDocumentClosing, nullptr);
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(DocumentNotifyTest, TheActiveRolePassesToTheFirstDocumentAheadThatIsNoTemplate) {
    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    CSheetDoc* top = OpenProjectSheet("amp2");
    CSheetDoc* stage = OpenProjectSheet("stage");
    doc->openDocs = {netlist, top, stage};
    doc->templateDoc = netlist;
    doc->activeDoc = stage;
    doc->Detach(stage);
    EXPECT_EQ(doc->activeDoc, top);
    EXPECT_THAT(doc->openDocs, ElementsAre(netlist, top));

    // During a save-all the document stays in the list.
    doc->savingAll = 1;
    doc->activeDoc = top;
    doc->Detach(top);
    EXPECT_EQ(doc->activeDoc, nullptr);
    EXPECT_THAT(doc->openDocs, ElementsAre(netlist, top));
    doc->savingAll = 0;

    // The last one out stores how the child frames are shown.
    doc->openDocs = {top};
    win::WriteProfileInt("Settings", "ShowCmd", 0);
    doc->Detach(top);
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_EQ(win::GetProfileInt("Settings", "ShowCmd", 0), 9u);
}

TEST_F(DocumentNotifyTest, TheTemplatesCloseLetsTheTemplateGo) {
    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    Notify(kFromTemplate, kCodeDocumentOpened, netlist);
    ASSERT_EQ(doc->templateDoc, netlist);
    Notify(kFromTemplate, kCodeDocumentClosing, netlist);
    EXPECT_EQ(doc->templateDoc, nullptr);
    EXPECT_THAT(doc->openDocs, IsEmpty());
}

TEST_F(DocumentNotifyTest, ASaveUnderItsOwnNameStoresTheProjectAndRefreshesTheWorkFile) {
    CSheetDoc* top = OpenProjectSheet("amp2");
    doc->SetModifiedFlag(win::FALSE);
    Notify(kFromSchematic, kCodeDocumentSaved, top);
    const SchematicNode& node = doc->schematics["amp2"];
    EXPECT_EQ(node.openDoc, top);
    EXPECT_EQ(node.state & SchematicNode::kSaved, SchematicNode::kSaved);
    EXPECT_TRUE(Stored());
    EXPECT_EQ(sandbox.Read("amp2/amp2.~PT/amp2.sch"), kSheet);
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(DocumentNotifyTest, ASaveUnderANewNameLeavesTheRecordWithoutItsDocument) {
    CSheetDoc* top = OpenProjectSheet("amp2");
    user.OnDialog("Warning - Saving file to a new name")
        .Inspect([](win::ModalDialog& dialog) {
            EXPECT_EQ(dialog.Text(CWarningDlg::IDC_MESSAGE),
                      "You have saved a project schematic under a new name.  The new file is not "
                      "part of the current project, and will not be analyzed as part of the "
                      "current project.  Saving the new file did not modify the current project.");
        })
        .Click(CWarningDlg::IDC_SKIP)
        .Click(win::IDOK);
    top->SetPathName(WriteFile("amp2/amp3.sch", kSheet).c_str(), win::FALSE);
    Notify(kFromSchematic, kCodeDocumentSaved, top);
    const SchematicNode& node = doc->schematics["amp2"];
    EXPECT_EQ(node.openDoc, nullptr);
    EXPECT_EQ(node.state & SchematicNode::kSaved, SchematicNode::kSaved);
    EXPECT_FALSE(Stored());
    EXPECT_EQ(doc->schematics.size(), 1u);
    EXPECT_EQ(win::GetProfileInt("Project", "SkipSaveAsWrnDlg", 0), 1u);

    // The user who skipped the warning doesn't see it again; case alone is no new name.
    CSheetDoc* stage = OpenProjectSheet("stage");
    stage->SetPathName(WriteFile("amp2/stage2.sch", kSheet).c_str(), win::FALSE);
    Notify(kFromSchematic, kCodeDocumentSaved, stage);
    EXPECT_EQ(user.Record().size(), 1u);
    CSheetDoc* bias = OpenProjectSheet("bias");
    doc->schematics["bias"].path = sandbox.Platform("amp2/BIAS.SCH");
    Notify(kFromSchematic, kCodeDocumentSaved, bias);
    EXPECT_EQ(doc->schematics["bias"].openDoc, bias);
}

TEST_F(DocumentNotifyTest, TheProjectsFilesGetTheProjectsNameInTheirTitle) {
    CSheetDoc* top = OpenSheet("amp2/amp2.sch", kSheet);
    SchematicNode& node = AddRecord("amp2");
    CSheetDoc* symbol = OpenSheet("amp2/stage.sym", "");
    node.symbols.push_back(symbol->GetPathName());
    doc->netlistFile = sandbox.Platform("AMP2/AMP2.CKT");
    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    CSheetDoc* lone = OpenSheet("elsewhere/lone.sch", kSheet);
    for (CSheetDoc* sheet : {top, symbol, netlist, lone})
        Notify(kFromSchematic, kCodeTitleDue, sheet);
    EXPECT_EQ(top->GetTitle(), "amp2 - " + top->GetPathName());
    EXPECT_EQ(symbol->GetTitle(), "amp2 - " + symbol->GetPathName());
    EXPECT_EQ(netlist->GetTitle(), "amp2 - " + netlist->GetPathName());
    EXPECT_EQ(lone->GetTitle(), lone->GetPathName());

    // A symbol list counts case; a project without schematics owns no titles.
    CSheetDoc* upper = OpenSheet("amp2/STAGE.sym", "");
    Notify(kFromSymbol, kCodeTitleDue, upper);
    EXPECT_EQ(upper->GetTitle(), upper->GetPathName());
    doc->topLevelSchematic.clear();
    top->SetTitle("old");
    Notify(kFromSchematic, kCodeTitleDue, top);
    EXPECT_EQ(top->GetTitle(), top->GetPathName());
}

}  // namespace
}  // namespace velorand
