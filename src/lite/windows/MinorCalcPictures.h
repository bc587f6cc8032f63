#pragma once

#include "platform/qt/Controls.h"

namespace plenair {

// The strip beside the table: white at both ends, deepening in even steps to green at the middle row, the one
// of the height typed.
class ScalePicture : public QWidget {
    Q_OBJECT

  public:
    ScalePicture(const QString& name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// The button of a row, drawn over its lamp: inset, so that the lamp shines around it.
class RowButton : public Button {
    Q_OBJECT

  public:
    using Button::Button;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace plenair
