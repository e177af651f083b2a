#pragma once

#include <string>
#include <vector>

#include "compare/CDiffCollector.h"

namespace kavrin {

class CAnlage;

// What is not part of the track network or the scenery: trains and cameras by name (two of one
// name pair in file order), the terrain, and every other chapter compared as the file holds it
// (matched by element name and id, or by order), so that no change goes unseen. The chapters
// that hold objects (track systems, collections, goods list, vehicle pool, cameras) are
// compared here without those objects.
class CChapterComparer {
public:
    CChapterComparer(const CAnlage& alt, const CAnlage& neu, CDiffCollector& out)
        : alt_(alt), neu_(neu), out_(out) {}
    void Run();

private:
    void CompareNamed(DiffKind kind, const char* chapter, const char* element, const char* label);
    void CompareTerrain();
    void CompareOtherChapters();

    const CAnlage& alt_;
    const CAnlage& neu_;
    CDiffCollector& out_;
};

} // namespace kavrin
