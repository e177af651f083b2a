#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace kavrin {

// File names are UTF-8 inside Kavrin. The system takes them as they are on Linux; Windows
// needs wide characters, since a narrow name there is read in the ANSI code page and loses
// every character outside it.

std::filesystem::path PathFromUtf8(const std::string& utf8);
std::string Utf8FromPath(const std::filesystem::path& path);
// fopen with a UTF-8 name; errno is set when it fails.
std::FILE* OpenFileUtf8(const std::string& path, const char* mode);
bool RemoveFileUtf8(const std::string& path);

#ifdef _WIN32
std::wstring WideFromUtf8(std::string_view utf8);
std::string Utf8FromWide(std::wstring_view wide);
#endif

} // namespace kavrin
