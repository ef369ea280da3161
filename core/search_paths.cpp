// The project's search paths: the keys of [Search Paths] in the project file, their copy
// in searchPaths, and the lines that hand them to the schematic editor.
#include <cstring>
#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/warning_dlg.h"
#include "host/project_messages.h"
#include "platform/afx/view.h"
#include "platform/win/app_profile.h"
#include "platform/win/private_profile.h"
#include "platform/win/strings.h"

namespace velorand {

namespace {

constexpr const char* kSection = "Search Paths";
// SearchPath0 to SearchPath254 are read; each value fits a buffer of 260 bytes.
constexpr int kMaxSearchPaths = 255;
constexpr win::DWORD kValueBuffer = 260;

std::string SearchPathKey(std::size_t index) {
    return "SearchPath" + std::to_string(index);
}

// The text before the last backslash: the folder of a file, or a folder without its
// trailing backslash.
std::string FolderPart(const std::string& path) {
    std::size_t slash = path.find_last_of('\\');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

// The view that takes the editor's command lines: that of the active schematic, else of
// the top level schematic, opened for the purpose when it must be.
afx::CView* EditorView(CProjectDoc& project) {
    afx::CDocument* doc = project.activeDoc;
    if (doc == nullptr) {
        project.OpenTopSchematic();
        doc = project.topDoc;
    }
    return doc != nullptr ? CProjectDoc::GetFirstDocView(doc) : nullptr;
}

void RunScript(afx::CView* view, const std::string& line) {
    view->SendMessage(PM_RUN_SCRIPT, 0, reinterpret_cast<win::LPARAM>(line.c_str()));
}

}  // namespace

int CProjectDoc::LoadSearchPaths(std::vector<std::string>& out) {
    out.clear();
    searchPaths.clear();
    char value[kValueBuffer];
    for (int i = 0; i < kMaxSearchPaths; ++i) {
        if (win::GetPrivateProfileString(kSection, SearchPathKey(i).c_str(), "", value,
                                         kValueBuffer, GetPathName().c_str()) == 0) {
            break;
        }
        out.emplace_back(value);
        searchPaths.emplace_back(value);
    }
    return 1;
}

int CProjectDoc::StoreSearchPaths(const char* file, const std::vector<std::string>& list) {
    // The list may be searchPaths itself.
    const std::vector<std::string> paths = list;
    searchPaths.clear();
    for (std::size_t i = 0; i < paths.size(); ++i) {
        win::WritePrivateProfileString(kSection, SearchPathKey(i).c_str(), paths[i].c_str(), file);
        searchPaths.push_back(paths[i]);
    }
    return 1;
}

int CProjectDoc::OpenTopSchematic() {
    if (topLevelSchematic.empty() || !treeValid) {
        return 0;
    }
    // The host looks the project's paths up here while it loads the file.
    win::WriteProfileString("Velorand", "ProjectSearchPath", GetPathName().c_str());
    const std::string top = topLevelSchematic;  // OpenFile may rewrite the field
    topDoc = OpenFile(top.c_str(), 0);
    win::WriteProfileString("Velorand", "ProjectSearchPath", nullptr);
    if (topDoc != nullptr) {
        return 1;
    }
    treeValid = 0;
    return 0;
}

void CProjectDoc::SendRemovePaths() {
    afx::CView* view = EditorView(*this);
    if (view == nullptr || searchPaths.empty()) {
        return;
    }
    for (const std::string& path : std::vector<std::string>(searchPaths)) {
        RunScript(view, ":delpathdir " + path);
    }
}

void CProjectDoc::SendAddPaths() {
    afx::CView* view = EditorView(*this);
    if (view == nullptr || searchPaths.empty()) {
        return;
    }
    for (const std::string& path : std::vector<std::string>(searchPaths)) {
        // A path within the project's own path goes in the first form, any other in the
        // second.
        if (GetPathName().find(path) != std::string::npos) {
            RunScript(view, ":path " + path + "+");
        } else {
            RunScript(view, ":path +" + path);
        }
    }
}

int CProjectDoc::AddSymbolSearchPath(char* text) {
    if (text == nullptr) {
        return 0;
    }
    std::string symbol;
    if (char* plus = std::strchr(text, '+')) {
        *plus = '\0';
        symbol = plus + 1;
    }
    const std::string folder = text;
    if (win::EqualNoCase(folder, FolderPart(topLevelSchematic)) ||
        win::EqualNoCase(folder, FolderPart(location))) {
        return 0;
    }
    std::vector<std::string> paths;
    LoadSearchPaths(paths);
    for (const std::string& path : paths) {
        if (win::EqualNoCase(folder, path)) {
            return 0;
        }
    }
    const std::string name = symbol.substr(0, symbol.find('.'));
    CWarningDlg::ShowUnlessSkipped(
        "SkipAddPathDlg", "Adding Project Search Path",
        "The symbol selected, " + name +
            ", is not in a current search path.  Its path will be added to the current "
            "project\xE2\x80\x99"
            "s Search Path list.  "
            "Errors may occur if a symbol of the same name exists in a path specified "
            "earlier in the list.\n\n"
            "You can view or modify a project\xE2\x80\x99"
            "s Search Path list via the Project "
            "menu\xE2\x80\x99"
            "s Modify Project command.",
        mainWnd);
    paths.push_back(folder);
    return StoreSearchPaths(GetPathName().c_str(), paths);
}

}  // namespace velorand
