// The fixture of the hub's tests: a project amp2 as a load leaves it, with the reference
// host's own document templates beside the fixture's sheets, and the main window's
// property "Project" naming the tree view, so that the host's documents tell the project
// of themselves. Records go to the tree view's window as a host view sends them.
//
//   ProjectNotify record = Record(kFromSchematic, 247);
//   Send(record);
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/host_templates.h"
#include "app/host_view.h"
#include "app/text_document.h"
#include "core/testing/loaded_project.h"
#include "host/project_notify.h"
#include "platform/win/app_profile.h"
#include "platform/win/messages.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand::testing {

class HubTest : public LoadedProjectTest {
  protected:
    static constexpr const char* kProjectFile =
        "[Project]\nProjectID=amp2\nTopLevelSchematic=C:\\amp2\\amp2.sch\n";
    static constexpr const char* kSheet = "[schematic2]\nver 40\n\n[cell use]\n";

    void SetUp() override {
        PrepareProfile();
        LoadedProjectTest::SetUp();
        hostTemplates.Register(app, *mainWnd);
        doc = MakeProject("amp2", "amp2", kProjectFile);
        ASSERT_NE(doc, nullptr);
        view = doc->treeView;
        ASSERT_NE(view, nullptr);
        doc->topLevelSchematic = WriteFile("amp2/amp2.sch", kSheet);
        win::SetProp(mainWnd->m_hWnd, "Project", reinterpret_cast<win::HANDLE>(view->m_hWnd));
    }

    void TearDown() override {
        // The host's documents tell the project of their close while it is still there.
        for (afx::CMultiDocTemplate* docTemplate :
             {static_cast<afx::CMultiDocTemplate*>(hostTemplates.Schematic()),
              static_cast<afx::CMultiDocTemplate*>(hostTemplates.Symbol()),
              static_cast<afx::CMultiDocTemplate*>(hostTemplates.Netlist(0)),
              static_cast<afx::CMultiDocTemplate*>(hostTemplates.Netlist(1))})
            docTemplate->CloseAllDocuments(win::FALSE);
        win::RemoveProp(mainWnd->m_hWnd, "Project");
        LoadedProjectTest::TearDown();
    }

    // Profile values that the view and the document read when they are made.
    virtual void PrepareProfile() {}

    static ProjectNotify Record(win::UINT_PTR from, win::UINT code,
                                afx::CDocument* document = nullptr, int option = 0,
                                win::LPARAM argument = 0) {
        ProjectNotify record;
        record.idFrom = from;
        record.code = code;
        record.document = document;
        record.option = option;
        record.argument = argument;
        return record;
    }

    // Sends the record as a host view does; the out value of the hub.
    win::LRESULT Send(ProjectNotify& record) {
        return view->SendMessage(win::WM_NOTIFY, record.idFrom,
                                 reinterpret_cast<win::LPARAM>(&record));
    }

    // A schematic of the project: its record, for a file below the project's folder.
    SchematicNode& AddRecord(const std::string& name) {
        SchematicNode& node = doc->schematics[name];
        node.path = sandbox.Platform("amp2/" + name + ".sch");
        return node;
    }

    // Opens a file through one of the host's templates; the document tells the project.
    host::CTextDocument* OpenHostDocument(afx::CMultiDocTemplate* docTemplate,
                                          const std::string& relative, const std::string& text) {
        const std::string path = WriteFile(relative, text);
        return dynamic_cast<host::CTextDocument*>(
            docTemplate->OpenDocumentFile(path.c_str(), win::TRUE));
    }

    static host::CHostView* HostView(afx::CDocument* document) {
        return dynamic_cast<host::CHostView*>(CProjectDoc::GetFirstDocView(document));
    }

    host::HostTemplates hostTemplates;
    CProjectDoc* doc = nullptr;
    CProjectView* view = nullptr;
};

}  // namespace velorand::testing
