#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "document/CAnlVersion.h"
#include "document/CChapters.h"
#include "document/CXmlProcInstr.h"
#include "document/INode.h"
#include "plan/CHoehenFilter.h"

namespace pugi {
class xml_document;
}

namespace kavrin {

// One open layout: the node tree, its version record, the chapters found and what the load
// itself changed. Loading and saving report to the user through the user-interface port.
class CFileBytes;

class CAnlage {
public:
    CAnlage();
    ~CAnlage();
    CAnlage(const CAnlage&) = delete;
    CAnlage& operator=(const CAnlage&) = delete;

    // File -> DOM -> node tree -> checks. False (after telling the user) leaves an empty document.
    // Nothing escapes: a failure of any kind is reported and answers false.
    bool Load(const std::string& path);
    // The same for a layout already in memory; `name` is what messages call it.
    bool LoadFromMemory(std::string_view text, const std::string& name);
    // Node tree -> file, through a temporary file in the same folder that then replaces the old one.
    bool Save(const std::string& path);
    void Clear();

    INode* RootNode() const { return root_.get(); }
    const CAnlVersion& Version() const { return version_; }
    CAnlVersion& Version() { return version_; }
    const CChapters& FoundChapter() const { return chapters_; }
    CChapters& FoundChapter() { return chapters_; }
    const std::string& FilePath() const { return path_; }

    bool ChangedWhileLoading() const { return changedWhileLoading_; }
    void SetChangedWhileLoading() { changedWhileLoading_ = true; }
    bool Changed() const { return changed_; }
    void SetChanged(bool changed) { changed_ = changed; }

    void AddProcInstr(std::string name, std::string value);
    const std::vector<CXmlProcInstr>& ProcInstrs() const { return procInstrs_; }

    // Contact-target numbers (1 and more) met while loading.
    void RegisterKontaktziel(int32_t target) { kontaktZiele_.push_back(target); }
    const std::vector<int32_t>& KontaktZiele() const { return kontaktZiele_; }

    // The height band the plan shows; it lives with the document but is not saved.
    CHoehenFilter& HoehenFilter() { return hoehenFilter_; }
    const CHoehenFilter& HoehenFilter() const { return hoehenFilter_; }

    // Writes the whole document (declaration, instructions, tree) into a writer.
    bool WriteDocument(CXmlWriter& writer);

private:
    // Fills the bytes (again, for a second reading); false with a German reason.
    using ByteSource = std::function<bool(CFileBytes&, std::string& error)>;
    bool LoadFrom(const std::string& path, const ByteSource& source);
    bool ParseDocument(const std::string& path, const ByteSource& source);
    bool ParseWholeDocument(CFileBytes& bytes, const std::string& path);
    bool BuildTree(pugi::xml_document& document);
    void ReportUnusualDocumentElement() const;
    void ReadFileVersion();
    void RepairBuildingCollectionIds();
    bool CheckTerrain() const;

    std::string path_;
    std::unique_ptr<INode> root_;
    CAnlVersion version_;
    CChapters chapters_;
    std::vector<CXmlProcInstr> procInstrs_;
    // The file's text before and after the document element, written back as read.
    std::string prolog_;
    std::string epilog_;
    std::vector<int32_t> kontaktZiele_;
    bool changedWhileLoading_ = false;
    bool changed_ = false;
    CHoehenFilter hoehenFilter_;
};

} // namespace kavrin
