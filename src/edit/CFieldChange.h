#pragma once

#include <memory>

#include "edit/CChange.h"

namespace kavrin {

// A value a node class keeps in a field of its own (a key id, signal data, a collector link)
// set through the class's setter. The value before is kept as it was, so undo restores it
// exactly, without going through its text.
template <typename Node, typename Value> class CFieldChange final : public CChange {
public:
    using Getter = Value (Node::*)() const;
    using Setter = void (Node::*)(Value);

    // Sets the value now; null when it already has that value (nothing to record).
    static std::unique_ptr<CFieldChange> Set(Node& node, Getter get, Setter set, Value value) {
        Value before = (node.*get)();
        if (before == value)
            return nullptr;
        std::unique_ptr<CFieldChange> change(new CFieldChange(node, set, before, value));
        change->Redo();
        return change;
    }

    void Undo() override { (node_.*set_)(before_); }
    void Redo() override { (node_.*set_)(after_); }

private:
    CFieldChange(Node& node, Setter set, Value before, Value after)
        : node_(node), set_(set), before_(before), after_(after) {}

    Node& node_;
    Setter set_;
    Value before_;
    Value after_;
};

} // namespace kavrin
