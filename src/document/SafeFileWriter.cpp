#include "document/SafeFileWriter.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "core/CError.h"
#include "core/modTools.h"
#include "document/TempSaveFiles.h"

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

SafeFileWriter::SafeFileWriter(const CSaveTarget& target) : target_(target) {
    const std::string& path = target.Path();
    if (DirectoryExists(path))
        throw CError::FileAccess(FormatMessage("'%1' ist ein Ordner.", path));
    std::string folder = target.Folder();
    if (!DirectoryExists(folder))
        throw CError::FileAccess(FormatMessage("Der Ordner '%1' existiert nicht.", folder));
    RemoveStaleTempSaveFiles(folder);
    std::string pattern = TempSaveFilePattern(folder);
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

void SafeFileWriter::Commit(const Check& check) {
    int fd = ::fileno(file_);
    if (std::fflush(file_) != 0 || ::fsync(fd) != 0 || ::fchmod(fd, target_.Mode()) != 0) {
        int err = errno;
        Discard();
        throw CError::FileAccess(SystemErrorText(err));
    }
    // Owner and group stay those of the file replaced, where the system lets a user keep them.
    if (target_.Exists() && ::fchown(fd, target_.Owner(), target_.Group()) != 0) {
        // not allowed: the new file belongs to the user who saves it
    }
    std::FILE* file = file_;
    file_ = nullptr;
    if (std::fclose(file) != 0) {
        int err = errno;
        Discard();
        throw CError::FileAccess(SystemErrorText(err));
    }
    std::string problem;
    if (check && !check(tempPath_, problem)) {
        Discard();
        throw CError(1001,
                     FormatMessage("Die geschriebene Datei ließe sich nicht wieder laden: %1.", problem));
    }
    if (std::rename(tempPath_.c_str(), target_.Path().c_str()) != 0) {
        int err = errno;
        Discard();
        throw CError::FileAccess(
            FormatMessage("'%1' kann nicht geschrieben werden (%2).", target_.Path(), SystemErrorText(err)));
    }
    tempPath_.clear();
    SyncFolder(target_.Folder());
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
