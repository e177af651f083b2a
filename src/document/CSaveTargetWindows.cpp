#ifdef _WIN32
#include "document/CSaveTarget.h"

#include <windows.h>

#include "core/modPaths.h"

namespace kavrin {

CSaveTarget::CSaveTarget(const std::string& path) : path_(path) {
    const std::wstring name = WideFromUtf8(path_);
    DWORD attributes = GetFileAttributesW(name.c_str());
    exists_ = attributes != INVALID_FILE_ATTRIBUTES;
    if (!exists_)
        return;
    mode_ = attributes;
    writeProtected_ = !(attributes & FILE_ATTRIBUTE_DIRECTORY) && (attributes & FILE_ATTRIBUTE_READONLY);
    HANDLE file = CreateFileW(name.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    BY_HANDLE_FILE_INFORMATION info{};
    if (GetFileInformationByHandle(file, &info))
        links_ = info.nNumberOfLinks;
    CloseHandle(file);
}

} // namespace kavrin
#endif
