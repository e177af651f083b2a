#pragma once

#include <functional>
#include <string>

namespace kavrin {

class Canvas;

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

// Whether the plan is drawn with smoothed edges (the window and the export agree).
inline constexpr bool kPlanAntialiasing = false;

} // namespace kavrin
