#include "tools/line_reader.h"

#include <cstring>

namespace velorand {

LineReader::LineReader(std::istream& stream) : stream_(stream), block_(new char[kBlock]) {}

bool LineReader::Fill() {
    std::memmove(block_.get(), block_.get() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    stream_.read(block_.get() + end_, static_cast<std::streamsize>(kBlock - end_));
    std::size_t got = static_cast<std::size_t>(stream_.gcount());
    end_ += got;
    return got > 0;
}

bool LineReader::Next(char* line, std::size_t size, std::size_t& lineLength) {
    line[0] = '\0';
    lineLength = 0;
    if (ended_)
        return false;
    for (;;) {
        char* start = block_.get() + begin_;
        std::size_t available = end_ - begin_;
        auto* newline = static_cast<char*>(std::memchr(start, '\n', available));
        std::size_t length =
            newline != nullptr ? static_cast<std::size_t>(newline - start) : available;
        // Without its end in the block a line that still fits is read on; the block holds
        // far more than a line, so a longer one is too long whatever follows.
        if (newline == nullptr && length <= size) {
            if (Fill())
                continue;
            if (available == 0) {
                ended_ = true;
                return false;
            }
            start = block_.get() + begin_;  // the rest was moved to the block's front
        }
        std::size_t take = length;
        if (take > 0 && start[take - 1] == '\r')
            --take;
        if (take >= size) {
            ended_ = true;
            return false;
        }
        std::memcpy(line, start, take);
        line[take] = '\0';
        lineLength = take;
        begin_ += newline != nullptr ? length + 1 : length;
        return true;
    }
}

}  // namespace velorand
