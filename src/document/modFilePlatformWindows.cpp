#ifdef _WIN32
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <random>
#include <windows.h>

#include "core/modPaths.h"
#include "document/CSaveTarget.h"
#include "document/modFilePlatform.h"

namespace kavrin {

int ErrnoFromWindowsError(unsigned long error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
        return EACCES;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return EBUSY;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_COMMITMENT_LIMIT:
        return ENOMEM;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_TOO_MANY_OPEN_FILES:
        return EMFILE;
    case ERROR_DIRECTORY:
        return ENOTDIR;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_NOT_SAME_DEVICE:
        return EXDEV;
    case ERROR_FILE_TOO_LARGE:
        return EFBIG;
    default:
        return EIO;
    }
}

namespace {
int LastErrno() {
    return ErrnoFromWindowsError(GetLastError());
}

std::string RandomSuffix(std::mt19937& random) {
    static const char letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::string suffix;
    for (int i = 0; i < 6; ++i)
        suffix += letters[random() % (sizeof letters - 1)];
    return suffix;
}
} // namespace

std::FILE* CreateTempSaveFile(const std::string& pattern, std::string& path, int& error) {
    const std::string stem = pattern.substr(0, pattern.size() - 6);
    std::mt19937 random(std::random_device{}());
    HANDLE handle = INVALID_HANDLE_VALUE;
    for (int attempt = 0; attempt < 100 && handle == INVALID_HANDLE_VALUE; ++attempt) {
        path = stem + RandomSuffix(random);
        handle = CreateFileW(WideFromUtf8(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                             nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS) {
            error = LastErrno();
            return nullptr;
        }
    }
    if (handle == INVALID_HANDLE_VALUE) {
        error = EEXIST;
        return nullptr;
    }
    int fd = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_BINARY | _O_WRONLY);
    std::FILE* file = fd < 0 ? nullptr : _fdopen(fd, "wb");
    if (!file) {
        error = errno;
        if (fd >= 0)
            _close(fd);
        else
            CloseHandle(handle);
        RemoveFileUtf8(path);
    }
    return file;
}

int FinishTempSaveFile(std::FILE* file, const CSaveTarget&) {
    if (std::fflush(file) != 0)
        return errno;
    HANDLE handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    if (!FlushFileBuffers(handle))
        return LastErrno();
    return 0;
}

// ReplaceFileW keeps the old file's attributes, security and creation time; where it is not
// available (some network shares) a plain move takes its place. A write-protected file (whose
// replacement the user confirmed) loses the flag for the move and gets it back afterwards.
int ReplaceWithTempSaveFile(const std::string& tempPath, const CSaveTarget& target) {
    const std::wstring temp = WideFromUtf8(tempPath);
    const std::wstring path = WideFromUtf8(target.Path());
    const DWORD attributes = target.Mode();
    const bool readOnly = target.Exists() && (attributes & FILE_ATTRIBUTE_READONLY);
    if (readOnly)
        SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    bool replaced = target.Exists() && ReplaceFileW(path.c_str(), temp.c_str(), nullptr,
                                                    REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr);
    if (!replaced &&
        !MoveFileExW(temp.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        int error = LastErrno();
        if (readOnly)
            SetFileAttributesW(path.c_str(), attributes);
        return error;
    }
    if (readOnly)
        SetFileAttributesW(path.c_str(), attributes);
    return 0;
}

std::string MachineName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    if (!GetComputerNameW(name, &size))
        return {};
    return Utf8FromWide(std::wstring_view(name, size));
}

uint32_t CurrentProcessId() {
    return GetCurrentProcessId();
}

bool ProcessEnded(uint32_t pid) {
    HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid);
    if (!process)
        return GetLastError() == ERROR_INVALID_PARAMETER;
    DWORD code = 0;
    bool ended = GetExitCodeProcess(process, &code) && code != STILL_ACTIVE;
    CloseHandle(process);
    return ended;
}

// Windows keeps a user's files in folders of their own; only the kind is checked.
bool IsOwnPlainFile(const std::string& path) {
    DWORD attributes = GetFileAttributesW(WideFromUtf8(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           !(attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DEVICE));
}

} // namespace kavrin
#endif
