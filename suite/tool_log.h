// The log a suite tool leaves beside its target: what it was asked, what it did, and why it
// failed. The component hands the file to the host when a tool returns non-zero.
#pragma once

#include <string>
#include <string_view>

namespace suite {

// Results of the tools. 0 is the only success; the others stay clear of 1, -1 and -2,
// which the component's launcher gives meanings of its own.
enum ToolResult : int {
    kToolOk = 0,
    kToolBadArguments = 10,  // the command line is not one the tool takes
    kToolInputMissing = 11,  // a file the tool needs is missing or unreadable
    kToolMalformed = 12,     // a schematic breaks the file format
    kToolBadHierarchy = 13,  // a cycle, or a hierarchy too deep or too large
    kToolWriteFailed = 14,   // an output could not be written
    kToolInternal = 15,      // out of memory or another fault of the tool itself
};

class ToolLog {
  public:
    ToolLog(std::string tool, bool debug) : tool_(std::move(tool)), debug_(debug) {}

    void SetDebug(bool debug) { debug_ = debug; }
    // A line that every log holds.
    void Note(std::string_view text);
    // A line for the detailed log of -debug only.
    void Detail(std::string_view text);
    // A failure: its line goes to the log, and the first failure decides the result.
    void Fail(ToolResult result, std::string_view text);

    bool Failed() const { return result_ != kToolOk; }
    int Result() const { return result_; }
    const std::string& Text() const { return text_; }

    // Writes the log to a platform path, replacing what was there. False when it can't.
    bool Save(std::string_view platformPath) const;

  private:
    std::string tool_;
    bool debug_;
    int result_ = kToolOk;
    std::string text_;
};

}  // namespace suite
