#pragma once

#include <string>

namespace kavrin::test {

// Compares two layout texts as a save may change them: owned numbers re-formatted (equal to
// seven significant digits), connections of a track system in another order, <X></X> as <X/>.
// Returns an empty text when they are equivalent, else where they first differ.
std::string LayoutDifference(const std::string& original, const std::string& saved);

// The strict form: the saved text must equal the original byte for byte, except for attribute
// values and element texts that are both numbers of the same value (owned numbers written in
// the program's own number format). Returns an empty text or where they first differ.
std::string OwnedNumberDifference(const std::string& original, const std::string& saved);

} // namespace kavrin::test
