#include "document/CParseSource.h"

#include <algorithm>
#include <pugixml.hpp>

#include "document/CXmlScanner.h"

namespace kavrin {

namespace {
thread_local const CParseSource* gCurrent = nullptr;
}

CParseSource::CParseSource(std::string_view file, size_t sliceBegin, size_t prefix,
                           const std::vector<size_t>& emptyPairs)
    : file_(file), sliceBegin_(sliceBegin), prefix_(prefix), emptyPairs_(emptyPairs), previous_(gCurrent) {
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

std::string_view CParseSource::Raw(const XmlElement& element) const {
    size_t begin = FilePosition(element, 1, "<");
    if (begin == CXmlScanner::npos)
        return {};
    CXmlScanner scanner(file_.data(), file_.size());
    size_t end = scanner.SkipElement(scanner.Next(begin));
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

bool CParseSource::WrittenAsPair(const XmlElement& element) const {
    if (emptyPairs_.empty())
        return false;
    size_t position = FilePosition(element, 1, "<");
    return position != CXmlScanner::npos &&
           std::binary_search(emptyPairs_.begin(), emptyPairs_.end(), position);
}

} // namespace kavrin
