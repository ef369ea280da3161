// CChildFrame: the MDI child frame of the host's documents. The project speaks to some
// frames rather than views (rule check mode, a renamed schematic); the frame hands those
// messages to its active view, and answers 0 without one.
#pragma once

#include "platform/afx/mdi_child_wnd.h"

namespace velorand::host {

class CChildFrame : public afx::CMDIChildWnd {
    DECLARE_DYNCREATE(CChildFrame)
  public:
    CChildFrame() = default;

    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;
};

}  // namespace velorand::host
