#include "suite/tree_listing.h"

namespace suite {

namespace {

class Writer {
  public:
    explicit Writer(std::string& error) : error_(error) {}

    bool Line(std::string line) {
        if (line.size() > kMaxLineLength) {
            error_ = "the listing line '" + line.substr(0, 60) + "...' is longer than " +
                     std::to_string(kMaxLineLength) + " characters";
            return false;
        }
        text_ += line;
        text_ += '\n';
        return true;
    }

    bool CheckName(const std::string& name) {
        if (name.find_first_of(" \t") == std::string::npos)
            return true;
        error_ = "the name '" + name + "' holds a blank";
        return false;
    }

    bool CheckPath(const std::string& path) {
        if (path.find(')') == std::string::npos)
            return true;
        error_ = "the path '" + path + "' holds a ')'";
        return false;
    }

    std::string Text() { return std::move(text_); }

  private:
    std::string& error_;
    std::string text_;
};

}  // namespace

std::optional<std::string> TreeListing(const Hierarchy& hierarchy, bool withTree, bool withFiles,
                                       std::string& error) {
    Writer out(error);
    const Sheet& root = hierarchy.sheets.front();
    if (!out.CheckName(root.name) || !out.CheckPath(root.path) ||
        !out.Line("~ " + root.name + " (" + root.path + ")"))
        return std::nullopt;
    if (withTree) {
        for (const TreeLine& use : hierarchy.tree) {
            const Sheet& sheet = hierarchy.sheets[use.sheet];
            if (!out.CheckName(sheet.name) || !out.CheckPath(sheet.path))
                return std::nullopt;
            // The level fills three columns; one dot for each level above the first.
            std::string line = std::to_string(use.level);
            line.resize(3, ' ');
            if (use.level > 1)
                line += std::string(use.level - 1, '.') + "  ";
            line += sheet.name + " (" + use.tag + " <-> " + sheet.path + ")";
            if (!out.Line(std::move(line)))
                return std::nullopt;
        }
    }
    // The empty line ends the hierarchy; the component's reader consumes it with it.
    out.Line("");
    if (withFiles) {
        for (const Sheet& sheet : hierarchy.sheets) {
            int outdated = sheet.schematic.version < kCurrentVersion ? 1 : 0;
            if (!out.Line("Schematic: " + sheet.path + " (" + std::to_string(outdated) + ")"))
                return std::nullopt;
            for (const std::string& symbol : sheet.symbols)
                if (!out.Line("Symbol: " + symbol))
                    return std::nullopt;
        }
    }
    return out.Text();
}

std::string PathListing(const std::vector<std::string>& files) {
    std::string text;
    for (const std::string& file : files) {
        text += file;
        text += '\n';
    }
    return text;
}

}  // namespace suite
