#include "platform/qt/Pictures.h"

#include <QColor>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSizeF>
#include <QStyle>

#include <cmath>
#include <cstdlib>

namespace plenair {

ScalePicture::ScalePicture(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
}

void ScalePicture::paintEvent(QPaintEvent*) {
    constexpr int kSteps = 81;
    constexpr int kMiddle = kSteps / 2;
    QPainter painter(this);
    const double step = static_cast<double>(height()) / kSteps;
    for (int i = 0; i < kSteps; ++i) {
        const double depth = 1.0 - std::abs(i - kMiddle) / static_cast<double>(kMiddle);
        const int other = static_cast<int>(std::lround(255 - (255 - 31) * depth));
        painter.fillRect(QRectF(0, i * step, width(), step), QColor(other, 255, other));
    }
}

ImagePicture::ImagePicture(const QString& name, const QString& file, QWidget* parent)
    : QWidget(parent), m_image(file) {
    setObjectName(name);
}

void ImagePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    QRectF area(QPointF(), QSizeF(m_image.size()).scaled(size(), Qt::KeepAspectRatio));
    area.moveCenter(QRectF(rect()).center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(area, m_image);
}

void ImagePicture::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) && Click) {
        Click();
    }
}

void InsetButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor face =
        palette().color(isDown() ? QPalette::Dark : (underMouse() ? QPalette::Midlight : QPalette::Button));
    QColor edge = palette().color(QPalette::ButtonText);
    edge.setAlphaF(0.45F);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(face);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
    style()->drawItemText(&painter, rect(), Qt::AlignCenter | Qt::TextShowMnemonic, palette(), isEnabled(),
                          text(), QPalette::ButtonText);
}

} // namespace plenair
