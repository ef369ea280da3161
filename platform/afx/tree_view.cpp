#include "platform/afx/tree_view.h"

namespace afx {

IMPLEMENT_DYNCREATE(CTreeView, CView)

CTreeView::~CTreeView() {
    // The control object must not take the window along when it goes.
    m_tree.m_hWnd = nullptr;
}

CTreeCtrl& CTreeView::GetTreeCtrl() const {
    m_tree.m_hWnd = m_hWnd;
    return m_tree;
}

BOOL CTreeView::PreCreateWindow(win::CREATESTRUCT& cs) {
    win::RegisterTreeViewClass();
    cs.lpszClass = win::WC_TREEVIEW;
    return CView::PreCreateWindow(cs);
}

}  // namespace afx
