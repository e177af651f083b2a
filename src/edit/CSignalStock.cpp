#include "edit/CSignalStock.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "core/modPaths.h"

namespace kavrin {

namespace {
std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}
} // namespace

CSignalStock::CSignalStock(const std::string& resourceDirectory) : resourceDirectory_(resourceDirectory) {
    if (resourceDirectory.empty())
        return;
    std::filesystem::path folder = PathFromUtf8(resourceDirectory) / "Signale" / "Signale";
    folder_ = Utf8FromPath(folder);
    std::error_code error;
    std::filesystem::directory_iterator entries(folder, error);
    if (error)
        return;
    for (auto it = std::filesystem::begin(entries); it != std::filesystem::end(entries);) {
        files_.insert(Lower(Utf8FromPath(it->path().filename())));
        it.increment(error);
        if (error) {
            files_.clear(); // a listing broken off halfway checks nothing
            return;
        }
    }
    checked_ = true;
}

bool CSignalStock::Known(const std::string& signalName) const {
    return !checked_ || files_.count(Lower(signalName + ".gsb")) > 0;
}

} // namespace kavrin
