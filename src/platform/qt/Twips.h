#pragma once

#include <QRect>
#include <QString>

#include <string>

class QWidget;

// Positions and sizes are given in twips, 1440 to the inch; Qt wants its own logical pixels.
namespace plenair {

constexpr double kTwipsPerInch = 1440.0;

// Twips in one logical pixel of the primary screen: 15 at 96 dots per inch.
double TwipsPerPixelX();
double TwipsPerPixelY();

// Size of the primary screen in twips.
double ScreenWidth();
double ScreenHeight();

int ToPixelsX(double twips);
int ToPixelsY(double twips);

// The rectangle in logical pixels. Both edges are rounded, so that what adjoins in twips adjoins in pixels.
QRect ToPixels(double left, double top, double width, double height);

inline QString ToQt(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

} // namespace plenair
