#pragma once

#include <QPalette>
#include <QProxyStyle>

// The look of all controls: Fusion, whose margins the layout fits, made readable under any palette.
namespace plenair {

// How well two colours can be told apart, from 1 to 21, by the formula of the Web Content Accessibility
// Guidelines.
double Contrast(const QColor& one, const QColor& other);

// The colour that lies so far, 0 to 1, on the way from one to another.
QColor Mixed(const QColor& from, const QColor& to, double way);

// Whether the palette is one of those that put plain white or yellow against plain black.
bool IsHighContrast(const QPalette& palette);

// Whether the lines around controls have to be strong: under a palette of high contrast, whose user needs
// them, and under one so dark that Fusion's own can't be seen.
bool NeedsStrongLines(const QPalette& palette);

class ReadableStyle : public QProxyStyle {
    Q_OBJECT

  public:
    ReadableStyle() : QProxyStyle("fusion") {}

    // Disabled texts reach a contrast of more than 3:1, and so do lines where they have to be strong: as
    // roles Mid and Dark.
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

} // namespace plenair
