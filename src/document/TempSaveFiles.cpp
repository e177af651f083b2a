#include "document/TempSaveFiles.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "core/modPaths.h"
#include "document/modFilePlatform.h"

namespace kavrin {

namespace {

constexpr std::string_view kPrefix = ".kavrin-speichern-";

// The machine's name as it may stand in a file name.
std::string HostName() {
    std::string host = MachineName();
    if (host.empty())
        return "rechner";
    for (char& c : host)
        if (c == '-' || c == '/' || c == '\\' || c == '.' || c == ':')
            c = '_';
    return host;
}

// The process id a temporary file of this machine names; 0 for anything else.
uint32_t ProcessOf(std::string_view fileName, const std::string& host) {
    if (fileName.substr(0, kPrefix.size()) != kPrefix)
        return 0;
    fileName.remove_prefix(kPrefix.size());
    if (fileName.substr(0, host.size()) != host || fileName.size() <= host.size() ||
        fileName[host.size()] != '-')
        return 0;
    fileName.remove_prefix(host.size() + 1);
    size_t dash = fileName.find('-');
    if (dash == 0 || dash == std::string_view::npos)
        return 0;
    uint32_t pid = 0;
    for (char c : fileName.substr(0, dash)) {
        if (c < '0' || c > '9' || pid > 100000000)
            return 0;
        pid = pid * 10 + (c - '0');
    }
    return pid;
}

} // namespace

std::string TempSaveFilePattern(const std::string& folder) {
    return Utf8FromPath(PathFromUtf8(folder) / (std::string(kPrefix) + HostName() + "-" +
                                                std::to_string(CurrentProcessId()) + "-XXXXXX"));
}

int RemoveStaleTempSaveFiles(const std::string& folder) {
    const std::string host = HostName();
    int removed = 0;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(PathFromUtf8(folder), ec), end; !ec && it != end;
         it.increment(ec)) {
        uint32_t pid = ProcessOf(Utf8FromPath(it->path().filename()), host);
        const std::string path = Utf8FromPath(it->path());
        // Only plain files of this user: a shared folder's other files are none of its business.
        if (pid == 0 || !IsOwnPlainFile(path) || !ProcessEnded(pid))
            continue;
        if (RemoveFileUtf8(path))
            ++removed;
    }
    return removed;
}

} // namespace kavrin
