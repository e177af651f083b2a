#include "compare/CContentComparer.h"

#include <charconv>
#include <cmath>
#include <map>

#include "core/CDictionary.h"
#include "core/CStringPack.h"
#include "document/CArrayOfNodes.h"
#include "document/INode.h"
#include "document/NodeAttributes.h"

namespace kavrin {

namespace {

bool ParseNumber(std::string_view text, double& value) {
    if (text.empty())
        return false;
    const char* end = text.data() + text.size();
    auto result = std::from_chars(text.data(), end, value, std::chars_format::general);
    return result.ec == std::errc() && result.ptr == end;
}

// An attribute's value: the class's own value or the kept text.
struct AttrValue {
    std::string text;
    bool isNumber = false;
    double number = 0;
};

AttrValue ValueOf(const INode& node, int16_t key, std::string_view kept) {
    AttrValue value;
    if (kept != kOwnedValue) {
        value.text = std::string(kept);
        return value;
    }
    Variant owned = node.XmlAttr(AttributeNames().GetString(key));
    std::visit(
        [&value](const auto& v) {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::string>) {
                value.text = v;
            } else if constexpr (std::is_arithmetic_v<T>) {
                value.isNumber = true;
                value.number = static_cast<double>(v);
            }
        },
        owned);
    if (value.isNumber)
        value.text = NumberToText(owned);
    return value;
}

bool SameValue(const AttrValue& a, const AttrValue& b) {
    if (a.isNumber && b.isNumber)
        return CContentComparer::SameNumber(a.number, b.number);
    if (a.isNumber || b.isNumber) {
        double other = 0;
        const AttrValue& text = a.isNumber ? b : a;
        const AttrValue& number = a.isNumber ? a : b;
        return ParseNumber(text.text, other) && CContentComparer::SameNumber(number.number, other);
    }
    return CContentComparer::SameText(a.text, b.text);
}

std::string ShownText(const AttrValue& value) {
    return value.isNumber ? CContentComparer::NumberText(value.number) : value.text;
}

} // namespace

bool CContentComparer::SameNumber(double a, double b) {
    if (a == b)
        return true;
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    // Seven significant digits leave a rounding error of half a unit in the seventh place; a
    // little more is allowed for the way from text to float to text.
    double scale = std::max(std::fabs(a), std::fabs(b));
    return std::fabs(a - b) <= scale * 1.5e-6;
}

bool CContentComparer::SameText(std::string_view a, std::string_view b) {
    if (a == b)
        return true;
    double x = 0, y = 0;
    return ParseNumber(a, x) && ParseNumber(b, y) && SameNumber(x, y);
}

std::string CContentComparer::NumberText(double value) {
    if (value == 0)
        return "0";
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 7);
    return std::string(buffer, result.ptr);
}

void CContentComparer::Compare(const INode& a, const INode& b, const std::string& path,
                               const ChildFilter& skip) {
    CompareAttributes(a, b, path);
    if (!SameText(a.Text(), b.Text()))
        out_.push_back({path + "Text", a.Text(), b.Text()});
    if (a.RawMarkup() != b.RawMarkup())
        out_.push_back({path + "Inhalt", std::string(a.RawMarkup()), std::string(b.RawMarkup())});
    CompareChildren(KeptChildren(a, skip), KeptChildren(b, skip), path);
}

void CContentComparer::CompareAttributes(const INode& a, const INode& b, const std::string& path) {
    const CDictionary& first = a.Attributes();
    const CDictionary& second = b.Attributes();
    auto firstEntries = first.Entries();
    auto secondEntries = second.Entries();
    // Usually both hold the same names in the same order: compared side by side.
    size_t n = std::min(firstEntries.size(), secondEntries.size());
    size_t same = 0;
    while (same < n && firstEntries[same].key == secondEntries[same].key)
        ++same;
    auto report = [&](int16_t key, const AttrValue* x, const AttrValue* y) {
        out_.push_back({path + AttributeNames().GetString(key), x ? ShownText(*x) : std::string(),
                        y ? ShownText(*y) : std::string()});
    };
    for (size_t i = 0; i < same; ++i) {
        auto x = firstEntries[i];
        auto y = secondEntries[i];
        if (x.value == y.value && x.value != kOwnedValue)
            continue;
        AttrValue vx = ValueOf(a, x.key, x.value);
        AttrValue vy = ValueOf(b, y.key, y.value);
        if (!SameValue(vx, vy))
            report(x.key, &vx, &vy);
    }
    for (size_t i = same; i < firstEntries.size(); ++i) {
        auto x = firstEntries[i];
        AttrValue vx = ValueOf(a, x.key, x.value);
        if (auto other = second.Item(x.key)) {
            AttrValue vy = ValueOf(b, x.key, *other);
            if (!SameValue(vx, vy))
                report(x.key, &vx, &vy);
        } else {
            report(x.key, &vx, nullptr);
        }
    }
    for (size_t i = same; i < secondEntries.size(); ++i) {
        auto y = secondEntries[i];
        if (!first.Exists(y.key)) {
            AttrValue vy = ValueOf(b, y.key, y.value);
            report(y.key, nullptr, &vy);
        }
    }
}

void CContentComparer::CompareChildren(const std::vector<const INode*>& a, const std::vector<const INode*>& b,
                                       const std::string& path) {
    // The n-th child of a name in one list stands against the n-th of that name in the other.
    std::map<std::string, std::vector<const INode*>> second;
    for (const INode* child : b)
        second[child->Name()].push_back(child);
    std::map<std::string, size_t> seen;
    auto childPath = [&path](const std::string& name, size_t index) {
        return index == 0 ? path + name + "/" : path + name + "[" + std::to_string(index + 1) + "]/";
    };
    auto elementName = [](const std::string& p) { return p.substr(0, p.size() - 1); };
    for (const INode* child : a) {
        size_t index = seen[child->Name()]++;
        auto others = second.find(child->Name());
        if (others == second.end() || index >= others->second.size()) {
            out_.push_back({elementName(childPath(child->Name(), index)), "vorhanden", ""});
            continue;
        }
        Compare(*child, *others->second[index], childPath(child->Name(), index));
    }
    for (const auto& [name, children] : second) {
        for (size_t index = seen[name]; index < children.size(); ++index)
            out_.push_back({elementName(childPath(name, index)), "", "vorhanden"});
    }
}

void CContentComparer::CompareNumber(std::string_view name, double a, double b) {
    if (!SameNumber(a, b))
        out_.push_back({std::string(name), NumberText(a), NumberText(b)});
}

void CContentComparer::CompareText(std::string_view name, std::string_view a, std::string_view b) {
    if (a != b)
        out_.push_back({std::string(name), std::string(a), std::string(b)});
}

std::vector<const INode*> KeptChildren(const INode& node, const CContentComparer::ChildFilter& skip) {
    std::vector<const INode*> children;
    for (const auto& child : node.SubNodes())
        if (child && !(skip && skip(*child)))
            children.push_back(child.get());
    return children;
}

} // namespace kavrin
