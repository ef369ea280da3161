#include "platform/afx/object.h"

namespace afx {

const CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), nullptr,
                                             nullptr};

CObject* CRuntimeClass::CreateObject() const {
    return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    for (const CRuntimeClass* c = this; c != nullptr; c = c->m_pBaseClass) {
        if (c == base) {
            return TRUE;
        }
    }
    return FALSE;
}

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

BOOL CObject::IsKindOf(const CRuntimeClass* cls) const {
    return GetRuntimeClass()->IsDerivedFrom(cls);
}

}  // namespace afx
