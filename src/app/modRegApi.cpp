#include "app/modRegApi.h"

#include <cctype>
#include <cstdlib>
#include <optional>

#include "app/CSystemReg.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace kavrin {

namespace {

// A 32-bit program (as the simulator was for a long time) writes below Wow6432Node on a
// 64-bit system; each value is looked up in the 32-bit view first, then in the native one.
#ifdef _WIN32
const REGSAM kViews[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};

std::string RegReadString(const std::string& keyPath, const std::string& valueName) {
    for (REGSAM view : kViews) {
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, keyPath.c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS)
            continue;
        DWORD type = 0;
        DWORD size = 0;
        std::optional<std::string> result;
        if (RegQueryValueExA(key, valueName.c_str(), nullptr, &type, nullptr, &size) == ERROR_SUCCESS &&
            type == REG_SZ) {
            std::string buffer(size, '\0');
            if (RegQueryValueExA(key, valueName.c_str(), nullptr, &type,
                                 reinterpret_cast<BYTE*>(buffer.data()), &size) == ERROR_SUCCESS)
                result = buffer.substr(0, buffer.find('\0'));
        }
        RegCloseKey(key);
        if (result)
            return *result;
    }
    return {};
}

int32_t RegReadDword(const std::string& keyPath, const std::string& valueName) {
    for (REGSAM view : kViews) {
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, keyPath.c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS)
            continue;
        DWORD type = 0;
        DWORD value = 0;
        DWORD size = sizeof(value);
        LONG status =
            RegQueryValueExA(key, valueName.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
        RegCloseKey(key);
        if (status == ERROR_SUCCESS && type == REG_DWORD)
            return static_cast<int32_t>(value);
    }
    return 0;
}
#endif

// Wine keeps the 32-bit view of HKEY_LOCAL_MACHINE\Software below Software\Wow6432Node.
std::string Wow64Key(const std::string& keyPath) {
    const std::string software = "Software\\";
    if (keyPath.rfind(software, 0) != 0)
        return keyPath;
    return software + "Wow6432Node\\" + keyPath.substr(software.size());
}

std::string StringValue(const CSystemReg& machine, const std::string& name) {
    if (auto value = machine.String(Wow64Key(kEepRegistryKey), name))
        return *value;
    return machine.String(kEepRegistryKey, name).value_or(std::string());
}

int32_t DwordValue(const CSystemReg& machine, const std::string& name) {
    auto value = machine.Dword(Wow64Key(kEepRegistryKey), name);
    if (!value)
        value = machine.Dword(kEepRegistryKey, name);
    return static_cast<int32_t>(value.value_or(0));
}

} // namespace

EepRegistry EepRegistryFrom(const CSystemReg& machine) {
    EepRegistry values;
    values.directory = StringValue(machine, "Directory");
    values.resBase = StringValue(machine, "ResBase");
    values.hoeheMax = DwordValue(machine, "SLD_HoeheMax");
    values.hoeheMin = DwordValue(machine, "SLD_HoeheMin");
    return values;
}

EepRegistry ReadEepRegistry() {
#ifdef _WIN32
    EepRegistry values;
    values.directory = RegReadString(kEepRegistryKey, "Directory");
    values.resBase = RegReadString(kEepRegistryKey, "ResBase");
    values.hoeheMax = RegReadDword(kEepRegistryKey, "SLD_HoeheMax");
    values.hoeheMin = RegReadDword(kEepRegistryKey, "SLD_HoeheMin");
    return values;
#else
    CSystemReg machine;
    machine.LoadFile(WinePrefix() + "/system.reg");
    return EepRegistryFrom(machine);
#endif
}

std::string WinePrefix() {
    const char* prefix = std::getenv("WINEPREFIX");
    if (prefix && *prefix)
        return prefix;
    const char* home = std::getenv("HOME");
    return std::string(home ? home : "") + "/.wine";
}

std::string WineToUnixPath(const std::string& dosPath, const std::string& prefix) {
    bool drive =
        dosPath.size() >= 2 && std::isalpha(static_cast<unsigned char>(dosPath[0])) && dosPath[1] == ':';
    if (!drive)
        return dosPath;
    std::string path = prefix + "/dosdevices/";
    path += static_cast<char>(std::tolower(static_cast<unsigned char>(dosPath[0])));
    path += ':';
    std::string rest = dosPath.substr(2);
    for (char& c : rest)
        if (c == '\\')
            c = '/';
    while (!rest.empty() && rest.back() == '/')
        rest.pop_back();
    if (rest.empty())
        return path;
    if (rest.front() != '/')
        rest.insert(rest.begin(), '/');
    return path + rest;
}

std::string HostPath(const std::string& registryPath) {
#ifdef _WIN32
    return registryPath;
#else
    return WineToUnixPath(registryPath, WinePrefix());
#endif
}

} // namespace kavrin
