#include "XmlEquivalence.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace kavrin::test {

namespace {

// A plain decimal number read by the C library, not by the program under test (strtod alone
// would also take hexadecimal numbers, "inf" and "nan").
bool ReadDecimal(const std::string& text, double& value) {
    size_t begin = text.find_first_not_of(" \t\r\n"), end = text.find_last_not_of(" \t\r\n");
    if (begin == std::string::npos)
        return false;
    std::string number = text.substr(begin, end - begin + 1);
    if (number.find_first_not_of("0123456789+-.eE") != std::string::npos)
        return false;
    char* stop = nullptr;
    value = std::strtod(number.c_str(), &stop);
    return stop == number.c_str() + number.size();
}

} // namespace

bool SameNumber(const std::string& a, const std::string& b) {
    if (a == b)
        return true;
    double x = 0, y = 0;
    if (!ReadDecimal(a, x) || !ReadDecimal(b, y))
        return false;
    return std::fabs(x - y) <= 1e-6 * std::max(std::fabs(x), std::fabs(y));
}

namespace {

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
        if (a - aBegin != b - bBegin || !SameNumber(x, y))
            return "differs at byte " + std::to_string(a) + ":\n  " + Around(original, a) + "\n  " +
                   Around(saved, b);
        a = aEnd, b = bEnd;
    }
    if (a != original.size() || b != saved.size())
        return "lengths differ: " + std::to_string(original.size()) + " vs " + std::to_string(saved.size());
    return {};
}

} // namespace kavrin::test
