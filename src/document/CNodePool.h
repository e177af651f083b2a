#pragma once

#include <cstddef>
#include <new>
#include <vector>

// GCC names AddressSanitizer with a macro, clang (the fuzzer) only through __has_feature.
#if defined(__SANITIZE_ADDRESS__)
#define KAVRIN_NODES_FROM_THE_HEAP 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KAVRIN_NODES_FROM_THE_HEAP 1
#endif
#endif

namespace kavrin {

// Memory for the nodes a large layout holds by the hundred thousand (tracks, buildings), cut in
// order from large chunks: the plan's walk over all of them then reads memory in sequence
// instead of jumping between the pages the rest of the tree lies on. Freed blocks are reused by
// the next node; the chunks stay with the program. Under AddressSanitizer every node comes from
// the ordinary heap, so that misuse is still found. One thread only, as all of the editor.
template <size_t BlockSize> class CNodePool {
public:
    static void* Allocate() {
#ifdef KAVRIN_NODES_FROM_THE_HEAP
        return ::operator new(BlockSize);
#else
        if (freeList_) {
            FreeBlock* block = freeList_;
            freeList_ = block->next;
            return block;
        }
        if (next_ == end_)
            NewChunk();
        void* block = next_;
        next_ += kStride;
        return block;
#endif
    }

    static void Free(void* block) {
#ifdef KAVRIN_NODES_FROM_THE_HEAP
        ::operator delete(block);
#else
        auto* freed = static_cast<FreeBlock*>(block);
        freed->next = freeList_;
        freeList_ = freed;
#endif
    }

private:
    struct FreeBlock {
        FreeBlock* next;
    };
    static constexpr size_t kAlign = alignof(std::max_align_t);
    static constexpr size_t kStride = (BlockSize + kAlign - 1) / kAlign * kAlign;
    static constexpr size_t kBlocksPerChunk = (1u << 20) / kStride + 1;

    static void NewChunk() {
        // Kept for the program's lifetime: nodes may outlive any static of this pool.
        static auto* chunks = new std::vector<char*>();
        char* chunk = static_cast<char*>(::operator new(kStride* kBlocksPerChunk));
        chunks->push_back(chunk);
        next_ = chunk;
        end_ = chunk + kStride * kBlocksPerChunk;
    }

    static inline FreeBlock* freeList_ = nullptr;
    static inline char* next_ = nullptr;
    static inline char* end_ = nullptr;
};

// Class-wide new and delete through the pool, for a final node class T.
#define KAVRIN_NODE_POOLED(T)                                                                                \
    static void* operator new(size_t size) {                                                                 \
        return size == sizeof(T) ? CNodePool<sizeof(T)>::Allocate() : ::operator new(size);                  \
    }                                                                                                        \
    static void operator delete(void* block, size_t size) {                                                  \
        if (size == sizeof(T))                                                                               \
            CNodePool<sizeof(T)>::Free(block);                                                               \
        else                                                                                                 \
            ::operator delete(block);                                                                        \
    }

} // namespace kavrin
