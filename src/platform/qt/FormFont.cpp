#include "platform/qt/FormFont.h"

#include "platform/qt/Twips.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QString>
#include <QToolTip>

#include <algorithm>

namespace plenair {

namespace {

constexpr double kDrawnPoints = 8.25;
constexpr double kUsualPoints = 11;
constexpr double kLeastScreenWidth = 9300;  // the buttons of the solver, side by side
constexpr double kLeastScreenHeight = 6900; // Lite unfolded, at its place, with its frame and menus

// A small sans serif that fits the layout, metric-compatible with the one it was drawn with.
QFont DrawnFont() {
    QFont font;
    font.setFamilies({"Liberation Sans", "Arial", "Helvetica", "Noto Sans", "DejaVu Sans"});
    return font;
}

bool TakesNoMoreRoom(const QFont& font, const QFont& drawn) {
    constexpr double kSpareHeight = 1.2; // a line has that much more room than the letters drawn
    const QFontMetricsF metrics(font);
    const QFontMetricsF room(drawn);
    const auto isNarrow = [&](const QString& text) {
        return metrics.horizontalAdvance(text) <= room.horizontalAdvance(text);
    };
    return metrics.height() <= room.height() * kSpareHeight && isNarrow("0123456789") &&
           isNarrow("Flexible Duct Surface Roughness (m)") && isNarrow("Capped (Pa/m, m/s)");
}

} // namespace

double FormScaleFor(double points, double screenWidth, double screenHeight) {
    if (points <= kUsualPoints) {
        return 1;
    }
    return std::max(1.0, std::min({points / kDrawnPoints, screenWidth / kLeastScreenWidth,
                                   screenHeight / kLeastScreenHeight}));
}

void TakeDesktopFont() {
    SetFormScale(1);
    SetFormScale(FormScaleFor(QFontInfo(QApplication::font()).pointSizeF(), ScreenWidth(), ScreenHeight()));
    QApplication::setFont(FormFont(), "QMenu");
    QApplication::setFont(FormFont(), "QMessageBox"); // also those that the toolkit's dialogs open
    QToolTip::setFont(FormFont());
}

QFont FormFont(double points) {
    QFont drawn = DrawnFont();
    drawn.setPointSizeF(points * FormScale());
    QFont desktop = QApplication::font();
    desktop.setPointSizeF(points * FormScale());
    return TakesNoMoreRoom(desktop, drawn) ? desktop : drawn;
}

} // namespace plenair
