#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "document/INode.h"

namespace kavrin {

// While a file is read piece by piece, tells where an element of the piece being parsed stands
// in the file's own bytes: so that a class can keep an element exactly as it was written, and
// an empty element written as "<X></X>" is written back so.
class CParseSource {
public:
    // The parser reads a copy of file[sliceBegin, sliceEnd) that starts `prefix` bytes later in
    // its buffer (the wrapper element around the piece).
    CParseSource(std::string_view file, size_t sliceBegin, size_t sliceEnd, size_t prefix);
    ~CParseSource();
    CParseSource(const CParseSource&) = delete;
    CParseSource& operator=(const CParseSource&) = delete;

    // The source of the piece being parsed now, or nullptr.
    static const CParseSource* Current();

    // The element's text as it stands in the file (start tag to end tag); empty when unknown.
    std::string_view Raw(const XmlElement& element) const;
    // A processing instruction as it stands in the file; empty when unknown.
    std::string_view RawInstruction(const XmlElement& instruction) const;
    // True when the (childless) element was written "<X></X>".
    bool WrittenAsPair(const XmlElement& element) const;

private:
    // Where the markup of a node begins in the file: `lead` characters before the name the
    // parser reports, which must read `opening` there; npos when unknown.
    size_t FilePosition(const XmlElement& node, size_t lead, std::string_view opening) const;
    size_t MarkupStart(const XmlElement& node) const;
    size_t MarkupEnd(const XmlElement& element, int depth) const;
    size_t BackOverSpace(size_t position) const;

    std::string_view file_;
    size_t sliceBegin_;
    size_t sliceEnd_;
    size_t prefix_;
    const CParseSource* previous_;
};

} // namespace kavrin
