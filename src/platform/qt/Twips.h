#pragma once

#include <QRect>

class QWidget;

// Positions and sizes are given in twips, 1440 to the inch; Qt wants its own logical pixels.
namespace plenair {

constexpr double kTwipsPerInch = 1440.0;

// How much larger than in the layout everything in windows is: 1, or more where the user's letters are
// larger. Set before the first window is made.
void SetFormScale(double scale);
double FormScale();

// Twips in one logical pixel of the primary screen: 15 at 96 dots per inch and a scale of 1.
double TwipsPerPixelX();
double TwipsPerPixelY();

// Size of the primary screen in twips.
double ScreenWidth();
double ScreenHeight();

int ToPixelsX(double twips);
int ToPixelsY(double twips);

// The rectangle in logical pixels. Both edges are rounded, so that what adjoins in twips adjoins in pixels.
QRect ToPixels(double left, double top, double width, double height);

} // namespace plenair
