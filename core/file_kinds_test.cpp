#include "core/file_kinds.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/testing/scripted_user.h"
#include "platform/win/message_box.h"

namespace velorand {
namespace {

TEST(FileKinds, NumbersWithoutKindGiveNull) {
    for (int index : {0, 7, 13, 17, 19, -1})
        EXPECT_EQ(GetFileExtension(index), nullptr) << index;
    EXPECT_STREQ(GetFileExtension(1), ".vpj");
    EXPECT_STREQ(GetFileExtension(12), ".ckt");
    EXPECT_STREQ(GetFileExtension(18), ".scf");
}

TEST(FileKinds, OutputFilesAreKnownByTheirLastFourCharacters) {
    EXPECT_TRUE(IsOutputFile("PROJECT.CKT"));
    EXPECT_TRUE(IsOutputFile("C:\\p\\amp.st%"));
    EXPECT_FALSE(IsOutputFile("x.ck"));
    EXPECT_FALSE(IsOutputFile("ckt"));
    EXPECT_FALSE(IsOutputFile(""));
    EXPECT_FALSE(IsOutputFile("amp.erc"));  // deleted with a project, never cleaned up
    EXPECT_TRUE(EndsInOneOf("amp.erc", ProjectOutputExtensions));
    EXPECT_FALSE(EndsInOneOf("amp.ckt", WritableOutputExtensions));
}

TEST(FileKinds, SameFileIsSameNameAndExtensionInAnyFolder) {
    EXPECT_EQ(CompareFileNames("C:\\a\\x.sch", "D:\\b\\X.SCH"), 0);
    EXPECT_EQ(CompareFileNames("a.sch", "a.sym"), -1);
    EXPECT_LT(CompareFileNames("C:\\a\\amp.sch", "C:\\a\\bias.sch"), 0);
    EXPECT_GT(CompareFileNames("C:\\a\\bias.sch", "C:\\a\\amp.sch"), 0);
}

TEST(FileKinds, ValidNamesPassWithoutAWord) {
    testing::ScriptedUser user;
    EXPECT_EQ(IsValidFileName("a_b-c"), 1);
    EXPECT_EQ(IsValidFileName(""), 1);
    EXPECT_EQ(IsValidFileName("..."), 1);  // forbidden characters alone: callers refuse it
    EXPECT_EQ(IsValidFileName(std::string(260, 'n').c_str()), 1);
    EXPECT_EQ(IsValidFileName(nullptr), 0);
    EXPECT_TRUE(user.Record().empty());
}

TEST(FileKinds, InvalidNamesAreRefusedWithTheirMessage) {
    testing::ScriptedUser user;
    user.Answer(win::IDOK).Answer(win::IDOK).Answer(win::IDOK).Answer(win::IDOK);
    EXPECT_EQ(IsValidFileName("a.b"), 0);
    EXPECT_EQ(IsValidFileName("a b"), 0);
    EXPECT_EQ(IsValidFileName(".a"), 0);
    std::string tooLong(261, 'n');
    EXPECT_EQ(IsValidFileName(tooLong.c_str()), 0);

    const auto& record = user.Record();
    ASSERT_EQ(record.size(), 4u);
    EXPECT_EQ(record[0].caption, "Velorand");
    EXPECT_EQ(record[0].flags, 0x30u);
    EXPECT_EQ(record[0].text,
              "a.b  is not valid filename. Filename must not contain spaces or the characters \n"
              " *(asterisk), ?(question mark), .(period), #(pound sign), +(plus sign).\n"
              " ?(question mark), :(colon), ;(semicolon), (double quotes), >(greater than sign)\n"
              " < (less than sign), |(bar sign), @(at sign)");
    EXPECT_EQ(record[3].text, tooLong + "\nThis filename has too many characters.");
}

}  // namespace
}  // namespace velorand
