#pragma once

#include <string>

namespace kavrin {

// The temporary files a save writes before it replaces the old file are named after the machine
// and the process that writes them, so that a later save can tell a file left behind by a save
// that was killed from one that another running save is still writing.

// mkstemp's pattern for a temporary file of this process in `folder`.
std::string TempSaveFilePattern(const std::string& folder);
// Removes the temporary files in `folder` whose process has ended on this machine; leaves
// those of running processes, of other machines and anything else alone. How many it removed.
int RemoveStaleTempSaveFiles(const std::string& folder);

} // namespace kavrin
