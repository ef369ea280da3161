// The records of the project's schematics: emptied before each read of a listing, and
// looked up by a tree item's text or by a symbol they use.
#include <algorithm>

#include "core/project_doc.h"
#include "platform/win/strings.h"

namespace velorand {

void CProjectDoc::ClearSchematics() {
    schematics.clear();
}

namespace {

// The key that a tree item's text names: the text before the first "[", trimmed at the
// right and lowered.
std::string KeyOfText(const std::string& text) {
    std::string key = text.substr(0, text.find('['));
    while (!key.empty() && (key.back() == ' ' || key.back() == '\t'))
        key.pop_back();
    return win::ToLower(key);
}

}  // namespace

std::string CProjectDoc::FindSchematicByText(const std::string& text) const {
    auto it = schematics.find(KeyOfText(text));
    return it == schematics.end() ? std::string() : it->second.path;
}

SchematicNode* CProjectDoc::SchematicOfText(const std::string& text) {
    auto it = schematics.find(KeyOfText(text));
    return it == schematics.end() ? nullptr : &it->second;
}

std::string CProjectDoc::FindSymbolUser(const std::string& symbolPath,
                                        std::string& position) const {
    auto it = position.empty() ? schematics.begin() : schematics.lower_bound(position);
    for (; it != schematics.end(); ++it) {
        const std::vector<std::string>& symbols = it->second.symbols;
        if (std::find(symbols.begin(), symbols.end(), symbolPath) == symbols.end())
            continue;
        const std::string& user = it->second.path;
        ++it;
        position = it == schematics.end() ? std::string() : it->first;
        return user;
    }
    position.clear();
    return std::string();
}

}  // namespace velorand
