#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "../nodes/SceneryLayoutFixture.h"
#include "nodes/CNodeLandschaft.h"
#include "plan/CBmpFile.h"
#include "plan/CTerrainBitmaps.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

void Put32(std::string& b, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        b.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
}
void Put16(std::string& b, uint16_t v) {
    b.push_back(static_cast<char>(v & 0xFF));
    b.push_back(static_cast<char>(v >> 8));
}

// An uncompressed 24-bit bitmap, rows bottom-up: the bottom row red, the others blue.
std::string Bmp(int width, int height) {
    int stride = (width * 3 + 3) / 4 * 4;
    std::string b = "BM";
    Put32(b, static_cast<uint32_t>(54 + stride * height));
    Put32(b, 0);
    Put32(b, 54);
    Put32(b, 40);
    Put32(b, static_cast<uint32_t>(width));
    Put32(b, static_cast<uint32_t>(height));
    Put16(b, 1);
    Put16(b, 24);
    for (int i = 0; i < 6; ++i)
        Put32(b, 0);
    for (int row = 0; row < height; ++row) {
        for (int x = 0; x < width; ++x)
            b += row == 0 ? std::string("\x00\x00\xFF", 3) : std::string("\xFF\x00\x00", 3);
        b.append(static_cast<size_t>(stride - width * 3), '\0');
    }
    return b;
}

const char* const kTerrain =
    "<Schandlaft extX=\"6\" extY=\"4\" posX=\"-2000\" posY=\"-1000\" dichte=\"1.5E-03\" "
    "FarbenFile=\"\\tF.bmp\" HoehenFile=\"\\tH.bmp\" TexturenFile=\"\\tT.bmp\" "
    "TextureBinFile=\"\"/>";

class TerrainBitmaps : public SceneryLayoutFixture {
protected:
    void Check() {
        ASSERT_TRUE(Load(LayoutText("", kTerrain)));
        scope.ui.errors.clear();
        scope.ui.parseLog.Open(path);
        bitmaps.Check(Single<CNodeLandschaft>(), dir.File(""));
    }
    CTerrainBitmaps bitmaps;
};

} // namespace

TEST_F(TerrainBitmaps, EachFileIsCheckedInOrderAndReportedOnce) {
    WriteFile(dir.File("tF.bmp"), Bmp(6, 4));
    WriteFile(dir.File("tH.bmp"), Bmp(5, 4));
    WriteFile(dir.File("tT.bmp"), "GIF89a kein Bitmap");
    Check();
    EXPECT_TRUE(bitmaps.Accepted(CTerrainBitmaps::FileF));
    EXPECT_FALSE(bitmaps.Accepted(CTerrainBitmaps::FileH));
    EXPECT_FALSE(bitmaps.Accepted(CTerrainBitmaps::FileT));
    EXPECT_FALSE(bitmaps.Accepted(CTerrainBitmaps::FileB)) << "an empty name is simply not used";
    EXPECT_EQ(bitmaps.ProblemOf(CTerrainBitmaps::FileF), CTerrainBitmaps::Problem::None);
    EXPECT_EQ(bitmaps.ProblemOf(CTerrainBitmaps::FileH), CTerrainBitmaps::Problem::WrongSize);
    EXPECT_EQ(bitmaps.ProblemOf(CTerrainBitmaps::FileT), CTerrainBitmaps::Problem::Invalid);
    EXPECT_EQ(bitmaps.ProblemOf(CTerrainBitmaps::FileB), CTerrainBitmaps::Problem::None);
    EXPECT_EQ(bitmaps.Notice(CTerrainBitmaps::FileH), Hints().at(0));
    // Hints of the parse log, not message boxes.
    EXPECT_TRUE(scope.ui.errors.empty());
    EXPECT_EQ(Hints(),
              (std::vector<std::string>{
                  "HoehenFile 'tH.bmp' hat die falsche Größe 5 x 4;\r\nerwartet werden 6 x 4 Pixel.",
                  "TexturenFile 'tT.bmp' ist keine gültige BMP-Datei;\r\nsie wird während dieser Sitzung "
                  "ignoriert."}));
    ASSERT_EQ(bitmaps.Background().Width(), 6);
    ASSERT_EQ(bitmaps.Background().Height(), 4);
    EXPECT_EQ(bitmaps.Background().Row(3)[0], 0xFFFF0000u) << "the file's first row is the southern edge";
    EXPECT_EQ(bitmaps.Background().Row(0)[5], 0xFF0000FFu);
}

TEST_F(TerrainBitmaps, MissingFilesAndNamesDifferingInCase) {
    WriteFile(dir.File("TF.BMP"), Bmp(6, 4));
    Check();
    EXPECT_TRUE(bitmaps.Accepted(CTerrainBitmaps::FileF)) << "written on a system that ignores case";
    EXPECT_EQ(Hints(), (std::vector<std::string>{"HoehenFile 'tH.bmp' nicht vorhanden",
                                                 "TexturenFile 'tT.bmp' nicht vorhanden"}));
    EXPECT_EQ(bitmaps.ProblemOf(CTerrainBitmaps::FileT), CTerrainBitmaps::Problem::Missing);
}

TEST_F(TerrainBitmaps, ARejectedColourMapLeavesThePlainBackground) {
    WriteFile(dir.File("tF.bmp"), Bmp(7, 4));
    Check();
    EXPECT_TRUE(bitmaps.Background().Empty());
}

TEST(BmpFile, DamagedHeadersAreRefused) {
    TempDir dir;
    std::string good = Bmp(3, 2);
    auto refused = [&](std::string bytes) {
        WriteFile(dir.File("x.bmp"), bytes);
        CBmpFile file;
        return !file.Open(dir.File("x.bmp"));
    };
    EXPECT_FALSE(refused(good));
    EXPECT_TRUE(refused(good.substr(0, 30))) << "cut short";
    EXPECT_TRUE(refused(good.substr(0, good.size() - 4))) << "pixels missing";
    std::string huge = good;
    huge[18] = huge[19] = huge[20] = '\x7F'; // width far beyond any terrain
    EXPECT_TRUE(refused(huge));
    std::string compressed = good;
    compressed[30] = 1;
    EXPECT_TRUE(refused(compressed));
    std::string fourBit = good;
    fourBit[28] = 4;
    EXPECT_TRUE(refused(fourBit));
    CBmpFile missing;
    EXPECT_FALSE(missing.Open(dir.File("none.bmp")));
    EXPECT_TRUE(missing.Decode().Empty());
}
