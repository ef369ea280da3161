#include "platform/afx/doc_template.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/afx/cmd_ui.h"
#include "platform/afx/document.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/multi_doc_template.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"
#include "platform/win/cursor.h"
#include "platform/win/menu.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/resources.h"

namespace afx {
namespace {

std::vector<std::string> handled;
std::vector<std::string> saved;

#define HANDLER(name, text)      \
    void name() {                \
        handled.push_back(text); \
    }

class CSketchView : public CView {
    DECLARE_DYNCREATE(CSketchView)
    HANDLER(On1, "view 1")
    DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CSketchView, CView)
BEGIN_MESSAGE_MAP(CSketchView, CView)
ON_COMMAND(1, On1)
END_MESSAGE_MAP()

class CSketchDoc : public CDocument {
    DECLARE_DYNCREATE(CSketchDoc)
  public:
    BOOL OnOpenDocument(win::LPCSTR path) override {
        return std::string(path).find("bad") == std::string::npos &&
               CDocument::OnOpenDocument(path);
    }
    BOOL OnSaveDocument(win::LPCSTR path) override {
        saved.push_back(path);
        return CDocument::OnSaveDocument(path);
    }
    HANDLER(On1, "doc 1")
    HANDLER(On2, "doc 2")
    DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CSketchDoc, CDocument)
BEGIN_MESSAGE_MAP(CSketchDoc, CDocument)
ON_COMMAND(1, On1)
ON_COMMAND(2, On2)
END_MESSAGE_MAP()

class CSketchFrame : public CMDIChildWnd {
    DECLARE_DYNCREATE(CSketchFrame)
    HANDLER(On3, "child 3")
    HANDLER(On4, "child 4")
    DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CSketchFrame, CMDIChildWnd)
BEGIN_MESSAGE_MAP(CSketchFrame, CMDIChildWnd)
ON_COMMAND(3, On3)
ON_COMMAND(4, On4)
END_MESSAGE_MAP()

class CSketchTemplate : public CMultiDocTemplate {
  public:
    using CMultiDocTemplate::CMultiDocTemplate;
    BOOL locked = FALSE;
    HANDLER(On2, "template 2")
    HANDLER(On3, "template 3")
    void OnUpdate3(CCmdUI* ui) { ui->Enable(!locked); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CSketchTemplate, CMultiDocTemplate)
ON_COMMAND(2, On2)
ON_COMMAND(3, On3)
ON_UPDATE_COMMAND_UI(3, OnUpdate3)
END_MESSAGE_MAP()

class CMainFrame : public CMDIFrameWnd {
    DECLARE_DYNCREATE(CMainFrame)
    HANDLER(On5, "main 5")
    HANDLER(On6, "main 6")
    DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CMainFrame, CMDIFrameWnd)
BEGIN_MESSAGE_MAP(CMainFrame, CMDIFrameWnd)
ON_COMMAND(5, On5)
ON_COMMAND(6, On6)
END_MESSAGE_MAP()

class CSketchApp : public CWinApp {
  public:
    std::vector<std::string> asked;
    int answer = IDCANCEL;
    int DoMessageBox(win::LPCSTR prompt, UINT type, UINT helpId) override {
        asked.push_back(prompt);
        return answer;
    }
    HANDLER(On4, "app 4")
    HANDLER(On5, "app 5")
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CSketchApp, CWinApp)
ON_COMMAND(4, On4)
ON_COMMAND(5, On5)
END_MESSAGE_MAP()

constexpr UINT kMainId = 100;
constexpr UINT kSketchId = 430;

class DocTemplateTest : public ::testing::Test {
  protected:
    void SetUp() override {
        handled.clear();
        saved.clear();
        app.m_hInstance = win::HandleFromNumber<win::HINSTANCE>(0x5100);
        win::RegisterStringResource(app.m_hInstance, kMainId, "Sketcher");
        win::RegisterMenuResource(app.m_hInstance, kMainId, {{"&File", 0, win::MF_POPUP, {}}});
        win::RegisterStringResource(
            app.m_hInstance, kSketchId,
            "Sketch\nSketch\nSketch\nSketch (*.skt)\n.skt\nSketch.Document\nSketch Document");
        win::RegisterMenuResource(
            app.m_hInstance, kSketchId,
            {{"&File", 0, win::MF_POPUP, {}}, {"&Sketch", 0, win::MF_POPUP, {}}});
        main = new CMainFrame;
        ASSERT_TRUE(main->LoadFrame(kMainId, win::WS_OVERLAPPEDWINDOW | win::WS_VISIBLE));
        app.m_pMainWnd = main;
        tmpl = new CSketchTemplate(kSketchId, RUNTIME_CLASS(CSketchDoc),
                                   RUNTIME_CLASS(CSketchFrame), RUNTIME_CLASS(CSketchView));
        app.AddDocTemplate(tmpl);
    }

