#include "document/CFileBytes.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/modTools.h"

namespace kavrin {

namespace {
size_t PageSize() {
    static const size_t size = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

class FileHandle {
public:
    explicit FileHandle(const std::string& path) : fd_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~FileHandle() {
        if (fd_ >= 0)
            close(fd_);
    }
    int Fd() const { return fd_; }

private:
    int fd_;
};
} // namespace

CFileBytes::~CFileBytes() {
    Free();
}

// Anonymous memory instead of a file mapping: the file may change on disk while it is read,
// and the pages already parsed can be given back with madvise.
void CFileBytes::Allocate(size_t size) {
    Free();
    capacity_ = size == 0 ? 1 : size;
    void* memory = mmap(nullptr, capacity_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        memory = std::malloc(capacity_);
        if (!memory)
            throw std::bad_alloc();
        mapped_ = false;
    } else {
        mapped_ = true;
    }
    data_ = static_cast<char*>(memory);
    size_ = size;
    released_ = 0;
}

void CFileBytes::Free() {
    if (!data_)
        return;
    if (mapped_)
        munmap(data_, capacity_);
    else
        std::free(data_);
    data_ = nullptr;
    size_ = capacity_ = released_ = 0;
}

bool CFileBytes::Read(const std::string& path, std::string& error) {
    FileHandle file(path);
    struct stat info {};
    if (file.Fd() < 0 || fstat(file.Fd(), &info) != 0) {
        error = SystemErrorText(errno);
        return false;
    }
    if (!S_ISREG(info.st_mode)) {
        error = FormatMessage("Das ist keine gewöhnliche Datei.");
        return false;
    }
    Allocate(static_cast<size_t>(info.st_size));
    size_t done = 0;
    while (done < size_) {
        ssize_t got = read(file.Fd(), data_ + done, size_ - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) {
            error = got < 0 ? SystemErrorText(errno)
                            : FormatMessage("Die Datei wurde während des Lesens kürzer.");
            Free();
            return false;
        }
        done += static_cast<size_t>(got);
    }
    return true;
}

void CFileBytes::Assign(const char* data, size_t size) {
    Allocate(size);
    if (size > 0)
        std::memcpy(data_, data, size);
}

void CFileBytes::ReleaseBefore(size_t end) {
    if (!mapped_ || end > size_)
        return;
    size_t page = PageSize();
    size_t from = (released_ + page - 1) / page * page;
    size_t to = end / page * page;
    if (to <= from)
        return;
    madvise(data_ + from, to - from, MADV_DONTNEED);
    released_ = to;
}

} // namespace kavrin
