#include "platform/qt/Twips.h"

#include <QGuiApplication>
#include <QPoint>
#include <QScreen>

#include <cmath>

namespace plenair {

namespace {

double s_scale = 1;

} // namespace

void SetFormScale(double scale) {
    s_scale = scale;
}

double FormScale() {
    return s_scale;
}

double TwipsPerPixelX() {
    return kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchX() / s_scale;
}

double TwipsPerPixelY() {
    return kTwipsPerInch / QGuiApplication::primaryScreen()->logicalDotsPerInchY() / s_scale;
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