    void TearDown() override {
        app.CloseAllDocuments(TRUE);
        delete main;
        delete tmpl;
        win::UnregisterResources(app.m_hInstance);
        win::MSG msg;
        while (win::PeekMessage(&msg, nullptr, 0, 0, win::PM_REMOVE)) {
        }
    }

    int DocCount() const {
        int n = 0;
        for (POSITION pos = tmpl->GetFirstDocPosition(); pos; tmpl->GetNextDoc(pos)) {
            ++n;
        }
        return n;
    }
    static CView* FirstView(CDocument* doc) {
        POSITION pos = doc->GetFirstViewPosition();
        return doc->GetNextView(pos);
    }
    static CFrameWnd* FrameOf(CDocument* doc) { return FirstView(doc)->GetParentFrame(); }
    std::string MenuTitle(int position) const {
        char text[32];
        win::GetMenuString(win::GetMenu(main->m_hWnd), position, text, sizeof text,
                           win::MF_BYPOSITION);
        return text;
    }

    CSketchApp app;
    CMainFrame* main = nullptr;
    CSketchTemplate* tmpl = nullptr;
};

TEST_F(DocTemplateTest, DocumentStringPartsAndSharedMenu) {
    std::string part;
    EXPECT_TRUE(tmpl->GetDocString(part, CDocTemplate::filterExt));
    EXPECT_EQ(part, ".skt");
    EXPECT_TRUE(tmpl->GetDocString(part, CDocTemplate::regFileTypeName));
    EXPECT_EQ(part, "Sketch Document");
    EXPECT_EQ(win::GetMenuItemCount(tmpl->m_hMenuShared), 2);

    CSketchTemplate bare(999, RUNTIME_CLASS(CSketchDoc), nullptr, nullptr);
    EXPECT_FALSE(bare.GetDocString(part, CDocTemplate::windowTitle));
    EXPECT_EQ(bare.m_hMenuShared, nullptr);
    EXPECT_EQ(bare.OpenDocumentFile("C:\\a.skt"), nullptr);  // no frame class
    EXPECT_EQ(app.asked.size(), 1u);
    EXPECT_EQ(bare.GetFirstDocPosition(), nullptr);
}

TEST_F(DocTemplateTest, OpeningMakesDocumentFrameAndView) {
    CDocument* doc = tmpl->OpenDocumentFile("C:\\work\\amp.skt");
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->GetPathName(), "C:\\work\\amp.skt");
    EXPECT_EQ(doc->GetTitle(), "amp.skt");
    EXPECT_EQ(doc->GetDocTemplate(), tmpl);
    CView* view = FirstView(doc);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetDocument(), doc);
    CFrameWnd* frame = view->GetParentFrame();
    ASSERT_TRUE(frame->IsKindOf(RUNTIME_CLASS(CSketchFrame)));
    EXPECT_EQ(main->MDIGetActive(), frame);
    EXPECT_EQ(frame->GetActiveView(), view);
    EXPECT_EQ(main->GetActiveView(), view);
    EXPECT_TRUE(frame->IsWindowVisible());
    std::string title;
    frame->GetWindowText(title);
    EXPECT_EQ(title, "amp.skt");
    EXPECT_EQ(win::GetMenu(main->m_hWnd), tmpl->m_hMenuShared);
    EXPECT_EQ(app.GetRecentFileList(), (std::vector<std::string>{"C:\\work\\amp.skt"}));

    // New documents are numbered.
    CDocument* first = tmpl->OpenDocumentFile(nullptr);
    CDocument* second = tmpl->OpenDocumentFile(nullptr);
    EXPECT_EQ(first->GetTitle(), "Sketch1");
    EXPECT_EQ(second->GetTitle(), "Sketch2");
    EXPECT_EQ(tmpl->m_nUntitledCount, 2u);
    EXPECT_EQ(DocCount(), 3);

