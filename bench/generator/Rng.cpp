#include "Rng.h"

namespace kavrin::gen {

std::uint64_t Rng::next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

int Rng::below(int n) {
    return static_cast<int>(next() % static_cast<std::uint64_t>(n));
}

double Rng::uniform(double lo, double hi) {
    const double unit = static_cast<double>(next() >> 11) * (1.0 / 9007199254740992.0); // 53 bits
    return lo + (hi - lo) * unit;
}

Rng Rng::stream(std::uint64_t seed, std::uint64_t streamNumber) {
    Rng mixer(seed ^ ((streamNumber + 1) * 0xD1B54A32D192ED03ull));
    return Rng(mixer.next());
}

} // namespace kavrin::gen
