// Schematic and symbol documents on the suite's schematic text format (suite/README.md):
// "[schematic2]" or "[symbol2]" on the first line, "ver NN" on the second, lines of at
// most 599 characters. The editor's changes work on the element lines of "[cell use]":
//   use <cell> <instance> <node>... <KEY>=<value>...
#pragma once

#include <string>
#include <vector>

#include "app/text_document.h"

namespace velorand::host {

inline constexpr std::size_t kMaxSheetLine = 599;

class CSchematicDoc : public CTextDocument {
    DECLARE_DYNCREATE(CSchematicDoc)
  public:
    CSchematicDoc() = default;

    // The line of the element with this instance name (case ignored), or -1.
    int FindElement(const std::string& instance) const;
    // Sets the element's property: its "<name>=..." token (name case ignored) takes the
    // value, or "<name>=<value>" is added at the end. False, with nothing changed, when
    // there is no such element or the line would grow too long.
    bool SetProperty(const std::string& instance, const std::string& name, const std::string& value,
                     std::string& error);
    // Adds element lines ("<cell> <instance> ...", without "use") at the end of
    // "[cell use]"; an empty document gets the sections first. False, with nothing
    // changed, when one is no element or its instance is taken.
    bool AddElements(const std::vector<std::string>& elements, std::string& error);
    // Takes the elements of another sheet's lines. With `copyInstances` an element whose
    // instance is here already replaces it; without, such an element is left out. The
    // others are added. The number of elements taken.
    int MergeElements(const std::vector<std::string>& lines, bool copyInstances);
    // Whether an element uses the cell as a subcircuit (case ignored).
    bool UsesCell(const std::string& cell) const;
    // Renames a cell in the lines that name files ("use", "w", "l"): every token equal
    // to the old name, case ignored. The number of lines changed.
    int RenameCell(const std::string& oldName, const std::string& newName);

    // The format's check of a sheet's lines; empty when they pass.
    static std::string CheckSheet(const std::vector<std::string>& lines, const std::string& head);

  protected:
    virtual const char* Head() const { return "[schematic2]"; }
    std::vector<std::string> NewContent() const override;
    std::string CheckContent(const std::vector<std::string>& lines) const override;

  private:
    // Where a new element line goes: behind the last line of "[cell use]".
    std::size_t ElementInsertPoint() const;
};

class CSymbolDoc : public CSchematicDoc {
    DECLARE_DYNCREATE(CSymbolDoc)
  public:
    CSymbolDoc() = default;

  protected:
    const char* Head() const override { return "[symbol2]"; }
    std::vector<std::string> NewContent() const override;
};

// The blank-separated tokens of a line.
std::vector<std::string> SplitTokens(const std::string& line);

}  // namespace velorand::host
