// The reader of the listing file: the hierarchy into tree items and records,
// then the file list into the records' symbols, in one pass over the file on
// the document's line buffer. Each part leaves the line it stopped at in `line`
// for the next.
#include <cstring>
#include <iterator>
#include <map>
#include <vector>

#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "platform/afx/wnd.h"
#include "platform/win/file_attributes.h"
#include "platform/win/message_box.h"
#include "platform/win/strings.h"
#include "platform/win/text_stream.h"
#include "tools/line_reader.h"
#include "tools/listing_lines.h"
#include "tools/record_index.h"
#include "tools/tool_launcher.h"
#include "views/project_view.h"

namespace velorand {

struct ListingScratch {
    explicit ListingScratch(std::istream& stream) : lines(stream) {}
    LineReader lines;
    std::size_t length = 0;  // of the current line
    // The records by key, so that a name met again costs a hash and not a walk of the map.
    RecordIndex records;
    std::string key, path, text;
    std::vector<std::string> symbols;                         // of the current block
    std::map<std::string, SchematicNode>::iterator lastMade;  // the record made last
};

namespace {

std::string_view CurrentLine(const ListingScratch& scratch, const char* line) {
    return std::string_view(line, scratch.length);
}

}  // namespace

int CProjectDoc::ReadListing(const std::string& listingPath) {
    if (!win::OpenTextStream(treeStream, listingPath.c_str()))
        return 0;
    ListingScratch scratch(treeStream);
    scratch.lastMade = schematics.end();
    listingScratch = &scratch;
    ReadHierarchy();
    ReadFileList();
    LinkOpenDocuments();
    listingScratch = nullptr;
    treeStream.close();
    if (mainWnd != nullptr) {
        mainWnd->Invalidate();
        mainWnd->UpdateWindow();
    }
    return 1;
}

bool CProjectDoc::ReadTreeLine() {
    return listingScratch->lines.Next(line, sizeof line, listingScratch->length);
}

void CProjectDoc::CreateRecord(std::string_view name, const std::string& path,
                               win::HTREEITEM item) {
    std::string& key = listingScratch->key;
    RecordKeyOf(name, key);
    SchematicNode*& record = listingScratch->records.Place(key, RecordIndex::Hash(key));
    FileRecord(record, key, path, item);
}

void CProjectDoc::FileRecord(SchematicNode*& record, const std::string& key,
                             const std::string& path, win::HTREEITEM item) {
    if (record != nullptr)
        return;
    // Names often come in ascending runs; a key that follows the one made last goes in
    // behind it without a search of the map.
    ListingScratch& scratch = *listingScratch;
    auto hint =
        scratch.lastMade == schematics.end() ? schematics.end() : std::next(scratch.lastMade);
    scratch.lastMade = schematics.try_emplace(hint, key);
    record = &scratch.lastMade->second;
    record->treeItem = item;
    GetRealFile(path.c_str(), record->path);
}

win::HTREEITEM CProjectDoc::AddHierarchyItem(win::HTREEITEM parent, int level) {
    ListingScratch& s = *listingScratch;
    std::string_view name, tag;
    if (s.length == 0 || !ScanHierarchyLine(CurrentLine(s, line), level, name, tag, s.path))
        return nullptr;
    // The record's slot is on its way into the cache while the item goes into the tree.
    RecordKeyOf(name, s.key);
    std::uint64_t hash = RecordIndex::Hash(s.key);
    s.records.Prefetch(hash);
    s.text.assign(name).append("  [").append(tag).append("]");
    win::HTREEITEM item = treeView->AddChildItem(parent, s.text, s.path);
    if (item != nullptr)
        FileRecord(s.records.Place(s.key, hash), s.key, s.path, item);
    return item;
}

void CProjectDoc::ReadLevels(win::HTREEITEM topItem) {
    // One frame per level being read; a deeper number opens a frame under the
    // last item of the frame before it, a smaller one closes frames. Kept on the
    // heap, so that a listing of any depth needs no deeper stack.
    struct Frame {
        win::HTREEITEM parent;
        int level;
        win::HTREEITEM last;
    };
    std::vector<Frame> frames{{topItem, 1, nullptr}};
    bool resumed = false;  // a deeper frame has just ended on the current line
    while (!frames.empty()) {
        Frame& frame = frames.back();
        std::string_view token = FirstToken(CurrentLine(*listingScratch, line));
        int number = TokenNumber(token);
        if (token.empty() || number < frame.level) {
            frames.pop_back();
            resumed = true;
            continue;
        }
        if (number > frame.level && !resumed) {
            win::HTREEITEM parent = frame.last != nullptr ? frame.last : frame.parent;
            frames.push_back({parent, number, nullptr});
            continue;
        }
        resumed = false;
        if (win::HTREEITEM item = AddHierarchyItem(frame.parent, frame.level))
            frame.last = item;
        ReadTreeLine();
    }
}

int CProjectDoc::ReadHierarchy() {
    afx::CTreeCtrl& tree = treeView->GetTreeCtrl();
    tree.DeleteAllItems();
    ClearSchematics();

    std::string rootText = "Project Tree";
    if (simulator >= 0 && simulatorInfo != nullptr) {
        const std::string& name = simulatorInfo->GetDisplayName();
        if (!name.empty() && !win::EqualNoCase(name, "Not Installed"))
            rootText = name;
    }
    win::HTREEITEM root = treeView->AddRootItem(projectID + " - [" + rootText + "]");
    docTreeItem = nullptr;
    FillDocumentationNode();

    bool rootLine = false;
    while (ReadTreeLine()) {
        if (line[0] == '~') {
            rootLine = true;
            break;
        }
        if (line[0] == ' ')
            break;
    }
    std::string_view name, path;
    if (rootLine && root != nullptr &&
        ScanRootLine(CurrentLine(*listingScratch, line), name, path)) {
        listingScratch->path.assign(path);
        win::HTREEITEM topItem =
            treeView->AddChildItem(root, std::string(name), listingScratch->path);
        if (topItem != nullptr) {
            CreateRecord(name, listingScratch->path, topItem);
            if (ReadTreeLine())
                ReadLevels(topItem);
        }
    }
    if (root == nullptr) {
        treeView->AddRootItem(projectID);
        return 0;
    }
    tree.Expand(root, win::TVE_EXPAND);
    if (win::HTREEITEM first = tree.GetChildItem(root))
        tree.Expand(first, win::TVE_EXPAND);
    return 1;
}

void CProjectDoc::ReadFileList() {
    ListingScratch& s = *listingScratch;
    win::HTREEITEM listRoot =
        showFileList ? treeView->AddRootItem(projectID + " - Project FileList") : nullptr;
    bool more;
    while ((more = ReadTreeLine()) && (line[0] == '\0' || line[0] == ' ')) {
    }
    while (more && FirstToken(CurrentLine(s, line)) == "Schematic:") {
        std::string_view pathText;
        int count = 0;
        bool counted = ScanSchematicLine(CurrentLine(s, line), pathText, count);
        std::string& path = s.path;
        path.assign(pathText);
        win::HTREEITEM fileItem = nullptr;
        if (showFileList) {
            fileItem = treeView->AddChildItem(listRoot, path, path);
            if (fileItem == nullptr)
                break;
        }
        if (counted && count != 0) {
            // A file that can't be found is as good as read-only: it can't be brought
            // up.
            win::DWORD attributes = win::GetFileAttributes(path.c_str());
            if (attributes == win::INVALID_FILE_ATTRIBUTES ||
                (attributes & win::FILE_ATTRIBUTE_READONLY) != 0)
                ProjectMessageBox("The file needs to be updated to the current version.\n" + path +
                                      " is read only!",
                                  nullptr, win::MB_ICONEXCLAMATION);
            else
                RunTool("SheetMend", TF_PATHS, {"-f" + path});
        }
        RecordKeyOfPath(path, s.key);
        SchematicNode* record = s.key.empty() ? nullptr : s.records.Find(s.key);
        more = ReadTreeLine();
        while (more && FirstToken(CurrentLine(s, line)) == "Symbol:") {
            std::string symbol = ScanSymbolLine(CurrentLine(s, line));
            if (showFileList)
                treeView->AddChildItem(fileItem, symbol, symbol);
            if (record != nullptr)
                s.symbols.push_back(std::move(symbol));
            more = ReadTreeLine();
        }
        // The block's symbols join the record at once: one allocation for its list.
        if (record != nullptr && !s.symbols.empty()) {
            record->symbols.reserve(record->symbols.size() + s.symbols.size());
            std::move(s.symbols.begin(), s.symbols.end(), std::back_inserter(record->symbols));
            s.symbols.clear();
        }
    }
    if (listRoot != nullptr)
        treeView->GetTreeCtrl().Expand(listRoot, win::TVE_EXPAND);
}

void CProjectDoc::LinkOpenDocuments() {
    if (openDocs.empty())
        return;
    for (auto& [key, record] : schematics) {
        if (record.openDoc != nullptr)
            continue;
        for (afx::CDocument* doc : openDocs) {
            std::string name = win::ToLower(doc->GetPathName());
            if (name.find(".sch") != std::string::npos) {
                name.resize(name.size() - 4);
                name.erase(0, name.rfind('\\') + 1);
            }
            if (win::EqualNoCase(name, key)) {
                record.openDoc = doc;
                break;
            }
        }
    }
}

}  // namespace velorand
