#pragma once

#include <string>

namespace kavrin {

// The German reasons why a file cannot be read as a layout, shared by the systems' readers.

enum class FileKind { Regular, Directory, Fifo, Device, Socket, Other };

// Why a file of this kind is no layout; empty for an ordinary file.
std::string KindProblem(const std::string& path, FileKind kind);
// Why opening or reading failed with the errno value `error`; `statWorked` tells a missing
// permission on the file from one on a folder above it.
std::string OpenProblem(const std::string& path, int error, bool statWorked);

} // namespace kavrin
