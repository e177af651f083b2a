#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <string>

class QLockFile;

namespace kavrin {

struct EepRegistry;

// What start-up learns about the simulator's installation; read once, used everywhere.
struct EepInstallation {
    std::string eepDirectory;      // registry "Directory"
    std::string resourceDirectory; // registry "ResBase"
    int32_t hoeheMax = 10000;      // upper height bound, at least 10000
    int32_t hoeheMin = -10000;     // lower height bound
    bool noResourceDirectory = true;
    bool noTrackStyleDirectory = true;
    // Indices of the four track class ids in the class-id pack.
    std::array<int16_t, 4> trackClassIds{};
};

EepInstallation& Installation();

// The program: refuses a second instance, shows the main window, reads the installation and
// opens the layouts named on the command line.
int Main(int argc, char** argv);

// Height bounds from the registry: the upper one is at least 10000; the lower one is clamped
// twice and so always ends up at -10000.
int32_t ClampHoeheMax(int32_t stored);
int32_t ClampHoeheMin(int32_t stored);

// Sets the installation from the registry values; asks whether to start without a resource
// directory (No: false) and loads the object texts.
bool ReadInstallation(const EepRegistry& values);

// Whether start-up asks when the resource directory is missing (setting "AskNoResourceDir",
// cleared by "Nicht mehr fragen").
bool AskAboutMissingResourceDirectory();
void SetAskAboutMissingResourceDirectory(bool ask);

// When the resource directory is unknown: tells the user that the function is not run (true).
bool ResourceDirectoryMissing();
// Whether "RESOURCEN.PAK" exists in the resource directory.
bool ResourcenPakExists();
// The folder the open dialog starts in: setting "PathAnlagen", or the simulator's layouts.
std::string LayoutsDirectory();

// Enters the four track class ids into the class-id pack and keeps their indices.
void RegisterTrackClassIds();

// The lock that keeps a second instance from starting; nothing when another instance holds it.
std::unique_ptr<QLockFile> AcquireInstanceLock(const QString& directory);

} // namespace kavrin
