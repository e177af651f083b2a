#pragma once

#include <string>

#include "compare/CLayoutDiff.h"

namespace kavrin {

// A comparison in words: the summary (counts per kind and kind of change), the details (one
// line per object and change, the changed values below it), or the same as JSON for scripts.
class CDiffReport {
public:
    explicit CDiffReport(const CLayoutDiff& diff) : diff_(diff) {}

    std::string Summary() const;
    std::string Details() const;
    // {"zusammenfassung": {kind: {change: count}}, "aenderungen": [...]}; without the list
    // when `withDetails` is false.
    std::string Json(bool withDetails) const;

    // "Gleis 12 [Eisenbahn]: verschoben um 1,50 m, Höhe +0,20 m"
    static std::string EntryLine(const CDiffEntry& entry);
    // "Key_Id: 5 → 1"
    static std::string ValueLine(const CDiffValue& value);

private:
    const CLayoutDiff& diff_;
};

} // namespace kavrin
