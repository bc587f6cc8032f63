#include "platform/qt/TextFit.h"

#include <QFontMetricsF>

namespace plenair {

QFont FontThatFits(const QFont& font, const QString& text, double width) {
    constexpr double kStep = 0.25; // points
    QFont fitting = font;
    const double smallest = font.pointSizeF() * 2 / 3;
    while (QFontMetricsF(fitting).horizontalAdvance(text) > width &&
           fitting.pointSizeF() - kStep >= smallest) {
        fitting.setPointSizeF(fitting.pointSizeF() - kStep);
    }
    return fitting;
}

QString TextThatFits(const QFont& font, const QString& text, double width) {
    return QFontMetricsF(font).elidedText(text, Qt::ElideRight, width);
}

} // namespace plenair
