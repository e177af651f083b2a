#include "document/CFileBytes.h"

#include <cstring>

namespace kavrin {

CFileBytes::~CFileBytes() {
    Free();
}

void CFileBytes::Assign(const char* data, size_t size) {
    Allocate(size);
    if (size > 0)
        std::memcpy(data_, data, size);
}

} // namespace kavrin
