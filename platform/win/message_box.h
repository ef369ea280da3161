// The platform's message box: a question to the user with a caption, a text and a set of
// buttons. The box itself is put to the process's user agent (user_agent.h), which
// answers it as a person, a script or a batch run would.
#pragma once

#include <string>
#include <vector>

#include "platform/win/types.h"

namespace win {

// Buttons of a box: the low four bits of its type.
inline constexpr UINT MB_OK = 0x0;
inline constexpr UINT MB_OKCANCEL = 0x1;
inline constexpr UINT MB_ABORTRETRYIGNORE = 0x2;
inline constexpr UINT MB_YESNOCANCEL = 0x3;
inline constexpr UINT MB_YESNO = 0x4;
inline constexpr UINT MB_RETRYCANCEL = 0x5;
inline constexpr UINT MB_CANCELTRYCONTINUE = 0x6;
inline constexpr UINT MB_TYPEMASK = 0xF;

// Icons.
inline constexpr UINT MB_ICONSTOP = 0x10;
inline constexpr UINT MB_ICONERROR = MB_ICONSTOP;
inline constexpr UINT MB_ICONHAND = MB_ICONSTOP;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr UINT MB_ICONASTERISK = MB_ICONINFORMATION;
inline constexpr UINT MB_ICONMASK = 0xF0;

// Default button and modality; kept in the record, without further effect here.
inline constexpr UINT MB_DEFBUTTON1 = 0x000;
inline constexpr UINT MB_DEFBUTTON2 = 0x100;
inline constexpr UINT MB_DEFBUTTON3 = 0x200;
inline constexpr UINT MB_APPLMODAL = 0x0000;
inline constexpr UINT MB_SYSTEMMODAL = 0x1000;
inline constexpr UINT MB_TASKMODAL = 0x2000;

// Answers, which are also the identifiers of the standard dialog buttons.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr int IDCLOSE = 8;
inline constexpr int IDHELP = 9;
inline constexpr int IDTRYAGAIN = 10;
inline constexpr int IDCONTINUE = 11;

// Shows a box and answers with the button chosen. A null caption is "Error"; a null text
// is empty. Both pass to the agent byte for byte. The owner is only recorded.
int MessageBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type);

// The answers a box of this type allows, in the order of its buttons.
std::vector<int> MessageBoxAnswers(UINT type);

// The answer that does least when nobody can say: Cancel, else No, else the first button
// (OK, or Abort for Abort/Retry/Ignore).
int SafestAnswer(UINT type);

// The lower-case word of an answer ("ok", "cancel", "yes", ...), as the console and batch
// agents read and write it; empty for an unknown number.
std::string AnswerName(int answer);

// The answer named by a word, case ignored; 0 when the word names none.
int AnswerFromName(const std::string& word);

}  // namespace win
