// Calling the suite's tools: each is a library with an exported `main`, loaded for one
// call, given an argument vector and unloaded again. CProjectDoc::RunTool is the ordinary
// form; the delete dialog, which lists a project that is not the open one, has its own.
#pragma once

#include <string>
#include <vector>

#include "platform/win/types.h"

namespace afx {
class CWnd;
}

namespace velorand {

// What a tool is given on its command line.
inline constexpr win::UINT TF_HOST_WINDOW = 0x01;     // -h<main window>
inline constexpr win::UINT TF_DEBUG = 0x02;           // -debug
inline constexpr win::UINT TF_PATHS = 0x04;           // -p<folders>; always in effect
inline constexpr win::UINT TF_OUTPUT = 0x08;          // -o<netlist>
inline constexpr win::UINT TF_TREE_LOG = 0x10;        // -h as above, and the log is ".dbg"
inline constexpr win::UINT TF_NO_LOG_NOTICE = 0x100;  // -d, and the host hears of no log

// The result of a run whose log file is read-only, and of a library that can't be loaded
// or has no `main`. Any other value but 0 and 1 is the tool's own failure.
inline constexpr int kToolLogReadOnly = -1;
inline constexpr int kToolNotLoaded = -2;

// Sent to the host's main window after a failed run, with the log file's path in lParam.
inline constexpr win::UINT kToolLogNotice = 26785;

// The `-p` list: the work folder, the current folder, the schematic's folder and the
// project's folder (each when present and not said already), then the entries in order
// but for one equal to the current folder. Every folder ends in "+"; case is ignored.
std::string ToolPathList(const std::string& workFolder, const std::string& schematicFolder,
                         const std::string& projectBase, const std::vector<std::string>& entries);

// The text of the box for a library that can't be loaded.
std::string UnableToLoadText(const std::string& toolName, win::DWORD errorCode);

// Calls `main` of a loaded library with the vector, unless the log file is read-only
// (kToolLogReadOnly) or there is no `main` (kToolNotLoaded). The strings are lent to the
// tool for the call only.
int CallToolMain(win::HMODULE library, const std::vector<std::string>& arguments,
                 const std::string& logFile);

// The delete dialog's run of `treescan`, for a project that needn't be open:
//   treescan -h<host> -p<paths> -r -l -sh -o<listing> -c<folder> <topLevel>
// with the path list of the current folder, the schematic's folder, `folder` without its
// backslash and the project's search paths. `toolsEnabled` plays no part, and there is no
// log notice and no status line. When the library can't be loaded the user is told and
// `deleteButton`, when given, is disabled. The tool's result, or -1 or -2 as above.
int RunListingForDelete(win::HWND host, const std::string& topLevel, const std::string& folder,
                        const std::vector<std::string>& searchPaths, const std::string& listing,
                        afx::CWnd* deleteButton);

}  // namespace velorand
