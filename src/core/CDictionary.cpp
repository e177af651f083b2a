#include "core/CDictionary.h"

#include <algorithm>
#include <utility>

namespace kavrin {

const CDictionary::Entry* CDictionary::FindEntry(int16_t key) const {
    auto it = std::find_if(entries_.begin(), entries_.end(), [key](const Entry& e) { return e.key == key; });
    return it == entries_.end() ? nullptr : &*it;
}

const std::string* CDictionary::Item(int16_t key) const {
    const Entry* entry = FindEntry(key);
    return entry ? &entry->value : nullptr;
}

std::string* CDictionary::Item(int16_t key) {
    return const_cast<std::string*>(std::as_const(*this).Item(key));
}

bool CDictionary::Delete(int16_t key) {
    auto it = std::find_if(entries_.begin(), entries_.end(), [key](const Entry& e) { return e.key == key; });
    if (it == entries_.end())
        return false;
    entries_.erase(it);
    return true;
}

} // namespace kavrin
