#pragma once

#include <cstdint>

namespace kavrin::gen {

/// Small deterministic generator (SplitMix64). The standard distributions differ between library
/// implementations, so the same seed would not give the same layout everywhere.
class Rng {
public:
    explicit Rng(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next();
    /// Uniform in [0, n); n > 0.
    int below(int n);
    /// Uniform in [lo, hi).
    double uniform(double lo, double hi);
    bool chance(double probability) { return uniform(0, 1) < probability; }
    /// An independent generator for one stream (e.g. one tile): a tile's content then depends only
    /// on the seed and its number, not on how many tiles were built before it.
    static Rng stream(std::uint64_t seed, std::uint64_t streamNumber);

private:
    std::uint64_t state_;
};

} // namespace kavrin::gen
