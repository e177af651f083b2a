#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace kavrin {

class CSaveTarget;

// What a save needs from the operating system, once for POSIX systems and once for Windows.
// Failures are errno values (Windows errors are translated), so that the messages are shared.

// Creates a file that did not exist from `pattern`, whose trailing "XXXXXX" is replaced, and
// opens it for binary writing; its name goes to `path`. nullptr with the error in `error`.
std::FILE* CreateTempSaveFile(const std::string& pattern, std::string& path, int& error);
// Writes the file's buffers to the disk and gives it what the target keeps (permissions and,
// where allowed, owner; or the file attributes). 0 or the error.
int FinishTempSaveFile(std::FILE* file, const CSaveTarget& target);
// Puts the finished temporary file in the target's place, durably. 0 or the error.
int ReplaceWithTempSaveFile(const std::string& tempPath, const CSaveTarget& target);

// The machine's name, the process, and whether a process of this machine has ended.
std::string MachineName();
uint32_t CurrentProcessId();
bool ProcessEnded(uint32_t pid);
// A plain file (no folder or link) that belongs to the user running Kavrin.
bool IsOwnPlainFile(const std::string& path);

#ifdef _WIN32
int ErrnoFromWindowsError(unsigned long error);
#endif

} // namespace kavrin
