#include "core/CDictionary.h"

#include <algorithm>

namespace kavrin {

CDictionary::Entry CDictionary::At(size_t index) const {
    const Slot& slot = slots_[index];
    return {slot.key, std::string_view(text_).substr(slot.offset, slot.length)};
}

const CDictionary::Slot* CDictionary::Find(int16_t key) const {
    auto it = std::find_if(slots_.begin(), slots_.end(), [key](const Slot& s) { return s.key == key; });
    return it == slots_.end() ? nullptr : &*it;
}

void CDictionary::Add(int16_t key, std::string_view value) {
    slots_.push_back({key, static_cast<uint32_t>(text_.size()), static_cast<uint32_t>(value.size())});
    text_.append(value);
}

bool CDictionary::Set(int16_t key, std::string_view value) {
    auto* slot = const_cast<Slot*>(Find(key));
    if (!slot)
        return false;
    if (value.size() <= slot->length) {
        text_.replace(slot->offset, value.size(), value);
    } else {
        // The old text stays behind until a compaction; `value` may point into it.
        std::string copy(value);
        slot->offset = static_cast<uint32_t>(text_.size());
        text_.append(copy);
    }
    slot->length = static_cast<uint32_t>(value.size());
    Compact();
    return true;
}

void CDictionary::Clear() {
    slots_.clear();
    slots_.shrink_to_fit();
    text_.clear();
    text_.shrink_to_fit();
}

std::optional<std::string_view> CDictionary::Item(int16_t key) const {
    const Slot* slot = Find(key);
    if (!slot)
        return std::nullopt;
    return std::string_view(text_).substr(slot->offset, slot->length);
}

bool CDictionary::Delete(int16_t key) {
    auto it = std::find_if(slots_.begin(), slots_.end(), [key](const Slot& s) { return s.key == key; });
    if (it == slots_.end())
        return false;
    slots_.erase(it);
    Compact();
    return true;
}

void CDictionary::Reserve(size_t n, size_t bytes) {
    slots_.reserve(n);
    text_.reserve(bytes);
}

void CDictionary::Compact() {
    size_t live = 0;
    for (const Slot& slot : slots_)
        live += slot.length;
    if (text_.size() - live <= std::max<size_t>(live, 64))
        return;
    std::string packed;
    packed.reserve(live);
    for (Slot& slot : slots_) {
        uint32_t offset = static_cast<uint32_t>(packed.size());
        packed.append(text_, slot.offset, slot.length);
        slot.offset = offset;
    }
    text_ = std::move(packed);
}

} // namespace kavrin
