#pragma once

#include "platform/desktop/CommonDialog.h"

#include <string>

namespace plenair {

// The table of results, grdMinorCalc. Its middle row is the one of the height typed, or of an analysis.
constexpr int kResultRows = 5;
constexpr int kMiddleRow = 2;
constexpr int kResultColumns = 4;
constexpr int kWidthColumn = 0;
constexpr int kHeightColumn = 1;
constexpr int kVelocityColumn = 2;
constexpr int kLossColumn = 3;

enum class Lamp { Green, Yellow, Orange, Red };

// What the Lite calculator needs of frmMinorCalc: the boxes that it reads, the grids and lamps that it fills,
// and the means of the log. The window implements it; a test does with arrays.
class LiteWindow {
  public:
    virtual ~LiteWindow() = default;

    // Texts of txtInputA, txtInputB and the box txtCalcBasis(index), index 0 to 4 or 9.
    virtual std::string InputA() const = 0;
    virtual std::string InputB() const = 0;
    virtual std::string BasisText(int index) const = 0;
    virtual void SetInputB(const std::string& text) = 0;

    // Give the focus to txtInputA or txtInputB, and select its whole text.
    virtual void FocusInputA() = 0;
    virtual void FocusInputB() = 0;

    // A cell of the table.
    virtual std::string MinorCell(int row, int column) const = 0;
    virtual void SetMinorCell(int row, int column, const std::string& text) = 0;

    // Its current cell, which stays where it is put.
    virtual std::string CurrentCell() const = 0;
    virtual void SetCurrentCell(int row, int column) = 0;

    // A cell of row 0 of grdOtherShapes, the equivalent round duct, in the columns of the table.
    virtual std::string OtherCell(int column) const = 0;
    virtual void SetOtherCell(int column, const std::string& text) = 0;

    // Switches the lamp lblRatio(row) on.
    virtual void LightLamp(int row, Lamp colour) = 0;

    virtual void EnableRecordLog(bool enabled) = 0; // mnuFileLog
    virtual CommonDialog& Dialog() = 0;             // dlgMinor
};

} // namespace plenair
