#include "nodes/CObjectFrame.h"

#include "core/CDictionary.h"
#include "document/NodeTree.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/modNodes.h"

namespace kavrin {

CObjectFrame::CObjectFrame() = default;
CObjectFrame::~CObjectFrame() = default;

bool CObjectFrame::CanTake(const INode& child) const {
    return !present_ && child.Name() == "Dreibein" && dynamic_cast<const CNodeDreibein*>(&child);
}

void CObjectFrame::Take(std::unique_ptr<INode>& child) {
    auto* dreibein = static_cast<CNodeDreibein*>(child.get());
    frame_.grab3Bein(*dreibein);
    present_ = true;
    if (!dreibein->IsPlain()) {
        child.release();
        kept_.reset(dreibein);
    }
}

bool CObjectFrame::Write(CXmlWriter& writer) const {
    if (kept_)
        return WriteNode(writer, *kept_);
    return !present_ || WriteDreibein(writer, frame_);
}

void CObjectFrame::CopyFrom(const CObjectFrame& source, INode* owner) {
    kept_.reset();
    frame_ = C3Bein(); // own vectors: the copy must not move with the original
    frame_.Copy(source.frame_);
    present_ = source.present_;
    if (!source.kept_)
        return;
    kept_ = source.kept_->CopyFor(frame_);
    kept_->SetParent(owner);
    if (owner)
        kept_->SetAnlage(owner->Anlage());
}

} // namespace kavrin
