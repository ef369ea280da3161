// CProjectView: the view of the project document, the tree of its schematics. The host's
// editors reach the project through its window.
#pragma once

#include "platform/afx/view.h"

namespace velorand {

class CProjectView : public afx::CView {
    DECLARE_DYNCREATE(CProjectView)
};

}  // namespace velorand
