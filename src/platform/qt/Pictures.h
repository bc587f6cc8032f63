#pragma once

#include "platform/qt/Controls.h"

#include <QImage>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QString>
#include <QWidget>

#include <functional>

// Controls that show a picture instead of an icon or a text.
namespace plenair {

// A strip from top to bottom: white at both ends, deepening in even steps to green in the middle.
class ScalePicture : public QWidget {
    Q_OBJECT

  public:
    ScalePicture(const QString& name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// An image of the program's resources, on white, in its proportions.
class ImagePicture : public QWidget {
    Q_OBJECT

  public:
    ImagePicture(const QString& name, const QString& file, QWidget* parent);

    std::function<void()> Click;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QImage m_image;
};

// A small button that is drawn over another control: inset, so that this shines around it.
class InsetButton : public Button {
    Q_OBJECT

  public:
    using Button::Button;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace plenair
