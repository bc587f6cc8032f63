#include "project/DuctSheet.h"

#include "flow/Sizing.h"
#include "platform/text/NumberText.h"
#include "project/DuctColour.h"
#include "project/ProjectGrid.h"
#include "project/ProjectKeeper.h"
#include "project/model/DuctBits.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectModel.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace plenair {

namespace {

void FillBoxes(SheetWindow& sheet, const DuctRecord& duct) {
    for (const SheetRow& row : kSheetRows) {
        sheet.SetBoxText(row.Box, TextOf(duct, row.Box));
    }
}

void LockBoxes(SheetWindow& sheet, float colour) {
    const bool solved = Solved != kFlagClear; // a solved project reads as a clean table
    for (const SheetRow& row : kSheetRows) {
        const bool input = TakesInput(colour, row.Box);
        sheet.SetBoxLook(row.Box, solved || !input, solved || input);
    }
}

// 12.50 and 12.5 are the same value.
bool IsStored(const DuctRecord& duct, SheetBox box, const std::string& text) {
    DuctRecord stored = duct;
    return text == TextOf(duct, box) || (StoreText(stored, box, text) && BitsOf(stored) == BitsOf(duct));
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
    for (const SheetRow& row : kSheetRows) {
        if (!StoreText(Duct(duct), row.Box, windows.Sheet.BoxText(row.Box))) {
            return;
        }
    }
}

void ShowSolvedValues(const ProjectWindows& windows, const SolvedValues& values) {
    const std::pair<SheetBox, std::string> texts[] = {
        {SheetBox::Width, Format(RoundedUpSize(values.Width), "0")},
        {SheetBox::Height, Format(RoundedUpSize(values.Height), "0")},
        {SheetBox::Velocity, Format(RoundedUpSize(values.Velocity), "0.00")},
        {SheetBox::LossPerMetre, Format(RoundedUpSize(values.Loss), "0.00")},
        {SheetBox::EquivRound, Format(RoundedUpSize(values.EquivDiameter), "0")}};
    for (const auto& [box, text] : texts) {
        windows.Sheet.SetBoxText(box, text);
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

void StoreBox(const ProjectWindows& windows, SheetBox box) {
    const std::int16_t number = SheetDuct(windows);
    ReadDuctSheet(windows, number);
    if (windows.Sheet.FollowOnTicked() && !windows.Sheet.IsBoxLocked(box)) {
        FollowOn(number, box);
    }
    NoteStep(windows);
}

bool HoldsUnstoredText(const ProjectWindows& windows) {
    const SheetWindow& sheet = windows.Sheet;
    const std::int16_t number = SheetDuct(windows);
    return sheet.IsVisible() && std::any_of(kSheetRows.begin(), kSheetRows.end(), [&](const SheetRow& row) {
               return sheet.IsBoxEdited(row.Box) &&
                      !(IsDuct(number) && IsStored(Duct(number), row.Box, sheet.BoxText(row.Box)));
           });
}

void TakeBackTyping(const ProjectWindows& windows) {
    if (IsDuct(SheetDuct(windows))) {
        ShowDuctSheet(windows, SheetDuct(windows));
        return;
    }
    for (const SheetRow& row : kSheetRows) {
        if (windows.Sheet.IsBoxEdited(row.Box)) {
            windows.Sheet.SetBoxText(row.Box, "0");
        }
    }
}

std::int16_t SheetDuct(const ProjectWindows& windows) {
    return static_cast<std::int16_t>(windows.Sheet.ScrollValue());
}

} // namespace plenair
