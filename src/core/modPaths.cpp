#include "core/modPaths.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace kavrin {

std::filesystem::path PathFromUtf8(const std::string& utf8) {
    return std::filesystem::path(std::u8string(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size()));
}

std::string Utf8FromPath(const std::filesystem::path& path) {
    std::u8string text = path.u8string();
    return std::string(reinterpret_cast<const char*>(text.data()), text.size());
}

#ifdef _WIN32
std::wstring WideFromUtf8(std::string_view utf8) {
    if (utf8.empty())
        return {};
    int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), length);
    return wide;
}

std::string Utf8FromWide(std::wstring_view wide) {
    if (wide.empty())
        return {};
    int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0,
                                     nullptr, nullptr);
    std::string utf8(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(), length, nullptr,
                        nullptr);
    return utf8;
}

std::FILE* OpenFileUtf8(const std::string& path, const char* mode) {
    return _wfopen(WideFromUtf8(path).c_str(), WideFromUtf8(mode).c_str());
}

bool RemoveFileUtf8(const std::string& path) {
    return _wremove(WideFromUtf8(path).c_str()) == 0;
}
#else
std::FILE* OpenFileUtf8(const std::string& path, const char* mode) {
    return std::fopen(path.c_str(), mode);
}

bool RemoveFileUtf8(const std::string& path) {
    return std::remove(path.c_str()) == 0;
}
#endif

} // namespace kavrin
