#include "EnvironmentWriter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace kavrin::gen {
namespace {
// The simulator always keeps this many camera slots.
constexpr int kCameraSlots = 160;
constexpr int kTerrainCellsPerCm_x10000 = 15; // dichte 0.0015
constexpr double kTerrainMargin = 5000;
// Cells per side are kept a multiple of 3 so that the lower-left corner is a whole centimetre:
// pos = -cells / 2 / 0.0015 = -cells * 1000 / 3.
constexpr long long kCellStep = 3;

long long cellsFor(double halfExtent) {
    const double cells = 2 * (halfExtent + kTerrainMargin) * kTerrainCellsPerCm_x10000 / 10000.0;
    return std::max(kCellStep, static_cast<long long>(std::ceil(cells / kCellStep)) * kCellStep);
}

unsigned int checksum(std::string_view text, unsigned int seed) {
    unsigned int hash = seed;
    for (char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    }
    return hash;
}
} // namespace

void EnvironmentWriter::write() {
    writeCameras();
    writeSettings();
    writeOptions();
    writeWeather();
    xml_.open("TimeTable");
    xml_.attr("TimeTableItems", 0);
    xml_.attr("VehicleItems", 0);
    xml_.close();
    writeScript();
    writeCameraTour();
    writeTerrain();
    xml_.open("Beschreibung");
    xml_.text(layout_.description);
    xml_.close();
}

void EnvironmentWriter::writeCameras() {
    const auto& cameras = layout_.cameras();
    xml_.open("Kammerasammlung");
    xml_.attr("cnt", kCameraSlots);
    for (int i = 0; i < kCameraSlots; ++i) {
        const bool used = i < static_cast<int>(cameras.size());
        xml_.open("Kammera");
        xml_.attr("name", used ? std::string_view(cameras[static_cast<std::size_t>(i)].name) : "Leer");
        xml_.attr("DOF", 0);
        xml_.attr("Dynamic", 0);
        xml_.attr("FocalIdx", 193);
        xml_.attr("FStopIdx", 13);
        xml_.attr("SubDist", 100);
        xml_.attr("DOFSubDist", 100);
        xml_.num("DOFShiftNear", 9.65);
        xml_.num("DOFShiftFar", 12.965);
        xml_.attr("FOV", 0);
        xml_.attr("TakeSwitch", 0);
        xml_.dreibein(used ? cameras[static_cast<std::size_t>(i)].frame : Frame{});
        xml_.close();
    }
    xml_.close();
}

void EnvironmentWriter::writeSettings() {
    const Frame view = layout_.cameras().empty() ? Frame{} : layout_.cameras().front().frame;
    const Bounds& bounds = layout_.bounds();
    const double centreX = bounds.empty() ? 0 : std::round((bounds.minX + bounds.maxX) / 2);
    const double centreY = bounds.empty() ? 0 : std::round((bounds.minY + bounds.maxY) / 2);
    xml_.open("Settings");
    xml_.attr("TrainElect", 0);
    xml_.attr("AutoSwitch", 1);
    xml_.attr("WaterLevel", 0);
    xml_.num("ActCamera_POSX", view.pos.x);
    xml_.num("ActCamera_POSY", view.pos.y);
    xml_.num("ActCamera_POSZ", view.pos.z);
    xml_.num("ActCamera_DIRX", view.dir.x);
    xml_.num("ActCamera_DIRY", view.dir.y);
    xml_.num("ActCamera_DIRZ", view.dir.z);
    xml_.num("ActCamera_BINX", view.bin.x);
    xml_.num("ActCamera_BINY", view.bin.y);
    xml_.num("ActCamera_BINZ", view.bin.z);
    xml_.num("ActCamera_NORX", view.nor.x);
    xml_.num("ActCamera_NORY", view.nor.y);
    xml_.num("ActCamera_NORZ", view.nor.z);
    xml_.attr("ActCamera_Mode", 0);
    xml_.attr("ActCamera_No", 0);
    xml_.attr("ActCamera_Persp", 0);
    xml_.attr("ActCamera_Timer", 5);
    xml_.attr("ActZugId", layout_.trains().empty() ? 0 : 1);
    xml_.attr("ActRollIdx", -1);
    xml_.attr("Plan2DZoom", 3);
    xml_.num("Plan2DPosX", centreX);
    xml_.num("Plan2DPosY", centreY);
    xml_.attr("GREAT_CL", 140);
    char hotKey[] = "THotKey_A";
    for (char key = 'A'; key <= 'Z'; ++key) {
        hotKey[8] = key;
        xml_.attr(hotKey, "");
    }
    xml_.close();
}

void EnvironmentWriter::writeOptions() {
    xml_.open("Options");
    xml_.attr("RouteItems", 2);
    xml_.attr("SoundItems", 0);
    xml_.attr("RouteId_0", 1);
    xml_.attr("RouteName_0", "Regionalverkehr");
    xml_.attr("RouteId_1", 2);
    xml_.attr("RouteName_1", "Güterverkehr");
    xml_.attr("FavTrainCB", 0);
    xml_.close();
}

