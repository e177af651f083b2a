#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "compare/CDiffEntry.h"

namespace kavrin {

class INode;

// Compares what two nodes hold, as the file would show it: attributes (the class's own values
// and the kept texts), text and kept children, recursively. Numbers count as equal within the
// file format's seven significant digits, so a file that was loaded and saved again (numbers
// written anew) shows no difference.
class CContentComparer {
public:
    // Children to leave to a comparison of their own (contacts of a track, buildings of a
    // collection); true skips the child.
    using ChildFilter = std::function<bool(const INode& child)>;

    explicit CContentComparer(std::vector<CDiffValue>& out) : out_(out) {}

    // Each difference is appended with its name prefixed by `path` ("Modell/" ...).
    void Compare(const INode& a, const INode& b, const std::string& path = {}, const ChildFilter& skip = {});
    void CompareAttributes(const INode& a, const INode& b, const std::string& path);
    // Two lists of children matched by element name and occurrence.
    void CompareChildren(const std::vector<const INode*>& a, const std::vector<const INode*>& b,
                         const std::string& path);
    // A value compared by itself (a field a class keeps outside its attributes).
    void CompareNumber(std::string_view name, double a, double b);
    void CompareText(std::string_view name, std::string_view a, std::string_view b);

    // Numbers within the file format's precision; texts equal or both such numbers.
    static bool SameNumber(double a, double b);
    static bool SameText(std::string_view a, std::string_view b);
    // A number as the report shows it: up to seven significant digits, "." as separator.
    static std::string NumberText(double value);

private:
    std::vector<CDiffValue>& out_;
};

// The kept children of a node, without those the filter skips.
std::vector<const INode*> KeptChildren(const INode& node, const CContentComparer::ChildFilter& skip = {});

} // namespace kavrin
