#pragma once

#include <map>
#include <string>

namespace kavrin {

class CAnlage;

// Counts of what a loaded layout holds, for reports ("kavrin-cli info", the document window).
class CLayoutStatistics {
public:
    explicit CLayoutStatistics(const CAnlage& anlage);

    // Elements of the tree per element name (elements a class consumed into its own values,
    // such as connections, are not in the tree).
    const std::map<std::string, long>& ElementCounts() const { return elementCounts_; }
    long TotalElements() const { return total_; }

private:
    std::map<std::string, long> elementCounts_;
    long total_ = 0;
};

} // namespace kavrin
