#pragma once

#include "platform/drawing/LayeredPicture.h"
#include "platform/qt/FocusEvents.h"

#include <QFocusEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRect>
#include <QRegion>
#include <QString>
#include <QWidget>

#include <array>
#include <cstddef>
#include <functional>
#include <string>

namespace plenair {

// Shows a picture in layers on white, sharp at any scale factor. Each layer has an image, to which only what
// has been added is painted, and only the part of the window that has changed is repainted. The picture must
// outlive the box.
//
// A place on it can be marked by a cross, for the keyboard: it is seen while the box has the focus, from the
// first key or from the focus coming by a key until the mouse takes over.
class PictureBox : public QWidget, public FocusEvents {
    Q_OBJECT

  public:
    PictureBox(const QString& name, LayeredPicture& picture, QWidget* parent);

    // A mouse button goes down at a place in twips.
    std::function<void(Qt::MouseButton button, float x, float y)> MouseDown;

    // A key goes down, with Ctrl or without. Gives whether it is one that does something here.
    std::function<bool(int keyCode, bool control)> KeyDown;

    // Where the cross stands, in twips.
    void SetCross(Point place);

    // What the picture shows, one thing after the other, for those who can't see it: how many, and each from
    // 0.
    std::function<int()> ItemCount = [] { return 0; };
    std::function<std::string(int)> ItemText;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    struct LayerImage {
        RecordedSurface& Surface;
        QImage::Format Format;
        QImage Image{};
        std::size_t Painted = 0; // items of the surface that stand in the image
        std::size_t Clearings = 0;
        QRegion Inked{}; // pixels of the window that these may have touched
    };

    void NoteChange(const LayerImage& layer);
    void BringUpToDate(LayerImage& layer) const;
    void ShowCross(bool shown);
    QRect CrossArea() const;
    void PaintCross(QPainter& painter, const class DevicePixels& pixels) const;

    std::array<LayerImage, 3> m_layers; // from the bottom up
    int m_changesNoted = 0;             // since the last painting
    Point m_cross;
    bool m_crossShown = false;
};

} // namespace plenair
