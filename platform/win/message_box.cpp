#include "platform/win/message_box.h"

#include <array>
#include <cctype>
#include <utility>

#include "platform/win/strings.h"
#include "platform/win/user_agent.h"

namespace win {

namespace {

constexpr std::array<std::pair<int, const char*>, 11> kAnswerNames{{
    {IDOK, "ok"},
    {IDCANCEL, "cancel"},
    {IDABORT, "abort"},
    {IDRETRY, "retry"},
    {IDIGNORE, "ignore"},
    {IDYES, "yes"},
    {IDNO, "no"},
    {IDCLOSE, "close"},
    {IDHELP, "help"},
    {IDTRYAGAIN, "tryagain"},
    {IDCONTINUE, "continue"},
}};

}  // namespace

int MessageBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
    return GetUserAgent().AskMessageBox(owner, text ? text : "", caption ? caption : "Error", type);
}

std::vector<int> MessageBoxAnswers(UINT type) {
    switch (type & MB_TYPEMASK) {
        case MB_OKCANCEL:
            return {IDOK, IDCANCEL};
        case MB_ABORTRETRYIGNORE:
            return {IDABORT, IDRETRY, IDIGNORE};
        case MB_YESNOCANCEL:
            return {IDYES, IDNO, IDCANCEL};
        case MB_YESNO:
            return {IDYES, IDNO};
        case MB_RETRYCANCEL:
            return {IDRETRY, IDCANCEL};
        case MB_CANCELTRYCONTINUE:
            return {IDCANCEL, IDTRYAGAIN, IDCONTINUE};
        default:
            return {IDOK};
    }
}

int SafestAnswer(UINT type) {
    const std::vector<int> answers = MessageBoxAnswers(type);
    for (int preferred : {IDCANCEL, IDNO}) {
        for (int answer : answers) {
            if (answer == preferred) {
                return answer;
            }
        }
    }
    return answers.front();
}

std::string AnswerName(int answer) {
    for (const auto& [id, name] : kAnswerNames) {
        if (id == answer) {
            return name;
        }
    }
    return {};
}

int AnswerFromName(const std::string& word) {
    std::string lower = ToLower(word);
    for (const auto& [id, name] : kAnswerNames) {
        if (lower == name) {
            return id;
        }
    }
    return 0;
}

}  // namespace win
