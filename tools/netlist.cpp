// Keeping the netlist up to date: the check that an analysis may write its outputs, and
// the run of the simulator's translator over the schematics.
#include "core/file_kinds.h"
#include "core/host_commands.h"
#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "platform/afx/frame_wnd.h"
#include "platform/win/file_attributes.h"
#include "platform/win/files.h"
#include "platform/win/message_box.h"
#include "platform/win/messages.h"
#include "tools/files_equal.h"
#include "tools/tool_launcher.h"

namespace velorand {

namespace {

// To the template's frame during a tuning run, in place of the translator.
constexpr win::UINT kCmdTuningNetlist = 1004;
constexpr win::LPARAM kTuningNetlistArgument = 9998;

}  // namespace

int CProjectDoc::CheckOutputsWritable() {
    if (!outputsReadOnly) {
        for (const char* extension : WritableOutputExtensions) {
            std::string file = location + projectID + extension;
            win::DWORD attributes = win::GetFileAttributes(file.c_str());
            if (attributes != win::INVALID_FILE_ATTRIBUTES &&
                (attributes & win::FILE_ATTRIBUTE_READONLY) != 0) {
                outputsReadOnly = 1;
                break;
            }
        }
    }
    if (!outputsReadOnly)
        return 1;
    ProjectMessageBox(
        "One or more output files are ReadOnly.\n\nAnalysis could not be done for this "
        "project.\n",
        nullptr, win::MB_ICONEXCLAMATION);
    return 0;
}

int CProjectDoc::RefreshAndNetlist() {
    if (mainWnd != nullptr)
        mainWnd->SendMessage(win::WM_COMMAND, kCmdLoadBegins, 0);
    if (!topLevelSchematic.empty() && treeValid && autoOpenFile && netlistFile.empty() &&
        templateDoc == nullptr && OpenSimulatorTemplate() == 0)
        return 0;
    // The host gives each document its title anew, through the project (code 234).
    for (afx::CDocument* doc : openDocs)
        if (doc != templateDoc)
            doc->SetTitle(nullptr);
    treeStale = 0;
    if (templateDoc != nullptr)
        RunNetlist();
    if (mainWnd != nullptr)
        mainWnd->SendMessage(win::WM_COMMAND, kCmdLoadEnds, 0);
    return 1;
}

int CProjectDoc::RunNetlist() {
    if (tuning) {
        if (afx::CFrameWnd* frame = GetDocFrame(templateDoc, win::FALSE))
            frame->SendMessage(win::WM_COMMAND, kCmdTuningNetlist, kTuningNetlistArgument);
        return 0;
    }
    std::string netlistCopy =
        netlistFile.substr(0, netlistFile.size() >= 4 ? netlistFile.size() - 4 : 0) + ".scf";
    win::CopyFile(netlistFile.c_str(), netlistCopy.c_str(), win::FALSE);
    StatusMessage("Netlisting...");
    std::string translator = simulatorInfo != nullptr ? simulatorInfo->GetTranslator() : "";
    int result = RunTool(translator, TF_HOST_WINDOW | TF_PATHS | TF_OUTPUT);
    if (result == 0)
        SetModifiedFlag(win::FALSE);
    if (templateDoc != nullptr && !FilesEqual(netlistFile, netlistCopy))
        templateDoc->OnCmdMsg(kCmdTemplateRefresh, 0, nullptr, nullptr);
    win::DeleteFile(netlistCopy.c_str());
    return result;
}

}  // namespace velorand
