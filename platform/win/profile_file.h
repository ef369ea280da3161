// The text of one profile file, indexed by section and key, and the edits that make its
// next text. Reads follow the platform's rules: names compared without regard to case,
// blanks around names and values dropped, the first of duplicate sections and keys
// counts, lines before the first section belong to none. Edits touch only the lines they
// must; every other byte of the file, odd lines and CR LF ends included, stays as it was.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace win {

class ProfileFile {
  public:
    // One line of a section that is not blank: `key=value`, or an odd line without '='
    // (then `key` holds the line and `isKey` is false). Views point into the file's text.
    struct Entry {
        std::string_view key;
        std::string_view value;
        bool isKey;
    };

    explicit ProfileFile(std::string text);
    ProfileFile(const ProfileFile&) = delete;
    ProfileFile& operator=(const ProfileFile&) = delete;

    const std::string& Text() const { return text_; }

    // The value of the first such key in the first such section, blanks dropped.
    std::optional<std::string_view> Value(std::string_view section, std::string_view key) const;
    bool HasSection(std::string_view section) const;
    // Whether some section's name begins with `prefix`, compared without regard to case.
    bool HasSectionStartingWith(std::string_view prefix) const;
    // The names of all sections, each once, in the order of the file.
    std::vector<std::string_view> SectionNames() const;
    // The key names of a section, each once, in the order of the file; nothing when the
    // section is missing.
    std::optional<std::vector<std::string_view>> KeyNames(std::string_view section) const;
    // The lines of a section that are not blank, in the order of the file.
    std::optional<std::vector<Entry>> Entries(std::string_view section) const;

    // The next text of the file, or nothing when the edit changes nothing.
    // The key gets the value: in place when it exists, else as a new line after the last
    // line of the section that isn't blank, or in a new section at the end of the file.
    std::optional<std::string> SetValue(std::string_view section, std::string_view key,
                                        std::string_view value) const;
    // Removes every line of the key from the section.
    std::optional<std::string> RemoveKey(std::string_view section, std::string_view key) const;
    // Removes every section of that name with all its lines.
    std::optional<std::string> RemoveSection(std::string_view section) const;
    // Adds an empty section at the end of the file when there is none of that name.
    std::optional<std::string> AddSection(std::string_view section) const;

  private:
    struct Line {
        std::size_t begin;  // first byte
        std::size_t end;    // end of the text, before the line end
        std::size_t next;   // first byte of the next line
    };
    struct KeyLine {
        Entry entry;
        std::uint32_t line;
    };
    struct Section {
        std::string_view name;
        std::uint32_t head;      // line of "[name]"
        std::uint32_t lastText;  // last line that isn't blank, the head at least
        std::uint32_t end;       // the next section's head, or the number of lines
        std::vector<KeyLine> lines;
    };
    struct KeyRef {
        std::uint32_t section;
        std::string_view key;
    };
    struct NoCaseHash {
        std::size_t operator()(std::string_view text) const;
        std::size_t operator()(const KeyRef& ref) const;
    };
    struct NoCaseEqual {
        bool operator()(std::string_view a, std::string_view b) const;
        bool operator()(const KeyRef& a, const KeyRef& b) const;
    };

    void Parse();
    const Section* FindSection(std::string_view name) const;
    const KeyLine* FindKey(std::uint32_t section, std::string_view key) const;
    // The text without the lines of the given ranges [first, last), which are in order.
    std::string Without(const std::vector<std::pair<std::uint32_t, std::uint32_t>>& ranges) const;
    // The text with a new line after line `line`, which gets a line end if it lacks one.
    std::string InsertAfter(std::uint32_t line, std::string_view newLine) const;

    std::string text_;
    std::vector<Line> lines_;
    std::vector<Section> sections_;
    std::unordered_map<std::string_view, std::uint32_t, NoCaseHash, NoCaseEqual> sectionIndex_;
    std::unordered_map<KeyRef, std::uint32_t, NoCaseHash, NoCaseEqual> keyIndex_;
};

// A value without one pair of quotes around it, as the platform's reads give it.
std::string_view Unquoted(std::string_view value);

}  // namespace win
