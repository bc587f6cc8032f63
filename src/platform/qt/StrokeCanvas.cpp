#include "platform/qt/StrokeCanvas.h"

#include "platform/qt/DevicePixels.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointF>
#include <QRegion>

#include <cmath>
#include <vector>

namespace plenair {

StrokeCanvas::StrokeCanvas(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void StrokeCanvas::resizeEvent(QResizeEvent*) {
    m_surface.SetSize({width() * TwipsPerPixelX(), height() * TwipsPerPixelY()});
    m_picture = QImage(static_cast<int>(std::ceil(width() * devicePixelRatio())),
                       static_cast<int>(std::ceil(height() * devicePixelRatio())), QImage::Format_RGB32);
    m_picture.fill(Qt::black);
}

void StrokeCanvas::Refresh() {
    QRegion fresh;
    SurfacePainter painter(m_picture, devicePixelRatio(), font());
    for (; m_painted < m_surface.Items().size(); ++m_painted) {
        const DrawnItem& item = m_surface.Items()[m_painted];
        painter.Paint(item);
        fresh += PixelsTouched(item, font(), size());
    }
    repaint(fresh);
}

void StrokeCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(DevicePixels(painter).Whole(QPointF(0, 0)), m_picture);
}

} // namespace plenair
