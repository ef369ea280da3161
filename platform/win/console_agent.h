// The user at a terminal: a box is printed with its caption, text and the answers its
// buttons allow, and the answer is read as a word (or its first letters); a dialog lists
// its controls and reads acts line by line (dialog_act.h) until it ends. At the end of
// the input every open question takes its safest way out: Cancel, No, or the cancel key.
#pragma once

#include <cstdio>
#include <optional>
#include <string>

#include "platform/win/user_agent.h"

namespace win {

class ConsoleAgent : public UserAgent {
  public:
    // Reads from `in` and writes to `out`; both stay the caller's.
    explicit ConsoleAgent(std::FILE* in = stdin, std::FILE* out = stdout);

    int AskMessageBox(HWND owner, const std::string& text, const std::string& caption,
                      UINT type) override;
    void RunDialog(ModalDialog& dialog) override;

  private:
    // The next line without its line end; nothing at the end of the input.
    std::optional<std::string> ReadLine();
    void Write(const std::string& text);
    void ShowDialog(const ModalDialog& dialog);

    std::FILE* in_;
    std::FILE* out_;
};

}  // namespace win
