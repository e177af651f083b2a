#ifndef _WIN32
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "document/CSaveTarget.h"
#include "document/modFilePlatform.h"

namespace kavrin {

namespace {
// After the rename, the folder's entry is made durable too; a failure there changes nothing
// about the file just written, so it is not reported.
void SyncFolder(const std::string& folder) {
    int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}
} // namespace

std::FILE* CreateTempSaveFile(const std::string& pattern, std::string& path, int& error) {
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int fd = ::mkstemp(name.data());
    if (fd < 0) {
        error = errno;
        return nullptr;
    }
    path = name.data();
    std::FILE* file = ::fdopen(fd, "wb");
    if (!file) {
        error = errno;
        ::close(fd);
        ::unlink(path.c_str());
    }
    return file;
}

int FinishTempSaveFile(std::FILE* file, const CSaveTarget& target) {
    int fd = ::fileno(file);
    if (std::fflush(file) != 0 || ::fsync(fd) != 0 || ::fchmod(fd, static_cast<mode_t>(target.Mode())) != 0)
        return errno;
    // Owner and group stay those of the file replaced, where the system lets a user keep them.
    if (target.Exists() && ::fchown(fd, target.Owner(), target.Group()) != 0) {
        // not allowed: the new file belongs to the user who saves it
    }
    return 0;
}

int ReplaceWithTempSaveFile(const std::string& tempPath, const CSaveTarget& target) {
    if (std::rename(tempPath.c_str(), target.Path().c_str()) != 0)
        return errno;
    SyncFolder(target.Folder());
    return 0;
}

std::string MachineName() {
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0)
        return {};
    return name;
}

uint32_t CurrentProcessId() {
    return static_cast<uint32_t>(::getpid());
}

bool ProcessEnded(uint32_t pid) {
    return ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
}

bool IsOwnPlainFile(const std::string& path) {
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && info.st_uid == ::geteuid();
}

} // namespace kavrin
#endif
