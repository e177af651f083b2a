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
    enum class Problem { None, Missing, Invalid, WrongSize };

    // Checks the bitmaps of a terrain; stored names are resolved against the layout's folder.
    // Each rejected file is reported once, as a hint of the parse log: a layout whose terrain
    // maps are missing is still a sound layout.
    void Check(const CNodeLandschaft& terrain, const std::string& layoutFolder);

    // The attribute the kind is stored under ("FarbenFile" ...).
    static const char* AttributeName(Kind kind);
    const std::string& FileName(Kind kind) const { return files_[kind]; }
    bool Accepted(Kind kind) const { return accepted_[kind]; }
    // Why a named bitmap was rejected, and the hint that said so (empty when accepted or unnamed).
    Problem ProblemOf(Kind kind) const { return problems_[kind]; }
    const std::string& Notice(Kind kind) const { return notices_[kind]; }
    int ExpectedWidth() const { return expectedWidth_; }
    int ExpectedHeight() const { return expectedHeight_; }

    // The decoded colour map, or an empty image when it is not used.
    const CPlanImage& Background() const { return background_; }

private:
    bool CheckOne(Kind kind, const std::string& stored, const std::string& layoutFolder);
    bool Reject(Kind kind, Problem problem, std::string notice);

    std::array<std::string, kKinds> files_;
    std::array<bool, kKinds> accepted_{};
    std::array<Problem, kKinds> problems_{};
    std::array<std::string, kKinds> notices_;
    int expectedWidth_ = 0;
    int expectedHeight_ = 0;
    CPlanImage background_;
};

} // namespace kavrin
