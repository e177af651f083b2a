#include "document/CSaveTarget.h"

#include "core/modPaths.h"

namespace kavrin {

std::string CSaveTarget::Folder() const {
    std::filesystem::path parent = PathFromUtf8(path_).parent_path();
    return parent.empty() ? std::string(".") : Utf8FromPath(parent);
}

} // namespace kavrin
