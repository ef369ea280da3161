// The highest "_lib<number>" in the project's schematics, so that the host can hand out
// names for new library parts that no schematic uses yet.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>

#include "core/project_doc.h"
#include "platform/win/paths.h"

namespace velorand {

namespace {

// One buffer for all the files of a scan, grown to the largest and never cleared.
class FileText {
  public:
    // Reads the file whole and ends it with a zero byte; false when it can't be read.
    bool Read(const std::string& platformPath) {
        std::optional<std::string> posix = win::PosixPath(platformPath);
        if (!posix)
            return false;
        int fd = ::open(posix->c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return false;
        struct stat info;
        size_ = 0;
        Reserve(::fstat(fd, &info) == 0 ? static_cast<std::size_t>(info.st_size) + 1 : 4096);
        ssize_t got;
        while ((got = ::read(fd, data_.get() + size_, capacity_ - size_ - 1)) > 0) {
            size_ += static_cast<std::size_t>(got);
            if (size_ + 1 == capacity_)
                Reserve(capacity_ * 2);
        }
        ::close(fd);
        data_[size_] = '\0';
        return got == 0;
    }

    const char* Data() const { return data_.get(); }

  private:
    void Reserve(std::size_t capacity) {
        if (capacity <= capacity_)
            return;
        std::unique_ptr<char[]> bigger(new char[capacity]);
        if (size_ != 0)
            std::memcpy(bigger.get(), data_.get(), size_);
        data_ = std::move(bigger);
        capacity_ = capacity;
    }

    std::unique_ptr<char[]> data_;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
};

}  // namespace

void CProjectDoc::ScanLibIndexes() {
    static constexpr char kMark[] = "_lib";
    FileText text;
    for (const auto& [key, record] : schematics) {
        if (!text.Read(record.path))
            continue;
        // The text counts up to its first zero byte.
        const char* at = text.Data();
        const char* end = at + std::strlen(at);
        while (const char* hit = static_cast<const char*>(
                   memmem(at, static_cast<std::size_t>(end - at), kMark, sizeof kMark - 1))) {
            at = hit + sizeof kMark - 1;
            long number = std::strtol(at, nullptr, 10);
            if (number > lastLibIndex)
                lastLibIndex = number > INT_MAX ? INT_MAX : static_cast<int>(number);
        }
    }
}

int CProjectDoc::NextLibIndex() {
    if (lastLibIndex < INT_MAX)
        ++lastLibIndex;
    return lastLibIndex;
}

}  // namespace velorand
