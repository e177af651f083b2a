#pragma once

namespace kavrin {

class CNodeBewegTeil;
class CNodeDreibein;
class CNodeGleis;
class CNodeGleisSys;
class CNodeGood;
class CNodeImmoSammlung;
class CNodeImmobilie;
class CNodeKollektor;
class CNodeKontakt;
class CNodeMeldung;
class ICopy;
class INode;
class IPaint;

// Typed views of a node: the node as that class, or null when it is of another class (or there
// is none). Callers that cannot go on without the class ask for it with Required.
class CCast {
public:
    static CNodeGleisSys* NodeGleisSys(INode* node);
    static CNodeGleis* NodeGleis(INode* node);
    static CNodeImmobilie* NodeImmobilie(INode* node);
    static INode* IfNode(IPaint* paint);
    static ICopy* IfCopy(INode* node);
    static CNodeKontakt* NodeKontakt(INode* node);
    static CNodeMeldung* NodeMeldung(INode* node);
    static CNodeImmoSammlung* NodeImmoSammlung(INode* node);
    static CNodeGood* NodeGood(INode* node);
    static CNodeKollektor* NodeKollektor(INode* node);
    static CNodeDreibein* NodeDreibein(INode* node);
    static CNodeBewegTeil* NodeBewegTeil(INode* node);
    static IPaint* IfPaint(INode* node);

    // The view, or a type mismatch (13) when the node is not of that class.
    template <typename T> static T& Required(T* view) {
        if (!view)
            ThrowTypeMismatch();
        return *view;
    }

private:
    [[noreturn]] static void ThrowTypeMismatch();
};

} // namespace kavrin
