// A host document's title is due (code 234): a file of the project gets the project's name
// in front. Schematics are known by their records, symbols by the records' symbol lists,
// and the netlist by its path.
#include <algorithm>

#include "core/project_doc.h"
#include "host/project_notify.h"
#include "platform/win/strings.h"

namespace velorand {

void CProjectDoc::OnDocumentTitle(ProjectNotify* record) {
    afx::CDocument* doc = record->document;
    if (doc == nullptr)
        return;
    const std::string& path = doc->GetPathName();
    auto listsSymbol = [&path](const auto& entry) {
        const std::vector<std::string>& symbols = entry.second.symbols;
        return std::find(symbols.begin(), symbols.end(), path) != symbols.end();
    };
    const bool inProject = !topLevelSchematic.empty() &&
                           (FindDocNode(doc) != nullptr ||
                            std::any_of(schematics.begin(), schematics.end(), listsSymbol) ||
                            (!netlistFile.empty() && win::EqualNoCase(path, netlistFile)));
    SetDocTitle(doc, inProject ? win::TRUE : win::FALSE,
                reinterpret_cast<const char*>(record->argument));
}

}  // namespace velorand
