#include "platform/qt/MSFlexGrid.h"

#include "platform/qt/QtText.h"
#include "platform/qt/ReadableStyle.h"
#include "platform/qt/TextFit.h"
#include "platform/qt/Twips.h"

#include <QAccessible>
#include <QColor>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QRect>

#include <memory>
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
    const bool strong = NeedsStrongLines(palette());
    QColor lines = palette().color(strong ? QPalette::Mid : QPalette::Text);
    lines.setAlphaF(strong ? 1 : 0.2F);
    const QFontMetricsF metrics(font());
    const int rows = RowsSeen();
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            const QRect cell = CellPlace(row, column);
            if (cell.right() < width() - 1) {
                painter.fillRect(cell.right(), cell.top(), 1, cell.height(), lines);
            }
            if (cell.bottom() < height() - 1) {
                painter.fillRect(cell.left(), cell.bottom(), cell.width() - 1, 1, lines);
            }
            const int alignment = Column(column).Alignment;
            const int horizontal =
                alignment == 4 ? Qt::AlignHCenter : (alignment == 7 ? Qt::AlignRight : Qt::AlignLeft);
            const QRect room = cell.adjusted(1, 0, -1, -1);
            const QString text = ToQt(TextMatrix(row, column));
            if (text.isEmpty()) {
                continue;
            }
            const bool fits = metrics.horizontalAdvance(text) <= room.width();
            painter.setPen(palette().color(QPalette::Text));
            painter.setFont(fits ? font() : FontThatFits(font(), text, room.width()));
            painter.drawText(room, horizontal | int{Qt::AlignVCenter},
                             fits ? text : TextThatFits(painter.font(), text, room.width()));
        }
    }
    lines.setAlphaF(strong ? 1 : 0.45F);
    painter.setPen(lines);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace plenair
