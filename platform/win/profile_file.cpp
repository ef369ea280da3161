#include "platform/win/profile_file.h"

#include <cstring>

namespace win {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

unsigned char Lower(char c) {
    unsigned char u = static_cast<unsigned char>(c);
    return (u >= 'A' && u <= 'Z') ? static_cast<unsigned char>(u - 'A' + 'a') : u;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i]))
            return false;
    return true;
}

// Appends a line to a text, first ending the text's last line if it lacks a line end.
void AppendLine(std::string& text, std::string_view line) {
    if (!text.empty() && text.back() != '\n')
        text += '\n';
    text += line;
    text += '\n';
}

}  // namespace

std::size_t ProfileFile::NoCaseHash::operator()(std::string_view text) const {
    std::size_t hash = 14695981039346656037ull;
    for (char c : text)
        hash = (hash ^ Lower(c)) * 1099511628211ull;
    return hash;
}

std::size_t ProfileFile::NoCaseHash::operator()(const KeyRef& ref) const {
    return (*this)(ref.key) ^ (std::size_t{ref.section} * 0x9E3779B97F4A7C15ull);
}

bool ProfileFile::NoCaseEqual::operator()(std::string_view a, std::string_view b) const {
    return EqualNoCase(a, b);
}

bool ProfileFile::NoCaseEqual::operator()(const KeyRef& a, const KeyRef& b) const {
    return a.section == b.section && EqualNoCase(a.key, b.key);
}

ProfileFile::ProfileFile(std::string text) : text_(std::move(text)) {
    Parse();
}

void ProfileFile::Parse() {
    const char* data = text_.data();
    const std::size_t size = text_.size();
    for (std::size_t pos = 0; pos < size;) {
        const void* newline = std::memchr(data + pos, '\n', size - pos);
        std::size_t end = newline ? static_cast<const char*>(newline) - data : size;
        std::size_t next = newline ? end + 1 : size;
        if (end > pos && data[end - 1] == '\r')
            --end;
        lines_.push_back(Line{pos, end, next});
        pos = next;
    }

    for (std::uint32_t i = 0; i < lines_.size(); ++i) {
        std::string_view text(data + lines_[i].begin, lines_[i].end - lines_[i].begin);
        // A NUL byte ends what a line says, as it ends a string of the platform.
        text = Trim(text.substr(0, text.find('\0')));
        if (text.empty())
            continue;
        if (text.front() == '[') {
            std::size_t close = text.find(']');
            std::string_view name =
                Trim(close == std::string_view::npos ? text.substr(1) : text.substr(1, close - 1));
            if (!sections_.empty())
                sections_.back().end = i;
            sectionIndex_.emplace(name, static_cast<std::uint32_t>(sections_.size()));
            sections_.push_back(Section{name, i, i, 0, {}});
            continue;
        }
        if (sections_.empty())
            continue;
        Section& section = sections_.back();
        section.lastText = i;
        std::size_t equals = text.find('=');
        std::string_view key =
            equals == std::string_view::npos ? std::string_view() : Trim(text.substr(0, equals));
        if (key.empty()) {
            section.lines.push_back(KeyLine{Entry{text, {}, false}, i});
            continue;
        }
        KeyRef ref{static_cast<std::uint32_t>(sections_.size() - 1), key};
        keyIndex_.emplace(ref, static_cast<std::uint32_t>(section.lines.size()));
        section.lines.push_back(KeyLine{Entry{key, Trim(text.substr(equals + 1)), true}, i});
    }
    if (!sections_.empty())
        sections_.back().end = static_cast<std::uint32_t>(lines_.size());
}

const ProfileFile::Section* ProfileFile::FindSection(std::string_view name) const {
    auto found = sectionIndex_.find(name);
    return found == sectionIndex_.end() ? nullptr : &sections_[found->second];
}

const ProfileFile::KeyLine* ProfileFile::FindKey(std::uint32_t section,
                                                 std::string_view key) const {
    auto found = keyIndex_.find(KeyRef{section, key});
    return found == keyIndex_.end() ? nullptr : &sections_[section].lines[found->second];
}

std::optional<std::string_view> ProfileFile::Value(std::string_view section,
                                                   std::string_view key) const {
    const Section* found = FindSection(section);
    if (!found)
        return std::nullopt;
    const KeyLine* line = FindKey(static_cast<std::uint32_t>(found - sections_.data()), key);
    if (!line)
        return std::nullopt;
    return line->entry.value;
}

