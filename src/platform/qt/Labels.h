#pragma once

#include "platform/qt/Controls.h"

#include <QPaintEvent>

// Labels that stand out.
namespace plenair {

// With a single border.
class BorderedLabel : public Label {
    Q_OBJECT

  public:
    using Label::Label;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// One line at the right, shrunk where it doesn't fit, in any colour: with a rim where that is hard to read on
// the window.
class RimmedLabel : public Label {
    Q_OBJECT

  public:
    using Label::Label;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace plenair
