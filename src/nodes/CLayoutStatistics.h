#pragma once

#include <map>
#include <string>
#include <vector>

namespace kavrin {

class CAnlage;

// What a loaded layout holds, for reports ("kavrin-cli info", the document window).
class CLayoutStatistics {
public:
    explicit CLayoutStatistics(const CAnlage& anlage);

    struct TrackSystemCount {
        int id;
        std::string name;
        long tracks;
        long switches;
    };
    struct CollectionCount {
        int id;
        std::string name;
        long buildings;
    };

    const std::vector<TrackSystemCount>& TrackSystems() const { return trackSystems_; }
    const std::vector<CollectionCount>& Collections() const { return collections_; }
    // Contacts by kind ("Fahrzeug", "Signal / Weiche", ...).
    const std::map<std::string, long>& ContactsByKind() const { return contactsByKind_; }
    long Goods() const { return goods_; }
    long Signals() const { return signals_; }
    long Trains() const { return trains_; }
    // Elements of the tree per element name (elements a class keeps as values of its own, such
    // as vectors and connections, are not in the tree).
    const std::map<std::string, long>& ElementCounts() const { return elementCounts_; }
    long TotalElements() const { return total_; }

private:
    void CountTrackSystems(const CAnlage& anlage);

    std::vector<TrackSystemCount> trackSystems_;
    std::vector<CollectionCount> collections_;
    std::map<std::string, long> contactsByKind_;
    std::map<std::string, long> elementCounts_;
    long goods_ = 0;
    long signals_ = 0;
    long trains_ = 0;
    long total_ = 0;
};

} // namespace kavrin
