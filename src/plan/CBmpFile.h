#pragma once

#include <cstdint>
#include <string>

#include "plan/CPlanImage.h"

namespace kavrin {

// A Windows bitmap file as the terrain maps are stored: uncompressed, 8 bits with a palette or
// 24/32 bits per pixel, rows bottom-up (or top-down with a negative height).
class CBmpFile {
public:
    // Reads and checks the headers against the file's size; false when the file cannot be read
    // or is no such bitmap. The pixels are read only by Decode.
    bool Open(const std::string& path);
    int Width() const { return header_.width; }
    int Height() const { return header_.height; }
    int BitsPerPixel() const { return header_.bitsPerPixel; }
    // Reads the pixels of an opened file; an empty image when that fails.
    CPlanImage Decode() const;

private:
    struct Header {
        int width = 0;
        int height = 0;
        bool topDown = false;
        int bitsPerPixel = 0;
        uint32_t dataOffset = 0;
        uint32_t paletteOffset = 0;
        uint32_t paletteCount = 0;
    };
    // bytes: the start of the file (at least its headers and palette); fileSize: all of it.
    static bool ReadHeader(const std::string& bytes, uint64_t fileSize, Header& header);

    std::string path_;
    Header header_;
};

} // namespace kavrin