    // The application finds an open document again, case ignored.
    EXPECT_EQ(app.OpenDocumentFile("c:\\WORK\\amp.skt"), doc);
    EXPECT_EQ(main->MDIGetActive(), frame);
    EXPECT_EQ(DocCount(), 3);
}

TEST_F(DocTemplateTest, AFailedOpenLeavesNothing) {
    EXPECT_EQ(tmpl->OpenDocumentFile("C:\\bad.skt"), nullptr);
    EXPECT_EQ(DocCount(), 0);
    EXPECT_EQ(main->MDIGetActive(), nullptr);
    EXPECT_EQ(win::GetWindow(main->m_hWndMDIClient, win::GW_CHILD), nullptr);
    EXPECT_EQ(win::GetMenu(main->m_hWnd), main->m_hMenuDefault);
}

TEST_F(DocTemplateTest, CommandsFollowTheRouteOfAnMdiApplication) {
    // Without a document: the main frame, then the application and its template.
    for (UINT id = 1; id <= 6; ++id) {
        main->SendMessage(win::WM_COMMAND, id, 0);
    }
    EXPECT_EQ(handled,
              (std::vector<std::string>{"template 2", "template 3", "app 4", "main 5", "main 6"}));
    handled.clear();
    ASSERT_NE(tmpl->OpenDocumentFile("C:\\a.skt"), nullptr);
    for (UINT id = 1; id <= 7; ++id) {
        main->SendMessage(win::WM_COMMAND, id, 0);
    }
    EXPECT_EQ(handled, (std::vector<std::string>{"view 1", "doc 2", "template 3", "child 4",
                                                 "app 5", "main 6"}));

    CCmdUI state(3);
    EXPECT_TRUE(state.DoUpdate(main, TRUE));
    EXPECT_TRUE(state.IsEnabled());
    tmpl->locked = TRUE;
    state.DoUpdate(main, TRUE);
    EXPECT_FALSE(state.IsEnabled());
    CCmdUI unknown(7);
    unknown.DoUpdate(main, TRUE);
    EXPECT_FALSE(unknown.IsEnabled());
}

TEST_F(DocTemplateTest, ChildFramesActivateAndCloseWithTheirDocuments) {
    CDocument* a = tmpl->OpenDocumentFile("C:\\a.skt");
    CDocument* b = tmpl->OpenDocumentFile("C:\\b.skt");
    CFrameWnd* fa = FrameOf(a);
    CFrameWnd* fb = FrameOf(b);
    EXPECT_EQ(main->MDIGetActive(), fb);
    main->MDINext();
    EXPECT_EQ(main->MDIGetActive(), fa);
    EXPECT_EQ(main->GetActiveView(), FirstView(a));

    // A maximised child hands its state on; the frame that comes up is maximised too.
    fa->ActivateFrame(win::SW_SHOWMAXIMIZED);
    fb->ActivateFrame(win::SW_SHOW);
    EXPECT_EQ(main->MDIGetActive(), fb);
    EXPECT_TRUE(fb->IsZoomed());

    // Closing a frame closes its document; the other child becomes active.
    fb->SendMessage(win::WM_CLOSE);
    EXPECT_EQ(DocCount(), 1);
    EXPECT_EQ(main->MDIGetActive(), fa);
    EXPECT_EQ(main->GetActiveView(), FirstView(a));
    EXPECT_EQ(win::GetMenu(main->m_hWnd), tmpl->m_hMenuShared);
    fa->SendMessage(win::WM_CLOSE);
    EXPECT_EQ(DocCount(), 0);
    EXPECT_EQ(main->MDIGetActive(), nullptr);
    EXPECT_EQ(main->GetActiveView(), nullptr);
    EXPECT_EQ(win::GetMenu(main->m_hWnd), main->m_hMenuDefault);
    EXPECT_EQ(MenuTitle(0), "&File");
}

TEST_F(DocTemplateTest, AModifiedDocumentAsksBeforeItCloses) {
    CDocument* doc = tmpl->OpenDocumentFile("C:\\a.skt");
    doc->SetModifiedFlag();
    CFrameWnd* frame = FrameOf(doc);

    app.answer = IDCANCEL;
    frame->SendMessage(win::WM_CLOSE);
    EXPECT_EQ(app.asked, (std::vector<std::string>{"Save changes to a.skt?"}));
    EXPECT_EQ(DocCount(), 1);

    app.answer = IDYES;
    frame->SendMessage(win::WM_CLOSE);
    EXPECT_EQ(saved, (std::vector<std::string>{"C:\\a.skt"}));
    EXPECT_EQ(DocCount(), 0);

    doc = tmpl->OpenDocumentFile("C:\\b.skt");
    doc->SetModifiedFlag();
    app.answer = IDNO;
    EXPECT_TRUE(app.SaveAllModified());
    EXPECT_EQ(saved.size(), 1u);
    EXPECT_TRUE(doc->DoSave("C:\\c.skt"));
    EXPECT_EQ(doc->GetPathName(), "C:\\c.skt");
    EXPECT_FALSE(doc->IsModified());
}

TEST_F(DocTemplateTest, DeletingAFrameOrTheTemplateLeavesNothingDangling) {
    CDocument* a = tmpl->OpenDocumentFile("C:\\a.skt");
    HWND frameHandle = FrameOf(a)->m_hWnd;
    delete FrameOf(a);  // the window goes, its view, and the document with its last view
    EXPECT_FALSE(win::IsWindow(frameHandle));
    EXPECT_EQ(DocCount(), 0);

    CDocument* b = tmpl->OpenDocumentFile("C:\\b.skt");
    b->m_bAutoDelete = FALSE;  // the document outlives its view
    HWND bFrame = FrameOf(b)->m_hWnd;
    win::DestroyWindow(bFrame);
    EXPECT_EQ(DocCount(), 1);
    EXPECT_EQ(b->GetFirstViewPosition(), nullptr);
    b->m_bAutoDelete = TRUE;
    b->OnCloseDocument();
    EXPECT_EQ(DocCount(), 0);

    CDocument* c = tmpl->OpenDocumentFile("C:\\c.skt");
    delete tmpl;
    tmpl = nullptr;
    EXPECT_TRUE(app.GetDocTemplates().empty());
    EXPECT_EQ(c->GetDocTemplate(), nullptr);
    main->SendMessage(win::WM_COMMAND, 2, 0);  // no template left in the route
    EXPECT_EQ(handled, (std::vector<std::string>{"doc 2"}));
    c->OnCloseDocument();
}

TEST_F(DocTemplateTest, ClosingTheMainFrameClosesEverything) {
    tmpl->OpenDocumentFile("C:\\a.skt");
    tmpl->OpenDocumentFile("C:\\b.skt");
    HWND mainHandle = main->m_hWnd;
    main->SendMessage(win::WM_CLOSE);
    main = nullptr;  // gone with its window
    EXPECT_FALSE(win::IsWindow(mainHandle));
    EXPECT_EQ(DocCount(), 0);
    EXPECT_EQ(app.m_pMainWnd, nullptr);
    EXPECT_EQ(app.Run(), 0);  // the quit that the main window left
}

TEST_F(DocTemplateTest, RecalcLayoutGivesThePaneWhatTheBarsLeave) {
    class CBar : public CWnd {
      public:
        LRESULT WindowProc(UINT msg, WPARAM w, LPARAM l) override {
            if (msg == WM_SIZEPARENT) {
                auto* layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(l);
                MoveWindow(layout->rect.left, layout->rect.top, 120,
                           layout->rect.bottom - layout->rect.top);
                layout->rect.left += 120;
                return 0;
            }
            return CWnd::WindowProc(msg, w, l);
        }
    };
    CBar bar;
    ASSERT_TRUE(bar.Create(nullptr, "bar", win::WS_VISIBLE, win::RECT{}, main, 0xE81C));
    main->MoveWindow(0, 0, 800, 600);
    win::RECT r;
    win::GetWindowRect(main->m_hWndMDIClient, &r);
    EXPECT_EQ((std::vector<win::LONG>{r.left, r.top, r.right, r.bottom}),
              (std::vector<win::LONG>{120, 0, 800, 600}));
    bar.ShowWindow(win::SW_HIDE);
    main->RecalcLayout();
    win::GetWindowRect(main->m_hWndMDIClient, &r);
    EXPECT_EQ(r.left, 0);
}

TEST_F(DocTemplateTest, WaitCursorAndHelpCalls) {
    win::HCURSOR arrow = win::LoadCursor(nullptr, win::IDC_ARROW);
    win::SetCursor(arrow);
    {
        CWaitCursor outer;
        CWaitCursor inner;
        EXPECT_EQ(win::GetCursor(), win::LoadCursor(nullptr, win::IDC_WAIT));
        EXPECT_EQ(app.GetWaitCursorCount(), 2);
    }
    EXPECT_EQ(win::GetCursor(), arrow);
    app.EndWaitCursor();  // one too many changes nothing
    EXPECT_EQ(app.GetWaitCursorCount(), 0);

    app.WinHelp(26449);
    app.WinHelp(0, HELP_QUIT);
    ASSERT_EQ(app.GetWinHelpCalls().size(), 2u);
    EXPECT_EQ(app.GetWinHelpCalls()[0].data, 26449u);
    EXPECT_EQ(app.GetWinHelpCalls()[1].command, HELP_QUIT);
}

}  // namespace
}  // namespace afx
