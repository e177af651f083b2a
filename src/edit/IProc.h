#pragma once

#include <cstdint>

namespace kavrin {

class INode;

// A procedure that CForAll drives over a collection of nodes: Start once before the first node
// (false: no node is processed), Process for each node with the key the walk passes (false
// stops the walk; the procedure may replace the node), Finish once after the last node of a walk
// that was not stopped (its result is the walk's). A descending procedure hands the nodes of
// the level below to the procedure chained behind it (NextProc); the chain does not own it.
// On its own the class processes nothing: every answer is false.
class IProc {
public:
    virtual ~IProc() = default;
    virtual bool Process(INode*& node, int32_t key);
    virtual IProc* NextProc() const { return nextProc_; }
    virtual void SetNextProc(IProc* proc) { nextProc_ = proc; }
    virtual bool Start() { return false; }
    virtual bool Finish() { return false; }

private:
    IProc* nextProc_ = nullptr;
};

// The common frame of the procedures that work on one node at a time: they go on after every
// node, start and finish with true, and keep no chained procedure.
class CLeafProc : public IProc {
public:
    IProc* NextProc() const override { return nullptr; }
    void SetNextProc(IProc*) override {}
    bool Start() override { return true; }
    bool Finish() override { return true; }
};

} // namespace kavrin
