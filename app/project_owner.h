// How the host's views reach the project: a WM_NOTIFY with a ProjectNotify record, sent to
// the owner that the project gave the view, or, before it has given one, to the project's
// tree view as the main window's property "Project" names it.
#pragma once

#include "host/project_notify.h"
#include "platform/win/types.h"

namespace afx {
class CDocument;
}

namespace velorand::host {

// Sender numbers of the host's windows in their records.
inline constexpr int kSchematicSender = 105;
inline constexpr int kSymbolSender = 110;
inline constexpr int kHostSender = 115;  // the application itself (its fatal error)
inline constexpr int kNetlistSender = 145;
// The sender number of the project's own records to the host.
inline constexpr int kProjectSender = 100;

// Codes of the records that the host sends of its own accord.
inline constexpr win::UINT kDocumentOpened = 200;   // document; the netlist: argument a menu
inline constexpr win::UINT kDocumentClosing = 201;  // document
inline constexpr win::UINT kDocumentSaved = 202;    // document
inline constexpr win::UINT kTitleDue = 234;         // document, argument a fallback title
inline constexpr win::UINT kFatalError = 329;       // argument the text to show, or null

// The window that a host window's records go to: `owner` while it is a live window, else
// the main window's property "Project"; null when there is no project to tell.
win::HWND FindProjectOwner(win::HWND owner);

struct NotifyOutcome {
    bool delivered = false;   // there was an owner to send to
    win::LRESULT result = 0;  // what the owner wrote into the record
};

// Builds the record (all of it zeroed first), sends it to the owner found from `owner`,
// and gives back the owner's answer.
NotifyOutcome NotifyProject(win::HWND owner, win::HWND from, int sender, win::UINT code,
                            afx::CDocument* document, int option, win::LPARAM argument);

}  // namespace velorand::host
