#include "plan/CTerrainFiles.h"

#include <algorithm>
#include <filesystem>

#include "core/modTools.h"
#include "nodes/CNodeLandschaft.h"

namespace kavrin {

namespace {
std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// A stored name as a relative path of this system.
std::string Relative(const std::string& stored) {
    std::string relative = stored;
    std::replace(relative.begin(), relative.end(), '\\', '/');
    while (!relative.empty() && relative.front() == '/')
        relative.erase(0, 1);
    return relative;
}

bool SameFolder(const std::string& a, const std::string& b) {
    std::error_code error;
    if (std::filesystem::equivalent(a, b, error))
        return true;
    return std::filesystem::weakly_canonical(a, error) == std::filesystem::weakly_canonical(b, error);
}
} // namespace

std::string CTerrainFiles::Resolve(const std::string& stored, const std::string& folder) {
    std::filesystem::path path = std::filesystem::path(folder) / Relative(stored);
    std::error_code error;
    if (std::filesystem::exists(path, error))
        return path.string();
    std::string wanted = Lower(path.filename().string());
    for (const auto& entry : std::filesystem::directory_iterator(path.parent_path(), error))
        if (Lower(entry.path().filename().string()) == wanted)
            return entry.path().string();
    return path.string();
}

std::vector<CTerrainFiles::Copy> CTerrainFiles::ToCopy(const CNodeLandschaft& terrain,
                                                       const std::string& fromFolder,
                                                       const std::string& toFolder) {
    std::vector<Copy> copies;
    if (SameFolder(fromFolder, toFolder))
        return copies;
    for (const std::string* stored :
         {&terrain.FarbenFile(), &terrain.HoehenFile(), &terrain.TexturenFile(), &terrain.TextureBinFile()}) {
        if (stored->empty())
            continue;
        std::string source = Resolve(*stored, fromFolder);
        if (!FileExists(source))
            continue;
        // The copy keeps the name the layout stores, so that the new layout finds it.
        copies.push_back({source, (std::filesystem::path(toFolder) / Relative(*stored)).string()});
    }
    return copies;
}

bool CTerrainFiles::CopyFile(const Copy& copy, std::string& error) {
    std::error_code failure;
    std::filesystem::create_directories(std::filesystem::path(copy.target).parent_path(), failure);
    std::filesystem::copy_file(copy.source, copy.target, std::filesystem::copy_options::overwrite_existing,
                               failure);
    if (!failure)
        return true;
    error = FormatMessage("Die Datei%n%1%nkonnte nicht nach%n%2%nkopiert werden:%n%3", copy.source,
                          copy.target, SystemErrorText(failure.value()));
    return false;
}

} // namespace kavrin
