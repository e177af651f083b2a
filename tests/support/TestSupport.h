#pragma once

#include <filesystem>
#include <string>

#include "document/CRecordingUserInterface.h"

namespace kavrin::test {

// Installs a recording user interface for the lifetime of a test.
class RecordingScope {
public:
    RecordingScope() : previous_(SetUI(&ui)) {}
    ~RecordingScope() { SetUI(previous_); }
    CRecordingUserInterface ui;

private:
    IUserInterface* previous_;
};

// A fresh folder below the system's temp folder, removed again at the end of the test.
class TempDir {
public:
    TempDir();
    ~TempDir();
    std::string File(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& content);
std::string SamplesDir();
std::string SamplePath(const std::string& name);
// How many layouts the samples folder holds (never hard-coded: samples may be added).
int SampleCount();

} // namespace kavrin::test
