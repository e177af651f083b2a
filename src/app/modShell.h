#pragma once

#include <functional>
#include <string>

class QWidget;

namespace kavrin {

// The shell's answer when no program is associated with a file's type.
inline constexpr int kShellNoAssociation = 31;

// Opens a file with the program the system associates with it, answering like the shell
// does: above 32 is success, 31 means no program is associated with the file's type.
int ShellOpen(const std::string& path, QWidget* parent);
// Replaces the shell (tests must not start viewers); an empty function restores it.
void SetShellOpenHandler(std::function<int(const std::string&)> handler);

// The message for a failed ShellOpen of `path`, or nothing when `result` is a success.
std::string ShellOpenErrorText(const std::string& path, int result);

} // namespace kavrin
