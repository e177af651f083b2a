#include "nodes/CCast.h"

#include "core/CError.h"
#include "document/ICopy.h"
#include "nodes/CNodeBewegTeil.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"

namespace kavrin {

CNodeGleisSys* CCast::NodeGleisSys(INode* node) {
    return dynamic_cast<CNodeGleisSys*>(node);
}

CNodeGleis* CCast::NodeGleis(INode* node) {
    return dynamic_cast<CNodeGleis*>(node);
}

CNodeImmobilie* CCast::NodeImmobilie(INode* node) {
    return dynamic_cast<CNodeImmobilie*>(node);
}

INode* CCast::IfNode(IPaint* paint) {
    return dynamic_cast<INode*>(paint);
}

ICopy* CCast::IfCopy(INode* node) {
    return dynamic_cast<ICopy*>(node);
}

CNodeKontakt* CCast::NodeKontakt(INode* node) {
    return dynamic_cast<CNodeKontakt*>(node);
}

CNodeMeldung* CCast::NodeMeldung(INode* node) {
    return dynamic_cast<CNodeMeldung*>(node);
}

CNodeImmoSammlung* CCast::NodeImmoSammlung(INode* node) {
    return dynamic_cast<CNodeImmoSammlung*>(node);
}

CNodeGood* CCast::NodeGood(INode* node) {
    return dynamic_cast<CNodeGood*>(node);
}

CNodeKollektor* CCast::NodeKollektor(INode* node) {
    return dynamic_cast<CNodeKollektor*>(node);
}

CNodeDreibein* CCast::NodeDreibein(INode* node) {
    return dynamic_cast<CNodeDreibein*>(node);
}

CNodeBewegTeil* CCast::NodeBewegTeil(INode* node) {
    return dynamic_cast<CNodeBewegTeil*>(node);
}

IPaint* CCast::IfPaint(INode* node) {
    return dynamic_cast<IPaint*>(node);
}

void CCast::ThrowTypeMismatch() {
    throw CError::TypeMismatch();
}

} // namespace kavrin
