#pragma once

#include <QColor>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <QString>

namespace plenair {

// Draws an icon (lite/width, below assets/icons) into `area`, in its proportions and centred, its strokes in
// `ink`.
void DrawIcon(QPainter& painter, const QString& icon, const QRectF& area, const QColor& ink);

// The same for a button: sharp at any size and scale factor, in the button's text colour, greyed when
// disabled.
QIcon ButtonIcon(const QString& icon, const QPalette& palette);

// The program's icon, in the sizes that desktops ask for.
QIcon WindowIcon();

} // namespace plenair
