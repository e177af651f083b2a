#include "plan/CGleisIdList.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "core/modTools.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "plan/CSelection.h"

namespace kavrin {

namespace {
bool IsSeparator(char c) {
    return c == ',' || c == ';' || std::isspace(static_cast<unsigned char>(c));
}

// A whole number with an optional sign that fits into 32 bits, nothing else.
bool ReadId(std::string_view text, int32_t& id) {
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    if (text.empty() || text.front() == '+')
        return false;
    auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), id);
    return failure == std::errc() && end == text.data() + text.size();
}

bool ReadItem(std::string_view text, CGleisIdList::Item& item) {
    item.text = std::string(text);
    size_t dots = text.find("..", 1);
    if (dots == std::string_view::npos)
        return ReadId(text, item.from) && (item.to = item.from, true);
    if (!ReadId(text.substr(0, dots), item.from) || !ReadId(text.substr(dots + 2), item.to))
        return false;
    if (item.from > item.to)
        std::swap(item.from, item.to);
    return true;
}
} // namespace

// Blanks around ".." belong to the range ("40 .. 55").
std::string CGleisIdList::JoinRanges(std::string_view text) {
    std::string joined;
    for (size_t i = 0; i < text.size(); ++i) {
        if (std::isspace(static_cast<unsigned char>(text[i]))) {
            size_t next = i;
            while (next < text.size() && std::isspace(static_cast<unsigned char>(text[next])))
                ++next;
            bool beforeDots = text.substr(next).starts_with("..");
            bool afterDots = std::string_view(joined).ends_with("..");
            if (beforeDots || afterDots) {
                i = next - 1;
                continue;
            }
        }
        joined += text[i];
    }
    return joined;
}

bool CGleisIdList::Parse(std::string_view text, std::string& error) {
    items_.clear();
    std::string joined = JoinRanges(text);
    std::string_view rest = joined;
    while (!rest.empty()) {
        size_t length = 0;
        while (length < rest.size() && !IsSeparator(rest[length]))
            ++length;
        if (length > 0) {
            Item item;
            if (!ReadItem(rest.substr(0, length), item)) {
                error = FormatMessage("Ungültige Angabe >%1< in der Liste der Gleis-IDs.%n"
                                      "Erlaubt sind Zahlen und Bereiche, z. B. 12, 40..55, -3",
                                      rest.substr(0, length));
                items_.clear();
                return false;
            }
            items_.push_back(std::move(item));
        }
        rest.remove_prefix(std::min(rest.size(), length + 1));
    }
    if (items_.empty()) {
        error = FormatMessage("Es ist keine Gleis-ID angegeben.");
        return false;
    }
    return true;
}

std::vector<std::string> CGleisIdList::Select(CSelection& selection, const CNodeGleisSys& system,
                                              int mode) const {
    std::vector<std::string> notTaken;
    for (const Item& item : items_) {
        bool taken = false;
        auto take = [&](CNodeGleis* track) {
            if (track && track->Consider(mode)) {
                selection.Add(*track);
                taken = true;
            }
        };
        if (item.from == item.to)
            take(system.FindGleis(item.from));
        else
            for (CNodeGleis* track : system.Gleise().Tracks())
                if (track->ID() >= item.from && track->ID() <= item.to)
                    take(track);
        if (!taken)
            notTaken.push_back(item.text);
    }
    return notTaken;
}

} // namespace kavrin
