#pragma once

#include <string>
#include <unordered_set>

namespace kavrin {

// The signal models the simulator's installation holds: the definition files ("NAME.gsb") in
// its signal folder "Signale\Signale" below the resource directory. Names compare without
// regard to case, as the simulator's file system does. Without a resource directory nothing is
// checked; a folder that is missing or cannot be read is not checked either, and says so.
class CSignalStock {
public:
    // An empty resource directory: no installation, no check.
    explicit CSignalStock(const std::string& resourceDirectory);

    // Whether the folder was read, so that Known answers anything.
    bool Checked() const { return checked_; }
    // An installation is known, but its signal folder is missing or cannot be read.
    bool FolderUnreadable() const { return !resourceDirectory_.empty() && !checked_; }
    const std::string& Folder() const { return folder_; }
    // Whether the model's definition file is there; true whenever nothing was checked.
    bool Known(const std::string& signalName) const;

private:
    std::string resourceDirectory_;
    std::string folder_;
    bool checked_ = false;
    std::unordered_set<std::string> files_; // lower case
};

} // namespace kavrin
