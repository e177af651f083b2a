#pragma once

#include <string>

namespace kavrin::test {

// The saved text must equal the original byte for byte, except for attribute
// values and element texts that are both numbers of the same value (owned numbers written in
// the program's own number format). Returns an empty text or where they first differ.
std::string OwnedNumberDifference(const std::string& original, const std::string& saved);

// Two texts of the same number: equal, or plain decimal numbers whose values differ at most in
// the seventh significant digit (the file format's precision for single-precision values).
bool SameNumber(const std::string& a, const std::string& b);

} // namespace kavrin::test
