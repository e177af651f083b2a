#include "app/CMru.h"

#include "app/CSettingsStore.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
const char* const kSection = "Settings";

std::string MruKey(int number) {
    return "MruFile" + std::to_string(number);
}
} // namespace

CMru::CMru() {
    for (int n = 1; n <= kMaxCount; ++n) {
        std::string path = CSettingsStore::Get(kSection, MruKey(n));
        if (path != CSettingsStore::kNoEntry && FileExists(path))
            files_.push_back(path);
    }
}

void CMru::Add(const std::string& path) {
    files_.insert(files_.begin(), path);
    for (size_t i = files_.size() - 1; i >= 1; --i)
        if (files_[i] == path)
            files_.erase(files_.begin() + static_cast<std::ptrdiff_t>(i));
    if (files_.size() > static_cast<size_t>(kMaxCount))
        files_.resize(kMaxCount);
    Save();
}

std::string CMru::Item(int position) const {
    if (position < 1 || position > Count())
        return {};
    return files_[static_cast<size_t>(position - 1)];
}

void CMru::Save() const {
    int n = 1;
    for (const std::string& file : files_)
        CSettingsStore::Save(kSection, MruKey(n++), file);
    for (; n <= kMaxCount; ++n)
        CSettingsStore::Delete(kSection, MruKey(n));
}

} // namespace kavrin
