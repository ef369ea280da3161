#include "core/file_kinds.h"

#include <cstring>
#include <string>

#include "platform/win/message_box.h"
#include "platform/win/strings.h"

namespace velorand {

namespace {

// Indexed by kind number; the gaps are numbers that name no kind.
constexpr const char* kExtensions[] = {
    nullptr, ".vpj", ".sch", ".sym",  ".txt", ".~MU", ".st%", nullptr, ".~WK", ".~PT",
    ".ckt",  ".lmt", ".ckt", nullptr, ".dat", ".log", ".dbg", nullptr, ".scf",
};

// Characters that a file name must not hold; the period counts, so a name with an
// extension fails the check.
constexpr char kForbidden[] = "@:|*.<>?; \"#/\\+";

}  // namespace

const char* const OutputExtensions[11] = {".aud", ".ckt", ".st%", ".log", ".por", ".var",
                                          ".dbg", ".vrp", ".out", ".dsp", ".lmt"};
const char* const WritableOutputExtensions[9] = {".dbg", ".st%", ".log", ".aud", ".por",
                                                 ".var", ".vrp", ".out", ".dsp"};
const char* const ProjectOutputExtensions[13] = {".lmt", ".sig", ".aud", ".ckt", ".st%",
                                                 ".log", ".por", ".var", ".dbg", ".vrp",
                                                 ".out", ".dsp", ".erc"};
const char* const RenamedOutputExtensions[4] = {".vrp", ".var", ".dsp", ".out"};

const char* GetFileExtension(int index) {
    if (index < 1 || index >= static_cast<int>(std::size(kExtensions)))
        return nullptr;
    return kExtensions[index];
}

bool EndsInOneOf(const char* name, const char* const* extensions, std::size_t count) {
    if (name == nullptr)
        return false;
    std::size_t length = std::strlen(name);
    if (length < 4)
        return false;
    const char* tail = name + length - 4;
    for (std::size_t i = 0; i < count; ++i)
        if (win::_stricmp(tail, extensions[i]) == 0)
            return true;
    return false;
}

bool IsOutputFile(const char* name) {
    return EndsInOneOf(name, OutputExtensions);
}

int IsValidFileName(const char* name) {
    if (name == nullptr)
        return 0;
    std::string text(name);
    if (text.size() > 260) {
        std::string message = text + "\nThis filename has too many characters.";
        win::MessageBox(nullptr, message.c_str(), "Velorand", win::MB_ICONEXCLAMATION);
        return 0;
    }
    std::size_t start = text.find_first_not_of(kForbidden);
    if (start == std::string::npos)
        return 1;
    std::size_t end = text.find_first_of(kForbidden, start);
    std::string firstPiece = text.substr(start, end - start);
    if (win::_stricmp(firstPiece.c_str(), name) == 0)
        return 1;
    std::string message = text + "  " +
                          "is not valid filename. Filename must not contain spaces or the "
                          "characters \n" +
                          " " +
                          "*(asterisk), ?(question mark), .(period), #(pound sign), +(plus "
                          "sign).\n" +
                          " " +
                          "?(question mark), :(colon), ;(semicolon), (double quotes), "
                          ">(greater than sign)\n" +
                          " " + "< (less than sign), |(bar sign), @(at sign)";
    win::MessageBox(nullptr, message.c_str(), "Velorand", win::MB_ICONEXCLAMATION);
    return 0;
}

std::string_view FileNamePart(std::string_view path) {
    std::size_t slash = path.find_last_of("\\/");
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

int CompareFileNames(const char* a, const char* b) {
    if (win::_stricmp(a, b) == 0)
        return 0;
    auto split = [](std::string_view path) {
        std::string_view file = FileNamePart(path);
        std::size_t dot = file.rfind('.');
        if (dot == std::string_view::npos)
            return std::pair{std::string(file), std::string()};
        return std::pair{std::string(file.substr(0, dot)), std::string(file.substr(dot))};
    };
    auto [nameA, extA] = split(a);
    auto [nameB, extB] = split(b);
    if (win::_stricmp(extA.c_str(), extB.c_str()) != 0)
        return -1;
    return win::_stricmp(nameA.c_str(), nameB.c_str());
}

}  // namespace velorand
