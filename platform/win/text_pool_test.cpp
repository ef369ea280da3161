#include "platform/win/text_pool.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(TextPoolTest, TextsStayIntactAcrossBlocksUntilTheClear) {
    win::TextPool pool;
    std::vector<std::string> given;
    std::vector<std::string_view> stored;
    // Enough texts to fill several blocks, with long ones between them that get blocks of
    // their own, and an empty one.
    for (int i = 0; i < 20000; ++i) {
        std::string text = "item" + std::to_string(i);
        if (i % 5000 == 1)
            text = std::string(70000, static_cast<char>('a' + i % 26));
        if (i == 7)
            text.clear();
        given.push_back(text);
        stored.push_back(pool.Store(given.back()));
    }
    for (std::size_t i = 0; i < given.size(); ++i)
        ASSERT_EQ(stored[i], given[i]) << i;
    // A copy, not the caller's text.
    std::string changing = "before";
    std::string_view kept = pool.Store(changing);
    changing = "after!";
    EXPECT_EQ(kept, "before");

    pool.Clear();
    EXPECT_EQ(pool.Store("again"), "again");
}

}  // namespace
