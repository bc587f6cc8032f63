#pragma once

#include <string>

namespace plenair {

enum class Lamp { Green, Yellow, Orange, Red };

// What a calculation sees of the Lite window: the boxes that it reads its targets from, and the grids and
// lamps that it fills. The window implements it; a test does with arrays.
class LiteView {
  public:
    virtual ~LiteView() = default;

    // Text of the box txtCalcBasis(index), index 0 to 4 or 9.
    virtual std::string BasisText(int index) const = 0;

    // A cell of grdMinorCalc, 5 rows and 4 columns: width, height, velocity, loss.
    virtual std::string MinorCell(int row, int column) const = 0;
    virtual void SetMinorCell(int row, int column, const std::string& text) = 0;

    // A cell of row 0 of grdOtherShapes, the equivalent round duct.
    virtual void SetOtherCell(int column, const std::string& text) = 0;

    // Switches the lamp lblRatio(row) on.
    virtual void LightLamp(int row, Lamp colour) = 0;
};

} // namespace plenair
