#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "edit/CChange.h"

namespace kavrin {

class INode;

// A scalar attribute set to a new value: the texts before and after. A value the node's class
// keeps itself goes through the class (CheckAttribute), so its typed field follows; undo gives
// it back the text it was written with before (exact for whole numbers and texts). An attribute
// the node did not have is appended and taken away again by undo.
class CAttributeChange : public CChange {
public:
    static std::unique_ptr<CAttributeChange> Set(INode& node, std::string_view name, std::string text);

    void Undo() override { Apply(before_); }
    void Redo() override { Apply(after_); }

private:
    CAttributeChange(INode& node, std::string_view name, std::string text);
    void Apply(const std::optional<std::string>& text);

    INode& node_;
    std::string name_;
    std::optional<std::string> before_;
    std::optional<std::string> after_;
};

} // namespace kavrin
