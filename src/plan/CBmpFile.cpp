#include "plan/CBmpFile.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "core/modPaths.h"

namespace kavrin {

namespace {
constexpr uint32_t kFileHeaderSize = 14;
constexpr uint32_t kMinInfoHeaderSize = 40;
constexpr int64_t kMaxPixels = 64LL * 1024 * 1024;

uint32_t U32(const std::string& b, size_t at) {
    uint32_t v = 0;
    for (int i = 3; i >= 0; --i)
        v = (v << 8) | static_cast<unsigned char>(b[at + static_cast<size_t>(i)]);
    return v;
}
uint16_t U16(const std::string& b, size_t at) {
    return static_cast<uint16_t>(static_cast<unsigned char>(b[at]) | static_cast<unsigned char>(b[at + 1])
                                                                         << 8);
}

bool ReadFile(const std::string& path, std::string& bytes) {
    std::ifstream in(PathFromUtf8(path), std::ios::binary);
    if (!in)
        return false;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    bytes = buffer.str();
    return !in.bad();
}

// The headers and palette lie in the first few hundred bytes; the check needs no more than
// these and the file's size.
constexpr size_t kHeadBytes = 4096;

bool ReadHead(const std::string& path, std::string& head, uint64_t& fileSize) {
    std::ifstream in(PathFromUtf8(path), std::ios::binary | std::ios::ate);
    if (!in)
        return false;
    std::streamoff size = in.tellg();
    if (size < 0)
        return false;
    fileSize = static_cast<uint64_t>(size);
    head.resize(static_cast<size_t>(std::min<uint64_t>(fileSize, kHeadBytes)));
    in.seekg(0);
    return static_cast<bool>(in.read(head.data(), static_cast<std::streamsize>(head.size())));
}

// Bytes per row, padded to four.
int64_t Stride(int width, int bits) {
    return (static_cast<int64_t>(width) * bits + 31) / 32 * 4;
}

uint32_t Rgb(unsigned char r, unsigned char g, unsigned char b) {
    return 0xFF000000u | static_cast<uint32_t>(r) << 16 | static_cast<uint32_t>(g) << 8 | b;
}
} // namespace

bool CBmpFile::Open(const std::string& path) {
    path_ = path;
    std::string head;
    uint64_t fileSize = 0;
    header_ = {};
    return ReadHead(path, head, fileSize) && ReadHeader(head, fileSize, header_);
}

bool CBmpFile::ReadHeader(const std::string& b, uint64_t fileSize, Header& h) {
    if (b.size() < kFileHeaderSize + kMinInfoHeaderSize || b[0] != 'B' || b[1] != 'M')
        return false;
    h.dataOffset = U32(b, 10);
    uint32_t infoSize = U32(b, 14);
    if (infoSize < kMinInfoHeaderSize || kFileHeaderSize + infoSize > b.size())
        return false;
    int32_t width = static_cast<int32_t>(U32(b, 18));
    int32_t height = static_cast<int32_t>(U32(b, 22));
    uint16_t planes = U16(b, 26);
    h.bitsPerPixel = U16(b, 28);
    uint32_t compression = U32(b, 30);
    if (planes != 1 || width <= 0 || height == 0 || height == INT32_MIN)
        return false;
    if (compression != 0 && !(compression == 3 && h.bitsPerPixel == 32))
        return false;
    if (h.bitsPerPixel != 8 && h.bitsPerPixel != 24 && h.bitsPerPixel != 32)
        return false;
    h.width = width;
    h.topDown = height < 0;
    h.height = h.topDown ? -height : height;
    if (static_cast<int64_t>(h.width) * h.height > kMaxPixels)
        return false;
    if (h.bitsPerPixel == 8) {
        h.paletteOffset = kFileHeaderSize + infoSize;
        h.paletteCount = U32(b, 46) == 0 ? 256 : U32(b, 46);
        if (h.paletteCount > 256 || h.paletteOffset + 4ull * h.paletteCount > fileSize)
            return false;
    }
    return h.dataOffset + Stride(h.width, h.bitsPerPixel) * h.height <= static_cast<int64_t>(fileSize);
}

CPlanImage CBmpFile::Decode() const {
    std::string b;
    Header h;
    if (header_.width <= 0 || !ReadFile(path_, b) || !ReadHeader(b, b.size(), h))
        return {};
    CPlanImage image(h.width, h.height);
    int64_t stride = Stride(h.width, h.bitsPerPixel);
    int bytesPerPixel = h.bitsPerPixel / 8;
    for (int row = 0; row < h.height; ++row) {
        int fileRow = h.topDown ? row : h.height - 1 - row;
        const char* src = b.data() + h.dataOffset + stride * fileRow;
        uint32_t* dst = image.Row(row);
        for (int x = 0; x < h.width; ++x) {
            const auto* p =
                reinterpret_cast<const unsigned char*>(src + static_cast<ptrdiff_t>(x) * bytesPerPixel);
            if (h.bitsPerPixel == 8) {
                uint32_t index = std::min<uint32_t>(*p, h.paletteCount - 1);
                const auto* c =
                    reinterpret_cast<const unsigned char*>(b.data() + h.paletteOffset + 4 * index);
                dst[x] = Rgb(c[2], c[1], c[0]);
            } else {
                dst[x] = Rgb(p[2], p[1], p[0]);
            }
        }
    }
    return image;
}

} // namespace kavrin
