// The "Documentation" node of the tree: the project's PDF files, each item
// carrying a pointer to its path string in pdfFiles as its data word.
#include "core/project_doc.h"
#include "platform/win/private_profile.h"
#include "platform/win/strings.h"
#include "views/project_view.h"

namespace velorand {

namespace {

// The project file keeps at most this many documentation keys.
constexpr int kMaxPdfFiles = 255;

std::string FolderOf(const std::string& path) {
    std::string::size_type slash = path.rfind('\\');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

}  // namespace

void CProjectDoc::FillDocumentationNode() {
    if (!pdfFiles.empty()) {
        for (const std::unique_ptr<std::string>& file : pdfFiles)
            AddDocument(*file, win::FALSE);
        return;
    }
    for (int n = 0; n < kMaxPdfFiles; ++n) {
        char key[16];
        std::snprintf(key, sizeof key, "PdfFiles%d", n);
        char value[sizeof line] = {};
        win::GetPrivateProfileString("PdfFiles", key, "", value, sizeof value,
                                     GetPathName().c_str());
        if (value[0] == '\0')
            break;
        std::string path = value;
        AddDocument(path, win::TRUE);
    }
}

void CProjectDoc::AddDocument(std::string& pathString, win::BOOL remember) {
    std::string* stored = &pathString;
    if (remember) {
        pdfFiles.push_back(std::make_unique<std::string>(std::move(pathString)));
        stored = pdfFiles.back().get();
    }
    if (docTreeItem == nullptr)
        docTreeItem = treeView->AddRootItem("Documentation");
    std::string name = stored->substr(stored->rfind('\\') + 1);
    std::string text = name.substr(0, name.find('.')) + " - [Info]";
    win::HTREEITEM item = treeView->AddChildItem(docTreeItem, text, *stored);
    if (win::EqualNoCase(FolderOf(*stored), FolderOf(GetPathName())))
        *stored = name;
    afx::CTreeCtrl& tree = treeView->GetTreeCtrl();
    if (item != nullptr)
        tree.SetItemData(item, reinterpret_cast<win::DWORD_PTR>(stored));
    tree.Expand(docTreeItem, win::TVE_EXPAND);
}

}  // namespace velorand
