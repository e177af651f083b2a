// Repeats a real layout side by side until the file reaches a given size, for benchmarks with
// the structure of that very file: every copy's tracks, connections and buildings get ids of
// their own and stand in their own square of a grid, and the terrain grows to hold them all.
// Usage: kavrin-repeat EIN.anl3 AUS.anl3 MB
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace {

constexpr unsigned kOptions = pugi::parse_default & ~pugi::parse_wconv_attribute & ~pugi::parse_eol;

double Number(const pugi::xml_attribute& attribute) {
    return std::strtod(attribute.value(), nullptr);
}

void Shift(pugi::xml_attribute attribute, double by) {
    if (attribute)
        attribute.set_value(Number(attribute) + by);
}

void ShiftId(pugi::xml_node node, const char* name, long offset) {
    if (pugi::xml_attribute attribute = node.attribute(name))
        attribute.set_value(std::atol(attribute.value()) + offset);
}

// Moves a placed object: the Dreibein position in cm, or the outer Frame position in metres.
void Move(pugi::xml_node object, double dxCm, double dyCm) {
    for (pugi::xml_node child : object.children()) {
        if (std::string(child.name()) == "Dreibein") {
            for (pugi::xml_node vektor : child.children("Vektor"))
                if (std::string(vektor.child_value()) == "Pos") {
                    Shift(vektor.attribute("x"), dxCm);
                    Shift(vektor.attribute("y"), dyCm);
                }
        } else if (std::string(child.name()) == "Frame") {
            pugi::xml_node position = child.child("Position");
            Shift(position.attribute("x"), dxCm / 100);
            Shift(position.attribute("y"), dyCm / 100);
        }
    }
}

struct Chapter {
    pugi::xml_node node;
    std::vector<pugi::xml_node> tracks;
    std::vector<pugi::xml_node> connections;
    std::vector<pugi::xml_node> buildings;
};

// Counts the bytes the writer would write.
struct CountingWriter : pugi::xml_writer {
    size_t bytes = 0;
    void write(const void*, size_t size) override { bytes += size; }
};

size_t TextSize(const std::vector<pugi::xml_node>& nodes) {
    CountingWriter counter;
    for (const pugi::xml_node& node : nodes)
        node.print(counter, "", pugi::format_raw);
    return counter.bytes;
}

long LargestId(const std::vector<pugi::xml_node>& nodes, const char* name) {
    long largest = 0;
    for (const pugi::xml_node& node : nodes)
        largest = std::max(largest, std::atol(node.attribute(name).value()));
    return largest;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "Aufruf: kavrin-repeat EIN.anl3 AUS.anl3 MB\n";
        return 2;
    }
    pugi::xml_document document;
    if (!document.load_file(argv[1], kOptions)) {
        std::cerr << "Die Anlage kann nicht gelesen werden.\n";
        return 1;
    }
    pugi::xml_node root = document.document_element();
    pugi::xml_node terrain = root.child("Schandlaft");
    double dichte = Number(terrain.attribute("dichte"));
    double width = Number(terrain.attribute("extX")) / dichte,
           height = Number(terrain.attribute("extY")) / dichte;

    std::vector<Chapter> chapters;
    for (pugi::xml_node node : root.children()) {
        std::string name = node.name();
        if (name != "Gleissystem" && name != "Gebaeudesammlung")
            continue;
        Chapter chapter{node, {}, {}, {}};
        for (pugi::xml_node child : node.children()) {
            std::string kind = child.name();
            if (kind == "Gleis")
                chapter.tracks.push_back(child);
            else if (kind == "Gleisverbindung")
                chapter.connections.push_back(child);
            else if (kind == "Immobile")
                chapter.buildings.push_back(child);
        }
        chapters.push_back(chapter);
    }
    // Only the tracks, connections and buildings are repeated: the copies needed to reach the size.
    size_t perCopy = 0;
    for (const Chapter& chapter : chapters)
        perCopy += TextSize(chapter.tracks) + TextSize(chapter.connections) + TextSize(chapter.buildings);
    double targetBytes = std::atof(argv[3]) * 1024 * 1024;
    double sampleBytes = static_cast<double>(std::filesystem::file_size(argv[1]));
    int copies =
        std::max(1, 1 + static_cast<int>((targetBytes - sampleBytes) / std::max<size_t>(perCopy, 1)));
    int side = static_cast<int>(std::ceil(std::sqrt(copies)));
    for (int copy = 1; copy < copies; ++copy) {
        double dx = (copy % side) * width, dy = (copy / side) * height;
        for (Chapter& chapter : chapters) {
            long offset = copy * (LargestId(chapter.tracks, "GleisID") + 1);
            pugi::xml_node lastTrack = chapter.tracks.empty() ? pugi::xml_node() : chapter.tracks.back();
            for (const pugi::xml_node& track : chapter.tracks) {
                pugi::xml_node added = chapter.node.insert_copy_after(track, lastTrack);
                lastTrack = added;
                ShiftId(added, "GleisID", offset);
                Move(added, dx, dy);
            }
            for (const pugi::xml_node& connection : chapter.connections) {
                pugi::xml_node added = chapter.node.append_copy(connection);
                ShiftId(added, "GleisID1", offset);
                ShiftId(added, "GleisID2", offset);
            }
            long immoOffset = copy * (LargestId(chapter.buildings, "ImmoIdx") + 1);
            for (const pugi::xml_node& building : chapter.buildings) {
                pugi::xml_node added = chapter.node.append_copy(building);
                ShiftId(added, "ImmoIdx", immoOffset);
                Move(added, dx, dy);
            }
        }
    }
    // The terrain grows to the north and east to hold the grid.
    terrain.attribute("extX").set_value(std::lround(Number(terrain.attribute("extX")) * side));
    terrain.attribute("extY").set_value(std::lround(Number(terrain.attribute("extY")) * side));
    if (!document.save_file(argv[2], "", pugi::format_raw)) {
        std::cerr << "Die Anlage kann nicht geschrieben werden.\n";
        return 1;
    }
    std::printf("%s: %d Kopien von %s\n", argv[2], copies, argv[1]);
    return 0;
}
