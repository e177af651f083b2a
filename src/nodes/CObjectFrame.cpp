#include "nodes/CObjectFrame.h"

#include "core/CDictionary.h"
#include "document/NodeTree.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/modNodes.h"

namespace kavrin {

namespace {
bool OnlyVectors(const INode& dreibein) {
    return dreibein.Attributes().Empty() && dreibein.SubNodes().Count() == 0 && dreibein.Text().empty();
}
} // namespace

CObjectFrame::CObjectFrame() = default;
CObjectFrame::~CObjectFrame() = default;

bool CObjectFrame::Take(std::unique_ptr<INode>& child) {
    auto* dreibein = dynamic_cast<CNodeDreibein*>(child.get());
    if (!dreibein || present_ || child->Name() != "Dreibein")
        return false;
    frame_.grab3Bein(*dreibein);
    present_ = true;
    if (!OnlyVectors(*dreibein)) {
        child.release();
        kept_.reset(dreibein);
    }
    return true;
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
    kept_ = std::make_unique<CNodeDreibein>();
    kept_->SetParent(owner);
    if (owner)
        kept_->SetAnlage(owner->Anlage());
    kept_->CopyBaseContent(*source.kept_);
    kept_->DreiBein().grab3Bein(frame_);
}

} // namespace kavrin
