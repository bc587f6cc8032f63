#include "platform/qt/ReadableStyle.h"

#include "platform/qt/Twips.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace plenair {

namespace {

// What has to be seen reaches 3 on the screen, where smoothing takes something off thin strokes.
constexpr double kReadableText = 3.5;
constexpr double kReadableLine = 4;
constexpr int kFusionDarker = 140; // Fusion draws the lines around controls so much darker than the window

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// `weak`, moved towards `strong` until it has the contrast to all backgrounds.
QColor ReadableOn(std::initializer_list<QColor> backgrounds, double contrast, const QColor& weak,
                  const QColor& strong) {
    constexpr int kSteps = 20;
    QColor colour = weak;
    for (int step = 1; step <= kSteps; ++step) {
        if (std::all_of(backgrounds.begin(), backgrounds.end(),
                        [&](const QColor& background) { return Contrast(colour, background) >= contrast; })) {
            break;
        }
        colour = Mixed(weak, strong, static_cast<double>(step) / kSteps);
    }
    return colour;
}

// A copy of the option by which Fusion draws strong lines. Only their colour depends on that of the window.
template <typename Option>
Option WithStrongLines(const Option& option) {
    Option strong = option;
    const QColor line = option.palette.color(QPalette::Mid);
    strong.palette.setColor(QPalette::Window, line.lighter(kFusionDarker));
    return strong;
}

} // namespace

double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor Mixed(const QColor& from, const QColor& to, double way) {
    const auto between = [way](float one, float other) {
        return one + (other - one) * static_cast<float>(way);
    };
    return QColor::fromRgbF(between(from.redF(), to.redF()), between(from.greenF(), to.greenF()),
                            between(from.blueF(), to.blueF()));
}

bool IsHighContrast(const QPalette& palette) {
    constexpr double kHighContrast = 19; // yellow on black; black on Fusion's grey has 18
    return Contrast(palette.color(QPalette::Active, QPalette::WindowText),
                    palette.color(QPalette::Active, QPalette::Window)) > kHighContrast;
}

bool NeedsStrongLines(const QPalette& palette) {
    constexpr double kUnseen = 1.5;
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    return IsHighContrast(palette) || Contrast(window.darker(kFusionDarker), window) < kUnseen;
}

void ReadableStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    const bool strong = NeedsStrongLines(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const auto readable = [&](double contrast, const QColor& weak, QPalette::ColorRole role) {
            return ReadableOn({palette.color(group, QPalette::Window), palette.color(group, QPalette::Base),
                               palette.color(group, QPalette::Button)},
                              contrast, weak, palette.color(QPalette::Active, role));
        };
        if (group == QPalette::Disabled) {
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
                palette.setColor(group, role, readable(kReadableText, palette.color(group, role), role));
            }
        }
        if (strong) {
            const QColor line =
                readable(kReadableLine, palette.color(group, QPalette::Window), QPalette::WindowText);
            palette.setColor(group, QPalette::Mid, line);
            palette.setColor(group, QPalette::Dark, line);
        }
    }
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    if (NeedsStrongLines(option->palette)) {
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
            const auto strong = WithStrongLines(*frame);
            return QProxyStyle::drawPrimitive(element, &strong, painter, widget);
        }
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            const auto strong = WithStrongLines(*button);
            return QProxyStyle::drawPrimitive(element, &strong, painter, widget);
        }
        if (element == PE_PanelMenu) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        }
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ReadableStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider != nullptr && NeedsStrongLines(option->palette)) {
        const auto strong = WithStrongLines(*slider);
        return QProxyStyle::drawComplexControl(control, &strong, painter, widget);
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int ReadableStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return static_cast<int>(std::lround(pixels * FormScale()));
    default:
        return pixels;
    }
}

} // namespace plenair
