#pragma once

#include <vector>

namespace kavrin {

class CNodeGleis;
class CNodeGleisSys;
class CSelection;
class INode;
class IIter;
class IProc;

// Drives a procedure over one collection of nodes. Start comes first; false there means no node
// is processed and the walk answers false. Then Process for each node, until one answers false,
// which ends the walk with false. Finish is called only when the walk ran to its end, and its
// answer is the walk's. The walker keeps nothing between calls; errors inside a procedure reach
// the caller. A missing procedure is a type mismatch.
class CForAll {
public:
    // Every track system of the list; a procedure that replaces the node replaces it in the list.
    static bool Gleissysteme(std::vector<CNodeGleisSys*>& systems, IProc* proc);
    // The tracks of a system, key 0.
    static bool Gleise(CNodeGleisSys& system, IProc* proc);
    // The goods of the goods list ("Goods"), each with its index in the list as key.
    static bool Goods(INode& goods, IProc* proc);
    // The tracks among the members of a selection, key 0; other members are passed over.
    static bool GleiseSelected(const CSelection& selection, IProc* proc);
    // The contacts and signal messages of a track, each with its index among the track's children.
    static bool Kontakte(CNodeGleis& track, IProc* proc);
    static bool Meldungen(CNodeGleis& track, IProc* proc);

private:
    static bool Walk(IIter& iter, INode& collection, IProc* proc, bool passKey);
};

} // namespace kavrin
