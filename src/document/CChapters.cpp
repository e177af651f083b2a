#include "document/CChapters.h"

#include <algorithm>

#include "core/modTools.h"
#include "document/CArrayOfNodes.h"
#include "document/INode.h"

namespace kavrin {

void CChapters::Clear() {
    found_.clear();
}

void CChapters::Collect(const INode& root) {
    // File order first; what nodes registered while loading and is no chapter comes after.
    std::vector<std::string> registered = std::move(found_);
    found_.clear();
    for (const auto& child : root.SubNodes())
        Register(child->Name());
    for (const std::string& name : registered)
        Register(name);
}

void CChapters::Register(const std::string& name) {
    if (!Found(name))
        found_.push_back(name);
}

bool CChapters::Found(const std::string& name) const {
    return std::find(found_.begin(), found_.end(), name) != found_.end();
}

const std::vector<std::string>& CChapters::Expected() {
    static const std::vector<std::string> expected = {
        "Version",  "Gleissystem", "Fuhrpark", "Gebaeudesammlung", "Goods",       "Kammerasammlung",
        "Settings", "Options",     "Weather",  "TimeTable",        "Beschreibung"};
    return expected;
}

int CChapters::ReportMissing() const {
    int missing = 0;
    for (const std::string& name : Expected()) {
        if (Found(name))
            continue;
        ++missing;
        if (name == "Kammerasammlung")
            AddParseHint(FormatMessage("Der Abschnitt mit den Kameras fehlt."));
        else
            AddParseHint(FormatMessage("Der Abschnitt \"%1\" fehlt vollständig", name));
    }
    return missing;
}

} // namespace kavrin
