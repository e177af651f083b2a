#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kavrin {

// The file names of a command line, split the way the program always did: a name in double
// quotes runs to the next double quote (an unclosed quote ends the list), any other name runs
// to the next blank. The line is trimmed first; names are returned in order.
std::vector<std::string> SplitParams(std::string_view commandLine);

// Rebuilds a command line from arguments the system has already split: an argument holding a
// blank (and no quote) is put in double quotes, so that SplitParams gives it back whole.
std::string JoinArguments(const std::vector<std::string>& arguments);

} // namespace kavrin
