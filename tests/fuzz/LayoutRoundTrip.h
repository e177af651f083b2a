#pragma once

#include <string>
#include <string_view>

namespace kavrin::test {

// The promise every input must keep: a layout that loads can be drawn and counted and saves;
// what was saved loads again and saves to the same bytes; the saved text passes the check a
// save makes before it replaces a file; and a load that named no hint and repaired nothing lost
// nothing but the form of numbers.
// Returns an empty text when the input keeps it (also when it does not load at all), else what
// went wrong.
std::string RoundTripFault(std::string_view input);

// Forgets the texts of the process-wide string packs; only while no layout is loaded. A long run
// of unrelated inputs would otherwise fill them up.
void ForgetPackedTexts();

} // namespace kavrin::test
