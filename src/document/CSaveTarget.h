#pragma once

#include <cstdint>
#include <string>

namespace kavrin {

// The file a save replaces: the path the user named or, when that is a symbolic link, the file
// the link points to, so that the link stays a link and its target gets the new content. What it
// finds about that file decides how the save goes on (ask about a write-protected file, keep
// owner and permissions, say that other hard links keep the old content).
class CSaveTarget {
public:
    // Follows symbolic links (not on Windows, where they are rare and need rights to make); a
    // loop of links throws a file-access error.
    explicit CSaveTarget(const std::string& path);

    // The file written.
    const std::string& Path() const { return path_; }
    // The folder the temporary file goes to: that of the file written.
    std::string Folder() const;
    bool Exists() const { return exists_; }
    // It exists and has no write permission at all, or none for the user (not: a read-only mount).
    bool WriteProtected() const { return writeProtected_; }
    // Other names of the same file (hard links), which a replacement leaves with the old content.
    long OtherNames() const { return exists_ && links_ > 1 ? static_cast<long>(links_ - 1) : 0; }
    // Permissions, owner and group the new file takes over; the usual ones for a new file.
    // On Windows the mode holds the file attributes (read-only, hidden, ...) and there is no
    // owner or group.
    uint32_t Mode() const { return mode_; }
    uint32_t Owner() const { return owner_; }
    uint32_t Group() const { return group_; }

private:
    std::string path_;
    bool exists_ = false;
    bool writeProtected_ = false;
    uint64_t links_ = 0;
    uint32_t mode_ = 0;
    uint32_t owner_ = 0;
    uint32_t group_ = 0;
};

} // namespace kavrin
