#include "document/CLayoutReader.h"

#include <cstring>
#ifdef __GLIBC__
#include <malloc.h>
#endif
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
// The depth of a piece's elements: the children of a chapter, itself a child of the document
// element. (Pieces between chapters hold no elements.)
constexpr int kPieceDepth = 2;
constexpr std::string_view kPieceClose = "</k>";

// Each piece's parser memory is freed and asked for again; while a layout is read, the heap
// keeps freed memory for the next piece instead of handing it back to the system and having it
// cleared anew.
class HeapKeptWhileReading {
public:
    HeapKeptWhileReading() {
#ifdef __GLIBC__
        mallopt(M_MMAP_THRESHOLD, 64 << 20);
        mallopt(M_TRIM_THRESHOLD, 256 << 20);
#endif
    }
    ~HeapKeptWhileReading() {
#ifdef __GLIBC__
        mallopt(M_TRIM_THRESHOLD, 128 << 10);
        mallopt(M_MMAP_THRESHOLD, 128 << 10);
#endif
    }
};

bool IsElement(Kind kind) {
    return kind == Kind::StartTag || kind == Kind::EmptyTag;
}

// A buffer in the parser's own memory, so that it parses in place and frees it with the document.
char* ParserBuffer(size_t size) {
    return static_cast<char*>(pugi::get_memory_allocation_function()(size));
}
} // namespace

CLayoutReader::CLayoutReader(CFileBytes& bytes, CAnlage& anlage) : CLayoutReader(bytes, &anlage) {}

CLayoutReader::CLayoutReader(CFileBytes& bytes, CAnlage* anlage)
    : bytes_(bytes), anlage_(anlage), scanner_(bytes.Data(), bytes.Size()) {}

bool CLayoutReader::Check(CFileBytes& bytes, std::string& problem) {
    CLayoutReader reader(bytes, nullptr);
    std::unique_ptr<INode> root;
    Result result = reader.Read(root);
    if (result == Result::NotXml)
        return CheckWhole(bytes, problem);
    if (result == Result::Failed)
        problem = reader.problem_;
    return result == Result::Ok;
}

// As a load does when the pieces fail: the parser reads the file whole.
bool CLayoutReader::CheckWhole(CFileBytes& bytes, std::string& problem) {
    pugi::xml_document document;
    pugi::xml_parse_result parsed =
        document.load_buffer(bytes.Data(), bytes.Size(), kLayoutParseOptions, pugi::encoding_utf8);
    if (!parsed) {
        problem = FormatMessage("sie ist kein wohlgeformtes XML (%1)", XmlParseReason(parsed.status));
        return false;
    }
    CLayoutReader reader(bytes, nullptr);
    if (!reader.ReadOutline()) {
        problem = FormatMessage("vor oder nach dem Dokument-Element steht etwas anderes als Kommentare, "
                                "Verarbeitungsanweisungen und Leerraum");
        return false;
    }
    pugi::xml_node element = document.document_element();
    if (pugi::xml_attribute repeated = RepeatedAttribute(element)) {
        problem = RepeatedAttributeProblem(element, repeated);
        return false;
    }
    bool ok = reader.CheckElements(element, 1);
    problem = reader.problem_;
    return ok;
}

CLayoutReader::Result CLayoutReader::Read(std::unique_ptr<INode>& root) {
    HeapKeptWhileReading heap;
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
        if (!allowed) {
            failedAt_ = token.begin;
            return false;
        }
        pos = token.end;
    }
    failedAt_ = bytes_.Size();
    return false;
}

// Instructions, comments and blanks after the document element; the outer markup as a whole
// must please the parser, which also hands over the declaration and instructions.
bool CLayoutReader::ReadEpilog(size_t rootEnd, std::string_view rootName) {
    for (size_t pos = rootEnd; pos < bytes_.Size();) {
        Token token = scanner_.Next(pos);
        bool allowed = token.kind == Kind::Instruction || token.kind == Kind::Comment ||
                       (token.kind == Kind::Text && scanner_.OnlySpace(token.begin, token.end));
        if (!allowed) {
            failedAt_ = token.begin;
            return false;
        }
        pos = token.end;
    }
    epilog_.assign(bytes_.Data() + rootEnd, bytes_.Size() - rootEnd);
    std::string outline = prolog_ + "<" + std::string(rootName) + "/>" + epilog_;
    pugi::xml_document document;
    if (!document.load_buffer(outline.data(), outline.size(), kLayoutParseOptions, pugi::encoding_utf8)) {
        failedAt_ = rootEnd;
        return false;
    }
    if (anlage_)
        for (pugi::xml_node node : document.children())
            if (node.type() == pugi::node_pi)
                anlage_->AddProcInstr(node.name(), node.value());
    return true;
}