bool ProfileFile::HasSection(std::string_view section) const {
    return FindSection(section) != nullptr;
}

bool ProfileFile::HasSectionStartingWith(std::string_view prefix) const {
    for (const Section& section : sections_)
        if (EqualNoCase(section.name.substr(0, prefix.size()), prefix))
            return true;
    return false;
}

std::vector<std::string_view> ProfileFile::SectionNames() const {
    std::vector<std::string_view> names;
    for (std::uint32_t i = 0; i < sections_.size(); ++i)
        if (sectionIndex_.at(sections_[i].name) == i)
            names.push_back(sections_[i].name);
    return names;
}

std::optional<std::vector<std::string_view>> ProfileFile::KeyNames(std::string_view section) const {
    const Section* found = FindSection(section);
    if (!found)
        return std::nullopt;
    std::uint32_t index = static_cast<std::uint32_t>(found - sections_.data());
    std::vector<std::string_view> names;
    for (const KeyLine& line : found->lines)
        if (line.entry.isKey && FindKey(index, line.entry.key) == &line)
            names.push_back(line.entry.key);
    return names;
}

std::optional<std::vector<ProfileFile::Entry>> ProfileFile::Entries(
    std::string_view section) const {
    const Section* found = FindSection(section);
    if (!found)
        return std::nullopt;
    std::vector<Entry> entries;
    for (const KeyLine& line : found->lines)
        entries.push_back(line.entry);
    return entries;
}

std::string ProfileFile::Without(
    const std::vector<std::pair<std::uint32_t, std::uint32_t>>& ranges) const {
    std::string text;
    std::size_t kept = 0;
    for (const auto& [first, last] : ranges) {
        text.append(text_, kept, lines_[first].begin - kept);
        kept = last < lines_.size() ? lines_[last].begin : text_.size();
    }
    text.append(text_, kept);
    return text;
}

std::string ProfileFile::InsertAfter(std::uint32_t line, std::string_view newLine) const {
    std::size_t at = lines_[line].next;
    std::string text = text_.substr(0, at);
    AppendLine(text, newLine);
    text.append(text_, at);
    return text;
}

std::optional<std::string> ProfileFile::SetValue(std::string_view section, std::string_view key,
                                                 std::string_view value) const {
    const Section* found = FindSection(section);
    if (!found) {
        std::string text = text_;
        AppendLine(text, "[" + std::string(section) + "]");
        AppendLine(text, std::string(key) + "=" + std::string(value));
        return text;
    }
    const KeyLine* existing = FindKey(static_cast<std::uint32_t>(found - sections_.data()), key);
    if (!existing)
        return InsertAfter(found->lastText, std::string(key) + "=" + std::string(value));
    // The key keeps its spelling and its line end; only the text of the line changes.
    std::string line = std::string(existing->entry.key) + "=" + std::string(value);
    const Line& old = lines_[existing->line];
    if (text_.compare(old.begin, old.end - old.begin, line) == 0)
        return std::nullopt;
    return text_.substr(0, old.begin) + line + text_.substr(old.end);
}

std::optional<std::string> ProfileFile::RemoveKey(std::string_view section,
                                                  std::string_view key) const {
    const Section* found = FindSection(section);
    if (!found)
        return std::nullopt;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> ranges;
    for (const KeyLine& line : found->lines)
        if (line.entry.isKey && EqualNoCase(line.entry.key, key))
            ranges.emplace_back(line.line, line.line + 1);
    if (ranges.empty())
        return std::nullopt;
    return Without(ranges);
}

std::optional<std::string> ProfileFile::RemoveSection(std::string_view section) const {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> ranges;
    for (const Section& each : sections_)
        if (EqualNoCase(each.name, section))
            ranges.emplace_back(each.head, each.end);
    if (ranges.empty())
        return std::nullopt;
    return Without(ranges);
}

std::optional<std::string> ProfileFile::AddSection(std::string_view section) const {
    if (HasSection(section))
        return std::nullopt;
    std::string text = text_;
    AppendLine(text, "[" + std::string(section) + "]");
    return text;
}

std::string_view Unquoted(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front())
        return value.substr(1, value.size() - 2);
    return value;
}

}  // namespace win
