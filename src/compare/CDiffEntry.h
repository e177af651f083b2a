#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "nodes/CVector.h"

namespace kavrin {

class INode;

// The kinds of objects a comparison of two layouts counts separately.
enum class DiffKind : uint8_t {
    Gleise,
    Signale,
    Kontakte,
    Immobilien,
    Gueter,
    Zuege,
    Kameras,
    Kollektoren,
    Gelaende,
    Sonstiges,
};
inline constexpr int kDiffKindCount = 10;

// What happened to an object between the old and the new layout.
enum class DiffChange : uint8_t { Hinzugefuegt, Entfernt, Verschoben, Gedreht, Geaendert };
inline constexpr int kDiffChangeCount = 5;

// German names for people ("Güter", "geändert") and for scripts, in ASCII ("Gueter", "geaendert").
const char* KindText(DiffKind kind);
const char* KindKey(DiffKind kind);
const char* ChangeText(DiffChange change);
const char* ChangeKey(DiffChange change);

// One value that differs: an attribute, a connection, a child element, a key id.
struct CDiffValue {
    std::string name;
    std::string oldText; // empty: the old layout has none
    std::string newText; // empty: the new layout has none
};

// One change of one object. The nodes belong to the two compared layouts and are valid while
// both live; an added object has no old node, a removed one no new node.
struct CDiffEntry {
    DiffKind kind = DiffKind::Sonstiges;
    DiffChange change = DiffChange::Geaendert;
    std::string object; // "Gleis 12 [Eisenbahn]"
    // Orders entries of a kind by id: numbers first, then the name.
    std::array<int64_t, 3> order{};
    std::string orderName;

    const INode* oldNode = nullptr;
    const INode* newNode = nullptr;
    // Where the object stands (cm), in each layout where it is on the plan.
    bool hasOldPlace = false;
    bool hasNewPlace = false;
    CVector oldPlace;
    CVector newPlace;

    double distance = 0;            // Verschoben: horizontal distance in metres
    double height = 0;              // Verschoben: change of height in metres
    double angle = 0;               // Gedreht: degrees counter-clockwise, -180 .. 180
    std::vector<CDiffValue> values; // Geaendert
};

} // namespace kavrin
