#pragma once

#include "lite/LiteWindow.h"
#include "support/Test.h"

namespace plenair {

// The Lite window as arrays: what a calculation reads and writes, without a window.
class LiteArrays : public LiteWindow {
  public:
    std::string BasisText(int index) const override { return boxes.at(index); }
    std::string MinorCell(int row, int column) const override { return Cell(row, column); }
    void SetMinorCell(int row, int column, const std::string& text) override { Cell(row, column) = text; }
    std::string OtherCell(int column) const override { return other.at(At(column)); }
    void SetOtherCell(int column, const std::string& text) override { other.at(At(column)) = text; }
    void LightLamp(int row, Lamp colour) override { lamps.at(At(row)) = colour; }
    std::string InputA() const override { return inputA; }
    std::string InputB() const override { return inputB; }
    void SetInputB(const std::string& text) override { inputB = text; }
    void FocusInputA() override { focused = "txtInputA"; }
    void FocusInputB() override { focused = "txtInputB"; }
    std::string CurrentCell() const override { return Cell(currentRow, currentColumn); }
    void SetCurrentCell(int row, int column) override {
        currentRow = row;
        currentColumn = column;
    }
    void EnableRecordLog(bool enabled) override { canRecordLog = enabled; }
    CommonDialog& Dialog() override { return dialog; }

    // The cells of a row with blanks between.
    std::string Row(int row) const { return Joined(cells.at(At(row))); }
    std::string RoundDuct() const { return Joined(other); }
    // All rows and the round duct, with commas between.
    std::string Table() const {
        std::string table;
        for (const auto& row : cells) {
            table += Joined(row) + ", ";
        }
        return table + RoundDuct();
    }

    std::map<int, std::string> boxes = {{0, "0.8"}, {1, "5"}, {2, "0.8"}, {3, "500"}, {4, "5"}, {9, "5"}};
    std::array<std::array<std::string, 4>, 5> cells;
    std::array<std::string, 4> other;
    std::array<std::optional<Lamp>, 5> lamps;
    std::string inputA;
    std::string inputB;
    std::string focused;
    int currentRow = 0;
    int currentColumn = 0;
    bool canRecordLog = false;
    CommonDialog dialog;

  private:
    static std::size_t At(int index) { return static_cast<std::size_t>(index); }
    std::string& Cell(int row, int column) { return cells.at(At(row)).at(At(column)); }
    const std::string& Cell(int row, int column) const { return cells.at(At(row)).at(At(column)); }
};

} // namespace plenair
