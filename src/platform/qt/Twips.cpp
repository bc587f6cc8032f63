#include "platform/qt/Twips.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace plenair {

double TwipsPerPixelX() {
    return kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchX();
}

double TwipsPerPixelY() {
    return kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchY();
}

double ScreenWidth() {
    return QGuiApplication::primaryScreen()->geometry().width() * TwipsPerPixelX();
}

double ScreenHeight() {
    return QGuiApplication::primaryScreen()->geometry().height() * TwipsPerPixelY();
}

int ToPixelsX(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerPixelX()));
}

int ToPixelsY(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerPixelY()));
}

QRect ToPixels(double left, double top, double width, double height) {
    return {QPoint(ToPixelsX(left), ToPixelsY(top)),
            QPoint(ToPixelsX(left + width) - 1, ToPixelsY(top + height) - 1)};
}

} // namespace plenair
