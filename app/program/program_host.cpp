#include "app/program/program_host.h"

#include <cstdio>

#include "app/host_view.h"
#include "app/program/transcript.h"
#include "platform/afx/afx_messages.h"
#include "platform/afx/doc_template.h"
#include "platform/afx/document.h"
#include "platform/afx/tree_view.h"
#include "platform/win/messages.h"
#include "platform/win/strings.h"
#include "platform/win/window.h"
#include "platform/win/window_props.h"

namespace velorand::program {

namespace {

// The component's library, found beside the program.
constexpr const char* kComponent = "velorand_project";

std::string Hex(win::UINT message) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%04X", message);
    return text;
}

}  // namespace

ProgramHost::ProgramHost(Transcript& transcript) : transcript_(transcript) {
    host::CHostView::SetEventListener([this](const host::CHostView& view, const std::string& line) {
        afx::CDocument* doc = view.GetDocument();
        std::string name = doc == nullptr               ? std::string("(no document)")
                           : doc->GetPathName().empty() ? doc->GetTitle()
                                                        : transcript_.ShowPath(doc->GetPathName());
        transcript_.Write("view", name + ": " + transcript_.ShowText(line));
    });
}

ProgramHost::~ProgramHost() {
    host::CHostView::SetEventListener(nullptr);
}

bool ProgramHost::Start(std::string& error) {
    if (!CreateMainFrame()) {
        error = "The main window could not be made.";
        return false;
    }
    MainFrame()->SetMessageListener(
        [this](const host::HostMessage& message) { OnFrameMessage(message); });
    return LoadComponent(kComponent, error);
}

void ProgramHost::End() {
    if (afx::CDocument* project = Project()) {
        project->OnCloseDocument();
        Pump();
    }
    UnloadComponent();
    Pump();
}

bool ProgramHost::Pump() {
    Run();
    return !Crashed();
}

void ProgramHost::OnFrameMessage(const host::HostMessage& message) {
    if (message.message == afx::WM_SETMESSAGESTRING) {
        transcript_.Write("status", transcript_.ShowText(message.text));
    } else if (message.message == win::WM_COMMAND) {
        const win::UINT id = win::LOWORD(message.wParam);
        if (id == muted_) {
            muted_ = 0;
            return;
        }
        transcript_.Write("command", std::to_string(id));
    } else {
        std::string line = Hex(message.message);
        if (message.toMdiClient) {
            line += " to the MDI client";
        }
        if (!message.text.empty()) {
            line += " " + transcript_.ShowText(message.text);
        }
        transcript_.Write("message", line);
    }
}

win::BOOL ProgramHost::OnCmdMsg(win::UINT id, int code, void* extra,
                                afx::AFX_CMDHANDLERINFO* info) {
    const std::size_t before = AppCommands().size();
    const win::BOOL handled = CHostApp::OnCmdMsg(id, code, extra, info);
    if (AppCommands().size() > before) {
        transcript_.Write("command", std::to_string(id) + " to the application");
    }
    return handled;
}

afx::CDocTemplate* ProgramHost::ProjectTemplate() const {
    return GetComponent().Template();
}

afx::CDocument* ProgramHost::Project() const {
    afx::CDocTemplate* tmpl = ProjectTemplate();
    if (tmpl == nullptr) {
        return nullptr;
    }
    afx::POSITION pos = tmpl->GetFirstDocPosition();
    return pos != nullptr ? tmpl->GetNextDoc(pos) : nullptr;
}

afx::CTreeView* ProgramHost::TreeView() const {
    host::CMainFrame* frame = MainFrame();
    if (frame == nullptr) {
        return nullptr;
    }
    auto window = reinterpret_cast<win::HWND>(win::GetProp(frame->m_hWnd, "Project"));
    if (window == nullptr || !win::IsWindow(window)) {
        return nullptr;
    }
    return dynamic_cast<afx::CTreeView*>(afx::CWnd::FromHandle(window));
}

afx::CDocument* ProgramHost::FindDocument(const std::string& platformPath) const {
    for (afx::CDocTemplate* tmpl : GetDocTemplates()) {
        if (tmpl == ProjectTemplate()) {
            continue;
        }
        for (afx::POSITION pos = tmpl->GetFirstDocPosition(); pos != nullptr;) {
            afx::CDocument* doc = tmpl->GetNextDoc(pos);
            if (win::EqualNoCase(doc->GetPathName(), platformPath)) {
                return doc;
            }
        }
    }
    return nullptr;
}

bool ProgramHost::ShowTree() {
    afx::CTreeView* view = TreeView();
    if (view == nullptr) {
        return false;
    }
    afx::CTreeCtrl& tree = view->GetTreeCtrl();
    transcript_.Write("tree", "");
    auto walk = [&](auto&& self, win::HTREEITEM item, int depth) -> void {
        for (; item != nullptr; item = tree.GetNextSiblingItem(item)) {
            transcript_.WriteRaw(std::string(2 * depth, ' ') +
                                 transcript_.ShowText(tree.GetItemText(item)));
            self(self, tree.GetChildItem(item), depth + 1);
        }
    };
    walk(walk, tree.GetRootItem(), 1);
    return true;
}

}  // namespace velorand::program
