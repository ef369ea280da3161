// The numbers of the notification records between the host's views and the project: who
// sends a record (`idFrom`) and what it is about (`code`).
#pragma once

#include "platform/win/types.h"

namespace velorand {

// Sender numbers.
inline constexpr win::UINT_PTR kFromProject = 100;  // the component's own records
inline constexpr win::UINT_PTR kFromToolBar = 101;
inline constexpr win::UINT_PTR kFromSchematic = 105;
inline constexpr win::UINT_PTR kFromMenuDocument = 107;
inline constexpr win::UINT_PTR kFromSymbol = 110;
inline constexpr win::UINT_PTR kFromTemplate = 145;  // the simulator template's view
inline constexpr win::UINT_PTR kFromFilterLink = 165;
inline constexpr win::UINT_PTR kFromTextSender = 225;  // works on schematics by tree text

// Codes from the host.
inline constexpr win::UINT kCodeDocumentOpened = 200;
inline constexpr win::UINT kCodeDocumentClosing = 201;
inline constexpr win::UINT kCodeDocumentSaved = 202;
inline constexpr win::UINT kCodeAnalysisReport = 216;
inline constexpr win::UINT kCodeTuningReport = 218;
inline constexpr win::UINT kCodeOptimizingReport = 219;
inline constexpr win::UINT kCodeSmithToolReport = 221;
inline constexpr win::UINT kCodeCustomizing = 231;
inline constexpr win::UINT kCodeTitleDue = 234;
inline constexpr win::UINT kCodeCopyDevice = 314;
inline constexpr win::UINT kCodeSelectDevice = 315;
inline constexpr win::UINT kCodeFatalError = 329;

// Codes that the project sends to a view; 225 and 304 also come from the host.
inline constexpr win::UINT kCodeEditorCommand = 225;  // argument a command line
inline constexpr win::UINT kCodeElementLock = 304;    // option 0 off, 1 on
inline constexpr win::UINT kCodeFrameAsked = 309;     // argument the view, or 0

}  // namespace velorand
