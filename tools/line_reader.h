// Lines of a text stream read a block at a time into the caller's line buffer: one pass,
// forward, with a memchr per line where a stream's own line extraction pays its checks
// on every call. A line that doesn't fit the buffer ends the reading as the end of the
// stream does; CR LF and LF ends are both taken.
#pragma once

#include <cstddef>
#include <istream>
#include <memory>

namespace velorand {

class LineReader {
  public:
    explicit LineReader(std::istream& stream);

    // The next line into `line` (at most size - 1 characters and a zero) and its length;
    // false, with an empty line, at the end or at a line too long for the buffer, and from
    // then on.
    bool Next(char* line, std::size_t size, std::size_t& length);

  private:
    static constexpr std::size_t kBlock = 1 << 16;
    bool Fill();

    std::istream& stream_;
    std::unique_ptr<char[]> block_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool ended_ = false;
};

}  // namespace velorand
