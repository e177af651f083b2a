#include "document/CLayoutStatistics.h"

#include "document/CAnlage.h"
#include "document/NodeTree.h"

namespace kavrin {

CLayoutStatistics::CLayoutStatistics(const CAnlage& anlage) {
    if (!anlage.RootNode())
        return;
    ForEachNode(*anlage.RootNode(), [this](const INode& node, int) {
        ++elementCounts_[node.Name()];
        ++total_;
    });
}

} // namespace kavrin
