#include "XmlEquivalence.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <pugixml.hpp>
#include <vector>

#include "core/modTools.h"

namespace kavrin::test {

namespace {

constexpr unsigned kOptions = pugi::parse_default & ~pugi::parse_wconv_attribute;

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

// A connection with the smaller id first, as text, so that order and direction do not matter.
std::string ConnectionKey(const pugi::xml_node& c) {
    std::string id1 = c.attribute("GleisID1").value(), end1 = c.attribute("Anschluss1").value();
    std::string id2 = c.attribute("GleisID2").value(), end2 = c.attribute("Anschluss2").value();
    if (std::stol(id1) > std::stol(id2))
        std::swap(id1, id2), std::swap(end1, end2);
    std::string key = id1 + ":" + end1 + "-" + id2 + ":" + end2;
    for (pugi::xml_attribute a : c.attributes()) {
        std::string name = a.name();
        if (name != "GleisID1" && name != "GleisID2" && name != "Anschluss1" && name != "Anschluss2")
            key += " " + name + "=" + a.value();
    }
    return key;
}

std::string Compare(const pugi::xml_node& a, const pugi::xml_node& b, const std::string& path);

std::string CompareChildren(const pugi::xml_node& a, const pugi::xml_node& b, const std::string& path) {
    std::vector<pugi::xml_node> ca, cb;
    std::vector<std::string> connA, connB;
    bool system = std::string(a.name()) == "Gleissystem";
    auto split = [system](const pugi::xml_node& parent, auto& elements, auto& connections) {
        for (pugi::xml_node c = parent.first_child(); c; c = c.next_sibling()) {
            if (c.type() != pugi::node_element)
                continue;
            if (system && std::string(c.name()) == "Gleisverbindung")
                connections.push_back(ConnectionKey(c));
            else
                elements.push_back(c);
        }
    };
    split(a, ca, connA);
    split(b, cb, connB);
    std::sort(connA.begin(), connA.end());
    std::sort(connB.begin(), connB.end());
    if (connA != connB)
        return path + ": connections differ";
    if (ca.size() != cb.size())
        return path + ": " + std::to_string(ca.size()) + " vs " + std::to_string(cb.size()) + " children";
    for (size_t i = 0; i < ca.size(); ++i) {
        std::string difference =
            Compare(ca[i], cb[i], path + "/" + ca[i].name() + "[" + std::to_string(i) + "]");
        if (!difference.empty())
            return difference;
    }
    return {};
}

std::string Compare(const pugi::xml_node& a, const pugi::xml_node& b, const std::string& path) {
    if (std::string(a.name()) != b.name())
        return path + ": element " + a.name() + " vs " + b.name();
    pugi::xml_attribute x = a.first_attribute(), y = b.first_attribute();
    for (; x && y; x = x.next_attribute(), y = y.next_attribute()) {
        if (std::string(x.name()) != y.name())
            return path + ": attribute " + x.name() + " vs " + y.name();
        if (!SameValue(x.value(), y.value()))
            return path + "@" + x.name() + ": " + x.value() + " vs " + y.value();
    }
    if (x || y)
        return path + ": different number of attributes";
    if (!SameValue(a.text().get(), b.text().get()))
        return path + ": text " + a.text().get() + " vs " + b.text().get();
    return CompareChildren(a, b, path);
}

} // namespace

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
        if (a - aBegin != b - bBegin || !IsNumber(x) || !IsNumber(y) || !SameValue(x, y))
            return "differs at byte " + std::to_string(a) + ":\n  " + Around(original, a) + "\n  " +
                   Around(saved, b);
        a = aEnd, b = bEnd;
    }
    if (a != original.size() || b != saved.size())
        return "lengths differ: " + std::to_string(original.size()) + " vs " + std::to_string(saved.size());
    return {};
}

std::string LayoutDifference(const std::string& original, const std::string& saved) {
    pugi::xml_document a, b;
    if (!a.load_string(original.c_str(), kOptions))
        return "original does not parse";
    if (!b.load_string(saved.c_str(), kOptions))
        return "saved text does not parse";
    if (saved.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<", 0) != 0 || saved.back() != '\n' ||
        std::count(saved.begin(), saved.end(), '\n') != std::count(original.begin(), original.end(), '\n'))
        return "outer form differs (declaration, one line, final line feed)";
    return Compare(a.document_element(), b.document_element(), "");
}

} // namespace kavrin::test
