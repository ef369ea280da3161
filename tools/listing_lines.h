// The lines of a listing file, as `treescan` writes them and the tree reader takes them
// apart. Each scan stops at the end of the line whatever the line holds, so a line with
// too few dots, no brackets or no count never leads past its end.
#pragma once

#include <string>
#include <string_view>

namespace velorand {

// The first blank-delimited token of a line; empty when the line holds none.
std::string_view FirstToken(std::string_view line);

// The number at the start of a token, as atoi reads it: a sign, then digits; 0 for none.
int TokenNumber(std::string_view token);

// The root line "~ <name> (<path>)": the second token and the text from the "(" up to the
// first ")" or the end of the line. false when there is no name. The parts are views of
// the line.
bool ScanRootLine(std::string_view line, std::string_view& name, std::string_view& path);

// A hierarchy line of a level: past the three level columns and level - 1 dots, then
// "<name> (<tag> <-> <path>)". The path runs to the first ")"; '/' in it becomes '\' but
// for its last character. false unless name, tag and path are all there. Name and tag are
// views of the line.
bool ScanHierarchyLine(std::string_view line, int level, std::string_view& name,
                       std::string_view& tag, std::string& path);

// A "Schematic: <path> (<n>)" line. The path, a view of the line, is the text behind the
// keyword up to its last blank, which is cut off with the count behind it. false when that
// part holds no count, which asks for no update.
bool ScanSchematicLine(std::string_view line, std::string_view& path, int& count);

// The path of a "Symbol: <path>" line, the second token, with '/' turned into '\'.
std::string ScanSymbolLine(std::string_view line);

// The record key of a schematic's name: the name with its ASCII letters lowered.
void RecordKeyOf(std::string_view name, std::string& key);

// The record key of a schematic's path: the key of the text between the last '\' or '/'
// and the first dot behind it; empty when there is no dot.
void RecordKeyOfPath(std::string_view path, std::string& key);

}  // namespace velorand