// The document element ends with the last end tag of its name.
bool CLayoutReader::ReadOutline() {
    Token rootTag;
    if (!ReadProlog(rootTag))
        return false;
    std::string rootName(rootTag.name);
    size_t rootEnd = rootTag.end;
    if (rootTag.kind == Kind::StartTag) {
        std::string_view text(bytes_.Data(), bytes_.Size());
        std::string tag = "</" + rootName;
        rootEnd = CXmlScanner::npos;
        for (size_t at = text.rfind(tag); at != std::string_view::npos && at > rootTag.begin;
             at = text.rfind(tag, at - 1)) {
            size_t next = CXmlScanner::npos;
            if (FindEndTag(rootName, at, next) == at) {
                rootEnd = next;
                break;
            }
        }
        if (rootEnd == CXmlScanner::npos) {
            failedAt_ = bytes_.Size();
            return false;
        }
    }
    return ReadEpilog(rootEnd, rootName);
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
    if (Checking()) {
        if (pugi::xml_attribute repeated = RepeatedAttribute(element)) {
            problem_ = RepeatedAttributeProblem(element, repeated);
            result = Result::Failed;
            return nullptr;
        }
        return std::make_unique<CNodeUnknown>();
    }
    DropRepeatedAttributes(element, anlage_);
    if (parent) {
        node = StartChildNode(*parent, element);
    } else {
        auto root = std::make_unique<CNodeRoot>();
        root->BeginReading();
        node = std::move(root);
        node->SetAnlage(anlage_);
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
        if (!Checking()) {
            UI().ProcessPendingEvents();
            if (UI().ParseLog().Cancelled())
                return Result::Failed;
        }
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
    if (Checking())
        return ok ? Result::Ok : Result::Failed;
    return FinishChildNode(root, std::move(chapter), ok) ? Result::Ok : Result::Failed;
}

// The chapter's children in pieces that end where a child element begins, so that blank text
// between elements is dropped as the parser drops it when it reads the chapter whole. The cuts
// are guessed, without reading the markup in between: the chapter's end tag, and a child of
// the name of the piece's first child about a megabyte on. A guess inside a child cannot be
// parsed on its own; then the rest of the chapter is cut by reading its markup.
CLayoutReader::Result CLayoutReader::ReadChapterContent(INode& chapter, const Token& startTag, size_t& next) {
    std::string name(startTag.name);
    size_t pos = startTag.end;
    size_t end = FindEndTag(name, pos, next);
    if (end == pos) {
        chapter.SetWrittenAsPair(true);
        return Result::Ok;
    }
    while (end != CXmlScanner::npos && pos < end) {
        size_t cut = GuessCut(pos, end);
        Result result = ReadPiece(chapter, pos, cut);
        if (result == Result::NotXml && cut != end) {
            cut = ScannedCut(pos, end);
            result = cut == CXmlScanner::npos ? Result::NotXml : ReadPiece(chapter, pos, cut);
        }
        if (result == Result::NotXml)
            break;
        if (result != Result::Ok)
            return result;
        pos = cut;
    }
    if (end != CXmlScanner::npos && pos == end)
        return Result::Ok;
    return ReadChapterContentScanned(chapter, name, pos, next);
}

// The position of "</name" closing a chapter whose content begins at `from`; `next` is set to
// the end of that tag. npos when there is none.
size_t CLayoutReader::FindEndTag(const std::string& name, size_t from, size_t& next) const {
    std::string_view text(bytes_.Data(), bytes_.Size());
    std::string tag = "</" + name;
    for (size_t at = text.find(tag, from); at != std::string_view::npos; at = text.find(tag, at + 1)) {
        size_t i = at + tag.size();
        while (i < text.size() && CXmlScanner::IsSpace(text[i]))
            ++i;
        if (i < text.size() && text[i] == '>') {
            next = i + 1;
            return at;
        }
    }
    return CXmlScanner::npos;
}

// The first start tag at or after `pos`, or an invalid token.
CXmlScanner::Token CLayoutReader::NextStartTag(size_t pos, size_t end) const {
    std::string_view text(bytes_.Data(), end);
    for (pos = text.find('<', pos); pos != std::string_view::npos; pos = text.find('<', pos + 1)) {
        Token token = scanner_.Next(pos);
        if (IsElement(token.kind) || token.kind == Kind::Invalid)
            return token;
        pos = token.end - 1;
    }
    return {};
}

// About a piece on from `pos`, the next start tag of the name the piece's children have: that
// of its second child, as the first is often of a kind of its own (a track system's frame).
size_t CLayoutReader::GuessCut(size_t pos, size_t end) const {
    if (end - pos < 2 * kPieceSize)
        return end;
    Token child = NextStartTag(pos, end);
    if (!IsElement(child.kind))
        return end;
    size_t afterFirst = scanner_.SkipElement(child);
    if (afterFirst != CXmlScanner::npos && afterFirst < end) {
        Token second = NextStartTag(afterFirst, end);
        if (IsElement(second.kind))
            child = second;
    }
    std::string_view text(bytes_.Data(), end);
    std::string tag = "<" + std::string(child.name);
    for (size_t at = text.find(tag, pos + kPieceSize); at != std::string_view::npos;
         at = text.find(tag, at + 1)) {
        char after = at + tag.size() < end ? text[at + tag.size()] : '\0';
        if (CXmlScanner::IsSpace(after) || after == '/' || after == '>')
            return at;
    }
    return end;
}

// The first child boundary at least a piece on from `pos`, found by reading the children's
// markup; `end` when the chapter ends first, npos when the markup is broken.
size_t CLayoutReader::ScannedCut(size_t pos, size_t end) const {
    size_t from = pos;
    while (pos < end) {
        Token token = scanner_.Next(pos);
        if (token.kind == Kind::Invalid || token.kind == Kind::Doctype || token.kind == Kind::EndTag)
            return CXmlScanner::npos;
        if (IsElement(token.kind)) {
            if (token.begin - from >= kPieceSize && token.begin > from)
                return token.begin;
            pos = scanner_.SkipElement(token);
            if (pos == CXmlScanner::npos)
                return pos;
            continue;
        }
        pos = token.end;
    }
    return pos == end ? end : CXmlScanner::npos;
}

// The same, reading every child's markup to find where it ends.
CLayoutReader::Result CLayoutReader::ReadChapterContentScanned(INode& chapter, const std::string& name,
                                                               size_t pos, size_t& next) {
    size_t pieceBegin = pos;
    bool pieceHasElement = false;
    while (true) {
        Token token = scanner_.Next(pos);
        if (token.kind == Kind::EndTag) {
            if (token.name != name)
                return Result::NotXml;
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
            pos = scanner_.SkipElement(token);
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
    pugi::xml_node wrapper = document.document_element();
    bool ok, repaired = false;
    if (Checking()) {
        ok = CheckElements(wrapper, kPieceDepth);
    } else if (!ScreenElements(wrapper, kPieceDepth, anlage_, repaired)) {
        ok = false;
    } else if (repaired) {
        // The file's own text of an element no longer matches what was read: the piece is
        // read from the DOM alone.
        ok = ParseChildren(parent, wrapper);
    } else {
        CParseSource source(std::string_view(bytes_.Data(), bytes_.Size()), begin, end, kPieceOpen.size());
        ok = ParseChildren(parent, wrapper);
    }
    bytes_.ReleaseBefore(end);
    return ok ? Result::Ok : Result::Failed;
}

// What a load refuses below an element: markup other than elements, text and instructions,
// elements nested deeper than a load reads, and an attribute named twice in one element (which
// the simulator's parser refuses).
bool CLayoutReader::CheckElements(const XmlElement& top, int depth) {
    return ForEachBelow(top, depth, [this](const pugi::xml_node& node, int depth) {
        pugi::xml_node_type type = node.type();
        if (type == pugi::node_element) {
            if (depth > kMaxNestingDepth) {
                problem_ =
                    FormatMessage("ihre Elemente sind tiefer als %1 Ebenen verschachtelt", kMaxNestingDepth);
                return false;
            }
            if (pugi::xml_attribute repeated = RepeatedAttribute(node)) {
                problem_ = RepeatedAttributeProblem(node, repeated);
                return false;
            }
        } else if (type != pugi::node_pcdata && type != pugi::node_pi) {
            problem_ = FormatMessage("sie enthält einen Eintrag, den das Laden ablehnt (%1)", node.value());
            return false;
        }
        return true;
    });
}

} // namespace kavrin
