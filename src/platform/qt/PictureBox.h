#pragma once

#include "platform/drawing/RecordedSurface.h"
#include "platform/qt/FocusEvents.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <functional>

namespace plenair {

// Shows a recorded surface on white, sharp at any scale factor, and keeps it between repaints of the window.
// Only what has been added is drawn anew: the items up to the last cut stand in a picture, and the few after
// it are drawn over that. The surface must outlive the box.
class PictureBox : public QWidget, public FocusEvents {
    Q_OBJECT

  public:
    PictureBox(const QString& name, RecordedSurface& surface, QWidget* parent);

    // A mouse button goes down at a place in twips.
    std::function<void(Qt::MouseButton button, float x, float y)> MouseDown;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void PaintItems(QPainter& painter, std::size_t from, std::size_t to) const;
    void BringBaseUpToDate();

    RecordedSurface& m_surface;
    QPixmap m_base;
    std::size_t m_baseItems = 0;
};

} // namespace plenair
