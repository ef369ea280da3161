#include "platform/win/text_pool.h"

#include <cstring>

namespace win {

std::string_view TextPool::Store(std::string_view text) {
    if (text.empty())
        return std::string_view();
    char* place;
    if (text.size() > kBlock / 4) {
        // A long text gets a block of its own, before the one still being filled.
        auto own = std::make_unique_for_overwrite<char[]>(text.size());
        place = own.get();
        blocks_.insert(blocks_.empty() ? blocks_.end() : blocks_.end() - 1, std::move(own));
    } else {
        if (kBlock - used_ < text.size()) {
            blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlock));
            used_ = 0;
        }
        place = blocks_.back().get() + used_;
        used_ += text.size();
    }
    std::memcpy(place, text.data(), text.size());
    return std::string_view(place, text.size());
}

void TextPool::Clear() {
    blocks_.clear();
    used_ = kBlock;
}

}  // namespace win
