#include "app/text_document.h"

#include <fstream>

#include "app/host_view.h"
#include "app/status_line.h"
#include "platform/win/last_error.h"
#include "platform/win/text_stream.h"

namespace velorand::host {

using afx::CDocument;
IMPLEMENT_DYNAMIC(CTextDocument, CDocument)

namespace {

std::string ReasonOf(win::DWORD error) {
    switch (error) {
        case 2:
        case 3:
            return "the file does not exist";
        case 5:
            return "access is denied";
        case 161:
            return "the path is not valid";
        default:
            return "error " + std::to_string(error);
    }
}

}  // namespace

void CTextDocument::ReplaceLines(std::vector<std::string> lines) {
    lines_ = std::move(lines);
    SetModifiedFlag(win::TRUE);
}

bool CTextDocument::ReadLines(const std::string& path, std::vector<std::string>& lines,
                              std::string& error) {
    std::ifstream in;
    if (!win::OpenTextStream(in, path.c_str())) {
        error = "Unable to open " + path + ": " + ReasonOf(win::GetLastError()) + ".";
        return false;
    }
    lines.clear();
    std::string line;
    while (win::ReadTextLine(in, line)) {
        lines.push_back(line);
    }
    if (in.bad()) {
        error = "Unable to read " + path + ".";
        return false;
    }
    return true;
}

void CTextDocument::Fail(const std::string& error) {
    error_ = error;
    ShowStatus(error);
}

win::BOOL CTextDocument::OnNewDocument() {
    if (!CDocument::OnNewDocument()) {
        return win::FALSE;
    }
    lines_ = NewContent();
    error_.clear();
    return win::TRUE;
}

win::BOOL CTextDocument::OnOpenDocument(win::LPCSTR path) {
    CDocument::OnOpenDocument(path);
    std::vector<std::string> lines;
    std::string error;
    if (!ReadLines(path, lines, error)) {
        win::DWORD code = win::GetLastError();
        if (!OpensMissingFile() || (code != 2 && code != 3)) {
            Fail(error);
            return win::FALSE;
        }
        lines.clear();
    } else if (std::string wrong = CheckContent(lines); !wrong.empty()) {
        Fail("Unable to open " + std::string(path) + ": " + wrong);
        return win::FALSE;
    }
    lines_ = std::move(lines);
    error_.clear();
    return win::TRUE;
}

win::BOOL CTextDocument::OnSaveDocument(win::LPCSTR path) {
    std::ofstream out;
    if (!win::OpenTextStream(out, path)) {
        Fail("Unable to save " + std::string(path) + ": " + ReasonOf(win::GetLastError()) + ".");
        return win::FALSE;
    }
    for (const std::string& line : lines_) {
        out << line << '\n';
    }
    out.close();
    if (out.fail()) {
        Fail("Unable to save " + std::string(path) + ": the file could not be written.");
        return win::FALSE;
    }
    error_.clear();
    return CDocument::OnSaveDocument(path);
}

win::BOOL CTextDocument::DoSave(win::LPCSTR path, win::BOOL replace) {
    if (!CDocument::DoSave(path, replace)) {
        return win::FALSE;
    }
    if (CHostView* view = FirstHostView()) {
        view->Notify(kDocumentSaved, this);
    }
    return win::TRUE;
}

void CTextDocument::OnCloseDocument() {
    if (!closing_) {
        closing_ = true;
        if (CHostView* view = FirstHostView()) {
            view->Notify(kDocumentClosing, this);
        }
    }
    CDocument::OnCloseDocument();
}

void CTextDocument::SetTitle(win::LPCSTR title) {
    if (title != nullptr) {
        CDocument::SetTitle(title);
        return;
    }
    CHostView* view = FirstHostView();
    const std::string fallback = m_strTitle;
    if (view != nullptr &&
        view->Notify(kTitleDue, this, 0,
                     fallback.empty() ? 0 : reinterpret_cast<win::LPARAM>(fallback.c_str()))
            .delivered) {
        return;
    }
    std::size_t cut = m_strPathName.find_last_of('\\');
    CDocument::SetTitle(m_strPathName.empty() ? fallback.c_str()
                                              : m_strPathName.substr(cut + 1).c_str());
}

void CTextDocument::DeleteContents() {
    lines_.clear();
}

CHostView* CTextDocument::FirstHostView() const {
    afx::POSITION pos = GetFirstViewPosition();
    afx::CView* view = GetNextView(pos);
    return view != nullptr && view->IsKindOf(RUNTIME_CLASS(CHostView))
               ? static_cast<CHostView*>(view)
               : nullptr;
}

}  // namespace velorand::host
