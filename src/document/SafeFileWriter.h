#pragma once

#include <cstdio>
#include <functional>
#include <string>

#include "document/CSaveTarget.h"

namespace kavrin {

// Writes a file through a temporary file in the target's folder; only Commit() puts it in
// place, so a failed save leaves the old file untouched. Temporary files that saves killed
// before left in that folder are removed first. Failures throw a file-access CError.
class SafeFileWriter {
public:
    // Checks the temporary file before it replaces the target: false with the reason.
    using Check = std::function<bool(const std::string& tempPath, std::string& problem)>;

    explicit SafeFileWriter(const CSaveTarget& target);
    ~SafeFileWriter();
    SafeFileWriter(const SafeFileWriter&) = delete;
    SafeFileWriter& operator=(const SafeFileWriter&) = delete;

    std::FILE* Handle() const { return file_; }
    const std::string& TempPath() const { return tempPath_; }
    // Flushes to disk, gives the file the target's permissions and owner, checks it and
    // replaces the target with it.
    void Commit(const Check& check);

private:
    void Discard();

    const CSaveTarget& target_;
    std::string tempPath_;
    std::FILE* file_ = nullptr;
};

} // namespace kavrin
