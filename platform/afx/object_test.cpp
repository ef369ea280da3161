#include "platform/afx/object.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/afx/cmd_target.h"
#include "platform/afx/document.h"
#include "platform/afx/view.h"

namespace afx {
namespace {

class CSketchDoc : public CDocument {
    DECLARE_DYNCREATE(CSketchDoc)
};
IMPLEMENT_DYNCREATE(CSketchDoc, CDocument)

TEST(RuntimeClassTest, ClassesKnowTheirNameBaseAndMaker) {
    CSketchDoc doc;
    const CRuntimeClass* cls = doc.GetRuntimeClass();
    EXPECT_STREQ(cls->m_lpszClassName, "CSketchDoc");
    EXPECT_STREQ(cls->m_pBaseClass->m_lpszClassName, "CDocument");
    EXPECT_STREQ(cls->m_pBaseClass->m_pBaseClass->m_lpszClassName, "CCmdTarget");
    EXPECT_TRUE(doc.IsKindOf(RUNTIME_CLASS(CDocument)));
    EXPECT_TRUE(doc.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(doc.IsKindOf(RUNTIME_CLASS(CView)));

    std::unique_ptr<CObject> made(RUNTIME_CLASS(CSketchDoc)->CreateObject());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), RUNTIME_CLASS(CSketchDoc));
    EXPECT_EQ(RUNTIME_CLASS(CDocument)->CreateObject(), nullptr);  // no dynamic creation
}

}  // namespace
}  // namespace afx