void EnvironmentWriter::writeWeather() {
    struct Setting {
        const char* name;
        long long value;
    };
    // clang-format off
    static constexpr Setting kWeather[] = {
        {"bRandom", 0}, {"bClock", 0}, {"bDay", 1}, {"bNight", 0}, {"bRain", 0}, {"bWind", 1}, {"bSnow", 0},
        {"bSun", 1}, {"bMoon", 0}, {"bClouds", 1}, {"iRain", 30}, {"iExtFog", 5}, {"iWind", 40}, {"iSnow", 0},
        {"iSunMoonOrientation", 0}, {"iCloudsMlt", 60}, {"iSeason", 1}, {"iTimeSun", 7}, {"iTimeMoon", 5},
        {"iTimeRandom", 5}, {"TimeH", 9}, {"TimeM", 30}, {"TimeS", 0}, {"TimeInSec", 34200}, {"TimeStep", 1},
        {"SkyPlane", 0}, {"DirLight", 15790320}, {"SkyColor1", 6316128}, {"SkyColor2", 6316128},
        {"SkyColor3", 11579568}, {"SkyColor4", 15921906}, {"SkyColor5", 15790320}, {"SkyColor6", 14737632},
        {"SkyColor7", 12632256}, {"SkyColor8", 9474192}, {"BloomStart", 100}, {"BloomPower", 10},
        {"EEP6FOV", 0}, {"AFSANL", 0}, {"TS1", 0}, {"TS2", 0}, {"TS3", 0}, {"TS4", 0}, {"TerrainLOD", 0},
        {"TerrainNoise", 1}, {"LeftSideTraffic", 0}, {"TrainColl", 0}, {"OnlyNewPhysic", 1}, {"KeepTrNames", 1},
        {"SparkSlip", 1}, {"DefaultT1", 5102}, {"DefaultT2", 1402}, {"DefaultT3", 3520}, {"DefaultT4", 6011}};
    // clang-format on
    xml_.open("Weather");
    if (layout_.format() == TrackFormat::New) {
        xml_.attr("SDIdx", 0);
        xml_.attr("SDFile", "");
        xml_.attr("SDTex", "");
    }
    for (const Setting& setting : kWeather) {
        xml_.attr(setting.name, setting.value);
    }
    xml_.close();
}

void EnvironmentWriter::writeScript() {
    char sums[24];
    std::snprintf(sums, sizeof sums, "%08x %08x", checksum(layout_.name, 2166136261u),
                  checksum(layout_.description, 16777619u));
    xml_.open("EEPLua");
    xml_.attr("LUAS", sums);
    xml_.attr("LUAPath", fileName(".lua"));
    xml_.close();
}

void EnvironmentWriter::writeCameraTour() {
    xml_.open("Kamera3D");
    xml_.attr("cnt", 0);
    xml_.attr("id", 0);
    xml_.attr("Progress", 0);
    char name[16];
    for (int i = 0; i < kCameraSlots; ++i) {
        std::snprintf(name, sizeof name, "CamIdx%d", i);
        xml_.attr(name, i);
    }
    xml_.close();
}

// Centred on the origin and just big enough for everything placed.
TerrainCells terrainCells(const Layout& layout) {
    const Bounds& b = layout.bounds();
    const double halfX = b.empty() ? 0 : std::max(std::abs(b.minX), std::abs(b.maxX));
    const double halfY = b.empty() ? 0 : std::max(std::abs(b.minY), std::abs(b.maxY));
    return {cellsFor(halfX), cellsFor(halfY)};
}

void EnvironmentWriter::writeTerrain() {
    const TerrainCells cells = terrainCells(layout_);
    const long long cellsX = cells.x;
    const long long cellsY = cells.y;
    xml_.open("Schandlaft");
    xml_.attr("HorizonFile", "Horizons\\Huegelland_Sommer_360.3dm");
    xml_.attr("extX", cellsX);
    xml_.attr("extY", cellsY);
    xml_.attr("posX", -cellsX * 1000 / 3);
    xml_.attr("posY", -cellsY * 1000 / 3);
    xml_.attr("h_max", 100000);
    xml_.attr("h_min", -10000);
    xml_.rawAttr("dichte", "0.0015");
    xml_.attr("Routes", 0);
    xml_.attr("HoehenFile", fileName("H.bmp"));
    xml_.attr("FarbenFile", fileName("F.bmp"));
    xml_.attr("TexturenFile", fileName("T.bmp"));
    xml_.attr("TextureBinFile", fileName("B.bmp"));
    xml_.attr("TextureScaleFile", fileName("S.bmp"));
    xml_.attr("AtlasDFile", fileName("AD.dds"));
    xml_.attr("AtlasNFile", fileName("AN.dds"));
    xml_.attr("AtlasHFile", fileName("AH.dds"));
    xml_.attr("AtlasTexCount", 4);
    xml_.attr("AtlasMipMap", 8);
    xml_.attr("AtlasRatioX", 1);
    xml_.attr("AtlasRatioY", 1);
    xml_.attr("AtlasMinTexX", 8);
    xml_.attr("AtlasMinTexY", 8);
    writeAtlas(0, 3101, 0, 0);
    writeAtlas(1, 3102, 0.25, 0);
    writeAtlas(2, 3117, 0.5, 0);
    writeAtlas(3, 3140, 0.75, 0);
    xml_.close();
}

void EnvironmentWriter::writeAtlas(int index, int textureId, double u, double v) {
    xml_.open("Atlas");
    xml_.attr("Idx", index);
    xml_.attr("TexId", textureId);
    xml_.num("tuB", u);
    xml_.num("tvB", v);
    xml_.num("tuE", u + 0.25);
    xml_.num("tvE", v + 0.25);
    xml_.attr("flag", 0);
    xml_.close();
}

// Terrain and script files sit next to the layout and are named after it, with a leading backslash.
std::string EnvironmentWriter::fileName(std::string_view suffix) const {
    return "\\" + layout_.name + std::string(suffix);
}

} // namespace kavrin::gen
