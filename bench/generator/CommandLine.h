#pragma once

#include "Layout.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kavrin::gen {

struct GeneratorOptions {
    double sizeMegabytes = 0; // 0: not requested
    long long tracks = -1;    // -1: not requested
    long long buildings = -1; // -1: not requested
    TrackFormat format = TrackFormat::Classic;
    std::uint64_t seed = 1;
    bool demo = false;
    bool help = false;
    std::string output;
};

/// Parses kavrin-gen's arguments. On a usage error returns nothing and sets error to a German message.
std::optional<GeneratorOptions> parseCommandLine(int argc, const char* const* argv, std::string& error);

/// The German help text.
const char* usageText();

} // namespace kavrin::gen
