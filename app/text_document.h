// CTextDocument: a host document kept as the lines of a text file (schematics, symbols,
// netlists). Every byte of a line passes through untouched; files are written with LF.
// It tells the project, through its first view, when it has opened, is saved, closes or
// wants its title.
#pragma once

#include <string>
#include <vector>

#include "platform/afx/document.h"

namespace velorand::host {

class CHostView;

class CTextDocument : public afx::CDocument {
    DECLARE_DYNAMIC(CTextDocument)
  public:
    const std::vector<std::string>& Lines() const { return lines_; }
    // Replaces the content and marks the document modified.
    void ReplaceLines(std::vector<std::string> lines);
    // Why the last open or save failed; empty after one that went.
    const std::string& Error() const { return error_; }

    // Reads the file whole: a missing or unreadable file, or one that isn't of this
    // document's kind, fails with the reason in Error() and on the status line.
    static bool ReadLines(const std::string& path, std::vector<std::string>& lines,
                          std::string& error);

    win::BOOL OnNewDocument() override;
    win::BOOL OnOpenDocument(win::LPCSTR path) override;
    // Writes the lines to the path; the path name stays as it is.
    win::BOOL OnSaveDocument(win::LPCSTR path) override;
    // A save by the user: tells the project (code 202) once the path name is the new one.
    win::BOOL DoSave(win::LPCSTR path, win::BOOL replace = win::TRUE) override;
    // Tells the project (code 201) while the views are still there.
    void OnCloseDocument() override;
    // A null title asks the project for one (code 234), with the present title as the
    // fallback; without a project the title comes from the path name.
    void SetTitle(win::LPCSTR title) override;
    void DeleteContents() override;

    // The first view, when it is one of the host's.
    CHostView* FirstHostView() const;

  protected:
    CTextDocument() = default;
    // What a new document holds.
    virtual std::vector<std::string> NewContent() const { return {}; }
    // Empty when the lines are of this document's kind, else the reason.
    virtual std::string CheckContent(const std::vector<std::string>& lines) const { return {}; }
    // Whether a file that isn't there yet opens as an empty document.
    virtual bool OpensMissingFile() const { return false; }
    void Fail(const std::string& error);

    std::vector<std::string> lines_;
    std::string error_;

  private:
    bool closing_ = false;
};

}  // namespace velorand::host
