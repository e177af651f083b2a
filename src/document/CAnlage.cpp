#include "document/CAnlage.h"

#include <algorithm>
#include <pugixml.hpp>

#include "core/IUserInterface.h"
#include "core/modTools.h"
#include "document/CFileBytes.h"
#include "document/CLayoutReader.h"
#include "document/CNodeUnknown.h"
#include "document/CXmlWriter.h"
#include "document/FParseLog.h"
#include "document/NodeAttributes.h"
#include "document/NodeTree.h"
#include "document/SafeFileWriter.h"
#include "document/XmlParseError.h"
#include "nodes/CNodeImmoSammlung.h"

namespace kavrin {

namespace {

const int kCollectionIdOrder[] = {1, 2, 3, 6, 4, 5};

} // namespace

CAnlage::CAnlage() = default;

CAnlage::~CAnlage() {
    Clear();
}

void CAnlage::Clear() {
    if (root_)
        root_->Clear();
    root_.reset();
    version_.Clear();
    chapters_.Clear();
    procInstrs_.clear();
    prolog_.clear();
    epilog_.clear();
    kontaktZiele_.clear();
    changedWhileLoading_ = false;
    changed_ = false;
}

bool CAnlage::Load(const std::string& path) {
    Clear();
    path_ = path;
    // The log opens first, so that a cancel in the very first event round is not wiped out.
    FParseLog& log = UI().ParseLog();
    log.Open(path);
    UI().ShowStatus(FormatMessage("wird aufgebaut ..."));
    UI().ProcessPendingEvents();
    bool ok = ParseDocument(path);
    if (ok) {
        ReadFileVersion();
        RepairBuildingCollectionIds();
        chapters_.Collect(*root_);
        chapters_.ReportMissing();
        ok = CheckTerrain();
    }
    log.FinalState();
    if (!ok) {
        Clear();
        return false;
    }
    changed_ = changedWhileLoading_;
    return true;
}

bool CAnlage::ParseDocument(const std::string& path) {
    if (DirectoryExists(path)) {
        ErrorBox(FormatMessage("%1%nist ein Ordner und keine Anlagen-Datei.", path));
        return false;
    }
    if (!FileExists(path)) {
        ErrorBox(FormatMessage("Die Datei%n%1%nexistiert nicht.", path));
        return false;
    }
    CFileBytes bytes;
    std::string error;
    if (!bytes.Read(path, error)) {
        ErrorBox(FormatMessage("Die Datei%n%1%nkann nicht gelesen werden:%n%2", path, error));
        return false;
    }
    CLayoutReader reader(bytes, *this);
    switch (reader.Read(root_)) {
    case CLayoutReader::Result::Ok:
        prolog_ = reader.Prolog();
        epilog_ = reader.Epilog();
        return true;
    case CLayoutReader::Result::Failed:
        return false;
    case CLayoutReader::Result::NotXml:
        break;
    }
    // The pieces were not well-formed: the parser reads the whole file once more, for its exact
    // report, or, should it accept the file after all, for the tree.
    root_.reset();
    procInstrs_.clear();
    kontaktZiele_.clear();
    if (!bytes.Read(path, error)) {
        ErrorBox(FormatMessage("Die Datei%n%1%nkann nicht gelesen werden:%n%2", path, error));
        return false;
    }
    return ParseWholeDocument(bytes, path);
}

bool CAnlage::ParseWholeDocument(const CFileBytes& bytes, const std::string& path) {
    pugi::xml_document document;
    pugi::xml_parse_result result =
        document.load_buffer(bytes.Data(), bytes.Size(), kLayoutParseOptions, pugi::encoding_utf8);
    if (!result) {
        ReportXmlParseError(result, std::string_view(bytes.Data(), bytes.Size()),
                            FormatMessage("Die Datei%n%1%nist offensichtlich keine Anlagen-Datei.%m"
                                          "Der xml-Parser kann sie nicht laden und meldet folgendes:",
                                          path));
        return false;
    }
    return ReadDocumentLevel(document) && BuildTree(document);
}

// The markup around the document element as the parser hands it over: declaration first, then
// instructions, comments and the DOCTYPE in their order.
bool CAnlage::ReadDocumentLevel(pugi::xml_document& document) {
    bool beforeRoot = true;
    for (pugi::xml_node node : document.children()) {
        std::string& outer = beforeRoot ? prolog_ : epilog_;
        switch (node.type()) {
        case pugi::node_element:
            beforeRoot = false;
            break;
        case pugi::node_declaration:
            outer += "<?xml";
            for (pugi::xml_attribute attribute : node.attributes())
                outer += std::string(" ") + attribute.name() + "=\"" + attribute.value() + "\"";
            outer += "?>\n";
            break;
        case pugi::node_pi:
            AddProcInstr(node.name(), node.value());
            outer += ProcessingInstructionText(node.name(), node.value());
            break;
        case pugi::node_comment:
            outer += std::string("<!--") + node.value() + "-->";
            break;
        case pugi::node_doctype:
            outer += std::string("<!DOCTYPE ") + node.value() + ">";
            break;
        default:
            break;
        }
    }
    epilog_ += "\n";
    return true;
}

bool CAnlage::BuildTree(pugi::xml_document& document) {
    pugi::xml_node element = document.document_element();
    auto root = std::make_unique<CNodeRoot>();
    root->BeginReading();
    root->SetAnlage(this);
    root->SetName(element.name());
    root_ = std::move(root);
    if (!root_->ParseAttributes(element) || !root_->ParseSubnodes(element))
        return false;
    return root_->CheckNode();
}

void CAnlage::ReadFileVersion() {
    for (const auto& chapter : root_->SubNodes())
        if (chapter->Name() == "Version") {
            version_.SetFileVersion(AttributeText(*chapter, "EEP"));
            return;
        }
}

// The layout-joining tool Planfuger writes building collections whose id is out of the range
// 1..6 or repeats that of an earlier collection. The simulator always writes them in the order
// 1, 2, 3, 6, 4, 5; a wrong id gets the id of its position in that order when that id is free.
void CAnlage::RepairBuildingCollectionIds() {
    std::vector<INode*> collections;
    for (const auto& chapter : root_->SubNodes())
        if (chapter->Name() == "Gebaeudesammlung")
            collections.push_back(chapter.get());
    std::vector<int> ids;
    for (INode* collection : collections)
        ids.push_back(static_cast<int>(TextToNumber(AttributeText(*collection, "GebaudesammlungID"))));
    bool repaired = false;
    for (size_t i = 0; i < collections.size() && i < std::size(kCollectionIdOrder); ++i) {
        bool valid =
            ids[i] >= 1 && ids[i] <= 6 && std::find(ids.begin(), ids.begin() + i, ids[i]) == ids.begin() + i;
        int wanted = kCollectionIdOrder[i];
        if (valid || std::find(ids.begin(), ids.end(), wanted) != ids.end())
            continue;
        ids[i] = wanted;
        if (auto* collection = dynamic_cast<CNodeImmoSammlung*>(collections[i]))
            collection->SetID(static_cast<int16_t>(wanted));
        repaired = true;
    }
    if (!repaired)
        return;
    changedWhileLoading_ = true;
    ErrorBox(FormatMessage(
        "Diese Anlage wurde offensichtlich vom%nProgramm 'Planfuger' erstellt und seitdem nicht "
        "von EEP gespeichert.%mDie fehlerhafte ID der Gebäudesammlung wurde korrigiert!%m"
        "Weitere Informationen zu diesem Fehler finden Sie in der Datei%m'KurzAnleitung.pdf' "
        "im Kapitel 'Öffnen einer Anlage'%mim Installationsverzeichnis von Kavrin."));
}

// The terrain gives the plan its extent: it is complete when it names the grid (extX, extY),
// its lower-left corner (posX, posY) and the density (dichte), with a positive grid and density.
bool CAnlage::CheckTerrain() const {
    const INode* terrain = nullptr;
    for (const auto& chapter : root_->SubNodes())
        if (chapter->Name() == "Schandlaft")
            terrain = chapter.get();
    bool complete = terrain != nullptr;
    for (const char* name : {"extX", "extY", "posX", "posY", "dichte"})
        complete = complete && HasAttribute(*terrain, name);
    if (complete)
        complete = TextToNumber(AttributeText(*terrain, "extX")) > 0 &&
                   TextToNumber(AttributeText(*terrain, "extY")) > 0 &&
                   TextToNumber(AttributeText(*terrain, "dichte")) > 0;
    if (!complete)
        ErrorBox(FormatMessage("Der Abschnitt \"Schandlaft\" fehlt oder ist unvollständig;%n") +
                 FormatMessage("somit fehlen die Grunddaten der Anlage!"));
    return complete;
}

void CAnlage::AddProcInstr(std::string name, std::string value) {
    procInstrs_.emplace_back(std::move(name), std::move(value));
}

bool CAnlage::WriteDocument(CXmlWriter& writer) {
    if (!root_)
        return false;
    writer.Raw(prolog_.empty() && epilog_.empty() ? "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" : prolog_);
    if (!WriteNode(writer, *root_))
        return false;
    writer.Raw(prolog_.empty() && epilog_.empty() ? "\n" : epilog_);
    return true;
}

bool CAnlage::Save(const std::string& path) {
    try {
        SafeFileWriter file(path);
        CXmlWriter writer(file.Handle());
        if (!WriteDocument(writer))
            throw CError(1000, FormatMessage("Ein Element der Anlage konnte nicht geschrieben werden."));
        writer.Flush();
        file.Commit();
        changed_ = false;
        path_ = path;
        return true;
    } catch (...) {
        ReportCurrentError("CAnlage.Save", FormatMessage("Die Anlage wurde NICHT gespeichert!!"));
        return false;
    }
}

} // namespace kavrin
