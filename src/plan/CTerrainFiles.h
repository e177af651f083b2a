#pragma once

#include <string>
#include <vector>

namespace kavrin {

class CNodeLandschaft;

// The terrain's bitmap files beside a layout: where a stored name points, and which files a
// copy of the layout in another folder needs so that it opens with its colour map.
class CTerrainFiles {
public:
    struct Copy {
        std::string source;
        std::string target;
    };

    // The file a stored name ("\NameF.bmp", Windows separators, relative to the layout's folder)
    // stands for. The files were written on a system that ignores case, so a file that differs
    // only in case is the same file.
    static std::string Resolve(const std::string& stored, const std::string& folder);

    // The four bitmaps (colour, height, texture, texture index) that exist beside the layout in
    // `fromFolder`, each with where it goes in `toFolder`; none when both are the same folder.
    static std::vector<Copy> ToCopy(const CNodeLandschaft& terrain, const std::string& fromFolder,
                                    const std::string& toFolder);

    // Copies one file, replacing what is there; false with a German reason.
    static bool CopyFile(const Copy& copy, std::string& error);
};

} // namespace kavrin
