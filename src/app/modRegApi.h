#pragma once

#include <cstdint>
#include <string>

namespace kavrin {

class CSystemReg;

// The simulator's key below HKEY_LOCAL_MACHINE.
inline constexpr const char* kEepRegistryKey = "Software\\Software Untergrund\\EEXP";

// The four values Kavrin needs from the simulator's key. A missing value, or one of another
// type, is an empty text or 0.
struct EepRegistry {
    std::string directory; // "Directory"
    std::string resBase;   // "ResBase"
    int32_t hoeheMax = 0;  // "SLD_HoeheMax"
    int32_t hoeheMin = 0;  // "SLD_HoeheMin"
};

// Windows asks the registry; other systems read the registry file ("system.reg") of the Wine
// prefix in which the simulator is installed.
EepRegistry ReadEepRegistry();
// The values as a Wine registry file holds them.
EepRegistry EepRegistryFrom(const CSystemReg& machine);

// The Wine prefix: $WINEPREFIX, or ~/.wine.
std::string WinePrefix();
// "C:\EEP17\Resourcen" of a program in the prefix as a path of this system
// ("<prefix>/dosdevices/c:/EEP17/Resourcen"); other texts are returned unchanged.
std::string WineToUnixPath(const std::string& dosPath, const std::string& prefix);
// A path read from the registry as this system can open it (unchanged on Windows).
std::string HostPath(const std::string& registryPath);

} // namespace kavrin
