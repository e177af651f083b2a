#pragma once

#include <string>
#include <vector>

namespace kavrin {

class CAnlage;

// The object list of a layout: tracks and switches per track system, signals per model,
// contacts per kind, buildings per collection and model, and the trains with the track each
// stands on. The inventory dialog and "kavrin-cli info --inventar" show the same list.
class CLayoutInventory {
public:
    struct Row {
        std::string name;
        std::string detail; // for a train: where it stands
        long count = 0;
    };
    struct Section {
        std::string title;
        std::vector<Row> rows;
        long Total() const;
    };

    explicit CLayoutInventory(const CAnlage& anlage);

    const std::vector<Section>& Sections() const { return sections_; }

    // Plain text, each section with its total, then its rows indented ("  name: count"); `thousands`
    // groups the digits of counts (0: no grouping).
    std::string Text(char thousands = 0) const;
    // CSV for spreadsheets: "Abschnitt;Name;Detail;Anzahl", fields quoted where they need it.
    std::string Csv() const;

    // A count as the user reads it: "12.345" with '.' as separator.
    static std::string GroupedNumber(long value, char thousands);

private:
    void AddTrackSystems(const CAnlage& anlage);
    void AddSignalsAndContacts(const CAnlage& anlage);
    void AddBuildings(const CAnlage& anlage);
    void AddTrains(const CAnlage& anlage);

    std::vector<Section> sections_;
};

} // namespace kavrin
