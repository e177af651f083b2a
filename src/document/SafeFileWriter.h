#pragma once

#include <cstdio>
#include <string>

namespace kavrin {

// Writes a file through a temporary file in the same folder; only Commit() puts it in place,
// so a failed save leaves the old file untouched. Failures throw a file-access CError.
class SafeFileWriter {
public:
    explicit SafeFileWriter(const std::string& path);
    ~SafeFileWriter();
    SafeFileWriter(const SafeFileWriter&) = delete;
    SafeFileWriter& operator=(const SafeFileWriter&) = delete;

    std::FILE* Handle() const { return file_; }
    // Flushes to disk and replaces the target with the temporary file.
    void Commit();

private:
    void Discard();

    std::string path_;
    std::string tempPath_;
    std::FILE* file_ = nullptr;
};

} // namespace kavrin
