#include "suite/tool_log.h"

#include "suite/text_file.h"

namespace suite {

void ToolLog::Note(std::string_view text) {
    text_ += tool_;
    text_ += ": ";
    text_ += text;
    text_ += '\n';
}

void ToolLog::Detail(std::string_view text) {
    if (debug_)
        Note(text);
}

void ToolLog::Fail(ToolResult result, std::string_view text) {
    text_ += tool_;
    text_ += ": error: ";
    text_ += text;
    text_ += '\n';
    if (result_ == kToolOk)
        result_ = result;
}

bool ToolLog::Save(std::string_view platformPath) const {
    std::string error;
    return WriteTextFile(platformPath, text_, error);
}

}  // namespace suite
