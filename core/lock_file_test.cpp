#include <gtest/gtest.h>

#include "core/project_doc.h"

namespace velorand {
namespace {

TEST(LockFileNameTest, TheLockKeepsTheLengthOfLongNamesAndPrefixesShortOnes) {
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\p\\abcdefghijk.vpj"), "C:\\p\\~%cdefghijk.vpj");
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\p\\abc.vpj"), "C:\\p\\~%abc.vpj");
    // Ten characters are short, eleven long.
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\abcdef.vpj"), "C:\\~%abcdef.vpj");
    EXPECT_EQ(CProjectDoc::GetLockFileName("C:\\abcdefg.vpj"), "C:\\~%cdefg.vpj");
    EXPECT_EQ(CProjectDoc::GetLockFileName("amp2.vpj"), "~%amp2.vpj");
}

}  // namespace
}  // namespace velorand
