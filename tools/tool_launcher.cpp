#include "tools/tool_launcher.h"

#include <cstdio>

#include "core/project_doc.h"
#include "platform/afx/win_app.h"
#include "platform/afx/wnd.h"
#include "platform/win/app_profile.h"
#include "platform/win/current_directory.h"
#include "platform/win/file_attributes.h"
#include "platform/win/files.h"
#include "platform/win/last_error.h"
#include "platform/win/library.h"
#include "platform/win/message_box.h"
#include "platform/win/strings.h"

namespace velorand {

namespace {

std::string CurrentFolder() {
    char buffer[win::MAX_PATH];
    win::DWORD length = win::GetCurrentDirectory(sizeof buffer, buffer);
    return length > 0 && length < sizeof buffer ? std::string(buffer, length) : std::string();
}

bool FileExists(const std::string& path) {
    return win::GetFileAttributes(path.c_str()) != win::INVALID_FILE_ATTRIBUTES;
}

// Everything before the last backslash; empty when there is none.
std::string FolderOf(const std::string& path) {
    std::string::size_type slash = path.rfind('\\');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::string FileNameOf(const std::string& path) {
    return path.substr(path.rfind('\\') + 1);
}

std::string WithoutExtension(const std::string& path) {
    return path.substr(0, path.size() >= 4 ? path.size() - 4 : 0);
}

// The folders of the simulators' own models, below the suite's bin folder, which lies
// beside the folder the profile value "~p3" names.
void AddModelFolders(std::vector<std::string>& list) {
    char value[win::MAX_PATH] = {};
    win::GetProfileString("Velorand", "~p3", "", value, sizeof value);
    std::string bin = value;
    bin.erase(bin.rfind('\\') == std::string::npos ? 0 : bin.rfind('\\') + 1);
    bin += "bin\\";
    list.push_back(bin + "QuintarisUDM");
    list.push_back(bin + "LumentraUDM\\compiled");
    list.push_back(bin + "LumentraUDM\\MATLAB");
}

bool IsReadOnlyFile(const std::string& path) {
    win::DWORD attributes = win::GetFileAttributes(path.c_str());
    return attributes != win::INVALID_FILE_ATTRIBUTES &&
           (attributes & win::FILE_ATTRIBUTE_READONLY) != 0;
}

}  // namespace

std::string ToolPathList(const std::string& workFolder, const std::string& schematicFolder,
                         const std::string& projectBase, const std::vector<std::string>& entries) {
    std::string current = CurrentFolder();
    std::string list;
    auto add = [&list](const std::string& folder) { list += folder + "+"; };
    if (!workFolder.empty())
        add(workFolder);
    if (!current.empty())
        add(current);
    if (!schematicFolder.empty() && !win::EqualNoCase(schematicFolder, current))
        add(schematicFolder);
    if (!projectBase.empty() && !win::EqualNoCase(projectBase, schematicFolder) &&
        !win::EqualNoCase(projectBase, current))
        add(projectBase);
    for (const std::string& entry : entries)
        if (!win::EqualNoCase(entry, current))
            add(entry);
    return list;
}

std::string UnableToLoadText(const std::string& toolName, win::DWORD errorCode) {
    char code[16];
    std::snprintf(code, sizeof code, "%x", errorCode);
    return "Unable to load DLL: '" + toolName + "' \n\nerror code: " + code + "\n";
}

int CallToolMain(win::HMODULE library, const std::vector<std::string>& arguments,
                 const std::string& logFile) {
    if (IsReadOnlyFile(logFile))
        return kToolLogReadOnly;
    using Main = int (*)(int, char**);
    auto entry = reinterpret_cast<Main>(win::GetProcAddress(library, "main"));
    if (entry == nullptr)
        return kToolNotLoaded;
    // The tool may write into its strings; it gets copies that live for the call.
    std::vector<std::string> strings = arguments;
    std::vector<char*> argv;
    argv.reserve(strings.size() + 1);
    for (std::string& s : strings)
        argv.push_back(s.data());
    argv.push_back(nullptr);
    return entry(static_cast<int>(strings.size()), argv.data());
}

int RunListingForDelete(win::HWND host, const std::string& topLevel, const std::string& folder,
                        const std::vector<std::string>& searchPaths, const std::string& listing,
                        afx::CWnd* deleteButton) {
    win::HMODULE library = win::LoadLibrary("treescan");
    if (library == nullptr) {
        std::string text = UnableToLoadText("treescan", win::GetLastError());
        if (afx::CWinApp* app = afx::AfxGetApp())
            app->DoMessageBox(text.c_str(), win::MB_ICONEXCLAMATION, 0);
        else
            win::MessageBox(host, text.c_str(), nullptr, win::MB_ICONEXCLAMATION);
        if (deleteButton != nullptr)
            deleteButton->EnableWindow(win::FALSE);
        return kToolNotLoaded;
    }
    std::string schematicFolder = FolderOf(topLevel);
    std::string projectBase = folder;
    if (!projectBase.empty() && projectBase.back() == '\\')
        projectBase.pop_back();
    std::vector<std::string> arguments = {
        "treescan",
        "-h" + std::to_string(win::NumberFromHandle(host)),
        "-p" + ToolPathList(std::string(), schematicFolder, projectBase, searchPaths),
        "-r",
        "-l",
        "-sh",
        "-o" + listing,
        "-c" + folder,
        topLevel,
    };
    int result = CallToolMain(library, arguments, WithoutExtension(topLevel) + ".dbg");
    win::FreeLibrary(library);
    return result;
}

int CProjectDoc::RunTool(const std::string& toolName, win::UINT flags,
                         const std::vector<std::string>& extraArguments) {
    if (!toolsEnabled)
        return 1;
    if (!topLevelSchematic.empty()) {
        std::string workCopy = GetWorkFile(topLevelSchematic.c_str());
        if (!FileExists(workCopy))
            win::CopyFile(topLevelSchematic.c_str(), workCopy.c_str(), win::FALSE);
        workFiles.emplace(workCopy, topLevelSchematic);
    }
    std::vector<std::string> list;
    LoadSearchPaths(list);
    AddModelFolders(list);

    win::HMODULE library = win::LoadLibrary(toolName.c_str());
    if (library == nullptr) {
        ProjectMessageBox(UnableToLoadText(toolName, win::GetLastError()), nullptr,
                          win::MB_ICONEXCLAMATION);
        StatusMessage("Ready");
        return kToolNotLoaded;
    }

    // The tools read the working copy of the top level, when there is one.
    std::string target = topLevelSchematic;
    if (!workFolder.empty()) {
        std::string workCopy = workFolder + "\\" + FileNameOf(topLevelSchematic);
        if (FileExists(workCopy))
            target = workCopy;
    }
    std::string projectBase = location;
    if (!projectBase.empty() && projectBase.back() == '\\')
        projectBase.pop_back();

    std::vector<std::string> arguments{toolName};
    if (flags & TF_DEBUG)
        arguments.push_back("-debug");
    if (flags & (TF_HOST_WINDOW | TF_TREE_LOG)) {
        win::HWND host = mainWnd != nullptr ? mainWnd->m_hWnd : nullptr;
        arguments.push_back("-h" + std::to_string(win::NumberFromHandle(host)));
    }
    arguments.push_back("-p" +
                        ToolPathList(workFolder, FolderOf(topLevelSchematic), projectBase, list));
    if (flags & TF_OUTPUT)
        arguments.push_back("-o" +
                            (netlistFile.empty() ? location + projectID + ".ckt" : netlistFile));
    if (flags & TF_NO_LOG_NOTICE)
        arguments.push_back("-d");
    arguments.insert(arguments.end(), extraArguments.begin(), extraArguments.end());
    arguments.push_back(target);

    toolLogFile = WithoutExtension(target) + ((flags & TF_TREE_LOG) ? ".dbg" : ".log");
    int result = CallToolMain(library, arguments, toolLogFile);
    if (result != 0) {
        if (!(flags & TF_NO_LOG_NOTICE) && FileExists(toolLogFile) && reportToolLog == 1 &&
            mainWnd != nullptr)
            mainWnd->SendMessage(kToolLogNotice, 0,
                                 reinterpret_cast<win::LPARAM>(toolLogFile.c_str()));
        reportToolLog = 1;
    }
    win::FreeLibrary(library);
    StatusMessage("Ready");
    return result;
}

}  // namespace velorand
