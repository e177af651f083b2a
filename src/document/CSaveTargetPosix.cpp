#ifndef _WIN32
#include "document/CSaveTarget.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "core/CError.h"
#include "core/modTools.h"

namespace kavrin {

namespace {

constexpr int kMaxLinks = 40; // as many as the system itself follows

// The file a chain of symbolic links ends in (which need not exist yet).
std::string FollowLinks(const std::string& named) {
    std::filesystem::path path = named;
    for (int i = 0; i < kMaxLinks; ++i) {
        struct stat info {};
        if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode))
            return path.string();
        std::error_code ec;
        std::filesystem::path target = std::filesystem::read_symlink(path, ec);
        if (ec)
            throw CError::FileAccess(FormatMessage("Die Verknüpfung '%1' kann nicht gelesen werden (%2).",
                                                   path.string(), SystemErrorText(ec.value())));
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    throw CError::FileAccess(FormatMessage("'%1': %2", named, SystemErrorText(ELOOP)));
}

mode_t NewFileMode() {
    mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

CSaveTarget::CSaveTarget(const std::string& path) : path_(FollowLinks(path)) {
    struct stat info {};
    exists_ = ::stat(path_.c_str(), &info) == 0;
    if (!exists_) {
        mode_ = NewFileMode();
        owner_ = ::geteuid();
        group_ = ::getegid();
        return;
    }
    mode_ = info.st_mode & 07777;
    owner_ = info.st_uid;
    group_ = info.st_gid;
    links_ = info.st_nlink;
    // A file without any write permission is protected also for an administrator, who could write it.
    writeProtected_ = S_ISREG(info.st_mode) &&
                      ((mode_ & 0222) == 0 || (::access(path_.c_str(), W_OK) != 0 && errno == EACCES));
}

} // namespace kavrin
#endif
