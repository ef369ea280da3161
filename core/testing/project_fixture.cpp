#include "core/testing/project_fixture.h"

#include <stdlib.h>

#include "platform/afx/afx_messages.h"
#include "platform/afx/frame_wnd.h"
#include "views/project_view.h"

namespace velorand::testing {

ProjectTest::ProjectTest() {
    // The sandbox gives the library path back at its end; the log goes with the sandbox.
    setenv("VELORAND_LIBRARY_PATH", VELORAND_SIBLINGS_DIR, 1);
    setenv("VELORAND_SUITE_LOG", (sandbox.Root() / "suite.log").c_str(), 1);
}

ProjectTest::~ProjectTest() {
    unsetenv("VELORAND_SUITE_LOG");
}

void ProjectTest::SetUp() {
    // The component's tests open their files as the fixture's own sheets.
    ASSERT_TRUE(app.CreateMainFrame(false));
    mainWnd = app.MainFrame();
    mainWnd->ShowWindow(win::SW_SHOW);
    sheetTemplate = std::make_unique<CSheetTemplate>();
    app.AddDocTemplate(sheetTemplate.get());
    Relink();
}

void ProjectTest::TearDown() {
    app.UnloadComponent();
    projectTemplate = nullptr;
    if (sheetTemplate) {
        sheetTemplate->CloseAllDocuments(win::FALSE);
        sheetTemplate.reset();
    }
}

void ProjectTest::Relink() {
    app.UnloadComponent();
    std::string error;
    ASSERT_TRUE(app.LoadComponent("velorand_project", error)) << error;
    projectTemplate = dynamic_cast<CProjectDocTemplate*>(app.GetComponent().Template());
    ASSERT_NE(projectTemplate, nullptr);
}

CProjectDoc* ProjectTest::MakeDocument() {
    auto* doc = dynamic_cast<CProjectDoc*>(projectTemplate->CreateNewDocument());
    if (doc == nullptr) {
        return nullptr;
    }
    afx::CFrameWnd* frame = projectTemplate->CreateNewFrame(doc, nullptr);
    if (frame == nullptr) {
        delete doc;
        return nullptr;
    }
    projectTemplate->InitialUpdateFrame(frame, doc, win::FALSE);
    doc->treeView = dynamic_cast<CProjectView*>(CProjectDoc::GetFirstDocView(doc));
    doc->treeFrame = frame;
    projectTemplate->currentDoc = doc;
    return doc;
}

CSheetDoc* ProjectTest::OpenSheet(const std::string& relative, const std::string& text) {
    std::string path = WriteFile(relative, text);
    return dynamic_cast<CSheetDoc*>(sheetTemplate->OpenDocumentFile(path.c_str(), win::TRUE));
}

std::string ProjectTest::WriteFile(const std::string& relative, const std::string& text) const {
    sandbox.Write(relative, text);
    return sandbox.Platform(relative);
}

std::string ProjectTest::SuiteLog() const {
    return ReadFile(sandbox.Root() / "suite.log");
}

std::vector<std::string> ProjectTest::StatusLines() const {
    std::vector<std::string> lines;
    for (const host::HostMessage& message : mainWnd->Messages())
        if (message.message == afx::WM_SETMESSAGESTRING)
            lines.push_back(message.text);
    return lines;
}

}  // namespace velorand::testing
