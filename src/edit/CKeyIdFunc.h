#pragma once

#include <cstdint>

namespace kavrin {

// What a procedure over key-id references does with a reference found in its list: give it the
// key id that follows from the list (renumbering), or clear it (the key id was deleted).
struct CKeyIdFunc {
    static constexpr int32_t FuncRenum = 1;
    static constexpr int32_t FuncErase = 2;
};

} // namespace kavrin
