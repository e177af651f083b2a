#pragma once

namespace kavrin {

// One recorded, reversible change of the tree: the few kinds every edit is made of (placement
// values, a scalar attribute, a child taken out of or put into a collection, connection records
// cut or made). A change is recorded as it is done; Undo puts back exactly what was there
// before, and Redo, run on exactly that state again, does the same change once more.
class CChange {
public:
    virtual ~CChange() = default;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
};

} // namespace kavrin
