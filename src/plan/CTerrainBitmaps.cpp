#include "plan/CTerrainBitmaps.h"

#include "core/modTools.h"
#include "nodes/CNodeLandschaft.h"
#include "plan/CBmpFile.h"
#include "plan/CTerrainFiles.h"

namespace kavrin {

const char* CTerrainBitmaps::AttributeName(Kind kind) {
    static const char* const names[kKinds] = {"FarbenFile", "HoehenFile", "TexturenFile", "TextureBinFile"};
    return names[kind];
}

void CTerrainBitmaps::Check(const CNodeLandschaft& terrain, const std::string& layoutFolder) {
    expectedWidth_ = terrain.extX();
    expectedHeight_ = terrain.extY();
    const std::string* stored[kKinds] = {&terrain.FarbenFile(), &terrain.HoehenFile(),
                                         &terrain.TexturenFile(), &terrain.TextureBinFile()};
    background_ = {};
    for (int i = 0; i < kKinds; ++i) {
        auto kind = static_cast<Kind>(i);
        files_[kind] = *stored[i];
        problems_[kind] = Problem::None;
        notices_[kind].clear();
        accepted_[kind] = CheckOne(kind, *stored[i], layoutFolder);
    }
}

bool CTerrainBitmaps::Reject(Kind kind, Problem problem, std::string notice) {
    problems_[kind] = problem;
    notices_[kind] = std::move(notice);
    AddParseHint(notices_[kind]);
    return false;
}

bool CTerrainBitmaps::CheckOne(Kind kind, const std::string& stored, const std::string& layoutFolder) {
    if (stored.empty())
        return false;
    std::string shown = stored.substr(1);
    std::string path = CTerrainFiles::Resolve(stored, layoutFolder);
    if (!FileExists(path))
        return Reject(kind, Problem::Missing,
                      FormatMessage("%1 '%2' nicht vorhanden", AttributeName(kind), shown));
    CBmpFile bitmap;
    if (!bitmap.Open(path))
        return Reject(
            kind, Problem::Invalid,
            FormatMessage("%1 '%2' ist keine gültige BMP-Datei;%nsie wird während dieser Sitzung ignoriert.",
                          AttributeName(kind), shown));
    if (bitmap.Width() != expectedWidth_ || bitmap.Height() != expectedHeight_)
        return Reject(kind, Problem::WrongSize,
                      FormatMessage("%1 '%2' hat die falsche Größe %3 x %4;%nerwartet werden %5 x %6 Pixel.",
                                    AttributeName(kind), shown, bitmap.Width(), bitmap.Height(),
                                    expectedWidth_, expectedHeight_));
    if (kind == FileF)
        background_ = bitmap.Decode();
    return true;
}

} // namespace kavrin
