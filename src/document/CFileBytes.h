#pragma once

#include <cstddef>
#include <string>

namespace kavrin {

// The bytes of a file, read into memory whose already processed parts can be handed back to
// the system, so that a large layout and the tree built from it are never both held in full.
class CFileBytes {
public:
    CFileBytes() = default;
    ~CFileBytes();
    CFileBytes(const CFileBytes&) = delete;
    CFileBytes& operator=(const CFileBytes&) = delete;

    // Reads the whole file; false with a German reason in `error`.
    bool Read(const std::string& path, std::string& error);
    // Maps a file into memory read-only, without copying it (a file Kavrin has just written
    // and nobody else changes); false with a German reason in `error`.
    bool Map(const std::string& path, std::string& error);
    // Takes a copy of text already in memory (for tests and for parsing from memory).
    void Assign(const char* data, size_t size);

    const char* Data() const { return data_; }
    size_t Size() const { return size_; }
    // The bytes before `end` are no longer needed; whole pages of them are released.
    void ReleaseBefore(size_t end);

private:
    // Where the bytes live: the heap (when the system gives no pages of its own), anonymous
    // pages of the system, or a read-only view of the file.
    enum class Storage { Heap, Pages, FileView };

    void Allocate(size_t size);
    void Free();

    char* data_ = nullptr;
    size_t size_ = 0;
    size_t capacity_ = 0;
    size_t released_ = 0;
    Storage storage_ = Storage::Heap;
};

} // namespace kavrin
