#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "document/CXmlScanner.h"
#include "document/INode.h"

namespace kavrin {

class CAnlage;
class CFileBytes;

// Builds the node tree of a layout file piece by piece: the document element's start tag, then
// each of its children (a chapter) from its own start tag, and the chapter's content in pieces
// of about a megabyte, each parsed on its own and freed once the tree has taken it. So the
// parser's DOM of the whole file never exists, and the bytes already read are handed back.
// Whatever precedes and follows the document element is kept as read.
class CLayoutReader {
public:
    enum class Result {
        Ok,
        NotXml, // the text is not well-formed as far as the pieces tell: parse it whole for the report
        Failed  // the tree refused an element (the reason is reported) or the load was cancelled
    };

    CLayoutReader(CFileBytes& bytes, CAnlage& anlage);

    Result Read(std::unique_ptr<INode>& root);
    // Reads a file just written as Read would, in the same pieces, but builds nothing: whether
    // Kavrin can load it again as far as its markup tells. False with the reason in `problem`.
    static bool Check(CFileBytes& bytes, std::string& problem);
    // For a file the parser has read whole after all: only what stands before and after the
    // document element, checked as Read checks it (the parser itself lets text and further
    // elements there pass unseen). False when anything but comments, instructions, a DOCTYPE
    // and blanks stands there; FailedAt() then tells where.
    bool ReadOutline();
    size_t FailedAt() const { return failedAt_; }
    // Everything before the document element (declaration, comments, DOCTYPE, blanks) and after it.
    const std::string& Prolog() const { return prolog_; }
    const std::string& Epilog() const { return epilog_; }

    // About this much of a chapter's content is parsed at a time.
    static constexpr size_t kPieceSize = 1 << 20;

private:
    using Token = CXmlScanner::Token;

    bool ReadProlog(Token& rootTag);
    Result ReadRootContent(INode& root, const Token& rootTag, const std::string& rootName, size_t& rootEnd);
    Result ReadChapter(INode& root, const Token& startTag, size_t& next);
    Result ReadChapterContent(INode& chapter, const Token& startTag, size_t& next);
    Result ReadChapterContentScanned(INode& chapter, const std::string& name, size_t pos, size_t& next);
    size_t FindEndTag(const std::string& name, size_t from, size_t& next) const;
    size_t GuessCut(size_t pos, size_t end) const;
    size_t ScannedCut(size_t pos, size_t end) const;
    Token NextStartTag(size_t pos, size_t end) const;
    bool ReadEpilog(size_t rootEnd, std::string_view rootName);
    // Parses a start tag as an empty element and makes the node of it.
    std::unique_ptr<INode> NodeOfStartTag(INode* parent, const Token& tag, Result& result);
    // Parses file[begin, end) inside a wrapper element and walks its children into parent.
    Result ReadPiece(INode& parent, size_t begin, size_t end);

    CLayoutReader(CFileBytes& bytes, CAnlage* anlage);
    static bool CheckWhole(CFileBytes& bytes, std::string& problem);
    // Checks the elements below `top` (its children at `depth`) for what a load would refuse
    // (no tree is built).
    bool CheckElements(const XmlElement& top, int depth);
    bool Checking() const { return anlage_ == nullptr; }

    CFileBytes& bytes_;
    CAnlage* anlage_; // nullptr while checking
    std::string problem_;
    CXmlScanner scanner_;
    std::string prolog_;
    std::string epilog_;
    size_t failedAt_ = 0;
};

} // namespace kavrin
