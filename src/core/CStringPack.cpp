#include "core/CStringPack.h"

#include <algorithm>

#include "core/CError.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
const std::string kUnknownText = "? ? ?";
constexpr size_t kGrowth = 20;
} // namespace

CStringPack::CStringPack(std::string contents) : contents_(std::move(contents)) {
    texts_.resize(kGrowth + 1);
}

size_t CStringPack::CacheSlot(std::string_view text) {
    size_t n = text.size();
    if (n == 0)
        return 0;
    auto at = [&](size_t i) { return static_cast<size_t>(static_cast<unsigned char>(text[i])); };
    return (n * 131 + at(0) * 31 + at(n - 1) * 7 + at(n / 2)) & 511;
}

int16_t CStringPack::PutString(std::string_view text) {
    size_t slot = CacheSlot(text);
    int16_t cached = cache_[slot];
    if (cached && texts_[static_cast<size_t>(cached)] == text)
        return cached;
    auto found = index_.find(text);
    if (found != index_.end()) {
        cache_[slot] = found->second;
        return found->second;
    }
    if (count_ == kMaxTexts)
        throw CError(CError::Overflow().Number(),
                     FormatMessage("Überlauf: mehr als %1 verschiedene %2", kMaxTexts, contents_));
    if (static_cast<size_t>(count_) + 1 >= texts_.size())
        texts_.resize(texts_.size() + kGrowth);
    ++count_;
    texts_[static_cast<size_t>(count_)] = std::string(text);
    index_.emplace(std::string(text), count_);
    cache_[slot] = count_;
    return count_;
}

void CStringPack::Reset() {
    texts_.assign(kGrowth + 1, std::string());
    std::fill(cache_.begin(), cache_.end(), int16_t{0});
    index_.clear();
    count_ = 0;
    ++generation_;
}

const std::string& CStringPack::GetString(int16_t index) const {
    if (index < 1 || index > count_)
        return kUnknownText;
    return texts_[static_cast<size_t>(index)];
}

int16_t CStringPack::GetIndex(std::string_view text) const {
    auto found = index_.find(text);
    return found == index_.end() ? 0 : found->second;
}

CStringPack& ElementNames() {
    static CStringPack pack("Elementnamen");
    return pack;
}

CStringPack& AttributeNames() {
    static CStringPack pack("Attributnamen");
    return pack;
}

CStringPack& ClassTexts() {
    static CStringPack pack("Modellklassen");
    return pack;
}

CFilenamePack& FileNames() {
    static CFilenamePack pack;
    return pack;
}

} // namespace kavrin
