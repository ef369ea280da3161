#include "core/project_cmd_ui.h"

#include "platform/afx/wnd.h"
#include "platform/win/window.h"
#include "platform/win/window_props.h"

namespace velorand {

bool ProjectCmdUIHolds(const afx::CWnd* mainWnd) {
    if (mainWnd == nullptr)
        return false;
    auto view = reinterpret_cast<win::HWND>(win::GetProp(mainWnd->m_hWnd, "ProjectCmdUI"));
    return view != nullptr && win::IsWindow(view);
}

}  // namespace velorand
