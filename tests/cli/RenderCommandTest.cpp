#include <gtest/gtest.h>

#include <map>
#include <pugixml.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "../plan/RecordingCanvas.h"
#include "TestSupport.h"
#include "cli/CCommandLine.h"
#include "plan/CDiffOverlay.h"

using namespace kavrin;

namespace {

struct RenderRun {
    // With draw set, the picture is drawn on a recording canvas instead of a file.
    explicit RenderRun(const std::vector<std::string>& args, bool withRenderer = true) {
        CCommandLine commandLine(out, err);
        if (withRenderer)
            commandLine.SetRenderer(
                [this](int width, int height, const CRenderCommand::DrawFunction& draw,
                       const std::string& path, std::string&) {
                    canvas = test::RecordingCanvas(width, height);
                    written = path;
                    return draw(canvas);
                },
                [] {
                    CViewOptions options;
                    for (int style = 1; style <= options.TrackStyleCount(); ++style)
                        options.SetTrackColor(style, 0x0000FF);
                    return options;
                });
        status = commandLine.Run(args);
    }
    std::ostringstream out;
    std::ostringstream err;
    int status = -1;
    test::RecordingCanvas canvas;
    std::string written;
};

struct End {
    double x, y;
};

// The share of track ends that meet the end of another drawn track within 2 cm.
double JoinedShare(const test::RecordingCanvas& canvas) {
    std::vector<End> ends;
    std::vector<size_t> owner;
    auto lines = canvas.Of("Polyline");
    for (size_t i = 0; i < lines.size(); ++i) {
        ends.push_back({lines[i]->xs.front(), lines[i]->ys.front()});
        ends.push_back({lines[i]->xs.back(), lines[i]->ys.back()});
        owner.insert(owner.end(), {i, i});
    }
    size_t joined = 0;
    for (size_t a = 0; a < ends.size(); ++a)
        for (size_t b = 0; b < ends.size(); ++b)
            if (owner[a] != owner[b] && std::hypot(ends[a].x - ends[b].x, ends[a].y - ends[b].y) < 2) {
                ++joined;
                break;
            }
    return ends.empty() ? 0 : static_cast<double>(joined) / static_cast<double>(ends.size());
}

} // namespace

TEST(RenderCommand, WrongArgumentsAreUsageErrors) {
    for (const auto& args :
         std::vector<std::vector<std::string>>{{"render", "a.anl3"},
                                               {"render", "a.anl3", "b.png", "--groesse", "0x100"},
                                               {"render", "a.anl3", "b.png", "--groesse", "100"},
                                               {"render", "a.anl3", "b.png", "--zoom", "0.5"},
                                               {"render", "a.anl3", "b.png", "--zoom"},
                                               {"render", "a.anl3", "b.png", "--mitte", "12"},
                                               {"render", "a.anl3", "b.png", "--hoehe", "10:5"},
                                               {"render", "a.anl3", "b.png", "--hoehe", "abc:5"},
                                               {"render", "a.anl3", "b.png", "--inhalt", "--zoom", "4"},
                                               {"render", "a.anl3", "b.png", "--mitte", "1;2", "--inhalt"},
                                               {"render", "a.anl3", "b.png", "--farbig"}}) {
        RenderRun run(args);
        EXPECT_EQ(run.status, CCommandLine::kUsage) << args.back();
        EXPECT_TRUE(run.written.empty());
    }
}

TEST(RenderCommand, EverySampleIsDrawnJoinedAndInsideItsLayout) {
    for (const auto& entry : std::filesystem::directory_iterator(test::SamplesDir())) {
        if (entry.path().extension() != ".anl3")
            continue;
        RenderRun run({"render", entry.path().string(), "plan.png", "--groesse", "1200x800", "--signale"});
        ASSERT_EQ(run.status, CCommandLine::kOk) << entry.path() << run.err.str();
        EXPECT_EQ(run.written, "plan.png");
        auto lines = run.canvas.Of("Polyline");
        ASSERT_FALSE(lines.empty()) << entry.path();
        for (const auto* line : lines)
            for (size_t i = 0; i < line->xs.size(); ++i) {
                // Every sample's layout lies within 500 m of the origin.
                EXPECT_LE(std::fabs(line->xs[i]), 50000) << entry.path();
                EXPECT_LE(std::fabs(line->ys[i]), 50000) << entry.path();
            }
        // Road layouts end in many open stubs; most ends still meet their neighbour.
        EXPECT_GT(JoinedShare(run.canvas), 0.6) << entry.path();
        EXPECT_NE(run.out.str().find("Hinweis: FarbenFile"), std::string::npos)
            << "the missing bitmaps are hints";
    }
}

