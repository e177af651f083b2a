#pragma once

#include <string>
#include <vector>

namespace kavrin {

class INode;

// Which chapters (children of the document element) a layout has, and the hints for those
// that are missing.
class CChapters {
public:
    void Clear();
    // Records the chapters found among the children of the document element.
    void Collect(const INode& root);
    void Register(const std::string& name);
    bool Found(const std::string& name) const;
    const std::vector<std::string>& FoundNames() const { return found_; }

    // Chapters every layout written by the simulator has, in the order of the file. The terrain
    // ("Schandlaft") is checked on its own, with an error. Chapters that only newer versions
    // write (AnimRoll, CrowdSammlung, EEPLua, Kamera3D, ...) are not expected.
    static const std::vector<std::string>& Expected();
    // Adds a hint for every expected chapter that is absent; returns how many there were.
    int ReportMissing() const;

private:
    std::vector<std::string> found_;
};

} // namespace kavrin
