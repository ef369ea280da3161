#include "app/schematic_document.h"

#include <algorithm>

#include "platform/win/strings.h"

namespace velorand::host {

IMPLEMENT_DYNCREATE(CSchematicDoc, CTextDocument)
IMPLEMENT_DYNCREATE(CSymbolDoc, CSchematicDoc)

std::vector<std::string> SplitTokens(const std::string& line) {
    std::vector<std::string> tokens;
    std::size_t pos = 0;
    while (true) {
        pos = line.find_first_not_of(" \t", pos);
        if (pos == std::string::npos) {
            return tokens;
        }
        std::size_t end = line.find_first_of(" \t", pos);
        tokens.push_back(line.substr(pos, end - pos));
        pos = end;
    }
}

namespace {

bool IsElementLine(const std::vector<std::string>& tokens) {
    return !tokens.empty() && tokens[0] == "use";
}

std::string InstanceOf(const std::vector<std::string>& tokens) {
    return tokens.size() > 2 ? tokens[2] : std::string();
}

std::string Join(const std::vector<std::string>& tokens) {
    std::string line;
    for (const std::string& t : tokens) {
        line += (line.empty() ? "" : " ") + t;
    }
    return line;
}

// A name of a cell, an instance or a file: no blank and none of the forbidden characters.
bool IsName(const std::string& name) {
    return !name.empty() && name.find_first_of(" \t\\/:*?\"<>|+") == std::string::npos;
}

}  // namespace

std::string CSchematicDoc::CheckSheet(const std::vector<std::string>& lines,
                                      const std::string& head) {
    if (lines.empty() || lines[0] != head) {
        return "its first line is not \"" + head + "\".";
    }
    if (lines.size() < 2 || lines[1].compare(0, 4, "ver ") != 0 || lines[1].size() < 5 ||
        lines[1].size() > 7 || lines[1].find_first_not_of("0123456789", 4) != std::string::npos) {
        return "its second line is not \"ver\" and a number.";
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].size() > kMaxSheetLine) {
            return "line " + std::to_string(i + 1) + " is longer than 599 characters.";
        }
    }
    return {};
}

std::string CSchematicDoc::CheckContent(const std::vector<std::string>& lines) const {
    return CheckSheet(lines, Head());
}

std::vector<std::string> CSchematicDoc::NewContent() const {
    return {Head(), "ver 40", "", "[tools]", "[detail]", "[cell use]", "[comments]"};
}

std::vector<std::string> CSymbolDoc::NewContent() const {
    return {Head(), "ver 40", "", "[pins]", "[detail]"};
}

int CSchematicDoc::FindElement(const std::string& instance) const {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        std::vector<std::string> tokens = SplitTokens(lines_[i]);
        if (IsElementLine(tokens) && win::EqualNoCase(InstanceOf(tokens), instance)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool CSchematicDoc::SetProperty(const std::string& instance, const std::string& name,
                                const std::string& value, std::string& error) {
    int at = FindElement(instance);
    if (at < 0) {
        error = "No element " + instance + " in " + GetTitle() + ".";
        return false;
    }
    if (!IsName(name) || name.find('=') != std::string::npos) {
        error = "\"" + name + "\" is no property name.";
        return false;
    }
    std::vector<std::string> tokens = SplitTokens(lines_[at]);
    std::string setting = name + "=" + value;
    bool found = false;
    for (std::size_t i = 3; i < tokens.size() && !found; ++i) {
        std::size_t eq = tokens[i].find('=');
        if (eq != std::string::npos && win::EqualNoCase(tokens[i].substr(0, eq), name)) {
            tokens[i] = setting;
            found = true;
        }
    }
    if (!found) {
        tokens.push_back(setting);
    }
    std::string line = Join(tokens);
    if (line.size() > kMaxSheetLine) {
        error = "The element " + instance + " would be longer than 599 characters.";
        return false;
    }
    lines_[at] = line;
    SetModifiedFlag(win::TRUE);
    return true;
}

std::size_t CSchematicDoc::ElementInsertPoint() const {
    std::size_t at = lines_.size();
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (lines_[i] == "[cell use]") {
            at = i + 1;
            while (at < lines_.size() && !(lines_[at].size() > 0 && lines_[at][0] == '[')) {
                ++at;
            }
            return at;
        }
    }
    return at;
}

bool CSchematicDoc::AddElements(const std::vector<std::string>& elements, std::string& error) {
    std::vector<std::string> added;
    for (const std::string& element : elements) {
        std::vector<std::string> tokens = SplitTokens(element);
        if (tokens.size() < 2 || !IsName(tokens[0]) || !IsName(tokens[1])) {
            error = "\"" + element + "\" is no element: it needs a cell and an instance name.";
            return false;
        }
        bool taken = FindElement(tokens[1]) >= 0;
        for (const std::string& other : added) {
            taken = taken || win::EqualNoCase(InstanceOf(SplitTokens(other)), tokens[1]);
        }
        if (taken) {
            error = "The instance name " + tokens[1] + " is taken.";
            return false;
        }
        std::string line = "use " + Join(tokens);
        if (line.size() > kMaxSheetLine) {
            error = "The element " + tokens[1] + " is longer than 599 characters.";
            return false;
        }
        added.push_back(line);
    }
    if (lines_.empty()) {
        lines_ = NewContent();
    }
    if (ElementInsertPoint() == lines_.size() &&
        std::find(lines_.begin(), lines_.end(), "[cell use]") == lines_.end()) {
        lines_.push_back("[cell use]");
    }
    lines_.insert(lines_.begin() + ElementInsertPoint(), added.begin(), added.end());
    SetModifiedFlag(win::TRUE);
    return true;
}

int CSchematicDoc::MergeElements(const std::vector<std::string>& lines, bool copyInstances) {
    int taken = 0;
    for (const std::string& line : lines) {
        std::vector<std::string> tokens = SplitTokens(line);
        if (!IsElementLine(tokens) || InstanceOf(tokens).empty()) {
            continue;
        }
        int at = FindElement(InstanceOf(tokens));
        if (at >= 0) {
            if (!copyInstances) {
                continue;
            }
            lines_[at] = line;
        } else {
            if (std::find(lines_.begin(), lines_.end(), "[cell use]") == lines_.end()) {
                lines_.push_back("[cell use]");
            }
            lines_.insert(lines_.begin() + ElementInsertPoint(), line);
        }
        ++taken;
    }
    if (taken > 0) {
        SetModifiedFlag(win::TRUE);
    }
    return taken;
}

bool CSchematicDoc::UsesCell(const std::string& cell) const {
    for (const std::string& line : lines_) {
        std::vector<std::string> tokens = SplitTokens(line);
        if (IsElementLine(tokens) && tokens.size() > 1 && win::EqualNoCase(tokens[1], cell)) {
            return true;
        }
    }
    return false;
}

int CSchematicDoc::RenameCell(const std::string& oldName, const std::string& newName) {
    int changed = 0;
    for (std::string& line : lines_) {
        std::vector<std::string> tokens = SplitTokens(line);
        if (tokens.empty() || (tokens[0] != "use" && tokens[0] != "w" && tokens[0] != "l")) {
            continue;
        }
        bool hit = false;
        for (std::size_t i = 1; i < tokens.size(); ++i) {
            if (win::EqualNoCase(tokens[i], oldName)) {
                tokens[i] = newName;
                hit = true;
            }
        }
        if (hit) {
            line = Join(tokens);
            ++changed;
        }
    }
    if (changed > 0) {
        SetModifiedFlag(win::TRUE);
    }
    return changed;
}

}  // namespace velorand::host
