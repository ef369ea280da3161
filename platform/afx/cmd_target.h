// Command targets and their command tables. A command (a menu item, a button, a posted
// WM_COMMAND) is offered along a route of targets through OnCmdMsg; the first whose table
// (or whose override of OnCmdMsg) takes it handles it. The same route answers command
// state queries: code CN_UPDATE_COMMAND_UI with a CCmdUI (cmd_ui.h) in pExtra.
//
// A class's table lists its entries; its base class's table is searched after it:
//
//   class CMyDoc : public afx::CDocument {
//       void OnSave();
//       void OnUpdateSave(afx::CCmdUI* ui);
//       DECLARE_MESSAGE_MAP()
//   };
//   BEGIN_MESSAGE_MAP(CMyDoc, afx::CDocument)      // in the .cpp file
//       ON_COMMAND(26456, OnSave)
//       ON_UPDATE_COMMAND_UI(26456, OnUpdateSave)
//   END_MESSAGE_MAP()
#pragma once

#include "platform/afx/object.h"

namespace afx {

class CCmdTarget;
class CCmdUI;

inline constexpr int CN_COMMAND = 0;
inline constexpr int CN_UPDATE_COMMAND_UI = -1;

using AFX_PMSG = void (CCmdTarget::*)();
using AFX_PUPDATE = void (CCmdTarget::*)(CCmdUI*);

struct AFX_MSGMAP_ENTRY {
    int nCode = CN_COMMAND;  // CN_COMMAND, CN_UPDATE_COMMAND_UI or a control's code
    UINT nID = 0;
    UINT nLastID = 0;
    AFX_PMSG pfnCommand = nullptr;
    AFX_PUPDATE pfnUpdate = nullptr;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // null at CCmdTarget
    const AFX_MSGMAP_ENTRY* lpEntries;     // ends with an entry without handler
};

// Filled instead of calling the handler, when a caller only asks who would handle.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget = nullptr;
    AFX_PMSG pmf = nullptr;
};

class CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)
  public:
    // Offers the command to this target's table. For CN_UPDATE_COMMAND_UI pExtra is the
    // CCmdUI; with pHandlerInfo set, the handler is named there and not called. Derived
    // classes extend the route by overriding this and asking further targets.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  protected:
    virtual const AFX_MSGMAP* GetMessageMap() const;
    static const AFX_MSGMAP* GetThisMessageMap();
};

template <class T>
AFX_MSGMAP_ENTRY CommandEntry_(int code, UINT first, UINT last, void (T::*fn)()) {
    return AFX_MSGMAP_ENTRY{code, first, last, static_cast<AFX_PMSG>(fn), nullptr};
}

template <class T>
AFX_MSGMAP_ENTRY UpdateEntry_(UINT first, UINT last, void (T::*fn)(CCmdUI*)) {
    return AFX_MSGMAP_ENTRY{CN_UPDATE_COMMAND_UI, first, last, nullptr,
                            static_cast<AFX_PUPDATE>(fn)};
}

}  // namespace afx

#define DECLARE_MESSAGE_MAP()                            \
  protected:                                             \
    static const ::afx::AFX_MSGMAP* GetThisMessageMap(); \
    const ::afx::AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(the_class, base_class)                \
    const ::afx::AFX_MSGMAP* the_class::GetMessageMap() const { \
        return GetThisMessageMap();                             \
    }                                                           \
    const ::afx::AFX_MSGMAP* the_class::GetThisMessageMap() {   \
        using ThisClass = the_class;                            \
        using TheBaseClass = base_class;                        \
        static const ::afx::AFX_MSGMAP_ENTRY entries[] = {
#define ON_COMMAND(id, member) \
    ::afx::CommandEntry_<ThisClass>(::afx::CN_COMMAND, id, id, &ThisClass::member),
#define ON_CONTROL(code, id, member) \
    ::afx::CommandEntry_<ThisClass>(code, id, id, &ThisClass::member),
#define ON_UPDATE_COMMAND_UI(id, member) ::afx::UpdateEntry_<ThisClass>(id, id, &ThisClass::member),
#define END_MESSAGE_MAP()                                                             \
    ::afx::AFX_MSGMAP_ENTRY {}                                                        \
    }                                                                                 \
    ;                                                                                 \
    static const ::afx::AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries}; \
    return &map;                                                                      \
    }
