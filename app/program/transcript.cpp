#include "app/program/transcript.h"

#include <cctype>
#include <cstring>
#include <optional>

#include "platform/win/paths.h"

namespace velorand::program {

namespace {

// The characters that end a platform path inside a text.
bool EndsPath(char c) {
    return std::isspace(static_cast<unsigned char>(c)) || c == '"' || c == '\'' || c == '(' ||
           c == ')' || c == '<' || c == '>' || c == '|';
}

bool StartsPath(const std::string& text, std::size_t at) {
    return at + 2 < text.size() && std::isalpha(static_cast<unsigned char>(text[at])) &&
           text[at + 1] == ':' && text[at + 2] == '\\' &&
           (at == 0 || !std::isalnum(static_cast<unsigned char>(text[at - 1])));
}

}  // namespace

Transcript::Transcript(std::FILE* out, std::string baseFolder)
    : out_(out), baseFolder_(std::move(baseFolder)) {
    while (baseFolder_.size() > 1 && baseFolder_.back() == '/') {
        baseFolder_.pop_back();
    }
}

void Transcript::Write(const std::string& kind, const std::string& text) {
    std::string line = kind + ":";
    if (!text.empty()) {
        line += ' ';
        for (char c : text) {
            if (c == '\n') {
                line += "\\n";
            } else if (c != '\r') {
                line += c;
            }
        }
    }
    WriteRaw(line);
}

void Transcript::WriteRaw(const std::string& line) {
    std::fputs(line.c_str(), out_);
    std::fputc('\n', out_);
    std::fflush(out_);
    recent_.push_back(line);
}

std::vector<std::string> Transcript::TakeRecent() {
    std::vector<std::string> lines;
    lines.swap(recent_);
    return lines;
}

std::string Transcript::FullPath(const std::string& path) const {
    if (!path.empty() && path.front() == '/') {
        return path;
    }
    return baseFolder_ + (baseFolder_ == "/" ? "" : "/") + path;
}

std::string Transcript::ShowPosix(const std::string& posixPath) const {
    if (baseFolder_ == "/") {
        return posixPath;
    }
    if (posixPath == baseFolder_ || posixPath == baseFolder_ + "/") {
        return ".";
    }
    if (posixPath.size() > baseFolder_.size() + 1 &&
        posixPath.compare(0, baseFolder_.size(), baseFolder_) == 0 &&
        posixPath[baseFolder_.size()] == '/') {
        return posixPath.substr(baseFolder_.size() + 1);
    }
    return posixPath;
}

std::string Transcript::ShowPath(const std::string& platformPath) const {
    std::optional<std::string> posix = win::PosixPath(platformPath);
    if (!posix) {
        return platformPath;
    }
    // A folder keeps its closing separator.
    if (platformPath.ends_with('\\') && !posix->ends_with('/')) {
        *posix += '/';
    }
    return ShowPosix(*posix);
}

std::string Transcript::ShowText(const std::string& text) const {
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        if (!StartsPath(text, at)) {
            shown += text[at++];
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && !EndsPath(text[end])) {
            ++end;
        }
        // A sentence's closing mark is no part of the path; names don't end in one.
        while (end > at + 3 && std::strchr(".,;:?!", text[end - 1]) != nullptr) {
            --end;
        }
        shown += ShowPath(text.substr(at, end - at));
        at = end;
    }
    return shown;
}

}  // namespace velorand::program
