#include "app/editor_commands.h"

#include <algorithm>

#include "app/schematic_document.h"
#include "platform/win/current_directory.h"
#include "platform/win/paths.h"
#include "platform/win/strings.h"

namespace velorand::host {

std::vector<std::string> SplitEditorLine(const std::string& line) {
    std::vector<std::string> commands;
    std::size_t start = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == ';' && i + 1 < line.size() && line[i + 1] == ':') {
            commands.push_back(line.substr(start, i - start));
            start = i + 1;
        }
    }
    commands.push_back(line.substr(start));
    return commands;
}

namespace {

std::string Trim(const std::string& text) {
    std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

auto FindFolder(std::vector<std::string>& folders, const std::string& folder) {
    return std::find_if(folders.begin(), folders.end(),
                        [&](const std::string& f) { return win::EqualNoCase(f, folder); });
}

bool AddPath(const std::string& argument, EditorContext& context, std::string& error) {
    bool first = !argument.empty() && argument.back() == '+';
    bool last = !argument.empty() && argument.front() == '+';
    std::string folder = first ? argument.substr(0, argument.size() - 1) : argument.substr(1);
    if ((!first && !last) || folder.empty()) {
        error = "\":path\" takes a folder with '+' before or behind it: " + argument;
        return false;
    }
    std::vector<std::string>& folders = context.searchFolders;
    auto known = FindFolder(folders, folder);
    if (known != folders.end()) {
        folders.erase(known);
    }
    folders.insert(first ? folders.begin() : folders.end(), folder);
    return true;
}

bool RemovePath(const std::string& folder, EditorContext& context, std::string& error) {
    auto known = FindFolder(context.searchFolders, folder);
    if (known == context.searchFolders.end()) {
        error = "The folder " + folder + " is not a search folder.";
        return false;
    }
    context.searchFolders.erase(known);
    return true;
}

bool FindSymbol(const std::string& instance, EditorContext& context, std::string& error) {
    context.state.selection.clear();
    if (context.document.FindElement(instance) < 0) {
        error = "No element " + instance + " in " + context.document.GetTitle() + ".";
        return false;
    }
    context.state.selection = instance;
    return true;
}

bool SetProperty(const std::string& argument, EditorContext& context, std::string& error) {
    if (argument.compare(0, 2, "T ") != 0) {
        error = "\":property\" takes \"T <name>:<value>\": " + argument;
        return false;
    }
    std::string setting = argument.substr(2);
    std::size_t colon = setting.find(':');
    if (colon == std::string::npos) {
        error = "\":property\" takes \"T <name>:<value>\": " + argument;
        return false;
    }
    if (context.state.selection.empty()) {
        error = "No element is selected for \":property\".";
        return false;
    }
    return context.document.SetProperty(context.state.selection, Trim(setting.substr(0, colon)),
                                        Trim(setting.substr(colon + 1)), error);
}

bool SetValue(const std::string& argument, EditorContext& context, std::string& error) {
    std::size_t blank = argument.find(' ');
    std::string name = argument.substr(0, blank);
    if (name.empty()) {
        error = "\":set\" takes a name and a value.";
        return false;
    }
    context.state.settings[name] = blank == std::string::npos ? "" : Trim(argument.substr(blank));
    return true;
}

bool ReadSheet(const std::string& argument, EditorContext& context, std::string& error) {
    if (argument.empty()) {
        error = "\":read\" takes a file.";
        return false;
    }
    std::string path = argument;
    if (path.compare(0, 2, "~/") == 0) {
        char folder[win::MAX_PATH];
        win::DWORD length = win::GetCurrentDirectory(sizeof folder, folder);
        std::string base = length > 0 && length < sizeof folder ? folder : "";
        path = base + (base.empty() || base.back() == '\\' ? "" : "\\") + path.substr(2);
    }
    path = win::FullPlatformPath(path);
    std::vector<std::string> lines;
    if (!CTextDocument::ReadLines(path, lines, error)) {
        return false;
    }
    if (std::string wrong = CSchematicDoc::CheckSheet(lines, "[schematic2]"); !wrong.empty()) {
        error = "Unable to read " + path + ": " + wrong;
        return false;
    }
    auto copy = context.state.settings.find("cpyinst");
    context.document.MergeElements(lines,
                                   copy != context.state.settings.end() && copy->second == "1");
    return true;
}

bool DrawDesign(const std::string& design, EditorContext& context, std::string& error) {
    std::vector<std::string> elements;
    std::size_t start = 0;
    while (start <= design.size()) {
        std::size_t comma = design.find(',', start);
        std::string element = Trim(design.substr(start, comma - start));
        if (!element.empty()) {
            elements.push_back(element);
        }
        if (comma == std::string::npos) {
            break;
        }
        start = comma + 1;
    }
    if (elements.empty()) {
        error = "The design holds no element.";
        return false;
    }
    return context.document.AddElements(elements, error);
}

bool RunCommand(const std::string& command, EditorContext& context, std::string& error) {
    std::size_t blank = command.find(' ');
    std::string word = command.substr(0, blank);
    std::string argument = blank == std::string::npos ? "" : command.substr(blank + 1);
    if (word == ":path") {
        return AddPath(Trim(argument), context, error);
    }
    if (word == ":delpathdir") {
        return RemovePath(Trim(argument), context, error);
    }
    if (word == ":findsymbol") {
        return FindSymbol(Trim(argument), context, error);
    }
    if (word == ":unselect") {
        context.state.selection.clear();
        return true;
    }
    if (word == ":property") {
        return SetProperty(argument, context, error);
    }
    if (word == ":redraw") {
        ++context.state.redraws;
        return true;
    }
    if (word == ":set") {
        return SetValue(Trim(argument), context, error);
    }
    if (word == ":read") {
        return ReadSheet(Trim(argument), context, error);
    }
    if (word == ":filtertool" || word == ":smithtool") {
        return DrawDesign(argument, context, error);
    }
    error = "Unknown editor command: " + (word.empty() ? command : word);
    return false;
}

}  // namespace

bool RunEditorLine(const std::string& line, EditorContext& context, std::string& error) {
    for (const std::string& command : SplitEditorLine(line)) {
        if (!RunCommand(command, context, error)) {
            return false;
        }
    }
    return true;
}

}  // namespace velorand::host
