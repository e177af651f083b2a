#include "document/CParseSource.h"

#include <pugixml.hpp>

#include "document/CXmlScanner.h"

namespace kavrin {

namespace {
thread_local const CParseSource* gCurrent = nullptr;
}

CParseSource::CParseSource(std::string_view file, size_t sliceBegin, size_t sliceEnd, size_t prefix)
    : file_(file), sliceBegin_(sliceBegin), sliceEnd_(sliceEnd), prefix_(prefix), previous_(gCurrent) {
    gCurrent = this;
}

CParseSource::~CParseSource() {
    gCurrent = previous_;
}

const CParseSource* CParseSource::Current() {
    return gCurrent;
}

size_t CParseSource::FilePosition(const XmlElement& node, size_t lead, std::string_view opening) const {
    ptrdiff_t offset = node.offset_debug();
    if (offset < 0 || static_cast<size_t>(offset) < prefix_ + lead)
        return CXmlScanner::npos;
    size_t position = sliceBegin_ + static_cast<size_t>(offset) - lead - prefix_;
    return file_.substr(position, opening.size()) == opening ? position : CXmlScanner::npos;
}

// Where a node's markup begins in the file: the parser reports the name of an element or an
// instruction, the value of text, a comment or CDATA.
size_t CParseSource::MarkupStart(const pugi::xml_node& node) const {
    switch (node.type()) {
    case pugi::node_element:
        return FilePosition(node, 1, "<");
    case pugi::node_pi:
        return FilePosition(node, 2, "<?");
    case pugi::node_comment:
        return FilePosition(node, 4, "<!--");
    case pugi::node_cdata:
        return FilePosition(node, 9, "<![CDATA[");
    case pugi::node_pcdata:
        return FilePosition(node, 0, "");
    default:
        return CXmlScanner::npos;
    }
}

// Blanks between two elements are not kept by the parser, so they end no element.
size_t CParseSource::BackOverSpace(size_t position) const {
    while (position > 0 && CXmlScanner::IsSpace(file_[position - 1]))
        --position;
    return position;
}

// One past an element's end, found from what follows it rather than by reading it again: the
// next node's start, or the parent's end stepped back over its end tag. npos when unsure.
size_t CParseSource::MarkupEnd(const pugi::xml_node& element, int depth) const {
    if (depth > 64)
        return CXmlScanner::npos;
    if (pugi::xml_node next = element.next_sibling()) {
        size_t start = MarkupStart(next);
        if (start == CXmlScanner::npos || next.type() == pugi::node_pcdata)
            return start;
        return BackOverSpace(start);
    }
    pugi::xml_node parent = element.parent();
    if (!parent)
        return CXmlScanner::npos;
    // The wrapper around the piece ends where the piece does.
    if (parent.parent().type() == pugi::node_document)
        return BackOverSpace(sliceEnd_);
    size_t position = MarkupEnd(parent, depth + 1);
    if (position == CXmlScanner::npos || position == 0 || file_[position - 1] != '>')
        return CXmlScanner::npos;
    // Back over "</name", blanks allowed before the '>'.
    position = BackOverSpace(position - 1);
    std::string_view name = parent.name();
    size_t tag = name.size() + 2;
    if (position < tag || file_.substr(position - tag, 2) != "</" ||
        file_.substr(position - name.size(), name.size()) != name)
        return CXmlScanner::npos;
    return BackOverSpace(position - tag);
}

std::string_view CParseSource::Raw(const XmlElement& element) const {
    size_t begin = FilePosition(element, 1, "<");
    if (begin == CXmlScanner::npos)
        return {};
    size_t end = MarkupEnd(element, 0);
    if (end == CXmlScanner::npos || end <= begin || file_[end - 1] != '>') {
        CXmlScanner scanner(file_.data(), file_.size());
        end = scanner.SkipElement(scanner.Next(begin));
    }
    return end == CXmlScanner::npos ? std::string_view{} : file_.substr(begin, end - begin);
}

std::string_view CParseSource::RawInstruction(const XmlElement& instruction) const {
    size_t begin = FilePosition(instruction, 2, "<?");
    if (begin == CXmlScanner::npos)
        return {};
    CXmlScanner::Token token = CXmlScanner(file_.data(), file_.size()).Next(begin);
    return token.kind == CXmlScanner::Kind::Instruction ? file_.substr(begin, token.end - begin)
                                                        : std::string_view{};
}

// A childless element ends in "/>" or in its end tag.
bool CParseSource::WrittenAsPair(const XmlElement& element) const {
    size_t end = MarkupEnd(element, 0);
    if (end == CXmlScanner::npos || end < 2 || file_[end - 1] != '>') {
        size_t begin = FilePosition(element, 1, "<");
        if (begin == CXmlScanner::npos)
            return false;
        return CXmlScanner(file_.data(), file_.size()).Next(begin).kind == CXmlScanner::Kind::StartTag;
    }
    return file_[end - 2] != '/';
}

} // namespace kavrin
