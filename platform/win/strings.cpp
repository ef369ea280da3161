#include "platform/win/strings.h"

namespace win {

namespace {
unsigned char Fold(char c) {
    unsigned char u = static_cast<unsigned char>(c);
    return (u >= 'A' && u <= 'Z') ? static_cast<unsigned char>(u + ('a' - 'A')) : u;
}
}  // namespace

int _strnicmp(const char* a, const char* b, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        unsigned char ca = Fold(a[i]);
        unsigned char cb = Fold(b[i]);
        if (ca != cb)
            return ca < cb ? -1 : 1;
        if (ca == 0)
            return 0;
    }
    return 0;
}

int _stricmp(const char* a, const char* b) {
    return _strnicmp(a, b, static_cast<std::size_t>(-1));
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Fold(a[i]) != Fold(b[i]))
            return false;
    return true;
}

bool EndsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           EqualNoCase(text.substr(text.size() - ending.size()), ending);
}

std::string ToLower(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered)
        c = static_cast<char>(Fold(c));
    return lowered;
}

}  // namespace win
