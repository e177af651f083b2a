#pragma once

#include <cstdint>
#include <unordered_map>

namespace kavrin {

class CAnlage;
class CNodeGleis;
class CNodeGleisSys;
class CNodeKollektor;

// The collectors and track systems of a layout by their ids, looked up once for an operation
// that asks for many (a large selection whose buildings take their collectors along). It is
// valid as long as no chapter comes or goes.
class CLayoutIndex {
public:
    explicit CLayoutIndex(const CAnlage& anlage);

    CNodeKollektor* Kollektor(int32_t kollektorId) const;
    CNodeGleis* Gleis(int16_t gleissystemId, int32_t gleisId) const;

private:
    std::unordered_map<int32_t, CNodeKollektor*> kollektors_;
    std::unordered_map<int16_t, CNodeGleisSys*> systems_;
};

} // namespace kavrin
