// What a document template hands to a new frame, so that the frame can make its view
// and tie it to the document.
#pragma once

namespace afx {

struct CRuntimeClass;
class CDocument;
class CDocTemplate;
class CView;
class CFrameWnd;

struct CCreateContext {
    const CRuntimeClass* m_pNewViewClass = nullptr;
    CDocument* m_pCurrentDoc = nullptr;
    CDocTemplate* m_pNewDocTemplate = nullptr;
    CView* m_pLastView = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

}  // namespace afx
