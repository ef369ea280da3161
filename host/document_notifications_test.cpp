// The host's documents as they open, close, are saved and get their titles.
#include <gmock/gmock.h>

#include "core/warning_dlg.h"
#include "host/notify_codes.h"
#include "host/testing/hub_fixture.h"
#include "platform/win/menu.h"
#include "platform/win/window.h"

namespace velorand {
namespace {

using testing::CSheetDoc;
using ::testing::ElementsAre;
using testing::HubTest;
using ::testing::IsEmpty;

class DocumentNotifyTest : public HubTest {
  protected:
    // A sheet of the project, opened and joined to its record.
    CSheetDoc* OpenProjectSheet(const std::string& name) {
        AddRecord(name);
        CSheetDoc* sheet = OpenSheet("amp2/" + name + ".sch", kSheet);
        Send(kFromSchematic, kCodeDocumentOpened, sheet);
        return sheet;
    }
    bool Stored() const {
        return sandbox.Read("amp2/amp2.vpj").find("LastUpdated=") != std::string::npos;
    }
    void ExpectWarning(const char* caption, const char* text, bool skip) {
        win::ScriptedAgent::DialogScript& script =
            user.OnDialog(caption).Inspect([text](win::ModalDialog& dialog) {
                EXPECT_EQ(dialog.Text(CWarningDlg::IDC_MESSAGE), text);
            });
        if (skip)
            script.Click(CWarningDlg::IDC_SKIP);
        script.Click(win::IDOK);
    }
};

TEST_F(DocumentNotifyTest, ASchematicOutsideTheProjectIsWarnedAboutUntilTheUserSkipsIt) {
    ExpectWarning("Schematic Not Part of Current Project",
                  "The schematic file you are opening is not part of the current project.  It "
                  "will not be used during analysis of the project, nor will be it analyzed along "
                  "with the project.",
                  true);
    CSheetDoc* lone = OpenSheet("elsewhere/lone.sch", kSheet);
    Send(kFromSchematic, kCodeDocumentOpened, lone);
    // It joins the project all the same, and reports to the tree view from now on.
    EXPECT_EQ(doc->activeDoc, lone);
    EXPECT_THAT(doc->openDocs, ElementsAre(lone));
    EXPECT_EQ(LoadedProjectTest::ViewOf(lone)->GetOwner(), view);

    CSheetDoc* second = OpenSheet("elsewhere/second.sch", kSheet);
    Send(kFromSchematic, kCodeDocumentOpened, second);
    EXPECT_EQ(user.Record().size(), 1u);

    doc->topLevelSchematic.clear();
    win::WriteProfileInt("Project", "SkipAssociationDlg", 0);
    ExpectWarning("Schematic Not Associated with Simulator",
                  "You are opening a schematic file directly, rather than as part of a project.  "
                  "You will not be able to analyze the schematic because it is not associated "
                  "with a simulator.  To enable simulation, open the schematic as part of a "
                  "project.",
                  false);
    Send(kFromSchematic, kCodeDocumentOpened, OpenSheet("elsewhere/third.sch", kSheet));
    Send(kFromSymbol, kCodeDocumentOpened, OpenSheet("elsewhere/lone.sym", ""));
    EXPECT_EQ(user.Record().size(), 2u);
}

TEST_F(DocumentNotifyTest, AProjectSchematicJoinsItsRecordAndTheTemplateBringsItsMenu) {
    CSheetDoc* top = OpenProjectSheet("amp2");
    EXPECT_THAT(user.Record(), IsEmpty());
    EXPECT_EQ(doc->schematics["amp2"].state, SchematicNode::kOpened);
    EXPECT_EQ(doc->schematics["amp2"].openDoc, top);
    EXPECT_EQ(doc->topDoc, top);

    // Schematics and symbols at the head of the list, all else at its tail.
    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    win::HMENU menu = win::CreateMenu();
    Send(kFromTemplate, kCodeDocumentOpened, netlist, 0, reinterpret_cast<win::LPARAM>(menu));
    CSheetDoc* stage = OpenProjectSheet("stage");
    EXPECT_THAT(doc->openDocs, ElementsAre(stage, top, netlist));
    EXPECT_EQ(doc->templateDoc, netlist);
    EXPECT_EQ(doc->activeDoc, stage);
    EXPECT_NE(win::GetMenu(mainWnd->m_hWnd), menu);

    // Without schematics the frame shows the template's menu.
    doc->topLevelSchematic.clear();
    mainWnd->ClearMessages();
    Send(kFromTemplate, kCodeDocumentOpened, netlist, 0, reinterpret_cast<win::LPARAM>(menu));
    EXPECT_EQ(win::GetMenu(mainWnd->m_hWnd), menu);
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26467u));
}

