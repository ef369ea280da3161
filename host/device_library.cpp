// The device library's requests (codes 314 and 315), for the Quintaris simulator only: a
// copy goes to the library's window when that is the active one, and a device selection
// to its window when it has one. Otherwise the hub answers as usual.
#include <cstdint>
#include <string>

#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "host/notify_codes.h"
#include "host/part_shelf.h"
#include "host/project_notify.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace velorand {

namespace {

constexpr win::UINT kShelfSelect = 0x464;
constexpr char kSelectArguments[] = "-d";

}  // namespace

win::BOOL CProjectDoc::OnDeviceLibrary(ProjectNotify* record) {
    const SimulatorInfo* chosen = ChosenSimulator();
    if ((chosen != nullptr ? chosen->GetDisplayName() : std::string("Quintaris")) != "Quintaris")
        return win::FALSE;
    win::HWND shelf = GetPartShelfHandle();
    if (record->code == kCodeCopyDevice) {
        const bool active = shelf != nullptr && shelf == win::GetActiveWindow();
        if (active)
            win::SendMessage(shelf, win::WM_COPY, 0, 0);
        if (auto* answer = reinterpret_cast<std::int32_t*>(record->argument))
            *answer = active ? 1 : 0;
        return active ? win::TRUE : win::FALSE;
    }
    if (shelf == nullptr || !win::IsWindow(shelf))
        return win::FALSE;
    win::SendMessage(shelf, kShelfSelect, 0, reinterpret_cast<win::LPARAM>(kSelectArguments));
    return win::TRUE;
}

}  // namespace velorand
