#include "app/project_owner.h"

#include <cstring>

#include "platform/afx/win_app.h"
#include "platform/afx/wnd.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"
#include "platform/win/window_props.h"

namespace velorand::host {

win::HWND FindProjectOwner(win::HWND owner) {
    if (owner != nullptr && win::IsWindow(owner)) {
        return owner;
    }
    afx::CWnd* main = afx::AfxGetMainWnd();
    if (main == nullptr) {
        return nullptr;
    }
    auto project = reinterpret_cast<win::HWND>(win::GetProp(main->m_hWnd, "Project"));
    return project != nullptr && win::IsWindow(project) ? project : nullptr;
}

NotifyOutcome NotifyProject(win::HWND owner, win::HWND from, int sender, win::UINT code,
                            afx::CDocument* document, int option, win::LPARAM argument) {
    win::HWND target = FindProjectOwner(owner);
    if (target == nullptr) {
        return {};
    }
    ProjectNotify record;
    std::memset(static_cast<void*>(&record), 0,
                sizeof record);  // the padding too: the record goes out whole
    record.hwndFrom = from;
    record.idFrom = static_cast<win::UINT_PTR>(sender);
    record.code = code;
    record.document = document;
    record.option = option;
    record.argument = argument;
    win::SendMessage(target, win::WM_NOTIFY, record.idFrom, reinterpret_cast<win::LPARAM>(&record));
    return {true, record.result};
}

}  // namespace velorand::host
