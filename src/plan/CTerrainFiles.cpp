#include "plan/CTerrainFiles.h"

#include <algorithm>
#include <filesystem>

#include "core/modPaths.h"
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
    if (std::filesystem::equivalent(PathFromUtf8(a), PathFromUtf8(b), error))
        return true;
    return std::filesystem::weakly_canonical(PathFromUtf8(a), error) ==
           std::filesystem::weakly_canonical(PathFromUtf8(b), error);
}
} // namespace

std::string CTerrainFiles::Resolve(const std::string& stored, const std::string& folder) {
    std::filesystem::path path = PathFromUtf8(folder) / PathFromUtf8(Relative(stored));
    std::error_code error;
    if (std::filesystem::exists(path, error))
        return Utf8FromPath(path);
    std::string wanted = Lower(Utf8FromPath(path.filename()));
    for (const auto& entry : std::filesystem::directory_iterator(path.parent_path(), error))
        if (Lower(Utf8FromPath(entry.path().filename())) == wanted)
            return Utf8FromPath(entry.path());
    return Utf8FromPath(path);
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
        copies.push_back({source, Utf8FromPath(PathFromUtf8(toFolder) / PathFromUtf8(Relative(*stored)))});
    }
    return copies;
}

bool CTerrainFiles::CopyFile(const Copy& copy, std::string& error) {
    std::error_code failure;
    std::filesystem::create_directories(PathFromUtf8(copy.target).parent_path(), failure);
    std::filesystem::copy_file(PathFromUtf8(copy.source), PathFromUtf8(copy.target),
                               std::filesystem::copy_options::overwrite_existing, failure);
    if (!failure)
        return true;
    error = FormatMessage("Die Datei%n%1%nkonnte nicht nach%n%2%nkopiert werden:%n%3", copy.source,
                          copy.target, SystemErrorText(failure.value()));
    return false;
}

} // namespace kavrin
