// The transcript of a session: one line for each thing that happened, written at once,
// "<kind>: <text>" (docs/script.md lists the kinds). Paths are shown as POSIX paths, those
// below the session's base folder relative to it, so that a transcript reads the same in
// whatever folder it was made.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace velorand::program {

class Transcript {
  public:
    // Writes to `out`, which stays the caller's; `baseFolder` is a full POSIX path.
    Transcript(std::FILE* out, std::string baseFolder);

    // Writes "<kind>: <text>", or "<kind>:" for an empty text; a line end in the text is
    // shown as \n.
    void Write(const std::string& kind, const std::string& text);
    // Writes a line as it stands.
    void WriteRaw(const std::string& line);

    // The lines written since the last call, which forgets them.
    std::vector<std::string> TakeRecent();

    const std::string& BaseFolder() const { return baseFolder_; }
    // The full POSIX path of a path given to the session: a relative one counts from the
    // base folder.
    std::string FullPath(const std::string& path) const;
    // How a POSIX path is shown: relative below the base folder, else as it is.
    std::string ShowPosix(const std::string& posixPath) const;
    // How a platform path is shown: its POSIX path, as ShowPosix shows it; a path that
    // names no POSIX file stays as it is.
    std::string ShowPath(const std::string& platformPath) const;
    // The text with every platform path in it ("X:\" up to the next blank, quote,
    // parenthesis or line end) shown as ShowPath shows it.
    std::string ShowText(const std::string& text) const;

  private:
    std::FILE* out_;
    std::string baseFolder_;
    std::vector<std::string> recent_;
};

}  // namespace velorand::program
