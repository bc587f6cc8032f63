#include "project/DuctSheet.h"

#include "flow/Sizing.h"
#include "platform/text/NumberText.h"
#include "project/ProjectGrid.h"

#include <array>

namespace plenair {

namespace {

void FillBoxes(SheetWindow& sheet, const DuctRecord& duct) {
    sheet.SetBoxText(1, ShortestText(duct.Flow));
    sheet.SetBoxText(2, ShortestText(duct.Width));
    sheet.SetBoxText(3, ShortestText(duct.Height));
    sheet.SetBoxText(4, ShortestText(duct.Length));
    sheet.SetBoxText(5, ShortestText(duct.Velocity));
    sheet.SetBoxText(6, ShortestText(duct.LossPerMetre));
    sheet.SetBoxText(7, ShortestText(duct.EquivRound));
    sheet.SetBoxText(8, ShortestText(duct.ConnCoefficient));
}

void LockBoxes(SheetWindow& sheet, float colour) {
    const bool solved = Solved != kFlagClear; // a solved project reads as a clean table
    for (int box = 1; box <= kSheetBoxes; ++box) {
        const bool input = TakesInput(colour, box);
        sheet.SetBoxLook(box, solved || !input, solved || input);
    }
}

bool ReadBox(const SheetWindow& sheet, int box, double& field) {
    const std::optional<double> number = NumberFromText(sheet.BoxText(box));
    field = number.value_or(field);
    return number.has_value();
}

bool ReadBox(const SheetWindow& sheet, int box, float& field) {
    const std::optional<float> number = SingleFromText(sheet.BoxText(box));
    field = number.value_or(field);
    return number.has_value();
}

} // namespace

void ShowDuctSheet(const ProjectWindows& windows, std::int16_t duct) {
    if (DuctCount <= 0) {
        return;
    }
    windows.Sheet.SetScrollMaximum(DuctCount);
    if (!IsDuct(duct)) {
        return;
    }
    FillBoxes(windows.Sheet, Duct(duct));
    LockBoxes(windows.Sheet, Duct(duct).Colour);
    if (windows.Sheet.IsVisible()) {
        HighlightDuct(windows, duct);
    }
}

void ReadDuctSheet(const ProjectWindows& windows, std::int16_t duct) {
    if (!IsDuct(duct)) {
        return;
    }
    const SheetWindow& sheet = windows.Sheet;
    DuctRecord& record = Duct(duct);
    [[maybe_unused]] const bool readToTheEnd =
        ReadBox(sheet, 1, record.Flow) && ReadBox(sheet, 2, record.Width) &&
        ReadBox(sheet, 3, record.Height) && ReadBox(sheet, 4, record.Length) &&
        ReadBox(sheet, 5, record.Velocity) && ReadBox(sheet, 6, record.LossPerMetre) &&
        ReadBox(sheet, 7, record.EquivRound) && ReadBox(sheet, 8, record.ConnCoefficient);
}

void ShowSolvedValues(const ProjectWindows& windows, double width, double height, double velocity,
                      double loss, double equivalentDiameter) {
    struct Shown {
        int Box;
        std::string Text;
    };
    const std::array<Shown, 5> shown{{{2, Format(RoundedUpSize(width), "0")},
                                      {3, Format(RoundedUpSize(height), "0")},
                                      {5, Format(RoundedUpSize(velocity), "0.00")},
                                      {6, Format(RoundedUpSize(loss), "0.00")},
                                      {7, Format(RoundedUpSize(equivalentDiameter), "0")}}};
    for (const Shown& value : shown) {
        windows.Sheet.SetBoxText(value.Box, value.Text);
    }
}

void ChangeDuctNo(const ProjectWindows& windows) {
    SheetWindow& sheet = windows.Sheet;
    const std::int16_t number = SheetDuct(windows);
    std::string letter;
    if (IsDuct(number)) { // in an empty project the scroll bar stands on a duct that isn't there
        const float colour = Duct(number).Colour;
        letter = TypeLetter(colour);
        if (IsColourNumber(colour)) {
            sheet.SetDuctNoColour(DrawnColour(colour));
        }
    }
    sheet.SetDuctNoCaption(letter + std::to_string(number));
    DrawPending = kFlagClear;
    ShowDuctSheet(windows, number);
}

void StoreBox(const ProjectWindows& windows, int box) {
    const std::int16_t number = SheetDuct(windows);
    ReadDuctSheet(windows, number);
    if (windows.Sheet.FollowOnTicked() && !windows.Sheet.IsBoxLocked(box)) {
        FollowOn(number, static_cast<std::int16_t>(box));
    }
}

std::int16_t SheetDuct(const ProjectWindows& windows) {
    return static_cast<std::int16_t>(windows.Sheet.ScrollValue());
}

} // namespace plenair
