// Opening a schematic from its tree item, and how a host document joins the project: its
// record learns of it, it enters openDocs, and its view reports to the tree view.
#include <algorithm>

#include "core/file_kinds.h"
#include "core/project_doc.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/win/strings.h"
#include "views/project_view.h"

namespace velorand {

afx::CDocument* CProjectDoc::OpenSchematicInstance(const std::string& path,
                                                   const std::string& text) {
    auto bringUp = [this](afx::CDocument* doc) {
        if (afx::CFrameWnd* frame = GetDocFrame(doc, win::FALSE))
            frame->ActivateFrame(win::SW_SHOW);
        return doc;
    };
    if (path == topLevelSchematic && topDoc == nullptr) {
        OpenTopSchematic();
        if (topDoc != nullptr)
            return bringUp(topDoc);
    }
    afx::CDocument* open = nullptr;
    for (afx::CDocument* doc : openDocs)
        if (win::EqualNoCase(doc->GetPathName(), path))
            open = doc;
    if (open != nullptr)
        return bringUp(open);
    afx::CDocument* doc = OpenFile(path.c_str(), 1);
    // The text is the tree item's, "name  [tag]": its name is the record's key.
    Attach(SchematicOfText(text), doc);
    return doc;
}

void CProjectDoc::Attach(SchematicNode* record, afx::CDocument* doc) {
    if (doc == nullptr)
        return;
    if (record != nullptr) {
        if (record->state != SchematicNode::kOpened) {
            record->state |= SchematicNode::kOpened;
            record->openDoc = doc;
            activeDoc = doc;
            if (!topLevelSchematic.empty() &&
                CompareFileNames(doc->GetPathName().c_str(), topLevelSchematic.c_str()) == 0)
                topDoc = doc;
        }
        Replay(doc);
    }
    if (std::find(openDocs.begin(), openDocs.end(), doc) != openDocs.end())
        return;
    // Schematics and symbols stand at the head, where a save finds them first.
    std::string lowered = win::ToLower(doc->GetPathName());
    if (lowered.find(".sym") != std::string::npos || lowered.find(".sch") != std::string::npos)
        openDocs.push_front(doc);
    else
        openDocs.push_back(doc);
    if (afx::CView* view = GetFirstDocView(doc))
        view->SetOwner(treeView);
    if (busy) {
        if (afx::CFrameWnd* frame = GetDocFrame(doc, win::FALSE))
            frame->ShowWindow(win::SW_HIDE);
    } else {
        RestoreWindow(doc, GetPathName().c_str());
    }
}

void CProjectDoc::Replay(afx::CDocument* doc) {
    if (replayCode == 0 || GetFirstDocView(doc) == nullptr)
        return;
    afx::CView* view = GetFirstDocView(activeDoc);
    if (view == nullptr)
        return;
    SendProjectNotify(view, replayCode, doc, 1, reinterpret_cast<win::LPARAM>(view));
}

}  // namespace velorand
