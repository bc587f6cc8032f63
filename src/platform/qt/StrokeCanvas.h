#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/RecordedSurface.h"

#include <QImage>
#include <QPaintEvent>
#include <QResizeEvent>
#include <QString>
#include <QWidget>

#include <cstddef>

namespace plenair {

// A black ground. What is drawn on its surface appears at the next Refresh, which costs what the new strokes
// cover, whatever stands there already.
class StrokeCanvas : public QWidget {
    Q_OBJECT

  public:
    StrokeCanvas(const QString& name, QWidget* parent);

    DrawingSurface& Surface() { return m_surface; }
    void Refresh();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    RecordedSurface m_surface;
    QImage m_picture;
    std::size_t m_painted = 0; // items of the surface that stand in the picture
};

} // namespace plenair
