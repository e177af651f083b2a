#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "plan/CViewOptions.h"

namespace kavrin {

class Canvas;

// "kavrin-cli render": the plan of a layout as a picture file, drawn by the same code as the
// editor's window. The picture itself is made by an image writer that the program installs
// (Qt's raster painter in the real tool, a recording canvas in tests).
class CRenderCommand {
public:
    using DrawFunction = std::function<bool(Canvas&)>;
    // Makes a width x height picture, lets draw paint it and saves it; false with a German
    // reason when that fails.
    using ImageWriter = std::function<bool(int width, int height, const DrawFunction& draw,
                                           const std::string& path, std::string& error)>;

    struct Request {
        std::string in;
        std::string out;
        int width = 1920;
        int height = 1080;
        float zoom = 1;
        std::optional<std::pair<double, double>> centre; // metres
        std::optional<double> bottom;                    // metres
        std::optional<double> top;                       // metres
        bool names = false;
        bool signals = false;
        bool trackIds = false;
        bool content = false;    // fit the content instead of the whole layout
        std::string compareWith; // the old layout whose changes are drawn over the plan
    };

    // Reads the arguments after "render"; false with the reason when they do not fit.
    static bool Parse(const std::vector<std::string>& args, Request& request, std::string& problem);

    CRenderCommand(std::ostream& out, std::ostream& err, const ImageWriter& writer,
                   const CViewOptions& options)
        : out_(out), err_(err), writer_(writer), options_(options) {}
    // Exit status as the command line's: 0 done, 1 failed.
    int Run(const Request& request);

    static const char* Usage();

private:
    std::ostream& out_;
    std::ostream& err_;
    const ImageWriter& writer_;
    CViewOptions options_;
};

} // namespace kavrin
