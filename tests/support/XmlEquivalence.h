#pragma once

#include <string>

namespace kavrin::test {

// The saved text must equal the original byte for byte, except for attribute
// values and element texts that are both numbers of the same value (owned numbers written in
// the program's own number format). Returns an empty text or where they first differ.
std::string OwnedNumberDifference(const std::string& original, const std::string& saved);

} // namespace kavrin::test
