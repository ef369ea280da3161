#include "suite/netlist_writer.h"

namespace suite {

namespace {

// The cell whose uses in a subcircuit name its outer nodes, in order.
constexpr std::string_view kPortCell = "PORT";

std::string ReferenceTo(const std::string& path, std::string_view folder) {
    std::string reference = IsInside(path, folder) ? path.substr(folder.size() + 1) : path;
    if (reference.find(' ') != std::string::npos)
        reference = "\"" + reference + "\"";
    return reference;
}

class BodyWriter {
  public:
    BodyWriter(const Hierarchy& hierarchy, NetlistDialect dialect, std::string_view folder,
               ToolLog& log)
        : hierarchy_(hierarchy), dialect_(dialect), folder_(folder), log_(log) {}

    std::optional<std::string> Run() {
        const Sheet& top = hierarchy_.sheets.front();
        Line(dialect_ == NetlistDialect::kQuintaris ? ".TITLE " + top.name : "title " + top.name);
        std::vector<std::string> libraries;
        for (const Sheet& sheet : hierarchy_.sheets) {
            for (const DataReference& data : sheet.data) {
                if (data.path.empty()) {
                    log_.Fail(kToolInputMissing, sheet.path + ": " + data.key + "=" +
                                                     data.reference + " is in no search folder");
                    return std::nullopt;
                }
                if (data.key == "LIB" && !Contains(libraries, data.path)) {
                    libraries.push_back(data.path);
                    Line(".LIB " + ReferenceTo(data.path, folder_));
                }
            }
        }
        std::vector<bool> written(hierarchy_.sheets.size(), false);
        written[0] = true;
        if (!Subcircuits(0, written))
            return std::nullopt;
        if (hierarchy_.sheets.size() > 1)
            Line("");
        if (!Elements(top, ""))
            return std::nullopt;
        Line(dialect_ == NetlistDialect::kQuintaris ? ".END" : "end");
        if (tooLong_)
            return std::nullopt;
        return std::move(text_);
    }

  private:
    static bool Contains(const std::vector<std::string>& list, const std::string& item) {
        for (const std::string& have : list)
            if (SamePath(have, item))
                return true;
        return false;
    }

    void Line(const std::string& line) {
        if (line.size() > kMaxLineLength && !tooLong_) {
            tooLong_ = true;
            log_.Fail(kToolMalformed, "the netlist line '" + line.substr(0, 60) +
                                          "...' is longer than " + std::to_string(kMaxLineLength) +
                                          " characters");
        }
        text_ += line;
        text_ += '\n';
    }

    // The definitions of the sheets placed below this one, each once, children first.
    bool Subcircuits(std::size_t index, std::vector<bool>& written) {
        const Sheet& sheet = hierarchy_.sheets[index];
        for (const std::optional<std::size_t>& child : sheet.placed) {
            if (!child || written[*child])
                continue;
            written[*child] = true;
            if (!Subcircuits(*child, written) || !Subcircuit(hierarchy_.sheets[*child]))
                return false;
        }
        return true;
    }

    bool Subcircuit(const Sheet& sheet) {
        std::vector<std::string> ports;
        if (!Ports(sheet, ports))
            return false;
        std::string nodes = Joined(ports);
        Line("");
        if (dialect_ == NetlistDialect::kQuintaris)
            Line(".SUBCKT " + sheet.name + (nodes.empty() ? "" : " " + nodes));
        else
            Line("subckt " + sheet.name + " (" + nodes + ")");
        if (!Elements(sheet, dialect_ == NetlistDialect::kQuintaris ? "" : "  "))
            return false;
        Line(dialect_ == NetlistDialect::kQuintaris ? ".ENDS " + sheet.name : "ends " + sheet.name);
        return true;
    }

    bool Ports(const Sheet& sheet, std::vector<std::string>& ports) {
        for (const CellUse& use : sheet.schematic.uses) {
            if (use.cell != kPortCell)
                continue;
            if (use.nodes.size() != 1) {
                log_.Fail(kToolMalformed, sheet.path + " line " + std::to_string(use.line) +
                                              ": a port has exactly one node");
                return false;
            }
            ports.push_back(use.nodes.front());
        }
        return true;
    }

    bool Elements(const Sheet& sheet, const std::string& indent) {
        bool top = &sheet == &hierarchy_.sheets.front();
        for (std::size_t u = 0; u < sheet.schematic.uses.size(); ++u) {
            const CellUse& use = sheet.schematic.uses[u];
            if (!top && use.cell == kPortCell)
                continue;
            std::string cell = use.cell;
            if (const std::optional<std::size_t>& child = sheet.placed[u]) {
                const Sheet& placed = hierarchy_.sheets[*child];
                std::vector<std::string> ports;
                if (!Ports(placed, ports))
                    return false;
                if (ports.size() != use.nodes.size()) {
                    log_.Fail(kToolMalformed, sheet.path + " line " + std::to_string(use.line) +
                                                  ": " + use.instance + " gives " +
                                                  std::to_string(use.nodes.size()) + " nodes to " +
                                                  placed.name + ", which has " +
                                                  std::to_string(ports.size()) + " ports");
                    return false;
                }
                cell = placed.name;
            }
            std::string nodes = Joined(use.nodes);
            std::string line = indent;
            if (dialect_ == NetlistDialect::kQuintaris)
                line += cell + ":" + use.instance + (nodes.empty() ? "" : " " + nodes);
            else
                line += use.instance + " (" + nodes + ") " + cell;
            for (const auto& [key, value] : use.parameters) {
                if (key == "LIB")
                    continue;
                line += " " + key + "=" + (key == "FILE" ? DataPath(sheet, value) : value);
            }
            Line(line);
        }
        return true;
    }

    std::string DataPath(const Sheet& sheet, const std::string& reference) const {
        for (const DataReference& data : sheet.data)
            if (data.key == "FILE" && data.reference == reference)
                return ReferenceTo(data.path, folder_);
        return reference;
    }

    static std::string Joined(const std::vector<std::string>& words) {
        std::string text;
        for (const std::string& word : words)
            text += (text.empty() ? "" : " ") + word;
        return text;
    }

    const Hierarchy& hierarchy_;
    NetlistDialect dialect_;
    std::string_view folder_;
    ToolLog& log_;
    std::string text_;
    bool tooLong_ = false;
};

}  // namespace

std::string NetlistHeader(std::string_view netlistPath, std::string_view schematicPath,
                          const std::tm& date) {
    char day[64];
    std::size_t length = std::strftime(day, sizeof day, "%A, %B %d, %Y", &date);
    std::string header = "* FileName: " + std::string(netlistPath) + "\n";
    header += "* Schematic: " + std::string(schematicPath) + "\n";
    header += "* Date:     " + std::string(day, length) + "\n\n";
    header += "* This file is generated by Velorand Project Manager\n\n";
    return header;
}

std::string_view ExistingHeader(std::string_view netlist) {
    std::size_t end = 0;
    while (end < netlist.size()) {
        char first = netlist[end];
        if (first != '*' && first != '\n' && first != '\r')
            break;
        std::size_t next = netlist.find('\n', end);
        end = next == std::string_view::npos ? netlist.size() : next + 1;
    }
    return netlist.substr(0, end);
}

std::optional<std::string> NetlistBody(const Hierarchy& hierarchy, NetlistDialect dialect,
                                       std::string_view netlistFolder, ToolLog& log) {
    return BodyWriter(hierarchy, dialect, netlistFolder, log).Run();
}

}  // namespace suite
