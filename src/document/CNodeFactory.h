#pragma once

#include <memory>
#include <string_view>

#include "document/INode.h"

namespace kavrin {

// Chooses the node class for an element by its exact name.
class CNodeFactory {
public:
    static std::unique_ptr<INode> Create(std::string_view elementName, std::string_view parentName);
};

} // namespace kavrin
