#include "platform/afx/cmd_target.h"

namespace afx {

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {AFX_MSGMAP_ENTRY{}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* e = map->lpEntries; e->pfnCommand || e->pfnUpdate; ++e) {
            if (e->nCode != nCode || nID < e->nID || nID > e->nLastID) {
                continue;
            }
            if (pHandlerInfo != nullptr) {
                pHandlerInfo->pTarget = this;
                pHandlerInfo->pmf = e->pfnCommand;
                return TRUE;
            }
            if (nCode == CN_UPDATE_COMMAND_UI) {
                if (pExtra == nullptr) {
                    return FALSE;
                }
                (this->*(e->pfnUpdate))(static_cast<CCmdUI*>(pExtra));
            } else {
                (this->*(e->pfnCommand))();
            }
            return TRUE;
        }
    }
    return FALSE;
}

}  // namespace afx
