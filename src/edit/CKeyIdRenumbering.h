#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kavrin {

class CAnlage;
class CEditHistory;

// Renumbers the key ids of a layout's tracks (switches) and signals 1, 2, 3 … without gaps, in the
// order of their old values; a value shared by several objects stays shared. Every reference goes
// along: the key id a contact's signal data names and the one in a track's signal data. The
// whole renumbering is one step of the undo history. Lua scripts that address signals or switches
// by number see other numbers afterwards, hence the warning and the table old -> new.
class CKeyIdRenumbering {
public:
    struct Entry {
        int32_t oldId;
        int32_t newId;
    };

    // Reads the layout's key ids as they stand now.
    explicit CKeyIdRenumbering(CAnlage& anlage);

    // Every key id greater than 0, ascending, with the one it gets.
    const std::vector<Entry>& Table() const { return table_; }
    // How many of them change; 0 when the layout is numbered 1 … n already.
    int32_t ChangedCount() const;
    // The entries that change, one line each ("12\t1"), under a heading line; for the clipboard,
    // a dialog and the console.
    std::string TableText() const;
    static std::string WarningText();
    // References (contacts' and tracks' signal data) to key ids that no track or signal has: they
    // stay as they are, and the text says so; empty when there are none.
    int32_t DanglingReferences() const { return dangling_; }
    std::string DanglingText() const;

    // Renumbers and records the step. False when nothing changes (nothing recorded) or when it
    // failed: then the error is reported and the layout is as it was before.
    bool Run(CEditHistory& history);
    // How many key ids and references the last Run changed.
    int32_t ChangedObjects() const { return changedObjects_; }
    int32_t ChangedReferences() const { return changedReferences_; }

private:
    void ReadKeyIds();
    void CountDanglingReferences();

    CAnlage& anlage_;
    std::vector<Entry> table_;
    int32_t dangling_ = 0;
    int32_t changedObjects_ = 0;
    int32_t changedReferences_ = 0;
};

} // namespace kavrin
