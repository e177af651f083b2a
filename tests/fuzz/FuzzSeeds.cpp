// Writes small seeds for the layout fuzzer, cut at run time from real layouts (the shared
// samples and the demo), so that no sample is copied into the repository:
//   kavrin-fuzz-seeds OUTDIR LAYOUT...
// Each layout gives an outline (every element keeps at most two children of each name; a track
// system its first tracks with the connections between them) and one seed per chapter (the
// outline's version and terrain with that chapter alone). libFuzzer runs fast on a few
// kilobytes; the real files are hundreds.
#include <cstdio>
#include <fstream>
#include <map>
#include <pugixml.hpp>
#include <set>
#include <sstream>
#include <string>

namespace {

constexpr unsigned kOptions = (pugi::parse_default & ~pugi::parse_wconv_attribute & ~pugi::parse_eol) |
                              pugi::parse_pi | pugi::parse_declaration;
constexpr int kPerName = 2;
constexpr int kTracks = 4;

void KeepFewTracks(pugi::xml_node system) {
    std::set<std::string> kept;
    int tracks = 0;
    for (pugi::xml_node child = system.first_child(); child;) {
        pugi::xml_node next = child.next_sibling();
        std::string name = child.name();
        if (name == "Gleis") {
            if (++tracks > kTracks)
                system.remove_child(child);
            else
                kept.insert(child.attribute("GleisID").value());
        } else if (name == "Gleisverbindung") {
            if (!kept.count(child.attribute("GleisID1").value()) ||
                !kept.count(child.attribute("GleisID2").value()))
                system.remove_child(child);
        }
        child = next;
    }
}

void Reduce(pugi::xml_node element) {
    if (std::string(element.name()) == "Gleissystem")
        KeepFewTracks(element);
    std::map<std::string, int> seen;
    for (pugi::xml_node child = element.first_child(); child;) {
        pugi::xml_node next = child.next_sibling();
        if (child.type() == pugi::node_element) {
            std::string name = child.name();
            bool track = std::string(element.name()) == "Gleissystem" &&
                         (name == "Gleis" || name == "Gleisverbindung");
            if (!track && ++seen[name] > kPerName)
                element.remove_child(child);
            else
                Reduce(child);
        }
        child = next;
    }
}

bool Write(const pugi::xml_document& document, const std::string& path) {
    std::ostringstream text;
    document.save(text, "", pugi::format_raw);
    std::ofstream out(path, std::ios::binary);
    out << text.str() << '\n';
    return static_cast<bool>(out);
}

std::string BaseName(const std::string& path) {
    size_t slash = path.find_last_of('/');
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    size_t dot = name.rfind('.');
    return dot == std::string::npos ? name : name.substr(0, dot);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "Aufruf: kavrin-fuzz-seeds AUSGABEORDNER ANLAGE...\n");
        return 2;
    }
    std::string out = argv[1];
    int written = 0;
    for (int i = 2; i < argc; ++i) {
        pugi::xml_document outline;
        if (!outline.load_file(argv[i], kOptions)) {
            std::fprintf(stderr, "%s: nicht lesbar, übergangen\n", argv[i]);
            continue;
        }
        Reduce(outline.document_element());
        std::string base = out + "/" + BaseName(argv[i]);
        written += Write(outline, base + ".anl3");
        int position = -1;
        for (pugi::xml_node chapter : outline.document_element().children()) {
            ++position;
            std::string name = chapter.name();
            if (chapter.type() != pugi::node_element || name == "Version" || name == "Schandlaft")
                continue;
            pugi::xml_document single;
            single.reset(outline);
            pugi::xml_node root = single.document_element();
            int at = 0;
            for (pugi::xml_node child = root.first_child(); child; ++at) {
                pugi::xml_node next = child.next_sibling();
                std::string childName = child.name();
                if (at != position && childName != "Version" && childName != "Schandlaft")
                    root.remove_child(child);
                child = next;
            }
            written += Write(single, base + "-" + std::to_string(position) + "-" + name + ".anl3");
        }
    }
    std::printf("%d Startwerte geschrieben\n", written);
    return written > 0 ? 0 : 1;
}
