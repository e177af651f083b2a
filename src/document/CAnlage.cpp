#include "document/CAnlage.h"

#include <algorithm>
#include <pugixml.hpp>

#include "core/IUserInterface.h"
#include "core/modTools.h"
#include "document/CFileBytes.h"
#include "document/CLayoutReader.h"
#include "document/CNodeUnknown.h"
#include "document/CSaveTarget.h"
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
const int kOutOfMemory = 7; // the number of the error a failed allocation becomes

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
    return LoadFrom(path, [&path](CFileBytes& bytes, std::string& error) { return bytes.Read(path, error); });
}

bool CAnlage::LoadFromMemory(std::string_view text, const std::string& name) {
    return LoadFrom(name, [text](CFileBytes& bytes, std::string&) {
        bytes.Assign(text.data(), text.size());
        return true;
    });
}

bool CAnlage::LoadFrom(const std::string& path, const ByteSource& source) {
    Clear();
    path_ = path;
    // The log opens first, so that a cancel in the very first event round is not wiped out.
    FParseLog& log = UI().ParseLog();
    log.Open(path);
    long errorsBefore = ErrorBoxesShown();
    bool ok = false;
    try {
        UI().ShowStatus(FormatMessage("wird aufgebaut ..."));
        UI().ProcessPendingEvents();
        ok = ParseDocument(path, source);
        if (ok) {
            ReportUnusualDocumentElement();
            ReadFileVersion();
            RepairBuildingCollectionIds();
            chapters_.Collect(*root_);
            chapters_.ReportMissing();
            ok = CheckTerrain();
        }
    } catch (...) {
        CError failure = CError::FromCurrentException();
        ReportError(
            "CAnlage.Load", failure,
            failure.Number() == kOutOfMemory
                ? FormatMessage("Für das Laden der Anlage%n%1%nreicht der Arbeitsspeicher nicht.", path)
                : FormatMessage("Die Anlage%n%1%nkann nicht geladen werden.", path));
        ok = false;
    }
    // A load that a hint stopped says so in an error of its own, not only among the hints.
    if (!ok && !log.Cancelled() && ErrorBoxesShown() == errorsBefore && !log.Hints().empty())
        ErrorBox(FormatMessage("Die Anlage%n%1%nkann nicht geladen werden:%n%2", path, log.Hints().back()));
    log.FinalState();
    if (!ok) {
        Clear();
        return false;
    }
    changed_ = changedWhileLoading_;
    return true;
}

bool CAnlage::ParseDocument(const std::string& path, const ByteSource& source) {
    CFileBytes bytes;
    std::string error;
    if (!source(bytes, error)) {
        ErrorBox(error);
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
    if (!source(bytes, error)) {
        ErrorBox(error);
        return false;
    }
    return ParseWholeDocument(bytes, path);
}

bool CAnlage::ParseWholeDocument(CFileBytes& bytes, const std::string& path) {
    pugi::xml_document document;
    pugi::xml_parse_result result =
        document.load_buffer(bytes.Data(), bytes.Size(), kLayoutParseOptions, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) {
        ErrorBox(FormatMessage("Für das Laden der Anlage%n%1%nreicht der Arbeitsspeicher nicht.", path));
        return false;
    }
    if (!result) {
        ReportXmlParseError(result, std::string_view(bytes.Data(), bytes.Size()),
                            FormatMessage("Die Datei%n%1%nist offensichtlich keine Anlagen-Datei.%m"
                                          "Der xml-Parser kann sie nicht laden und meldet folgendes:",
                                          path));
        return false;
    }
    // What stands around the document element is taken as the pieces take it: the parser
    // would let text and further elements there pass unseen.
    CLayoutReader outline(bytes, *this);
    if (!outline.ReadOutline()) {
        ErrorBox(FormatMessage("Die Datei%n%1%nist offensichtlich keine Anlagen-Datei.%m"
                               "Der Fehler entsteht in der Nähe des %2. Zeichen in der Datei.%n"
                               "Vor oder nach dem Dokument-Element steht etwas anderes als Kommentare, "
                               "Verarbeitungsanweisungen und Leerraum.",
                               path,
                               static_cast<long long>(CharacterCount(
                                   std::string_view(bytes.Data(), bytes.Size()), outline.FailedAt())) +
                                   1));
        return false;
    }
    prolog_ = outline.Prolog();
    epilog_ = outline.Epilog();
    pugi::xml_node element = document.document_element();
    bool repaired = false;
    DropRepeatedAttributes(element, this);
    if (!ScreenElements(element, 1, this, repaired))
        return false;
    return BuildTree(document);
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

// The simulator's layouts are "sutrackp" documents; another name is read all the same.
void CAnlage::ReportUnusualDocumentElement() const {
    if (root_->Name() != "sutrackp")
        AddParseHint(FormatMessage("Das Dokument-Element der Datei heißt '%1' und nicht 'sutrackp';%n"
                                   "die Datei wird trotzdem als Anlage gelesen.",
                                   root_->Name()));
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
        ids.push_back(ClampedInteger(TextToNumber(AttributeText(*collection, "GebaudesammlungID"))));
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

namespace {
// The check of a file just written, before it replaces the old one: read as a load reads it,
// without building anything.
bool CheckWrittenLayout(const std::string& tempPath, std::string& problem) {
    CFileBytes bytes;
    return bytes.Map(tempPath, problem) && CLayoutReader::Check(bytes, problem);
}
} // namespace

bool CAnlage::Save(const std::string& path) {
    try {
        CSaveTarget target(path);
        if (target.WriteProtected() &&
            !Ask(FormatMessage("Die Datei%n%1%nist schreibgeschützt.%mMöchten Sie sie trotzdem ersetzen?",
                               target.Path())))
            return false;
        {
            SafeFileWriter file(target);
            CXmlWriter writer(file.Handle());
            if (!WriteDocument(writer))
                throw CError(1000, FormatMessage("Ein Element der Anlage konnte nicht geschrieben werden."));
            writer.Flush();
            file.Commit(CheckWrittenLayout);
        }
        changed_ = false;
        path_ = path;
        if (long others = target.OtherNames(); others > 0)
            InfoBox(FormatMessage("Die Datei%n%1%nhat noch %2 weitere(n) Namen (harte Verknüpfungen).%m"
                                  "Unter diesen steht weiterhin der alte Inhalt; gespeichert wurde nur unter "
                                  "diesem Namen.",
                                  target.Path(), others));
        return true;
    } catch (...) {
        ReportCurrentError("CAnlage.Save", FormatMessage("Die Anlage wurde NICHT gespeichert!!"));
        return false;
    }
}

} // namespace kavrin
