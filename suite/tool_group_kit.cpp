// The stand-in for ToolGroupKit, the suite's tool bar library: it shows no tool bar, keeps
// whether the tool pane is being customized while it is loaded, and records every call.
#include <cstdio>
#include <string>

#include "platform/win/geometry.h"
#include "platform/win/types.h"
#include "suite/sibling_log.h"

namespace {

int customizing = 0;

std::string Text(const char* text) {
    return text != nullptr ? text : "(null)";
}

std::string Hex(const void* pointer) {
    if (pointer == nullptr) {
        return "null";
    }
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%p", pointer);
    return buffer;
}

}  // namespace

#define TOOL_GROUP_EXPORT extern "C" __attribute__((visibility("default")))

TOOL_GROUP_EXPORT int RegisterToolGroup(const char* group, const char* title,
                                        win::HINSTANCE instance, const win::UINT* ids,
                                        win::UINT count, win::SIZE* sizes) {
    std::string list;
    for (win::UINT i = 0; ids != nullptr && i < count; ++i) {
        list += (i == 0 ? "" : ",") + std::to_string(ids[i]);
    }
    suite::LogSiblingCall("ToolGroupKit", "RegisterToolGroup(" + Text(group) + ", " + Text(title) +
                                              ", " + Hex(instance) + ", [" + list + "], " +
                                              std::to_string(count) + ", " + Hex(sizes) + ")");
    return group != nullptr ? 1 : 0;
}

TOOL_GROUP_EXPORT void LoadToolGroup(const char* group, win::HINSTANCE instance, void* frame,
                                     win::UINT id) {
    suite::LogSiblingCall("ToolGroupKit", "LoadToolGroup(" + Text(group) + ", " + Hex(instance) +
                                              ", " + Hex(frame) + ", " + std::to_string(id) + ")");
}

TOOL_GROUP_EXPORT int EnableToolGroup(const char* group, int enable) {
    suite::LogSiblingCall("ToolGroupKit",
                          "EnableToolGroup(" + Text(group) + ", " + std::to_string(enable) + ")");
    return group != nullptr ? 1 : 0;
}

TOOL_GROUP_EXPORT void UnloadToolGroup(const char* group, int finally) {
    suite::LogSiblingCall("ToolGroupKit",
                          "UnloadToolGroup(" + Text(group) + ", " + std::to_string(finally) + ")");
}

// -1 only asks; 0 or 1 ends or starts the customizing. The answer is the state before.
TOOL_GROUP_EXPORT int IsCustomizingToolPane(int state) {
    suite::LogSiblingCall("ToolGroupKit", "IsCustomizingToolPane(" + std::to_string(state) + ")");
    int before = customizing;
    if (state != -1) {
        customizing = state != 0 ? 1 : 0;
    }
    return before;
}

TOOL_GROUP_EXPORT void DisplayToolBarPopup(void* window) {
    suite::LogSiblingCall("ToolGroupKit", "DisplayToolBarPopup(" + Hex(window) + ")");
}
