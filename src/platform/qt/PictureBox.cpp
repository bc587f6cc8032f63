#include "platform/qt/PictureBox.h"

#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointF>
#include <QSize>
#include <QSizeF>

#include <vector>

namespace plenair {

namespace {

// So many items after the base are drawn at each paint; more than that join the base.
constexpr std::size_t kItemsOverBase = 200;

} // namespace

PictureBox::PictureBox(const QString& name, RecordedSurface& surface, QWidget* parent)
    : QWidget(parent), m_surface(surface) {
    setObjectName(name);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_surface.WhenChanged([this] { update(); });
}

void PictureBox::BringBaseUpToDate() {
    const QSize pixels = (QSizeF(size()) * devicePixelRatio()).toSize();
    const bool resized = m_base.size() != pixels || m_base.devicePixelRatio() != devicePixelRatio();
    const std::size_t kept = m_surface.TakeItemsKept();
    const std::size_t all = m_surface.Items().size();
    if (resized || kept < m_baseItems) {
        m_base = QPixmap(pixels);
        m_base.setDevicePixelRatio(devicePixelRatio());
        m_base.fill(Qt::white);
        m_baseItems = 0;
        QPainter painter(&m_base);
        // What a cut has just left is what later cuts will leave again; what follows it comes and goes.
        const std::size_t to = !resized && all - kept <= kItemsOverBase ? kept : all;
        PaintItems(painter, 0, to);
        m_baseItems = to;
    } else if (all - m_baseItems > kItemsOverBase) {
        QPainter painter(&m_base);
        PaintItems(painter, m_baseItems, all);
        m_baseItems = all;
    }
}

void PictureBox::PaintItems(QPainter& painter, std::size_t from, std::size_t to) const {
    SurfacePainter surface(painter, devicePixelRatio(), font());
    for (std::size_t i = from; i < to; ++i) {
        surface.Paint(m_surface.Items()[i]);
    }
}

void PictureBox::paintEvent(QPaintEvent*) {
    BringBaseUpToDate();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_base);
    PaintItems(painter, m_baseItems, m_surface.Items().size());
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (MouseDown) {
        MouseDown(event->button(), static_cast<float>(event->position().x() * TwipsPerPixelX()),
                  static_cast<float>(event->position().y() * TwipsPerPixelY()));
    }
}

} // namespace plenair
