// kavrin-gen: writes synthetic EEP layouts of any size for tests and benchmarks.
#include "CommandLine.h"
#include "LayoutGenerator.h"
#include "LayoutWriter.h"
#include "OutputSink.h"
#include "TerrainBitmaps.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <string>

namespace {

constexpr int kExitOk = 0;
constexpr int kExitWriteFailed = 1;
constexpr int kExitUsage = 2;

bool writeLayout(const kavrin::gen::Layout& layout, const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
        std::fprintf(stderr, "kavrin-gen: Datei '%s' kann nicht zum Schreiben geöffnet werden: %s\n",
                     path.c_str(), std::strerror(errno));
        return false;
    }
    bool ok = false;
    {
        kavrin::gen::OutputSink sink(file);
        kavrin::gen::LayoutWriter(layout, sink).write();
        ok = sink.flush();
    }
    ok = std::fclose(file) == 0 && ok;
    if (!ok) {
        std::fprintf(stderr, "kavrin-gen: Fehler beim Schreiben von '%s': %s\n", path.c_str(),
                     std::strerror(errno));
    }
    return ok;
}

} // namespace

int main(int argc, char** argv) {
    using namespace kavrin::gen;
    std::string error;
    const auto options = parseCommandLine(argc, argv, error);
    if (!options) {
        std::fprintf(stderr, "kavrin-gen: %s\n\n%s", error.c_str(), usageText());
        return kExitUsage;
    }
    if (options->help) {
        std::fputs(usageText(), stdout);
        return kExitOk;
    }
    try {
        const std::string name = std::filesystem::path(options->output).stem().string();
        const auto layout = LayoutGenerator(*options, name).generate();
        if (!writeLayout(*layout, options->output)) {
            return kExitWriteFailed;
        }
        // The demo is opened by new users: it comes with its terrain bitmaps, which also shows the
        // colour map under the plan. Large layouts would only fill the disk with them.
        if (options->demo && !writeTerrainBitmaps(options->output, terrainCells(*layout),
                                                  static_cast<unsigned>(options->seed))) {
            std::fprintf(stderr, "kavrin-gen: die Geländebilder zu '%s' konnten nicht geschrieben werden.\n",
                         options->output.c_str());
            return kExitWriteFailed;
        }
        std::printf("%s: %lld Gleise, %lld Immobilien, %zu Züge\n", options->output.c_str(),
                    layout->trackCount(), layout->buildingCount(), layout->trains().size());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "kavrin-gen: interner Fehler: %s\n", e.what());
        return kExitWriteFailed;
    }
    return kExitOk;
}
