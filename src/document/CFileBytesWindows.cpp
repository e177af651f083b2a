#ifdef _WIN32
#include "document/CFileBytes.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <windows.h>

#include "core/modPaths.h"
#include "core/modTools.h"
#include "document/FileReadProblems.h"
#include "document/modFilePlatform.h"

namespace kavrin {

namespace {
size_t PageSize() {
    static const size_t size = [] {
        SYSTEM_INFO info{};
        GetSystemInfo(&info);
        return static_cast<size_t>(info.dwPageSize);
    }();
    return size;
}

class FileHandle {
public:
    explicit FileHandle(const std::wstring& name)
        : handle_(CreateFileW(name.c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {}
    ~FileHandle() {
        if (Valid())
            CloseHandle(handle_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    bool Valid() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

FileKind KindOf(HANDLE file) {
    switch (GetFileType(file)) {
    case FILE_TYPE_DISK:
        return FileKind::Regular;
    case FILE_TYPE_PIPE:
        return FileKind::Fifo;
    case FILE_TYPE_CHAR:
        return FileKind::Device;
    default:
        return FileKind::Other;
    }
}

int LastErrno() {
    return ErrnoFromWindowsError(GetLastError());
}
} // namespace

void CFileBytes::Allocate(size_t size) {
    Free();
    capacity_ = size == 0 ? 1 : size;
    void* memory = VirtualAlloc(nullptr, capacity_, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    storage_ = Storage::Pages;
    if (!memory) {
        memory = std::malloc(capacity_);
        if (!memory)
            throw std::bad_alloc();
        storage_ = Storage::Heap;
    }
    data_ = static_cast<char*>(memory);
    size_ = size;
    released_ = 0;
}

void CFileBytes::Free() {
    if (!data_)
        return;
    if (storage_ == Storage::Pages)
        VirtualFree(data_, 0, MEM_RELEASE);
    else if (storage_ == Storage::FileView)
        UnmapViewOfFile(data_);
    else
        std::free(data_);
    data_ = nullptr;
    size_ = capacity_ = released_ = 0;
}

// The kind of file is tested before it is read: a named pipe would wait for a writer.
bool CFileBytes::Read(const std::string& path, std::string& error) {
    const std::wstring name = WideFromUtf8(path);
    DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        error = OpenProblem(path, LastErrno(), false);
        return false;
    }
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        error = KindProblem(path, FileKind::Directory);
        return false;
    }
    FileHandle file(name);
    LARGE_INTEGER size{};
    if (!file.Valid()) {
        error = OpenProblem(path, LastErrno(), true);
        return false;
    }
    error = KindProblem(path, KindOf(file.Get()));
    if (!error.empty())
        return false;
    if (!GetFileSizeEx(file.Get(), &size)) {
        error = OpenProblem(path, LastErrno(), true);
        return false;
    }
    try {
        Allocate(static_cast<size_t>(size.QuadPart));
    } catch (const std::bad_alloc&) {
        error = OpenProblem(path, ENOMEM, true);
        return false;
    }
    size_t done = 0;
    while (done < size_) {
        DWORD chunk = static_cast<DWORD>(std::min<size_t>(size_ - done, 1u << 30));
        DWORD got = 0;
        if (!ReadFile(file.Get(), data_ + done, chunk, &got, nullptr) || got == 0) {
            error = got == 0 && GetLastError() == ERROR_SUCCESS
                        ? FormatMessage("Die Datei%n%1%nwurde während des Lesens kürzer.", path)
                        : OpenProblem(path, LastErrno(), true);
            Free();
            return false;
        }
        done += got;
    }
    return true;
}

bool CFileBytes::Map(const std::string& path, std::string& error) {
    Free();
    FileHandle file(WideFromUtf8(path));
    LARGE_INTEGER size{};
    if (!file.Valid() || !GetFileSizeEx(file.Get(), &size)) {
        error = OpenProblem(path, LastErrno(), true);
        return false;
    }
    if (size.QuadPart == 0)
        return Read(path, error);
    HANDLE mapping = CreateFileMappingW(file.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr);
    void* view = mapping ? MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0) : nullptr;
    // The view keeps the mapping alive on its own.
    if (mapping)
        CloseHandle(mapping);
    if (!view)
        return Read(path, error);
    data_ = static_cast<char*>(view);
    size_ = capacity_ = static_cast<size_t>(size.QuadPart);
    released_ = 0;
    storage_ = Storage::FileView;
    return true;
}

// Pages of the file's view are taken out of the working set (they are read from the file
// again if ever touched); anonymous pages are marked as no longer needed, so the system drops
// them instead of writing them to the page file.
void CFileBytes::ReleaseBefore(size_t end) {
    if (storage_ == Storage::Heap || end > size_)
        return;
    size_t page = PageSize();
    size_t from = (released_ + page - 1) / page * page;
    size_t to = end / page * page;
    if (to <= from)
        return;
    if (storage_ == Storage::FileView)
        VirtualUnlock(data_ + from, to - from);
    else
        VirtualAlloc(data_ + from, to - from, MEM_RESET, PAGE_READWRITE);
    released_ = to;
}

} // namespace kavrin
#endif
