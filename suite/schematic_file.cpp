#include "suite/schematic_file.h"

#include <algorithm>

#include "suite/text_file.h"

namespace suite {

namespace {

std::vector<std::string_view> Tokens(std::string_view line) {
    std::vector<std::string_view> tokens;
    std::size_t pos = 0;
    while (pos < line.size()) {
        pos = line.find_first_not_of(" \t", pos);
        if (pos == std::string_view::npos)
            break;
        std::size_t end = line.find_first_of(" \t", pos);
        if (end == std::string_view::npos)
            end = line.size();
        tokens.push_back(line.substr(pos, end - pos));
        pos = end;
    }
    return tokens;
}

bool IsSectionHead(std::string_view line) {
    return std::find(std::begin(kSectionHeads), std::end(kSectionHeads), line) !=
           std::end(kSectionHeads);
}

std::optional<int> ParseVersion(std::string_view line) {
    if (line.substr(0, 4) != "ver " || line.size() < 5 || line.size() > 7)
        return std::nullopt;
    int version = 0;
    for (char c : line.substr(4)) {
        if (c < '0' || c > '9')
            return std::nullopt;
        version = version * 10 + (c - '0');
    }
    return version;
}

bool ParseUse(const std::vector<std::string_view>& tokens, int number, CellUse& use,
              std::string& error) {
    if (tokens.size() < 3) {
        error = "a use line needs a cell and an instance name";
        return false;
    }
    if (!IsCellName(tokens[1])) {
        error = "'" + std::string(tokens[1]) + "' is no cell name";
        return false;
    }
    use.cell = tokens[1];
    use.instance = tokens[2];
    use.line = number;
    for (std::size_t i = 3; i < tokens.size(); ++i) {
        std::size_t eq = tokens[i].find('=');
        if (eq == std::string_view::npos) {
            use.nodes.emplace_back(tokens[i]);
        } else if (eq == 0 || eq + 1 == tokens[i].size()) {
            error = "parameter '" + std::string(tokens[i]) + "' needs a name and a value";
            return false;
        } else {
            use.parameters.emplace_back(tokens[i].substr(0, eq), tokens[i].substr(eq + 1));
        }
    }
    return true;
}

}  // namespace

bool IsCellName(std::string_view name) {
    if (name.empty() || name.size() > 255 || name == "." || name == "..")
        return false;
    for (char c : name) {
        if (static_cast<unsigned char>(c) <= ' ' ||
            std::string_view("\\/:*?\"<>|+").find(c) != std::string_view::npos)
            return false;
    }
    return true;
}

std::optional<Schematic> ParseSchematic(std::string_view text, std::string& error) {
    std::vector<std::string_view> lines = SplitLines(text);
    Schematic schematic;
    auto fail = [&](std::size_t index, const std::string& what) {
        error = "line " + std::to_string(index + 1) + ": " + what;
        return std::nullopt;
    };
    if (lines.empty() || lines[0] != "[schematic2]")
        return fail(0, "the file does not begin with [schematic2]");
    std::optional<int> version = lines.size() > 1 ? ParseVersion(lines[1]) : std::nullopt;
    if (!version)
        return fail(1, "the second line is not 'ver NN'");
    schematic.version = *version;

    std::string_view section;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string_view line = lines[i];
        if (line.size() > kMaxLineLength)
            return fail(i, "longer than " + std::to_string(kMaxLineLength) + " characters");
        if (i < 2)
            continue;
        std::vector<std::string_view> tokens = Tokens(line);
        if (tokens.empty())
            continue;
        if (line[0] == '[') {
            if (!IsSectionHead(line))
                return fail(i, "unknown section " + std::string(line));
            section = line;
            schematic.sections.emplace_back(line);
            continue;
        }
        if (section.empty())
            return fail(i, "text before the first section");
        std::string_view key = tokens[0];
        if (key == "use") {
            if (section != "[cell use]")
                return fail(i, "a use line outside [cell use]");
            CellUse use;
            std::string what;
            if (!ParseUse(tokens, static_cast<int>(i + 1), use, what))
                return fail(i, what);
            schematic.uses.push_back(std::move(use));
        } else if (key == "w") {
            if (section != "[detail]")
                return fail(i, "a w line outside [detail]");
            if (tokens.size() < 2 || !IsCellName(tokens[1]))
                return fail(i, "a w line needs a symbol name");
            schematic.graphics.emplace_back(tokens[1]);
        } else if (key == "l") {
            if (section != "[detail]")
                return fail(i, "an l line outside [detail]");
            if (tokens.size() < 4)
                return fail(i, "an l line needs a place and a text");
        } else if (section == "[cell use]") {
            return fail(i, "[cell use] holds only use lines");
        }
    }
    return schematic;
}

}  // namespace suite
