#pragma once

#include <functional>
#include <vector>

namespace kavrin {
class CAnlage;
}

namespace kavrin::bench {

// Called with the loaded layout and the options after the file name; it may take options of
// its own out of the list before the rest goes to the benchmark library.
using Prepare = std::function<void(CAnlage& anlage, std::vector<char*>& options)>;

// The main of a benchmark program that works on one layout: "PROGRAM DATEI.anl3 [options]".
// Loads the layout with a recording user interface, prepares, runs the registered benchmarks
// and returns the exit status (2 wrong usage, 1 the layout did not load).
int RunOnLayout(int argc, char** argv, const char* program, const Prepare& prepare);

} // namespace kavrin::bench
