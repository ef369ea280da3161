#include "core/testing/schematic_host.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>

#include <unistd.h>

#include "host/project_messages.h"
#include "platform/afx/win_app.h"
#include "platform/win/app_profile.h"
#include "platform/win/paths.h"
#include "platform/win/resources.h"

namespace velorand::testing {

namespace {

constexpr win::UINT kSchematicResource = 27900;

}  // namespace

// The runtime class macros name the base without its namespace.
using afx::CDocument;
using afx::CMDIChildWnd;
using afx::CView;

IMPLEMENT_DYNCREATE(CTestSchematicDoc, CDocument)
IMPLEMENT_DYNCREATE(CTestSchematicView, CView)
IMPLEMENT_DYNCREATE(CTestSchematicFrame, CMDIChildWnd)

win::BOOL CTestSchematicDoc::OnOpenDocument(win::LPCSTR path) {
    std::optional<std::string> posix = win::PosixPath(path);
    std::ifstream in;
    if (posix) {
        in.open(*posix, std::ios::binary);
    }
    if (!in.is_open() || !CDocument::OnOpenDocument(path)) {
        return win::FALSE;
    }
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    char value[win::MAX_PATH] = {};
    win::GetProfileString("Velorand", "ProjectSearchPath", "", value, sizeof value);
    projectSearchPath = value;
    return win::TRUE;
}

win::BOOL CTestSchematicDoc::OnSaveDocument(win::LPCSTR path) {
    std::optional<std::string> posix = win::PosixPath(path);
    std::ofstream out;
    if (posix) {
        out.open(*posix, std::ios::binary | std::ios::trunc);
    }
    if (!out.is_open() || !(out << text) || !CDocument::OnSaveDocument(path)) {
        return win::FALSE;
    }
    return win::TRUE;
}

win::LRESULT CTestSchematicView::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    if (msg == PM_RUN_SCRIPT) {
        scriptLines.emplace_back(reinterpret_cast<const char*>(lParam));
        return 1;
    }
    return CView::WindowProc(msg, wParam, lParam);
}

SchematicHost::SchematicHost(afx::CWinApp& app) {
    win::RegisterStringResource(afx::AfxGetResourceHandle(), kSchematicResource,
                                "Schematic\nSchematic\nSchematic\nSchematic (*.sch)\n.sch\n"
                                "Schematic.Document\nSchematic Document");
    template_ = new afx::CMultiDocTemplate(kSchematicResource, RUNTIME_CLASS(CTestSchematicDoc),
                                           RUNTIME_CLASS(CTestSchematicFrame),
                                           RUNTIME_CLASS(CTestSchematicView));
    app.AddDocTemplate(template_);
}

SchematicHost::~SchematicHost() {
    template_->CloseAllDocuments(win::TRUE);
    delete template_;  // leaves the application's list
}

std::vector<CTestSchematicDoc*> SchematicHost::Documents() const {
    std::vector<CTestSchematicDoc*> docs;
    for (afx::POSITION pos = template_->GetFirstDocPosition(); pos != nullptr;) {
        docs.push_back(static_cast<CTestSchematicDoc*>(template_->GetNextDoc(pos)));
    }
    return docs;
}

CTestSchematicView* SchematicHost::ViewOf(afx::CDocument* doc) {
    if (doc == nullptr || !doc->IsKindOf(RUNTIME_CLASS(CTestSchematicDoc))) {
        return nullptr;
    }
    afx::POSITION pos = doc->GetFirstViewPosition();
    afx::CView* view = doc->GetNextView(pos);
    return view != nullptr && view->IsKindOf(RUNTIME_CLASS(CTestSchematicView))
               ? static_cast<CTestSchematicView*>(view)
               : nullptr;
}

void SchematicProjectTest::SetUp() {
    char* folder = getcwd(nullptr, 0);
    savedFolder_ = folder != nullptr ? folder : "/";
    free(folder);
    ProjectTest::SetUp();
    schematicHost.emplace(app);
}

void SchematicProjectTest::TearDown() {
    schematicHost.reset();
    ProjectTest::TearDown();
    EXPECT_EQ(chdir(savedFolder_.c_str()), 0);
}

CProjectDoc* SchematicProjectTest::MakeProject(const std::string& folder, const std::string& id,
                                               const std::string& fileText) {
    CProjectDoc* doc = MakeDocument();
    if (doc == nullptr) {
        return nullptr;
    }
    doc->projectID = id;
    doc->location = sandbox.Platform(folder) + "\\";
    doc->SetPathName(WriteFile(folder + "/" + id + ".vpj", fileText).c_str(), win::FALSE);
    return doc;
}

}  // namespace velorand::testing
