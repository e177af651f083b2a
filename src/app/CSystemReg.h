#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace kavrin {

// The registry of a Wine prefix as Wine keeps it on disk ("system.reg"): sections headed by
// "[Key\\Path] timestamp", values written as "Name"="text", "Name"=dword:0000abcd, and other
// types (str(2):, hex:) that Kavrin does not need. Keys and value names compare without case,
// like the registry does. Lines it cannot read are skipped, so a damaged file gives what is left.
class CSystemReg {
public:
    // Reads a file; a missing or unreadable file leaves the registry empty (false).
    bool LoadFile(const std::string& path);
    void Parse(std::string_view text);

    // Only plain strings (REG_SZ); everything else, and a missing value, is nothing.
    std::optional<std::string> String(std::string_view key, std::string_view name) const;
    // Only DWORDs (REG_DWORD).
    std::optional<uint32_t> Dword(std::string_view key, std::string_view name) const;

    bool Empty() const { return values_.empty(); }

private:
    struct Value {
        bool isString = false;
        bool isDword = false;
        std::string text;
        uint32_t number = 0;
    };
    const Value* Find(std::string_view key, std::string_view name) const;
    void ParseValueLine(const std::string& key, std::string_view line);

    std::map<std::string, Value> values_; // lower-case "key\nname"
};

} // namespace kavrin
