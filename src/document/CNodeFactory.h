#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "document/INode.h"

namespace kavrin {

// Chooses the node class for an element by its exact name.
class CNodeFactory {
public:
    static std::unique_ptr<INode> Create(std::string_view elementName, std::string_view parentName);
    // The same for a name already entered in the element-name pack (the parse path).
    static std::unique_ptr<INode> Create(int16_t elementNameIndex, std::string_view parentName);
};

} // namespace kavrin
