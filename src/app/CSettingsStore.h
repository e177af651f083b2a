#pragma once

#include <cstdint>
#include <string>

namespace kavrin {

// The per-user settings store of the platform, addressed by program name ("Kavrin"),
// section and key. Values are texts; a missing key reads as "##NoEntry##".
class CSettingsStore {
public:
    static constexpr const char* kNoEntry = "##NoEntry##";

    static std::string Get(const std::string& section, const std::string& key);
    // A number; the default when the key is missing or its text is no number of 32 bits.
    static int32_t GetNumber(const std::string& section, const std::string& key, int32_t defaultValue);
    static void Save(const std::string& section, const std::string& key, const std::string& value);
    static void Delete(const std::string& section, const std::string& key);

    // The text of a stored number: locale-independent, rounded to 32 bits, or nothing.
    static bool ParseNumber(const std::string& text, int32_t& value);
};

} // namespace kavrin
