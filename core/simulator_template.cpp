// The project's simulator: the test of the simulator a project file names, the list of
// installed simulators for the project dialog, and the simulator template, the host's
// netlist document that belongs to the project and brings its own menu along.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "core/netlist_header.h"
#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "platform/afx/controls.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/multi_doc_template.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"
#include "platform/win/clock.h"
#include "platform/win/file_attributes.h"
#include "platform/win/messages.h"
#include "platform/win/strings.h"
#include "platform/win/text_stream.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand {

namespace {

constexpr const char* kTemplateList = "Template List";
// The installed simulators are looked at up to this many, each with up to this many
// document templates.
constexpr int kMaxSimulators = 8;
constexpr int kMaxTemplates = 16;
// The field of a template record that the simulator list shows.
constexpr int kListTextField = 6;

constexpr win::UINT kQueryTemplate = 334;
constexpr win::UINT kMayClose = 235;

// A decimal number as the C library reads one, held to the range of the field.
std::int32_t ParseIndex(const char* text) {
    long value = std::strtol(text ? text : "", nullptr, 10);
    if (value > INT32_MAX)
        return INT32_MAX;
    if (value < INT32_MIN)
        return INT32_MIN;
    return static_cast<std::int32_t>(value);
}

}  // namespace

int CProjectDoc::TestSimulator(const char* value) {
    simulator = ParseIndex(value);
    simulatorInfo = std::make_unique<SimulatorInfo>(simulator);
    const std::string installed = GetSuiteProfileString(kTemplateList, "Simulator", "");
    const std::string& name = simulatorInfo->GetDisplayName();
    return !name.empty() && installed.find(name) != std::string::npos ? 1 : 0;
}

int CProjectDoc::FillSimulatorList(afx::CComboBox& combo) {
    const std::string installed = GetSuiteProfileString(kTemplateList, "Simulator", "");
    if (installed.empty())
        return 0;
    combo.ResetContent();
    std::string entry;
    for (int i = 0; i < kMaxSimulators && ExtractListEntry(installed, i, ',', entry); ++i) {
        // An empty entry (two commas) would match every record.
        if (entry.empty())
            continue;
        for (int n = 0; n < kMaxTemplates; ++n) {
            const std::string key = "Template" + std::to_string(n);
            const std::string record = GetSuiteProfileString(kTemplateList, key.c_str(), "");
            std::string text;
            if (win::_strnicmp(record.c_str(), entry.c_str(), entry.size()) == 0 &&
                ExtractListEntry(record, kListTextField, ',', text))
                combo.AddString(text.c_str());
        }
    }
    return 1;
}

int CProjectDoc::WriteNetlistHeader() {
    if (!toolsEnabled)
        return 0;
    netlistFile =
        location + projectID + (simulatorInfo ? simulatorInfo->GetNetlistExtension() : "");
    if (win::GetFileAttributes(netlistFile.c_str()) != win::INVALID_FILE_ATTRIBUTES)
        return 1;
    std::ofstream out;
    if (!win::OpenTextStream(out, netlistFile.c_str()))
        return 0;
    out << NetlistHeaderText(netlistFile, topLevelSchematic, win::LongDate());
    out.close();
    return out ? 1 : 0;
}

int CProjectDoc::OpenSimulatorTemplate() {
    if (!treeValid)
        return 0;
    if (templateDisabled == 1)
        return -1;
    templateDisabled = 1;  // no second template while this one opens
    if (templateDoc != nullptr) {
        // The host tells of the close as well; the pointer must not outlive the document.
        afx::CDocument* old = templateDoc;
        templateDoc = nullptr;
        old->OnCloseDocument();
    }
    if (projectID.empty()) {
        templateDisabled = 0;
        return 0;
    }
    WriteNetlistHeader();

    char property[32];
    std::snprintf(property, sizeof property, "SimulatorTemplate%d", simulator);
    auto* simulatorTemplate = reinterpret_cast<afx::CDocTemplate*>(
        win::GetProp(mainWnd ? mainWnd->m_hWnd : nullptr, property));
    if (simulatorTemplate != nullptr)
        templateDoc = simulatorTemplate->OpenDocumentFile(netlistFile.c_str(), win::FALSE);
    else if (afx::CWinApp* app = afx::AfxGetApp())
        templateDoc = app->OpenDocumentFile(netlistFile.c_str());
    templateDisabled = 0;
    if (templateDoc == nullptr)
        return 0;

    // The template's menu stands in for the frame's default menu, once: a later template
    // finds savedFrameMenu set and leaves the frame alone.
    auto* shared = dynamic_cast<afx::CMultiDocTemplate*>(templateDoc->GetDocTemplate());
    auto* frame = dynamic_cast<afx::CFrameWnd*>(mainWnd);
    if (savedFrameMenu == nullptr && shared != nullptr && shared->m_hMenuShared != nullptr &&
        frame != nullptr) {
        savedFrameMenu = frame->m_hMenuDefault;
        frame->m_hMenuDefault = shared->m_hMenuShared;
        frame->OnUpdateFrameMenu(shared->m_hMenuShared);
        frame->DrawMenuBar();
    }
    SetModifiedFlag(win::TRUE);
    return 1;
}

int CProjectDoc::ForgetSimulatorTemplate() {
    templateDoc = nullptr;
    hostMenu = nullptr;
    templateMenu = nullptr;
    // Both stand in host menus, which destroy them with themselves.
    layoutMenu.Detach();
    partsMenu.Detach();
    if (savedFrameMenu != nullptr) {
        if (auto* frame = dynamic_cast<afx::CFrameWnd*>(mainWnd)) {
            frame->m_hMenuDefault = savedFrameMenu;
            frame->OnUpdateFrameMenu(nullptr);
            frame->DrawMenuBar();
        }
    }
    return 1;
}

win::LRESULT CProjectDoc::QueryTemplateView(win::LPARAM value) {
    afx::CView* view = GetFirstDocView(templateDoc);
    return view != nullptr ? SendProjectNotify(view, kQueryTemplate, nullptr, 1, value) : 0;
}

win::LRESULT CProjectDoc::CanCloseTemplate() {
    afx::CView* view = GetFirstDocView(templateDoc);
    return view != nullptr ? SendProjectNotify(view, kMayClose, nullptr, 1,
                                               reinterpret_cast<win::LPARAM>("Close"))
                           : 1;
}

}  // namespace velorand
