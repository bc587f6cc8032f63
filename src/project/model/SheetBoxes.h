#pragma once

#include "project/model/DuctRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

// The eight values of an element that the user sees: the boxes of the sheet, from the top, and the lines of
// the printout, in the same order.
namespace plenair {

// By the index of the box's controls.
enum class SheetBox : std::int16_t {
    Flow = 1,
    Width,
    Height,
    Length,
    Velocity,
    LossPerMetre,
    EquivRound,
    ConnCoefficient
};

using SheetField = std::variant<double DuctRecord::*, float DuctRecord::*>;

struct SheetRow {
    SheetBox Box;
    SheetField Field;
    bool DuctTakesInput;       // the value is the user's to give, and Follow On may bring it
    bool ConnectionTakesInput; // the same, for a connection
    std::string_view Caption;
    std::string_view PrintedHeading; // up to the value
};

constexpr std::array<SheetRow, 8> kSheetRows{{
    {SheetBox::Flow, &DuctRecord::Flow, true, false, " Flow (L/s)", "Flow Rate (L/s): \t"},
    {SheetBox::Width, &DuctRecord::Width, false, false, " Width (mm)", "Width (mm): \t\t"},
    {SheetBox::Height, &DuctRecord::Height, true, false, " Height (mm)", "Height (mm): \t"},
    {SheetBox::Length, &DuctRecord::Length, true, true, " Length (mm)", "Length (mm): \t"},
    {SheetBox::Velocity, &DuctRecord::Velocity, true, true, " Velocity (m/s)", "Velocity (m/s): \t"},
    {SheetBox::LossPerMetre, &DuctRecord::LossPerMetre, true, false, " Pa/m Loss (Pa)",
     "Pressure Loss (Pa/m): "},
    {SheetBox::EquivRound, &DuctRecord::EquivRound, false, false, " Equiv. Round Duct (mm)",
     "Equivalent Circular Diameter (mm): \t"},
    {SheetBox::ConnCoefficient, &DuctRecord::ConnCoefficient, false, true, " Connection Coefficient",
     "Fitting Coefficient at Start: \t"},
}};

// Its place in kSheetRows, from 0.
constexpr std::size_t PositionOf(SheetBox box) {
    return static_cast<std::size_t>(box) - 1;
}

constexpr const SheetRow& RowOf(SheetBox box) {
    return kSheetRows[PositionOf(box)];
}

static_assert([] {
    for (const SheetRow& row : kSheetRows) {
        if (&RowOf(row.Box) != &row) {
            return false;
        }
    }
    return true;
}());

// The box above or below, if there is one.
std::optional<SheetBox> BoxAbove(SheetBox box);
std::optional<SheetBox> BoxBelow(SheetBox box);

// Whether the value of a box is the user's to give, for an element of that colour.
bool TakesInput(float colour, SheetBox box);

// The value as the box shows it, in the user's locale.
std::string TextOf(const DuctRecord& duct, SheetBox box);

// Stores what the box holds. False, and nothing is stored, where it is no number of the field's format.
bool StoreText(DuctRecord& duct, SheetBox box, const std::string& text);

void CopyValue(DuctRecord& to, const DuctRecord& from, SheetBox box);

} // namespace plenair
