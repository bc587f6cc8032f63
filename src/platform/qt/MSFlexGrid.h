#pragma once

#include <QPaintEvent>
#include <QPainter>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <string>
#include <vector>

namespace plenair {

// A table of texts that is only read: rows and columns without headings, a current cell that the program
// moves and the user doesn't. Rows stand from the top; what doesn't fit the control's height is not seen. A
// text too wide for its cell is written smaller, and where that doesn't do, ends in an ellipsis.
class MSFlexGrid : public QWidget {
    Q_OBJECT

  public:
    MSFlexGrid(const QString& name, int rows, int columns, QWidget* parent);

    int Rows() const { return m_rows; }
    int Columns() const { return m_columns; }

    // Text of any cell, from row 0 and column 0. The cell must exist.
    const std::string& TextMatrix(int row, int column) const;
    void SetTextMatrix(int row, int column, const std::string& text);

    // The text for inspectors, which know no C++.
    Q_INVOKABLE QString CellText(int row, int column) const;

    // Empties all cells. Sizes, alignments and the current cell stay.
    void Clear();

    // Width of a column and height of all rows, in twips.
    double ColWidth(int column) const { return Column(column).Width; }
    void SetColWidth(int column, double width);
    void SetRowHeight(double height);

    // How the texts of a column stand: 1 to the left, 4 centred, 7 to the right.
    int ColAlignment(int column) const { return Column(column).Alignment; }
    void SetColAlignment(int column, int alignment);

    // What stands in a column, for those who can't see what heads it on the form.
    const QString& ColHeading(int column) const { return Column(column).Heading; }
    void SetColHeading(int column, const QString& heading);

    // How many rows can be seen, and where a cell stands, in logical pixels.
    int RowsSeen() const;
    QRect CellPlace(int row, int column) const;

    // The current cell, row 0 and column 0 at first, and its text.
    int Row() const { return m_row; }
    int Col() const { return m_column; }
    void SetRow(int row) { m_row = row; }
    void SetCol(int column) { m_column = column; }
    const std::string& Text() const { return TextMatrix(m_row, m_column); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct ColumnFormat {
        double Width = 960;
        int Alignment = 1;
        QString Heading;
    };

    const ColumnFormat& Column(int column) const { return m_formats[static_cast<std::size_t>(column)]; }
    std::size_t Index(int row, int column) const;
    void ContentChanged();
    void PaintTexts(QPainter& painter) const;
    void PaintLines(QPainter& painter) const;

    int m_rows;
    int m_columns;
    int m_row = 0;
    int m_column = 0;
    double m_rowHeight = 240;
    std::vector<std::string> m_cells;
    std::vector<ColumnFormat> m_formats;
};

} // namespace plenair
