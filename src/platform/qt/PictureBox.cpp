#include "platform/qt/PictureBox.h"

#include "platform/desktop/KeyCodes.h"
#include "platform/drawing/Strokes.h"
#include "platform/qt/DevicePixels.h"
#include "platform/qt/KeyCodeOf.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointF>
#include <QSize>
#include <QSizeF>

#include <vector>

#include <cmath>

namespace plenair {

namespace {

// With more changes than that at once the whole window is painted.
constexpr int kChangesByThemselves = 64;

// Of the cross, in pixels of the window.
constexpr int kCrossArm = 10;
constexpr int kCrossWidth = 2;
constexpr int kCrossRim = 1;
const QColor kCrossColour(200, 0, 200); // none that the network has

void Erase(QImage& image, const QRegion& region, double ratio, const QColor& ground) {
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& area : region) {
        const QRectF pixels(area.left() * ratio, area.top() * ratio, area.width() * ratio,
                            area.height() * ratio);
        painter.fillRect(pixels.toAlignedRect(), ground);
    }
}

} // namespace

PictureBox::PictureBox(const QString& name, LayeredPicture& picture, QWidget* parent)
    : QWidget(parent), m_layers{{{picture.BaseLines, QImage::Format_RGB32},
                                 {picture.BaseTexts, QImage::Format_ARGB32_Premultiplied},
                                 {picture.Overlay, QImage::Format_ARGB32_Premultiplied}}} {
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (const LayerImage& layer : m_layers) {
        layer.Surface.WhenChanged([this, &layer] { NoteChange(layer); });
    }
}

void PictureBox::NoteChange(const LayerImage& layer) {
    if (m_changesNoted > kChangesByThemselves) {
        return;
    }
    if (++m_changesNoted > kChangesByThemselves) {
        update();
    } else if (layer.Surface.Items().empty()) {
        update(layer.Inked);
    } else {
        update(PixelsTouched(layer.Surface.Items().back(), font(), size()));
    }
}

void PictureBox::BringUpToDate(LayerImage& layer) const {
    const std::vector<DrawnItem>& items = layer.Surface.Items();
    const bool isGround = &layer == &m_layers.front();
    const QSize pixels(static_cast<int>(std::ceil(width() * devicePixelRatio())),
                       static_cast<int>(std::ceil(height() * devicePixelRatio())));
    if (items.empty() && layer.Image.isNull() && !isGround) {
        return;
    }
    if (layer.Image.size() != pixels) {
        layer.Image = QImage(pixels, layer.Format);
        layer.Inked = rect();
        layer.Painted = items.size() + 1;
    }
    if (layer.Clearings != layer.Surface.Clearings() || layer.Painted > items.size()) {
        Erase(layer.Image, layer.Inked, devicePixelRatio(), isGround ? Qt::white : Qt::transparent);
        layer.Clearings = layer.Surface.Clearings();
        layer.Inked = QRegion();
        layer.Painted = 0;
    }
    const bool everywhere = items.size() > kChangesByThemselves;
    if (everywhere) {
        layer.Inked = rect();
    }
    SurfacePainter painter(layer.Image, devicePixelRatio(), font());
    for (; layer.Painted < items.size(); ++layer.Painted) {
        painter.Paint(items[layer.Painted]);
        if (!everywhere) {
            layer.Inked += PixelsTouched(items[layer.Painted], font(), size());
        }
    }
}

void PictureBox::paintEvent(QPaintEvent*) {
    m_changesNoted = 0;
    QPainter painter(this);
    const DevicePixels pixels(painter);
    for (LayerImage& layer : m_layers) {
        BringUpToDate(layer);
        if (!layer.Image.isNull()) {
            painter.drawImage(pixels.Whole(QPointF(0, 0)), layer.Image);
        }
    }
    if (m_crossShown && hasFocus()) {
        PaintCross(painter, pixels);
    }
}

QRect PictureBox::CrossArea() const {
    const QPoint middle(static_cast<int>(m_cross.X / TwipsPerPixelX()),
                        static_cast<int>(m_cross.Y / TwipsPerPixelY()));
    constexpr int kReach = kCrossArm + kCrossRim + 2;
    return {middle - QPoint(kReach, kReach), middle + QPoint(kReach, kReach)};
}

void PictureBox::PaintCross(QPainter& painter, const DevicePixels& pixels) const {
    const QPoint origin = pixels.Whole(QPointF(0, 0));
    const QPoint middle(
        origin.x() + static_cast<int>(WholePixel(m_cross.X / TwipsPerPixelX() * devicePixelRatio())),
        origin.y() + static_cast<int>(WholePixel(m_cross.Y / TwipsPerPixelY() * devicePixelRatio())));
    const auto bar = [&](int along, int across, const QColor& colour) {
        const int length = pixels.Thickness(2 * along);
        const int width = pixels.Thickness(across);
        painter.fillRect(middle.x() - length / 2, middle.y() - width / 2, length, width, colour);
        painter.fillRect(middle.x() - width / 2, middle.y() - length / 2, width, length, colour);
    };
    bar(kCrossArm + kCrossRim, kCrossWidth + 2 * kCrossRim, Qt::white);
    bar(kCrossArm, kCrossWidth, kCrossColour);
}

void PictureBox::SetCross(Point place) {
    if (place != m_cross) {
        update(CrossArea());
        m_cross = place;
        update(CrossArea());
    }
}

void PictureBox::ShowCross(bool shown) {
    m_crossShown = shown;
    update(CrossArea());
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    ShowCross(false);
    if (MouseDown) {
        MouseDown(event->button(), static_cast<float>(event->position().x() * TwipsPerPixelX()),
                  static_cast<float>(event->position().y() * TwipsPerPixelY()));
    }
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    const int code = KeyCodeOf(event);
    // A key that is held down moves on, but clicks once.
    const bool isClick = code == kKeySpace || code == kKeyEnter || code == kKeyEscape;
    if (isClick && event->isAutoRepeat()) {
        return;
    }
    if (KeyDown && KeyDown(code, event->modifiers().testFlag(Qt::ControlModifier))) {
        ShowCross(true);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void PictureBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    ShowCross(m_crossShown || byKey);
}

void PictureBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update(CrossArea());
}

} // namespace plenair
