#include "document/CLayoutReader.h"

#include <cstring>
#include <pugixml.hpp>

#include "core/IUserInterface.h"
#include "document/CAnlage.h"
#include "document/CFileBytes.h"
#include "document/CNodeUnknown.h"
#include "document/CParseSource.h"
#include "document/FParseLog.h"
#include "document/NodeTree.h"
#include "document/XmlParseError.h"

namespace kavrin {

namespace {
using Kind = CXmlScanner::Kind;

constexpr std::string_view kPieceOpen = "<k>";
constexpr std::string_view kPieceClose = "</k>";

bool IsElement(Kind kind) {
    return kind == Kind::StartTag || kind == Kind::EmptyTag;
}

// A buffer in the parser's own memory, so that it parses in place and frees it with the document.
char* ParserBuffer(size_t size) {
    return static_cast<char*>(pugi::get_memory_allocation_function()(size));
}
} // namespace

CLayoutReader::CLayoutReader(CFileBytes& bytes, CAnlage& anlage)
    : bytes_(bytes), anlage_(anlage), scanner_(bytes.Data(), bytes.Size()) {}

CLayoutReader::Result CLayoutReader::Read(std::unique_ptr<INode>& root) {
    Token rootTag;
    if (!ReadProlog(rootTag))
        return Result::NotXml;
    Result result = Result::Ok;
    root = NodeOfStartTag(nullptr, rootTag, result);
    if (!root)
        return result;
    std::string rootName(rootTag.name);
    size_t rootEnd = rootTag.end;
    if (rootTag.kind == Kind::StartTag) {
        result = ReadRootContent(*root, rootTag, rootName, rootEnd);
        if (result != Result::Ok)
            return result;
    }
    if (!ReadEpilog(rootEnd, rootName))
        return Result::NotXml;
    return root->CheckNode() ? Result::Ok : Result::Failed;
}

// Declaration, instructions, comments, a DOCTYPE and blanks, up to the document element.
bool CLayoutReader::ReadProlog(Token& rootTag) {
    size_t pos = std::string_view(bytes_.Data(), bytes_.Size()).substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
    while (pos < bytes_.Size()) {
        Token token = scanner_.Next(pos);
        if (IsElement(token.kind)) {
            rootTag = token;
            prolog_.assign(bytes_.Data(), token.begin);
            return true;
        }
        bool allowed = token.kind == Kind::Instruction || token.kind == Kind::Comment ||
                       token.kind == Kind::Doctype ||
                       (token.kind == Kind::Text && scanner_.OnlySpace(token.begin, token.end));
        if (!allowed)
            return false;
        pos = token.end;
    }
    return false;
}

// Instructions, comments and blanks after the document element; the outer markup as a whole
// must please the parser, which also hands over the declaration and instructions.
bool CLayoutReader::ReadEpilog(size_t rootEnd, std::string_view rootName) {
    for (size_t pos = rootEnd; pos < bytes_.Size();) {
        Token token = scanner_.Next(pos);
        bool allowed = token.kind == Kind::Instruction || token.kind == Kind::Comment ||
                       (token.kind == Kind::Text && scanner_.OnlySpace(token.begin, token.end));
        if (!allowed)
            return false;
        pos = token.end;
    }
    epilog_.assign(bytes_.Data() + rootEnd, bytes_.Size() - rootEnd);
    std::string outline = prolog_ + "<" + std::string(rootName) + "/>" + epilog_;
    pugi::xml_document document;
    if (!document.load_buffer(outline.data(), outline.size(), kLayoutParseOptions, pugi::encoding_utf8))
        return false;
    for (pugi::xml_node node : document.children())
        if (node.type() == pugi::node_pi)
            anlage_.AddProcInstr(node.name(), node.value());
    return true;
}

std::unique_ptr<INode> CLayoutReader::NodeOfStartTag(INode* parent, const Token& tag, Result& result) {
    std::string text(bytes_.Data() + tag.begin, tag.end - tag.begin);
    if (tag.kind == Kind::StartTag)
        text.insert(text.size() - 1, "/");
    pugi::xml_document document;
    if (!document.load_buffer(text.data(), text.size(), kLayoutParseOptions, pugi::encoding_utf8)) {
        result = Result::NotXml;
        return nullptr;
    }
    pugi::xml_node element = document.document_element();
    std::unique_ptr<INode> node;
    if (parent) {
        node = StartChildNode(*parent, element);
    } else {
        auto root = std::make_unique<CNodeRoot>();
        root->BeginReading();
        node = std::move(root);
        node->SetAnlage(&anlage_);
        node->SetName(element.name());
        if (!node->ParseAttributes(element))
            node.reset();
    }
    if (!node)
        result = Result::Failed;
    return node;
}

CLayoutReader::Result CLayoutReader::ReadRootContent(INode& root, const Token& rootTag,
                                                     const std::string& rootName, size_t& rootEnd) {
    size_t pos = rootTag.end;
    while (true) {
        // Each chapter is a child of the document element like any other: one event round.
        UI().ProcessPendingEvents();
        if (UI().ParseLog().Cancelled())
            return Result::Failed;
        Token token = scanner_.Next(pos);
        switch (token.kind) {
        case Kind::EndTag:
            if (token.name != rootName)
                return Result::NotXml;
            if (token.begin == rootTag.end)
                root.SetWrittenAsPair(true);
            rootEnd = token.end;
            return Result::Ok;
        case Kind::StartTag:
        case Kind::EmptyTag: {
            Result result = ReadChapter(root, token, pos);
            if (result != Result::Ok)
                return result;
            continue;
        }
        case Kind::Text:
            // Blanks between chapters are no content; anything else is read like any child.
            if (scanner_.OnlySpace(token.begin, token.end)) {
                pos = token.end;
                continue;
            }
            [[fallthrough]];
        case Kind::Comment:
        case Kind::Instruction:
        case Kind::CData: {
            Result result = ReadPiece(root, token.begin, token.end);
            if (result != Result::Ok)
                return result;
            pos = token.end;
            continue;
        }
        default:
            return Result::NotXml;
        }
    }
}

CLayoutReader::Result CLayoutReader::ReadChapter(INode& root, const Token& startTag, size_t& next) {
    if (!NestingLevel::Allowed(std::string(startTag.name).c_str()))
        return Result::Failed;
    NestingLevel level;
    Result result = Result::Ok;
    std::unique_ptr<INode> chapter = NodeOfStartTag(&root, startTag, result);
    if (!chapter)
        return result;
    next = startTag.end;
    bool ok = true;
    if (startTag.kind == Kind::StartTag) {
        result = ReadChapterContent(*chapter, startTag, next);
        if (result == Result::NotXml)
            return result;
        ok = result == Result::Ok;
    }
    return FinishChildNode(root, std::move(chapter), ok) ? Result::Ok : Result::Failed;
}

// The chapter's children in pieces that end where a child element begins, so that blank text
// between elements is dropped as the parser drops it when it reads the chapter whole.
CLayoutReader::Result CLayoutReader::ReadChapterContent(INode& chapter, const Token& startTag, size_t& next) {
    std::string name(startTag.name);
    size_t pos = startTag.end;
    size_t pieceBegin = pos;
    bool pieceHasElement = false;
    emptyPairs_.clear();
    while (true) {
        Token token = scanner_.Next(pos);
        if (token.kind == Kind::EndTag) {
            if (token.name != name)
                return Result::NotXml;
            if (token.begin == startTag.end)
                chapter.SetWrittenAsPair(true);
            next = token.end;
            return pieceBegin < token.begin ? ReadPiece(chapter, pieceBegin, token.begin) : Result::Ok;
        }
        if (IsElement(token.kind)) {
            if (pieceHasElement && token.begin - pieceBegin >= kPieceSize) {
                Result result = ReadPiece(chapter, pieceBegin, token.begin);
                if (result != Result::Ok)
                    return result;
                pieceBegin = token.begin;
            }
            pieceHasElement = true;
            pos = scanner_.SkipElement(token, &emptyPairs_);
            if (pos == CXmlScanner::npos)
                return Result::NotXml;
            continue;
        }
        if (token.kind == Kind::Invalid || token.kind == Kind::Doctype)
            return Result::NotXml;
        pos = token.end;
    }
}

CLayoutReader::Result CLayoutReader::ReadPiece(INode& parent, size_t begin, size_t end) {
    size_t size = kPieceOpen.size() + (end - begin) + kPieceClose.size();
    char* buffer = ParserBuffer(size);
    if (!buffer)
        throw std::bad_alloc();
    std::memcpy(buffer, kPieceOpen.data(), kPieceOpen.size());
    std::memcpy(buffer + kPieceOpen.size(), bytes_.Data() + begin, end - begin);
    std::memcpy(buffer + kPieceOpen.size() + (end - begin), kPieceClose.data(), kPieceClose.size());
    pugi::xml_document document;
    if (!document.load_buffer_inplace_own(buffer, size, kLayoutParseOptions, pugi::encoding_utf8))
        return Result::NotXml;
    bool ok;
    {
        CParseSource source(std::string_view(bytes_.Data(), bytes_.Size()), begin, kPieceOpen.size(),
                            emptyPairs_);
        pugi::xml_node wrapper = document.document_element();
        ok = ParseChildren(parent, wrapper);
    }
    emptyPairs_.clear();
    bytes_.ReleaseBefore(end);
    return ok ? Result::Ok : Result::Failed;
}

} // namespace kavrin
