#include "document/SafeFileWriter.h"

#include <cerrno>
#include <cstdio>

#include "core/CError.h"
#include "core/modPaths.h"
#include "core/modTools.h"
#include "document/TempSaveFiles.h"
#include "document/modFilePlatform.h"

namespace kavrin {

SafeFileWriter::SafeFileWriter(const CSaveTarget& target) : target_(target) {
    const std::string& path = target.Path();
    if (DirectoryExists(path))
        throw CError::FileAccess(FormatMessage("'%1' ist ein Ordner.", path));
    std::string folder = target.Folder();
    if (!DirectoryExists(folder))
        throw CError::FileAccess(FormatMessage("Der Ordner '%1' existiert nicht.", folder));
    RemoveStaleTempSaveFiles(folder);
    int error = 0;
    file_ = CreateTempSaveFile(TempSaveFilePattern(folder), tempPath_, error);
    if (!file_) {
        tempPath_.clear();
        throw CError::FileAccess(FormatMessage("Im Ordner '%1' kann keine Datei angelegt werden (%2).",
                                               folder, SystemErrorText(error)));
    }
}

SafeFileWriter::~SafeFileWriter() {
    Discard();
}

void SafeFileWriter::Commit(const Check& check) {
    if (int error = FinishTempSaveFile(file_, target_); error != 0) {
        Discard();
        throw CError::FileAccess(SystemErrorText(error));
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
    if (int error = ReplaceWithTempSaveFile(tempPath_, target_); error != 0) {
        Discard();
        throw CError::FileAccess(FormatMessage("'%1' kann nicht geschrieben werden (%2).", target_.Path(),
                                               SystemErrorText(error)));
    }
    tempPath_.clear();
}

void SafeFileWriter::Discard() {
    if (file_) {
        std::fclose(file_);
        file_ = nullptr;
    }
    if (!tempPath_.empty()) {
        RemoveFileUtf8(tempPath_);
        tempPath_.clear();
    }
}

} // namespace kavrin
