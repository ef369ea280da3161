// From a name or a path to a schematic's record, and the ordinary way to open a file of
// the project in the host.
#include <string>

#include "core/file_kinds.h"
#include "core/project_doc.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"
#include "platform/win/current_directory.h"
#include "platform/win/file_attributes.h"
#include "platform/win/strings.h"
#include "platform/win/window.h"

namespace velorand {

namespace {

constexpr std::size_t kMaxFileName = 256;

bool Exists(const std::string& path) {
    return win::GetFileAttributes(path.c_str()) != win::INVALID_FILE_ATTRIBUTES;
}

bool CurrentFolder(std::string& folder) {
    char buffer[win::MAX_PATH];
    win::DWORD length = win::GetCurrentDirectory(sizeof buffer, buffer);
    if (length == 0 || length >= sizeof buffer) {
        return false;
    }
    folder.assign(buffer, length);
    return true;
}

}  // namespace

SchematicNode* CProjectDoc::FindSchematicByPath(const char* nameOrPath) {
    if (nameOrPath == nullptr) {
        return nullptr;
    }
    if (auto it = schematics.find(win::ToLower(nameOrPath)); it != schematics.end()) {
        return &it->second;
    }
    for (auto& [key, node] : schematics) {
        if (CompareFileNames(node.path.c_str(), nameOrPath) == 0) {
            return &node;
        }
    }
    return nullptr;
}

afx::CDocument* CProjectDoc::OpenFile(const char* path, int force) {
    afx::CWaitCursor wait;
    if ((!autoOpenFile && !force) || path == nullptr) {
        return nullptr;
    }
    const std::string requested = path;  // the caller's text may be one of our fields
    const std::string name(FileNamePart(requested).substr(0, kMaxFileName));
    std::string noted;
    bool haveNoted = CurrentFolder(noted);

    // A file in the project's folder wins over the same name elsewhere.
    win::SetCurrentDirectory(location.c_str());
    std::string candidate = location + name;
    if (!Exists(candidate)) {
        candidate = requested;
        if (!relativePath.empty()) {
            win::SetCurrentDirectory(relativePath.c_str());  // counts from location
        }
        std::string here;
        if (CurrentFolder(here)) {
            noted = here;
            haveNoted = true;
            std::string inHere = here;
            if (inHere.back() != '\\') {
                inHere += '\\';
            }
            inHere += name;
            if (Exists(inHere)) {
                candidate = inHere;
            }
        }
    }

    if (SchematicNode* node = FindSchematicByPath(candidate.c_str());
        node != nullptr && node->openDoc != nullptr) {
        afx::CDocument* doc = node->openDoc;
        if (afx::CView* view = GetFirstDocView(doc)) {
            if (afx::CFrameWnd* frame = view->GetParentFrame()) {
                frame->ActivateFrame(win::SW_SHOW);
            }
        }
        GetDocFrame(doc, win::TRUE);
        return doc;
    }

    afx::CWinApp* app = afx::AfxGetApp();
    afx::CDocument* doc = app != nullptr ? app->OpenDocumentFile(candidate.c_str()) : nullptr;
    if (doc != nullptr && haveNoted) {
        win::SetCurrentDirectory(noted.c_str());
    }
    if (win::EqualNoCase(requested, topLevelSchematic)) {
        topLevelSchematic = candidate;
    }
    return doc;
}

}  // namespace velorand
