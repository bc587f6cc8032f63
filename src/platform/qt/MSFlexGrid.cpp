#include "platform/qt/MSFlexGrid.h"

#include "platform/qt/DevicePixels.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ReadableStyle.h"
#include "platform/qt/TextFit.h"
#include "platform/qt/Twips.h"

#include <QAccessible>
#include <QColor>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <stdexcept>

namespace plenair {

MSFlexGrid::MSFlexGrid(const QString& name, int rows, int columns, QWidget* parent)
    : QWidget(parent), m_rows(rows), m_columns(columns),
      m_cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)),
      m_formats(static_cast<std::size_t>(columns)) {
    setObjectName(name);
}

std::size_t MSFlexGrid::Index(int row, int column) const {
    if (row < 0 || row >= m_rows || column < 0 || column >= m_columns) {
        throw std::out_of_range("no such cell");
    }
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) +
           static_cast<std::size_t>(column);
}

const std::string& MSFlexGrid::TextMatrix(int row, int column) const {
    return m_cells[Index(row, column)];
}

QString MSFlexGrid::CellText(int row, int column) const {
    return ToQt(TextMatrix(row, column));
}

void MSFlexGrid::SetTextMatrix(int row, int column, const std::string& text) {
    m_cells[Index(row, column)] = text;
    ContentChanged();
}

void MSFlexGrid::Clear() {
    for (std::string& cell : m_cells) {
        cell.clear();
    }
    ContentChanged();
}

void MSFlexGrid::ContentChanged() {
    update();
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent change(this, QAccessibleTableModelChangeEvent::DataChanged);
        QAccessible::updateAccessibility(&change);
    }
}

int MSFlexGrid::RowsSeen() const {
    int rows = 0;
    while (rows < m_rows && CellPlace(rows, 0).top() < height()) {
        ++rows;
    }
    return rows;
}

QRect MSFlexGrid::CellPlace(int row, int column) const {
    double left = 0;
    for (int before = 0; before < column; ++before) {
        left += ColWidth(before);
    }
    return ToPixels(left, row * m_rowHeight, ColWidth(column), m_rowHeight);
}

void MSFlexGrid::SetColHeading(int column, const QString& heading) {
    m_formats[static_cast<std::size_t>(column)].Heading = heading;
}

void MSFlexGrid::SetColWidth(int column, double width) {
    m_formats[static_cast<std::size_t>(column)].Width = width;
    update();
}

void MSFlexGrid::SetRowHeight(double height) {
    m_rowHeight = height;
    update();
}

void MSFlexGrid::SetColAlignment(int column, int alignment) {
    m_formats[static_cast<std::size_t>(column)].Alignment = alignment;
    update();
}

void MSFlexGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    PaintTexts(painter);
    PaintLines(painter);
}

void MSFlexGrid::PaintTexts(QPainter& painter) const {
    painter.setPen(palette().color(QPalette::Text));
    const QFontMetricsF metrics(font());
    const int rows = RowsSeen();
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            const QString text = ToQt(TextMatrix(row, column));
            if (text.isEmpty()) {
                continue;
            }
            const int alignment = Column(column).Alignment;
            const int horizontal =
                alignment == 4 ? Qt::AlignHCenter : (alignment == 7 ? Qt::AlignRight : Qt::AlignLeft);
            const QRect room = CellPlace(row, column).adjusted(1, 0, -1, -1);
            const bool fits = metrics.horizontalAdvance(text) <= room.width();
            painter.setFont(fits ? font() : FontThatFits(font(), text, room.width()));
            painter.drawText(room, horizontal | int{Qt::AlignVCenter},
                             fits ? text : TextThatFits(painter.font(), text, room.width()));
        }
    }
}

void MSFlexGrid::PaintLines(QPainter& painter) const {
    const bool strong = NeedsStrongLines(palette());
    const auto line = [&](double strength) {
        return strong ? palette().color(QPalette::Mid)
                      : Mixed(palette().color(QPalette::Base), palette().color(QPalette::Text), strength);
    };
    const DevicePixels pixels(painter);
    const QRect whole = pixels.Whole(QRectF(rect()));
    const int thickness = pixels.Thickness(1);
    // The last line of pixels before the next column or row.
    for (int column = 0; column < m_columns; ++column) {
        const int edge = pixels.Whole(QPointF(CellPlace(0, column).right() + 1, 0)).x();
        painter.fillRect(edge - thickness, whole.top(), thickness, whole.height(), line(0.2));
    }
    for (int row = 0; row < RowsSeen(); ++row) {
        const int edge = pixels.Whole(QPointF(0, CellPlace(row, 0).bottom() + 1)).y();
        painter.fillRect(whole.left(), edge - thickness, whole.width(), thickness, line(0.2));
    }
    pixels.DrawFrame(rect(), line(0.45));
}

} // namespace plenair
