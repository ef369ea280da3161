#include "app/rule_check.h"

#include <map>

#include "app/schematic_document.h"
#include "platform/win/current_directory.h"
#include "platform/win/strings.h"

namespace velorand::host {

std::vector<std::string> CheckRules(const std::vector<std::string>& lines) {
    std::vector<std::string> errors;
    // Keyed by the lowered name, in order of first use; the value keeps the spelling.
    std::map<std::string, std::pair<std::string, std::vector<std::string>>> nodes;
    std::vector<std::string> nodeOrder;
    std::map<std::string, int> instances;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::vector<std::string> tokens = SplitTokens(lines[i]);
        if (tokens.empty() || tokens[0] != "use") {
            continue;
        }
        if (tokens.size() < 3 || tokens[2].find('=') != std::string::npos) {
            errors.push_back("Line " + std::to_string(i + 1) +
                             ": the element has no instance name.");
            continue;
        }
        const std::string& instance = tokens[2];
        if (++instances[win::ToLower(instance)] == 2) {
            errors.push_back("Element " + instance + ": the instance name is used twice.");
        }
        for (std::size_t t = 3; t < tokens.size(); ++t) {
            if (tokens[t].find('=') != std::string::npos) {
                continue;
            }
            std::string key = win::ToLower(tokens[t]);
            auto [it, fresh] = nodes.try_emplace(key);
            if (fresh) {
                it->second.first = tokens[t];
                nodeOrder.push_back(key);
            }
            it->second.second.push_back(instance);
        }
    }
    for (const std::string& key : nodeOrder) {
        const auto& [name, users] = nodes[key];
        if (users.size() == 1 && name != "0") {
            errors.push_back("Node " + name + ": connected to " + users[0] + " only.");
        }
    }
    return errors;
}

std::string RuleCheckReport(const std::string& schematicPath,
                            const std::vector<std::string>& errors) {
    std::string text = "Electrical rule check of " + schematicPath + "\nQC/ERC\n" +
                       std::to_string(errors.size()) + " errors\n";
    for (const std::string& error : errors) {
        text += error + "\n";
    }
    return text;
}

std::string RuleCheckReportPath(const std::string& schematicPath) {
    std::size_t slash = schematicPath.find_last_of('\\');
    std::string name = schematicPath.substr(slash == std::string::npos ? 0 : slash + 1);
    name = name.substr(0, name.find('.'));
    char folder[win::MAX_PATH];
    win::DWORD length = win::GetCurrentDirectory(sizeof folder, folder);
    std::string path = length > 0 && length < sizeof folder ? folder : "";
    if (!path.empty() && path.back() != '\\') {
        path += '\\';
    }
    return path + name + ".erc";
}

}  // namespace velorand::host
