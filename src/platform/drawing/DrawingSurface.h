#pragma once

#include "platform/plane/Point.h"

#include <cstdint>
#include <string>

// What the program draws on, screen and paper alike. All coordinates are twips (1/1440 inch) from the top
// left corner.
namespace plenair {

// red + 256 × green + 65536 × blue
using ColourNumber = std::uint32_t;
constexpr ColourNumber kBlackColour = 0;
constexpr ColourNumber kGreenColour = 65280;

enum class LineStyle { Solid = 0, Dashed = 1 };

class DrawingSurface {
  public:
    virtual ~DrawingSurface() = default;

    // Read afresh at each use: a window or a page may have changed its size since.
    virtual Extent Size() const = 0;

    // Both hold for the lines and boxes from here on. A width counts pixels on the screen (of a screen of 96
    // per inch, so that it grows with the scale factor), and thirds of a point on paper. The first width is
    // 1, the first style solid.
    virtual void SetLineWidth(int width) = 0;
    virtual void SetLineStyle(LineStyle style) = 0;

    virtual void Line(Point start, Point end, ColourNumber colour) = 0;

    // Outline of the rectangle between two opposite corners.
    virtual void Box(Point corner, Point opposite, ColourNumber colour) = 0;

    // Where the top left corner of the next text stands.
    virtual void SetPosition(Point place) = 0;

    // Prints one line of UTF-8 text at the position, in the surface's text colour.
    virtual void Print(const std::string& text) = 0;
};

} // namespace plenair
