#include "tools/listing_lines.h"

#include <climits>

namespace velorand {

namespace {

// Space, tab, line feed, vertical tab, form feed and carriage return, as scanf skips them.
bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

void SkipBlanks(std::string_view line, std::size_t& pos) {
    while (pos < line.size() && IsBlank(line[pos]))
        ++pos;
}

// The token at pos, blanks before it skipped; pos ends behind it.
std::string_view NextToken(std::string_view line, std::size_t& pos) {
    SkipBlanks(line, pos);
    std::size_t start = pos;
    while (pos < line.size() && !IsBlank(line[pos]))
        ++pos;
    return line.substr(start, pos - start);
}

bool Expect(std::string_view line, std::size_t& pos, std::string_view text) {
    SkipBlanks(line, pos);
    if (line.substr(pos, text.size()) != text)
        return false;
    pos += text.size();
    return true;
}

// The text from pos up to the first ")" or the end; at least one character.
bool UpToBracket(std::string_view line, std::size_t pos, std::string_view& out) {
    std::size_t end = line.find(')', pos);
    if (end == std::string_view::npos)
        end = line.size();
    if (end == pos)
        return false;
    out = line.substr(pos, end - pos);
    return true;
}

void Backslashes(std::string& path, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        if (path[i] == '/')
            path[i] = '\\';
}

}  // namespace

std::string_view FirstToken(std::string_view line) {
    std::size_t pos = 0;
    return NextToken(line, pos);
}

int TokenNumber(std::string_view token) {
    std::size_t pos = 0;
    bool negative = false;
    if (pos < token.size() && (token[pos] == '+' || token[pos] == '-'))
        negative = token[pos++] == '-';
    long long value = 0;
    for (; pos < token.size() && token[pos] >= '0' && token[pos] <= '9'; ++pos) {
        value = value * 10 + (token[pos] - '0');
        if (value > INT_MAX)
            value = INT_MAX;
    }
    return static_cast<int>(negative ? -value : value);
}

bool ScanRootLine(std::string_view line, std::string_view& name, std::string_view& path) {
    std::size_t pos = 0;
    NextToken(line, pos);
    name = NextToken(line, pos);
    if (name.empty())
        return false;
    path = std::string_view();
    if (Expect(line, pos, "("))
        UpToBracket(line, pos, path);
    return true;
}

bool ScanHierarchyLine(std::string_view line, int level, std::string_view& name,
                       std::string_view& tag, std::string& path) {
    std::size_t pos = line.size() < 3 ? line.size() : 3;
    for (int dot = 1; dot < level; ++dot) {
        std::size_t found = line.find('.', pos);
        if (found == std::string_view::npos)
            return false;
        pos = found + 1;
    }
    std::string_view nameToken = NextToken(line, pos);
    if (nameToken.empty() || !Expect(line, pos, "("))
        return false;
    std::string_view tagToken = NextToken(line, pos);
    if (tagToken.empty() || !Expect(line, pos, "<->"))
        return false;
    SkipBlanks(line, pos);
    std::string_view pathText;
    if (!UpToBracket(line, pos, pathText))
        return false;
    name = nameToken;
    tag = tagToken;
    path.assign(pathText);
    Backslashes(path, path.size() - 1);
    return true;
}

bool ScanSchematicLine(std::string_view line, std::string_view& path, int& count) {
    std::size_t pos = 0;
    NextToken(line, pos);
    SkipBlanks(line, pos);
    std::string_view rest = line.substr(pos);
    std::size_t space = rest.rfind(' ');
    if (space == std::string_view::npos) {
        path = rest;
        return false;
    }
    path = rest.substr(0, space);
    std::size_t at = space;
    if (!Expect(rest, at, "("))
        return false;
    SkipBlanks(rest, at);
    std::size_t digits = at;
    if (digits < rest.size() && (rest[digits] == '+' || rest[digits] == '-'))
        ++digits;
    if (digits >= rest.size() || rest[digits] < '0' || rest[digits] > '9')
        return false;
    count = TokenNumber(rest.substr(at));
    return true;
}

std::string ScanSymbolLine(std::string_view line) {
    std::size_t pos = 0;
    NextToken(line, pos);
    std::string path(NextToken(line, pos));
    Backslashes(path, path.size());
    return path;
}

void RecordKeyOf(std::string_view name, std::string& key) {
    key.assign(name);
    for (char& c : key)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
}

void RecordKeyOfPath(std::string_view path, std::string& key) {
    std::size_t slash = path.find_last_of("\\/");
    std::size_t start = slash == std::string_view::npos ? 0 : slash + 1;
    std::size_t dot = path.find('.', start);
    if (dot == std::string_view::npos)
        key.clear();
    else
        RecordKeyOf(path.substr(start, dot - start), key);
}

}  // namespace velorand
