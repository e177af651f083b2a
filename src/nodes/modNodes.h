#pragma once

#include <cstdint>
#include <string_view>

#include "document/NodeTree.h"
#include "nodes/C3Bein.h"

namespace kavrin {

class CXmlWriter;

// Writes every node of a sequence, stopping at the first failure; true for an empty one.
template <typename Sequence> bool WriteNodes(CXmlWriter& writer, const Sequence& nodes) {
    for (const auto& node : nodes)
        if (!WriteNode(writer, *node))
            return false;
    return true;
}

// A "Dreibein" element holding the frame's four vectors.
bool WriteDreibein(CXmlWriter& writer, const C3Bein& frame);
// Four "Vektor" children in the order Pos, Dir, Nor, Bin.
bool WriteFrameVectors(CXmlWriter& writer, const C3Bein& frame);
// A "KontaktZiel" element holding the number.
void WriteKontaktZiel(CXmlWriter& writer, int32_t target);
// One "Vektor" with x, y, z in layout number format and the vector's name as text.
bool WriteVektor(CXmlWriter& writer, std::string_view name, const CVector& vector);

} // namespace kavrin