TEST_F(DocumentNotifyTest, ClosingAChangedProjectSchematicStoresTheProjectOutsideAClose) {
    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    Send(kFromTemplate, kCodeDocumentOpened, netlist);
    CSheetDoc* top = OpenProjectSheet("amp2");
    CSheetDoc* stage = OpenProjectSheet("stage");
    CSheetDoc* lone = OpenSheet("elsewhere/lone.sch", kSheet);
    win::WriteProfileInt("Project", "SkipAssociationDlg", 1);
    Send(kFromSchematic, kCodeDocumentOpened, lone);
    ASSERT_THAT(doc->openDocs, ElementsAre(lone, stage, top, netlist));

    // While the project closes, foreign, or unchanged: nothing is stored.
    top->SetModifiedFlag(win::TRUE);
    doc->activeDoc = top;
    doc->busy = 1;
    Send(kFromSchematic, kCodeDocumentClosing, top);
    doc->busy = 0;
    // The first other document ahead of the closing one becomes the active one.
    EXPECT_EQ(doc->activeDoc, lone);
    EXPECT_EQ(doc->topDoc, nullptr);
    lone->SetModifiedFlag(win::TRUE);
    Send(kFromSchematic, kCodeDocumentClosing, lone);
    EXPECT_EQ(doc->schematics["amp2"].openDoc, nullptr);
    EXPECT_EQ(doc->schematics["amp2"].state, SchematicNode::kOpened | SchematicNode::kClosed);
    Send(kFromSchematic, kCodeDocumentClosing, stage);
    EXPECT_FALSE(Stored());

    CSheetDoc* bias = OpenProjectSheet("bias");
    bias->SetModifiedFlag(win::TRUE);
    Send(kFromSchematic, kCodeDocumentClosing, bias);
    EXPECT_TRUE(Stored());
    EXPECT_EQ(doc->activeDoc, nullptr);
    EXPECT_THAT(doc->openDocs, ElementsAre(netlist));

    Send(kFromTemplate, kCodeDocumentClosing, netlist);
    EXPECT_EQ(doc->templateDoc, nullptr);
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(DocumentNotifyTest, ASaveStoresTheProjectUnlessTheSchematicTookANewName) {
    CSheetDoc* top = OpenProjectSheet("amp2");
    doc->SetModifiedFlag(win::FALSE);
    Send(kFromSchematic, kCodeDocumentSaved, top);
    EXPECT_TRUE(Stored());
    EXPECT_EQ(doc->schematics["amp2"].state & SchematicNode::kSaved, SchematicNode::kSaved);
    EXPECT_EQ(sandbox.Read("amp2/amp2.~PT/amp2.sch"), kSheet);
    EXPECT_TRUE(doc->IsModified());

    CSheetDoc* stage = OpenProjectSheet("stage");
    ExpectWarning("Warning - Saving file to a new name",
                  "You have saved a project schematic under a new name.  The new file is not "
                  "part of the current project, and will not be analyzed as part of the current "
                  "project.  Saving the new file did not modify the current project.",
                  true);
    stage->SetPathName(WriteFile("amp2/stage2.sch", kSheet).c_str(), win::FALSE);
    Send(kFromSchematic, kCodeDocumentSaved, stage);
    EXPECT_EQ(doc->schematics["stage"].openDoc, nullptr);
    EXPECT_EQ(doc->schematics.size(), 2u);
    // Skipped once, the warning stays away; case alone is no new name.
    Send(kFromSchematic, kCodeDocumentSaved, stage);
    EXPECT_EQ(user.Record().size(), 1u);
    CSheetDoc* bias = OpenProjectSheet("bias");
    doc->schematics["bias"].path = sandbox.Platform("amp2/BIAS.SCH");
    Send(kFromSchematic, kCodeDocumentSaved, bias);
    EXPECT_EQ(doc->schematics["bias"].openDoc, bias);
}

TEST_F(DocumentNotifyTest, TheProjectsFilesGetTheProjectsNameInTheirTitle) {
    CSheetDoc* top = OpenSheet("amp2/amp2.sch", kSheet);
    CSheetDoc* symbol = OpenSheet("amp2/stage.sym", "");
    AddRecord("amp2").symbols.push_back(symbol->GetPathName());
    CSheetDoc* upper = OpenSheet("amp2/STAGE.sym", "");  // symbol lists count case
    doc->netlistFile = sandbox.Platform("AMP2/AMP2.CKT");
    CSheetDoc* netlist = OpenSheet("amp2/amp2.ckt", "");
    CSheetDoc* lone = OpenSheet("elsewhere/lone.sch", kSheet);
    for (CSheetDoc* sheet : {top, symbol, upper, netlist, lone})
        Send(kFromSchematic, kCodeTitleDue, sheet);
    EXPECT_EQ(top->GetTitle(), "amp2 - " + top->GetPathName());
    EXPECT_EQ(symbol->GetTitle(), "amp2 - " + symbol->GetPathName());
    EXPECT_EQ(netlist->GetTitle(), "amp2 - " + netlist->GetPathName());
    EXPECT_EQ(upper->GetTitle(), upper->GetPathName());
    EXPECT_EQ(lone->GetTitle(), lone->GetPathName());

    doc->topLevelSchematic.clear();
    Send(kFromSchematic, kCodeTitleDue, top);
    EXPECT_EQ(top->GetTitle(), top->GetPathName());
}

}  // namespace
}  // namespace velorand
