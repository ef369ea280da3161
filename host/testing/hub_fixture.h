// The fixture of the hub's tests: a project amp2 as a load leaves it, the reference host's
// document templates beside the fixture's sheets, and the main window's property
// "Project" naming the tree view, so that the host's documents tell the project of
// themselves. Records go to the tree view's window as a host view sends them.
#pragma once

#include <string>

#include "app/host_templates.h"
#include "app/host_view.h"
#include "core/testing/loaded_project.h"
#include "host/project_notify.h"
#include "platform/win/app_profile.h"
#include "platform/win/messages.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand::testing {

class HubTest : public LoadedProjectTest {
  protected:
    static constexpr const char* kSheet = "[schematic2]\nver 40\n\n[cell use]\n";

    void SetUp() override {
        LoadedProjectTest::SetUp();
        hostTemplates.Register(app, *mainWnd);
        doc = MakeProject("amp2", "amp2", "[Project]\nProjectID=amp2\n");
        ASSERT_NE(doc, nullptr);
        view = doc->treeView;
        doc->topLevelSchematic = WriteFile("amp2/amp2.sch", kSheet);
        win::SetProp(mainWnd->m_hWnd, "Project", reinterpret_cast<win::HANDLE>(view->m_hWnd));
    }

    void TearDown() override {
        // The host's documents tell the project of their close while it is still there.
        hostTemplates.Schematic()->CloseAllDocuments(win::FALSE);
        hostTemplates.Netlist(0)->CloseAllDocuments(win::FALSE);
        win::RemoveProp(mainWnd->m_hWnd, "Project");
        LoadedProjectTest::TearDown();
    }

    // Sends a record as a host view does; the record as the hub left it.
    ProjectNotify Send(win::UINT_PTR from, win::UINT code, afx::CDocument* document = nullptr,
                       int option = 0, win::LPARAM argument = 0) {
        ProjectNotify record;
        record.idFrom = from;
        record.code = code;
        record.document = document;
        record.option = option;
        record.argument = argument;
        view->SendMessage(win::WM_NOTIFY, from, reinterpret_cast<win::LPARAM>(&record));
        return record;
    }

    // The record of a schematic of the project, in the project's folder.
    SchematicNode& AddRecord(const std::string& name) {
        SchematicNode& node = doc->schematics[name];
        node.path = sandbox.Platform("amp2/" + name + ".sch");
        return node;
    }

    // Opens a file through one of the host's templates; the document tells the project.
    afx::CDocument* OpenHostDocument(afx::CDocTemplate* docTemplate, const std::string& relative,
                                     const std::string& text) {
        return docTemplate->OpenDocumentFile(WriteFile(relative, text).c_str(), win::TRUE);
    }
    static host::CHostView* HostView(afx::CDocument* document) {
        return dynamic_cast<host::CHostView*>(CProjectDoc::GetFirstDocView(document));
    }

    host::HostTemplates hostTemplates;
    CProjectDoc* doc = nullptr;
    CProjectView* view = nullptr;
};

}  // namespace velorand::testing
