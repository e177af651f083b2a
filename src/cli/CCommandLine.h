#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "cli/CRenderCommand.h"

namespace kavrin {

class CLayoutStatistics;

// kavrin-cli: batch work on layout files without a window. Exit status 0 done, 1 failed,
// 2 wrong usage.
class CCommandLine {
public:
    CCommandLine(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

    int Run(const std::vector<std::string>& args);

    // Makes "render" available: the writer makes the picture, options supplies the view options
    // (read only when a plan is drawn).
    void SetRenderer(CRenderCommand::ImageWriter writer, std::function<CViewOptions()> options) {
        imageWriter_ = std::move(writer);
        viewOptions_ = std::move(options);
    }

    static constexpr int kOk = 0;
    static constexpr int kFailed = 1;
    static constexpr int kUsage = 2;

private:
    int Dispatch(const std::vector<std::string>& args);
    int Info(const std::string& path);
    int Inventory(const std::string& path);
    int Check(const std::string& path);
    int Save(const std::string& in, const std::string& out);
    int Render(const std::vector<std::string>& args);
    int Edit(const std::vector<std::string>& args);
    int Diff(const std::vector<std::string>& args);
    int DeletionPreview(const std::vector<std::string>& args);
    void PrintContent(const CLayoutStatistics& statistics);
    int Usage(const std::string& problem);
    void Help();

    std::ostream& out_;
    std::ostream& err_;
    CRenderCommand::ImageWriter imageWriter_;
    std::function<CViewOptions()> viewOptions_;
};

} // namespace kavrin
