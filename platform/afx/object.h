// Runtime classes: every framework object can tell its class by name, walk its chain of
// base classes, and, for classes with dynamic creation, be made from its class alone (a
// document template makes documents, frames and views that way).
//
//   class CMyDoc : public afx::CDocument {
//       DECLARE_DYNCREATE(CMyDoc)
//   };
//   IMPLEMENT_DYNCREATE(CMyDoc, afx::CDocument)      // in the .cpp file
#pragma once

#include "platform/win/types.h"

namespace afx {

using win::BOOL;
using win::FALSE;
using win::TRUE;
using win::UINT;

class CObject;

struct CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;
    CObject* (*m_pfnCreateObject)();  // null without dynamic creation
    const CRuntimeClass* m_pBaseClass;

    // A new object of the class, or null when the class has no dynamic creation.
    CObject* CreateObject() const;
    BOOL IsDerivedFrom(const CRuntimeClass* base) const;
};

class CObject {
  public:
    virtual ~CObject() = default;
    virtual const CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* cls) const;

    static const CRuntimeClass classCObject;

  protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

}  // namespace afx

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                      \
  public:                                                \
    static const ::afx::CRuntimeClass class##class_name; \
    const ::afx::CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name)       \
    static ::afx::CObject* CreateObject();

#define IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, create)  \
    const ::afx::CRuntimeClass class_name::class##class_name = {      \
        #class_name, static_cast<int>(sizeof(class_name)), create,    \
        RUNTIME_CLASS(base_class_name)};                              \
    const ::afx::CRuntimeClass* class_name::GetRuntimeClass() const { \
        return RUNTIME_CLASS(class_name);                             \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) \
    ::afx::CObject* class_name::CreateObject() {         \
        return new class_name;                           \
    }                                                    \
    IMPLEMENT_RUNTIMECLASS_(class_name, base_class_name, &class_name::CreateObject)