TEST(RenderCommand, HeightBandZoomAndOptionsReachTheDrawing) {
    std::string sample = test::SamplePath("Demo-Linien.anl3");
    RenderRun whole({"render", sample, "a.png"});
    RenderRun below({"render", sample, "a.png", "--hoehe", ":-1000"});
    RenderRun zoomed({"render", sample, "a.png", "--zoom", "8", "--mitte", "-100;50"});
    ASSERT_EQ(whole.status, CCommandLine::kOk);
    EXPECT_EQ(whole.canvas.PixelWidth(), 1920);
    EXPECT_TRUE(below.canvas.Of("Polyline").empty()) << "nothing lies a kilometre down";
    EXPECT_LT(zoomed.canvas.Of("Polyline").size(), whole.canvas.Of("Polyline").size());
    ASSERT_FALSE(whole.canvas.Of("Polyline").empty());
    EXPECT_EQ(whole.canvas.Of("Polyline").front()->color, 0x0000FFu) << "colours come from the view options";
}

// The crossing of the sample is a few dozen metres in a layout of a kilometre: "--inhalt"
// makes it fill the picture.
TEST(RenderCommand, ContentFillsThePicture) {
    std::string sample = test::SamplePath("Tutorial-Ampelkreuzung.anl3");
    RenderRun whole({"render", sample, "a.png", "--groesse", "800x600"});
    RenderRun content({"render", sample, "a.png", "--groesse", "800x600", "--inhalt"});
    ASSERT_EQ(content.status, CCommandLine::kOk) << content.err.str();
    CRect box(1e300, -1e300, -1e300, 1e300);
    for (const auto* line : content.canvas.Of("Polyline"))
        for (size_t i = 0; i < line->xs.size(); ++i) {
            box.Left = std::min(box.Left, line->xs[i]);
            box.Right = std::max(box.Right, line->xs[i]);
            box.Top = std::max(box.Top, line->ys[i]);
            box.Bottom = std::min(box.Bottom, line->ys[i]);
        }
    const CRect& view = content.canvas.view;
    EXPECT_LT(view.Width(), whole.canvas.view.Width() / 3);
    EXPECT_LE(view.Left, box.Left);
    EXPECT_GE(view.Right, box.Right);
    EXPECT_GE(view.Top, box.Top);
    EXPECT_LE(view.Bottom, box.Bottom);
    EXPECT_GT(std::max(box.Width() / view.Width(), (box.Top - box.Bottom) / (view.Top - view.Bottom)), 0.8)
        << "the tracks fill the picture along one axis";
}

TEST(RenderCommand, FailuresLeaveNoPicture) {
    test::TempDir dir;
    RenderRun missing({"render", dir.File("fehlt.anl3"), dir.File("a.png")});
    EXPECT_EQ(missing.status, CCommandLine::kFailed);
    EXPECT_TRUE(missing.written.empty());
    RenderRun withoutQt({"render", test::SamplePath("Demo-Linien.anl3"), dir.File("a.png")}, false);
    EXPECT_EQ(withoutQt.status, CCommandLine::kFailed);
    EXPECT_NE(withoutQt.err.str().find("ohne Qt"), std::string::npos);
}

#ifdef KAVRIN_CLI_RENDERS
TEST(RenderCommand, TheProgramWritesAPng) {
    test::TempDir dir;
    std::string png = dir.File("Demo.png");
    std::string command = std::string("QT_QPA_PLATFORM=offscreen \"") + KAVRIN_CLI_PATH + "\" render \"" +
                          KAVRIN_EXAMPLES_DIR + "/Demo.anl3\" \"" + png +
                          "\" --groesse 640x480 > /dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::string bytes = test::ReadFile(png);
    ASSERT_GT(bytes.size(), 1000u);
    EXPECT_EQ(bytes.substr(0, 8), std::string("\x89PNG\r\n\x1A\n", 8));
}

