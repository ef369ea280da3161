#include "tools/record_index.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>

namespace velorand {
namespace {

TEST(RecordIndexTest, EachKeyHasOnePlaceThatHoldsThroughGrowth) {
    RecordIndex index;
    EXPECT_EQ(index.Find("amp"), nullptr);
    std::deque<SchematicNode> records(5000);
    for (int i = 0; i < 5000; ++i) {
        std::string key = "sheet" + std::to_string(i);
        SchematicNode*& place = index.Place(key, RecordIndex::Hash(key));
        ASSERT_EQ(place, nullptr) << i;
        place = &records[i];
    }
    for (int i = 0; i < 5000; ++i) {
        std::string key = "sheet" + std::to_string(i);
        ASSERT_EQ(index.Find(key), &records[i]) << key;
        ASSERT_EQ(index.Place(key, RecordIndex::Hash(key)), &records[i]) << key;
    }
    // Long keys as well as short ones.
    std::string longKey(300, 'x');
    SchematicNode longRecord;
    index.Place(longKey, RecordIndex::Hash(longKey)) = &longRecord;
    EXPECT_EQ(index.Find(longKey), &longRecord);
    EXPECT_EQ(index.Find(std::string(299, 'x')), nullptr);
    EXPECT_EQ(index.Find("sheet4999"), &records[4999]);
    // Keys are compared whole and as they are: no prefix, extension or other case matches.
    EXPECT_EQ(index.Find("sheet"), nullptr);
    EXPECT_EQ(index.Find("sheet10 "), nullptr);
    EXPECT_EQ(index.Find("Sheet10"), nullptr);
    EXPECT_EQ(index.Find(""), nullptr);
}

}  // namespace
}  // namespace velorand
