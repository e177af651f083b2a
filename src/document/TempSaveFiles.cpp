#include "document/TempSaveFiles.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace kavrin {

namespace {

constexpr std::string_view kPrefix = ".kavrin-speichern-";

// The machine's name as it may stand in a file name.
std::string HostName() {
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0 || name[0] == '\0')
        return "rechner";
    std::string host(name);
    for (char& c : host)
        if (c == '-' || c == '/' || c == '.')
            c = '_';
    return host;
}

// The process id a temporary file of this machine names; 0 for anything else.
pid_t ProcessOf(std::string_view fileName, const std::string& host) {
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
    pid_t pid = 0;
    for (char c : fileName.substr(0, dash)) {
        if (c < '0' || c > '9' || pid > 100000000)
            return 0;
        pid = pid * 10 + (c - '0');
    }
    return pid;
}

bool ProcessGone(pid_t pid) {
    return ::kill(pid, 0) != 0 && errno == ESRCH;
}

} // namespace

std::string TempSaveFilePattern(const std::string& folder) {
    return folder + "/" + std::string(kPrefix) + HostName() + "-" + std::to_string(::getpid()) + "-XXXXXX";
}

int RemoveStaleTempSaveFiles(const std::string& folder) {
    const std::string host = HostName();
    int removed = 0;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        std::string name = it->path().filename().string();
        pid_t pid = ProcessOf(name, host);
        struct stat info {};
        // Only plain files of this user: a shared folder's other files are none of its business.
        if (pid <= 0 || ::lstat(it->path().c_str(), &info) != 0 || !S_ISREG(info.st_mode) ||
            info.st_uid != ::geteuid() || !ProcessGone(pid))
            continue;
        if (::unlink(it->path().c_str()) == 0)
            ++removed;
    }
    return removed;
}

} // namespace kavrin
