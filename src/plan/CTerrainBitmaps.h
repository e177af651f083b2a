#pragma once

#include <array>
#include <string>

#include "plan/CPlanImage.h"

namespace kavrin {

class CNodeLandschaft;

// The four bitmaps the terrain names (colour, height, texture, texture index), checked once when
// a layout is opened. A bitmap that is missing, no valid BMP file or not of the terrain grid's
// size (extX x extY pixels) is reported and ignored for the session. The colour map, when
// accepted, is what the plan shows as its background.
class CTerrainBitmaps {
public:
    enum Kind { FileF, FileH, FileT, FileB };
    static constexpr int kKinds = 4;

    // Checks the bitmaps of a terrain; stored names are resolved against the layout's folder.
    // Reports each rejected file once through the user-interface port.
    void Check(const CNodeLandschaft& terrain, const std::string& layoutFolder);

    // The attribute the kind is stored under ("FarbenFile" ...).
    static const char* AttributeName(Kind kind);
    const std::string& FileName(Kind kind) const { return files_[kind]; }
    bool Accepted(Kind kind) const { return accepted_[kind]; }
    int ExpectedWidth() const { return expectedWidth_; }
    int ExpectedHeight() const { return expectedHeight_; }

    // The decoded colour map, or an empty image when it is not used.
    const CPlanImage& Background() const { return background_; }

private:
    bool CheckOne(Kind kind, const std::string& stored, const std::string& layoutFolder);

    std::array<std::string, kKinds> files_;
    std::array<bool, kKinds> accepted_{};
    int expectedWidth_ = 0;
    int expectedHeight_ = 0;
    CPlanImage background_;
};

} // namespace kavrin
