#include "core/CStringPack.h"

#include "core/CError.h"

namespace kavrin {

namespace {
const std::string kUnknownText = "? ? ?";
constexpr size_t kGrowth = 20;
} // namespace

CStringPack::CStringPack() {
    texts_.resize(kGrowth + 1);
}

int16_t CStringPack::PutString(std::string_view text) {
    auto found = index_.find(text);
    if (found != index_.end())
        return found->second;
    if (count_ == kMaxTexts)
        throw CError::Overflow();
    if (static_cast<size_t>(count_) + 1 >= texts_.size())
        texts_.resize(texts_.size() + kGrowth);
    ++count_;
    texts_[static_cast<size_t>(count_)] = std::string(text);
    index_.emplace(std::string(text), count_);
    return count_;
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
    static CStringPack pack;
    return pack;
}

CStringPack& AttributeNames() {
    static CStringPack pack;
    return pack;
}

CStringPack& ClassTexts() {
    static CStringPack pack;
    return pack;
}

CFilenamePack& FileNames() {
    static CFilenamePack pack;
    return pack;
}

} // namespace kavrin
