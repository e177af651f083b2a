#ifndef _WIN32
#include "document/CFileBytes.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/modTools.h"
#include "document/FileReadProblems.h"

namespace kavrin {

namespace {
size_t PageSize() {
    static const size_t size = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

class FileHandle {
public:
    explicit FileHandle(const std::string& path)
        : fd_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~FileHandle() {
        if (fd_ >= 0)
            close(fd_);
    }
    int Fd() const { return fd_; }

private:
    int fd_;
};
} // namespace

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
        storage_ = Storage::Heap;
    } else {
        storage_ = Storage::Pages;
    }
    data_ = static_cast<char*>(memory);
    size_ = size;
    released_ = 0;
}

void CFileBytes::Free() {
    if (!data_)
        return;
    if (storage_ != Storage::Heap)
        munmap(data_, capacity_);
    else
        std::free(data_);
    data_ = nullptr;
    size_ = capacity_ = released_ = 0;
}

namespace {
FileKind KindOf(const struct stat& info) {
    if (S_ISREG(info.st_mode))
        return FileKind::Regular;
    if (S_ISDIR(info.st_mode))
        return FileKind::Directory;
    if (S_ISFIFO(info.st_mode))
        return FileKind::Fifo;
    if (S_ISCHR(info.st_mode) || S_ISBLK(info.st_mode))
        return FileKind::Device;
    if (S_ISSOCK(info.st_mode))
        return FileKind::Socket;
    return FileKind::Other;
}
} // namespace

// The kind of file is tested before it is opened: opening a named pipe would wait for a writer.
bool CFileBytes::Read(const std::string& path, std::string& error) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        error = OpenProblem(path, errno, false);
        return false;
    }
    error = KindProblem(path, KindOf(info));
    if (!error.empty())
        return false;
    FileHandle file(path);
    if (file.Fd() < 0 || fstat(file.Fd(), &info) != 0) {
        error = OpenProblem(path, errno, true);
        return false;
    }
    error = KindProblem(path, KindOf(info));
    if (!error.empty())
        return false;
    try {
        Allocate(static_cast<size_t>(info.st_size));
    } catch (const std::bad_alloc&) {
        error = OpenProblem(path, ENOMEM, true);
        return false;
    }
    size_t done = 0;
    while (done < size_) {
        ssize_t got = read(file.Fd(), data_ + done, size_ - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) {
            error = got < 0 ? OpenProblem(path, errno, true)
                            : FormatMessage("Die Datei%n%1%nwurde während des Lesens kürzer.", path);
            Free();
            return false;
        }
        done += static_cast<size_t>(got);
    }
    return true;
}

bool CFileBytes::Map(const std::string& path, std::string& error) {
    Free();
    FileHandle file(path);
    struct stat info {};
    if (file.Fd() < 0 || fstat(file.Fd(), &info) != 0) {
        error = OpenProblem(path, errno, true);
        return false;
    }
    size_t size = static_cast<size_t>(info.st_size);
    void* memory = size == 0 ? MAP_FAILED : mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.Fd(), 0);
    if (memory == MAP_FAILED)
        return Read(path, error);
    data_ = static_cast<char*>(memory);
    size_ = capacity_ = size;
    released_ = 0;
    storage_ = Storage::FileView;
    return true;
}

void CFileBytes::ReleaseBefore(size_t end) {
    if (storage_ == Storage::Heap || end > size_)
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
#endif
