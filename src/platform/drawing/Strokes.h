#pragma once

#include "platform/drawing/RecordedSurface.h"

// Turns the lines and boxes of a drawing into ink, for screen and paper alike. Everything that is rounded is
// rounded here.
namespace plenair {

// Device pixels, from Left and Top up to but without Right and Bottom.
struct PixelRect {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
    bool operator==(const PixelRect&) const = default;
};

// What ink is put on. Everything is in device pixels; what lies outside the surface may be left out.
class Ink {
  public:
    virtual ~Ink() = default;
    virtual void Fill(const PixelRect& pixels, ColourNumber colour) = 0;

    // A line along no axis, `width` pixels wide, its ends cut off square half a width beyond `start` and
    // `end`.
    virtual void Slant(Point start, Point end, double width, ColourNumber colour) = 0;
};

// How the units of a surface become device pixels.
struct PixelScale {
    double PixelsPerTwipX = 1;
    double PixelsPerTwipY = 1;
    double LineWidth = 1; // pixels of a line of width 1
    double Dash = 6;      // pixels
    double Gap = 4;
    Extent Surface; // pixels
};

// A coordinate as the device pixel that it begins. What differs by the errors of a sum gets the same pixel.
double WholePixel(double coordinate);

// The thickness of a line of that width: whole pixels, and at least one.
double WholeThickness(double width, const PixelScale& scale);

// Puts a line or a box on `ink`. Lines along an axis, or as good as along it, fill whole pixels, dashes too,
// and all of one width are equally thick. What has no extent leaves no ink. Only what lies on the surface is
// dashed and filled, so that a line of any length costs no more than one across the surface.
void PaintStroke(const DrawnItem& item, const PixelScale& scale, Ink& ink);

// Cuts a line off where it is further than `margin` outside of a surface. False if nothing is left.
bool ClipLine(Point& start, Point& end, Extent surface, double margin);

} // namespace plenair
