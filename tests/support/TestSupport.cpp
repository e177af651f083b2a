#include "TestSupport.h"

#include <fstream>
#include <random>
#include <sstream>

namespace kavrin::test {

TempDir::TempDir() {
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() / ("kavrin-test-" + std::to_string(random()));
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ec);
    std::filesystem::remove_all(path_, ec);
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream content;
    content << in.rdbuf();
    return content.str();
}

void WriteFile(const std::string& path, const std::string& content) {
    std::ofstream out(path, std::ios::binary);
    out << content;
}

std::string SamplesDir() {
    return KAVRIN_SAMPLES_DIR;
}

std::string SamplePath(const std::string& name) {
    return SamplesDir() + "/" + name;
}

int SampleCount() {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SamplesDir()))
        count += entry.path().extension() == ".anl3" ? 1 : 0;
    return count;
}

} // namespace kavrin::test
