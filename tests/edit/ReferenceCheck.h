#pragma once

#include <set>
#include <string>

namespace kavrin {
class CAnlage;
}

namespace kavrin::test {

// Every reference of a layout that names something the layout does not hold, one text each:
// connection records, collector entries, train positions, waiting trains, signal and switch
// contacts, building contacts, the collectors buildings name, the key ids signal data names.
std::set<std::string> DanglingReferences(const CAnlage& anlage);

} // namespace kavrin::test
