#pragma once

#include <string>

namespace kavrin {

// The layout's version: the format labels reported by elements while loading (the newest
// wins) and the simulator version named by the file's own "Version" element.
class CAnlVersion {
public:
    void Clear();
    // Reports a label ("???", "2.4x", "3", "4", "5"); unknown texts count as "???".
    void Report(const std::string& label);
    void SetFileVersion(const std::string& eepVersion) { fileVersion_ = eepVersion; }

    const std::string& Label() const;
    const std::string& FileVersion() const { return fileVersion_; }
    // What the document window shows, e.g. "3 (EEP 15.1)".
    std::string Text() const;

private:
    int labelIndex_ = 0;
    std::string fileVersion_;
};

} // namespace kavrin
