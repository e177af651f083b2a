#include "XmlEquivalence.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "core/modTools.h"

namespace kavrin::test {

namespace {

bool IsNumber(const std::string& text) {
    if (text.empty())
        return false;
    char* end = nullptr;
    std::strtod(text.c_str(), &end);
    return end == text.c_str() + text.size();
}

bool SameValue(const std::string& a, const std::string& b) {
    if (a == b)
        return true;
    if (!IsNumber(a) || !IsNumber(b))
        return false;
    double x = TextToNumber(a), y = TextToNumber(b);
    return std::fabs(x - y) <= 1e-6 * std::max(std::fabs(x), std::fabs(y));
}

// The attribute value or element text around position i: from after the previous quote or '>'
// to before the next quote or '<'.
std::pair<size_t, size_t> ValueAround(const std::string& text, size_t i) {
    size_t begin = text.find_last_of("\"><", i == 0 ? 0 : i - 1);
    begin = begin == std::string::npos ? 0 : begin + 1;
    size_t end = text.find_first_of("\"<>", i);
    return {begin, end == std::string::npos ? text.size() : end};
}

std::string Around(const std::string& text, size_t i) {
    size_t from = i < 60 ? 0 : i - 60;
    return text.substr(from, 120);
}
} // namespace

std::string OwnedNumberDifference(const std::string& original, const std::string& saved) {
    size_t a = 0, b = 0;
    while (a < original.size() && b < saved.size()) {
        if (original[a] == saved[b]) {
            ++a, ++b;
            continue;
        }
        auto [aBegin, aEnd] = ValueAround(original, a);
        auto [bBegin, bEnd] = ValueAround(saved, b);
        std::string x = original.substr(aBegin, aEnd - aBegin), y = saved.substr(bBegin, bEnd - bBegin);
        if (a - aBegin != b - bBegin || !IsNumber(x) || !IsNumber(y) || !SameValue(x, y))
            return "differs at byte " + std::to_string(a) + ":\n  " + Around(original, a) + "\n  " +
                   Around(saved, b);
        a = aEnd, b = bEnd;
    }
    if (a != original.size() || b != saved.size())
        return "lengths differ: " + std::to_string(original.size()) + " vs " + std::to_string(saved.size());
    return {};
}

} // namespace kavrin::test
