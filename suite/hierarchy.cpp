#include "suite/hierarchy.h"

#include <map>
#include <unordered_set>

#include "platform/win/paths.h"
#include "suite/text_file.h"

namespace suite {

namespace {

std::string Lowered(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

// The name of a schematic file: its file name up to the last dot.
std::string BaseName(std::string_view path) {
    std::string_view name = FileNameOf(path);
    return std::string(name.substr(0, name.rfind('.')));
}

void AddOnce(std::vector<std::string>& list, const std::string& path) {
    for (const std::string& have : list)
        if (SamePath(have, path))
            return;
    list.push_back(path);
}

class Walker {
  public:
    Walker(const SearchList& search, ToolLog& log) : search_(search), log_(log) {}

    std::optional<Hierarchy> Run(const std::string& target) {
        std::string name = BaseName(target);
        if (!Load(name, target))
            return std::nullopt;
        std::vector<std::size_t> stack{0};
        if (!Visit(stack))
            return std::nullopt;
        return std::move(hierarchy_);
    }

  private:
    // Reads and parses a schematic into a new sheet; indexes it by its lower-case name.
    bool Load(const std::string& name, const std::string& path) {
        std::string error;
        std::optional<std::string> text = ReadTextFile(path, error);
        if (!text) {
            log_.Fail(kToolInputMissing, error);
            return false;
        }
        std::optional<Schematic> schematic = ParseSchematic(*text, error);
        if (!schematic) {
            log_.Fail(kToolMalformed, path + " " + error);
            return false;
        }
        log_.Detail("read " + path + " (ver " + std::to_string(schematic->version) + ")");
        Sheet sheet;
        sheet.name = name;
        sheet.path = path;
        sheet.schematic = std::move(*schematic);
        byName_[Lowered(name)] = hierarchy_.sheets.size();
        hierarchy_.sheets.push_back(std::move(sheet));
        walked_.push_back(false);
        return true;
    }

    // The sheet a cell stands for, loading it when first met; nothing for an element.
    // Fails through the log when its file is there but can't be read.
    bool Resolve(const std::string& cell, std::optional<std::size_t>& sheet) {
        auto known = byName_.find(Lowered(cell));
        if (known != byName_.end()) {
            sheet = known->second;
            return true;
        }
        std::optional<std::string> path = search_.Find(cell + ".sch");
        if (!path)
            return true;
        if (!Load(BaseName(*path), *path))
            return false;
        sheet = hierarchy_.sheets.size() - 1;
        return true;
    }

    // Fills the symbols and data files of the sheet on top of the stack, then walks its
    // children. Sheets met again are walked again: the tree shows every use.
    bool Visit(std::vector<std::size_t>& stack) {
        std::size_t index = stack.back();
        int level = static_cast<int>(stack.size());
        bool first = !walked_[index];
        walked_[index] = true;
        std::size_t uses = hierarchy_.sheets[index].schematic.uses.size();
        for (std::size_t u = 0; u < uses; ++u) {
            std::optional<std::size_t> child;
            if (first) {
                const CellUse& use = hierarchy_.sheets[index].schematic.uses[u];
                if (!Resolve(use.cell, child))
                    return false;
                Sheet& sheet = hierarchy_.sheets[index];
                sheet.placed.push_back(child);
                NoteFiles(sheet, sheet.schematic.uses[u]);
            } else {
                child = hierarchy_.sheets[index].placed[u];
            }
            if (!child)
                continue;
            for (std::size_t above : stack) {
                if (above == *child) {
                    log_.Fail(kToolBadHierarchy, Cycle(stack, *child));
                    return false;
                }
            }
            if (level > kMaxDepth) {
                log_.Fail(kToolBadHierarchy,
                          "the hierarchy is deeper than " + std::to_string(kMaxDepth) + " levels");
                return false;
            }
            if (hierarchy_.tree.size() == kMaxTreeLines) {
                log_.Fail(kToolBadHierarchy,
                          "the hierarchy has more than " + std::to_string(kMaxTreeLines) + " uses");
                return false;
            }
            hierarchy_.tree.push_back(
                {level, *child, hierarchy_.sheets[index].schematic.uses[u].instance});
            stack.push_back(*child);
            bool ok = Visit(stack);
            stack.pop_back();
            if (!ok)
                return false;
        }
        if (first) {
            Sheet& sheet = hierarchy_.sheets[index];
            for (const std::string& graphic : sheet.schematic.graphics)
                NoteSymbol(sheet, graphic);
        }
        return true;
    }

    void NoteFiles(Sheet& sheet, const CellUse& use) {
        NoteSymbol(sheet, use.cell);
        for (const auto& [key, value] : use.parameters) {
            if (key != "FILE" && key != "LIB")
                continue;
            bool known = false;
            for (const DataReference& have : sheet.data)
                known = known || (have.key == key && have.reference == value);
            if (known)
                continue;
            std::optional<std::string> path = search_.Find(value);
            if (!path)
                log_.Note(sheet.path + " line " + std::to_string(use.line) + ": " + key + "=" +
                          value + " is in no folder of the search list");
            sheet.data.push_back({key, value, path.value_or("")});
        }
    }

    void NoteSymbol(Sheet& sheet, const std::string& cell) {
        if (std::optional<std::string> symbol = search_.Find(cell + ".sym"))
            AddOnce(sheet.symbols, *symbol);
    }

    std::string Cycle(const std::vector<std::size_t>& stack, std::size_t again) const {
        std::string text = "the hierarchy has a cycle: ";
        bool inCycle = false;
        for (std::size_t index : stack) {
            inCycle = inCycle || index == again;
            if (inCycle)
                text += hierarchy_.sheets[index].name + " -> ";
        }
        return text + hierarchy_.sheets[again].name;
    }

    const SearchList& search_;
    ToolLog& log_;
    Hierarchy hierarchy_;
    std::map<std::string, std::size_t> byName_;
    std::vector<bool> walked_;  // per sheet: its uses are resolved
};

}  // namespace

std::vector<std::string> Hierarchy::Files() const {
    std::vector<std::string> files;
    // Paths seen, lowered as SamePath compares them: a project of thousands of files is
    // not searched once per file.
    std::unordered_set<std::string> seen;
    auto add = [&](const std::string& path) {
        if (seen.insert(Lowered(path)).second)
            files.push_back(path);
    };
    for (const Sheet& sheet : sheets) {
        add(sheet.path);
        for (const std::string& symbol : sheet.symbols)
            add(symbol);
        for (const DataReference& data : sheet.data)
            if (!data.path.empty())
                add(data.path);
    }
    return files;
}

std::optional<Hierarchy> WalkHierarchy(const std::string& target, const SearchList& search,
                                       ToolLog& log) {
    return Walker(search, log).Run(win::FullPlatformPath(target));
}

}  // namespace suite
