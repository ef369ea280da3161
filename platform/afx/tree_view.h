// CTreeView: a view that is a tree control. Its window is of the tree control's class,
// driven through the framework like any view; GetTreeCtrl gives the control's calls on
// that same window.
#pragma once

#include "platform/afx/tree_ctrl.h"
#include "platform/afx/view.h"

namespace afx {

class CTreeView : public CView {
    DECLARE_DYNCREATE(CTreeView)
  public:
    ~CTreeView() override;

    CTreeCtrl& GetTreeCtrl() const;

  protected:
    // Makes the window of the tree control's class.
    BOOL PreCreateWindow(win::CREATESTRUCT& cs) override;

  private:
    // Speaks to the view's own window; it is not tied to the handle, so the view stays
    // the window's object.
    mutable CTreeCtrl m_tree;
};

}  // namespace afx
