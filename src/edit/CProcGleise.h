#pragma once

#include "edit/IProc.h"

namespace kavrin {

// Descends one level: walks the tracks of the track system it is handed with the procedure chained behind it
// (NextProc), whose Start and Finish therefore run once per node handed to this one. Start and Finish answer
// true.
class CProcGleise final : public IProc {
public:
    bool Finish() override { return true; }
    void SetNextProc(IProc* proc) override { link_.SetNextProc(proc); }
    IProc* NextProc() const override { return link_.NextProc(); }
    bool Process(INode*& node, int32_t key) override;
    bool Start() override { return true; }

private:
    IProc link_;
};

} // namespace kavrin
