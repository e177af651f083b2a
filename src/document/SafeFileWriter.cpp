#include "document/SafeFileWriter.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "core/CError.h"
#include "core/modTools.h"

namespace kavrin {

namespace {

std::string FolderOf(const std::string& path) {
    std::filesystem::path parent = std::filesystem::path(path).parent_path();
    return parent.empty() ? std::string(".") : parent.string();
}

// The permissions the saved file gets: those of the file it replaces, else the usual ones.
mode_t TargetMode(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0)
        return info.st_mode & 07777;
    mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

SafeFileWriter::SafeFileWriter(const std::string& path) : path_(path) {
    if (DirectoryExists(path))
        throw CError::FileAccess(FormatMessage("'%1' ist ein Ordner.", path));
    std::string folder = FolderOf(path);
    if (!DirectoryExists(folder))
        throw CError::FileAccess(FormatMessage("Der Ordner '%1' existiert nicht.", folder));
    std::string pattern = folder + "/.kavrin-speichern-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int fd = ::mkstemp(name.data());
    if (fd < 0)
        throw CError::FileAccess(FormatMessage("Im Ordner '%1' kann keine Datei angelegt werden (%2).",
                                               folder, SystemErrorText(errno)));
    tempPath_ = name.data();
    file_ = ::fdopen(fd, "wb");
    if (!file_) {
        int err = errno;
        ::close(fd);
        Discard();
        throw CError::FileAccess(SystemErrorText(err));
    }
}

SafeFileWriter::~SafeFileWriter() {
    Discard();
}

void SafeFileWriter::Commit() {
    if (std::fflush(file_) != 0 || ::fsync(::fileno(file_)) != 0 ||
        ::fchmod(::fileno(file_), TargetMode(path_)) != 0) {
        int err = errno;
        Discard();
        throw CError::FileAccess(SystemErrorText(err));
    }
    std::FILE* file = file_;
    file_ = nullptr;
    if (std::fclose(file) != 0 || std::rename(tempPath_.c_str(), path_.c_str()) != 0) {
        int err = errno;
        Discard();
        throw CError::FileAccess(
            FormatMessage("'%1' kann nicht geschrieben werden (%2).", path_, SystemErrorText(err)));
    }
    tempPath_.clear();
}

void SafeFileWriter::Discard() {
    if (file_) {
        std::fclose(file_);
        file_ = nullptr;
    }
    if (!tempPath_.empty()) {
        std::remove(tempPath_.c_str());
        tempPath_.clear();
    }
}

} // namespace kavrin
