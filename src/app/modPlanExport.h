#pragma once

#include <functional>
#include <string>

namespace kavrin {

class Canvas;
class CAnlage;
class CPlanPainter;
class CPlanView;
class CViewOptions;

// Draws a width x height picture through the plan's QPainter canvas and saves it as PNG. The
// file is written under a temporary name and renamed, so a failed export leaves no half file.
// False with a German reason when the picture cannot be made or saved.
bool WritePlanPng(int width, int height, const std::function<bool(Canvas&)>& draw, const std::string& path,
                  std::string& error);

// The same as an SVG picture of width x height pixels, drawn through the SVG canvas.
bool WritePlanSvg(int width, int height, const std::function<bool(Canvas&)>& draw, const std::string& path,
                  std::string& error);

// PNG or SVG by the name's ending (".svg" in any case gives SVG).
bool WritePlanPicture(int width, int height, const std::function<bool(Canvas&)>& draw,
                      const std::string& path, std::string& error);
bool IsSvgName(const std::string& path);

// Draws a layout as a picture file `width` pixels wide: the window's view (same centre and zoom)
// or the whole layout, each at its own shape, with the window's names, signals and background
// (`look`). PNG, or SVG for a name ending in .svg; false with a German reason.
bool ExportPlan(CAnlage& anlage, const CPlanView& windowView, const CViewOptions& options,
                const CPlanPainter& look, bool wholeLayout, int width, const std::string& path,
                std::string& error);

// Whether the plan is drawn with smoothed edges (the window and the export agree).
inline constexpr bool kPlanAntialiasing = true;

} // namespace kavrin
