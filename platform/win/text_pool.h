// Texts kept in large blocks that are freed all at once: a store of many short texts
// (the items of a big tree) that costs no allocation per text. A text stays valid until
// the pool is cleared; storing it again makes a new copy and leaves the old one unused.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace win {

class TextPool {
  public:
    // A copy of the text in the pool.
    std::string_view Store(std::string_view text);
    // Frees every text at once.
    void Clear();

  private:
    static constexpr std::size_t kBlock = 1 << 16;

    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t used_ = kBlock;  // bytes taken from the last block
};

}  // namespace win
