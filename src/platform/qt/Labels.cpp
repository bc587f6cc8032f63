#include "platform/qt/Labels.h"

#include "platform/qt/DevicePixels.h"
#include "platform/qt/TextFit.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPen>
#include <QRect>

#include <cstdlib>

namespace plenair {

void BorderedLabel::paintEvent(QPaintEvent* event) {
    Label::paintEvent(event);
    QPainter painter(this);
    DevicePixels(painter).DrawFrame(rect(), palette().color(QPalette::Mid));
}

void RimmedLabel::paintEvent(QPaintEvent*) {
    const QColor ink = palette().color(QPalette::WindowText);
    const QColor background = palette().color(QPalette::Window);
    QPainterPath line;
    const QFont fitting = FontThatFits(font(), text(), width() - 1);
    const QFontMetricsF metrics(fitting);
    line.addText(width() - metrics.horizontalAdvance(text()) - 1,
                 (height() + metrics.ascent() - metrics.descent()) / 2, fitting, text());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (std::abs(qGray(ink.rgb()) - qGray(background.rgb())) < 80) {
        painter.strokePath(line, QPen(background.lightness() < 128 ? Qt::white : Qt::black, 1.6));
    }
    painter.fillPath(line, ink);
}

} // namespace plenair