// A name ending in .svg gives a vector picture that an XML parser takes as it is, with the
// track work as paths.
TEST(RenderCommand, TheProgramWritesSvgForSvgNames) {
    test::TempDir dir;
    std::string svg = dir.File("Demo.SVG");
    std::string command = std::string("QT_QPA_PLATFORM=offscreen \"") + KAVRIN_CLI_PATH + "\" render \"" +
                          KAVRIN_EXAMPLES_DIR + "/Demo.anl3\" \"" + svg +
                          "\" --groesse 640x480 --namen --signale > /dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    pugi::xml_document document;
    pugi::xml_parse_result parsed =
        document.load_file(svg.c_str(), pugi::parse_default | pugi::parse_declaration);
    ASSERT_TRUE(parsed) << parsed.description();
    pugi::xml_node root = document.child("svg");
    ASSERT_TRUE(root);
    EXPECT_STREQ(root.attribute("width").value(), "640");
    EXPECT_STREQ(root.attribute("height").value(), "480");
    EXPECT_TRUE(root.child("path"));
    EXPECT_TRUE(root.child("image")); // the terrain's colour map
    EXPECT_TRUE(root.child("polygon")) << "the buildings as turned squares";
    pugi::xml_node label = root.find_child([](pugi::xml_node node) {
        return std::string(node.name()) == "text" && node.attribute("paint-order");
    });
    ASSERT_TRUE(label) << "names with their halo";
    EXPECT_STREQ(label.attribute("paint-order").value(), "stroke");
    EXPECT_TRUE(label.attribute("stroke"));
    // Where python is at hand, its strict parser must agree.
    if (std::system("python3 -c '' > /dev/null 2>&1") == 0) {
        std::string strict =
            "python3 -c \"import sys, xml.etree.ElementTree as E; E.parse(sys.argv[1])\" \"" + svg + "\"";
        EXPECT_EQ(std::system(strict.c_str()), 0);
    }
}
#endif

namespace {

// Over the plan of an edited copy: the moved tracks in orange with their lines from the old
// place, the removed ones in red, an added signal-free track in green, nothing else coloured so.
TEST(RenderCommand, ComparisonDrawsTheThreeColours) {
    test::TempDir dir;
    const std::string sample = test::SamplePath("Tutorial-Ampelkreuzung-2.anl3");
    std::ostringstream out, err;
    ASSERT_EQ(CCommandLine(out, err).Run({"edit", sample, dir.File("neu.anl3"), "--gleise", "3:40..45",
                                          "--verschieben", "5;5;0", "--keine", "--gleise", "3:60..62",
                                          "--loeschen"}),
              0)
        << err.str();
    RenderRun run({"render", dir.File("neu.anl3"), dir.File("plan.png"), "--vergleich", sample});
    ASSERT_EQ(run.status, 0) << run.err.str();
    std::map<uint32_t, int> tracks, lines;
    for (const auto* call : run.canvas.Of("Polyline"))
        ++tracks[call->color];
    for (const auto* call : run.canvas.Of("Line"))
        ++lines[call->color];
    EXPECT_EQ(tracks[CDiffOverlay::kChangedColor], 6);
    EXPECT_EQ(lines[CDiffOverlay::kChangedColor], 6);
    EXPECT_EQ(tracks[CDiffOverlay::kRemovedColor], 3);
    // The other way round the removed tracks are the added ones.
    RenderRun back({"render", sample, dir.File("alt.png"), "--vergleich", dir.File("neu.anl3")});
    ASSERT_EQ(back.status, 0) << back.err.str();
    int added = 0;
    for (const auto* call : back.canvas.Of("Polyline"))
        added += call->color == CDiffOverlay::kAddedColor;
    EXPECT_EQ(added, 3);
    RenderRun missing({"render", sample, dir.File("x.png"), "--vergleich", dir.File("fehlt.anl3")});
    EXPECT_EQ(missing.status, 1);
}

} // namespace
