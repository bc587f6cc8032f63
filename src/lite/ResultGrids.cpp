#include "lite/ResultGrids.h"

#include "flow/Arithmetic.h"
#include "flow/BoxNumbers.h"
#include "flow/GeneralCalcs.h"
#include "flow/Units.h"
#include "platform/text/NumberText.h"

namespace plenair {

Lamp LampFor(double width, double height) {
    const double a = Divide(width, height);
    const double b = Divide(height, width);
    const float ratio = ToSingle(b < a ? a : b);
    if (ratio > 8.0F) {
        return Lamp::Red;
    }
    if (ratio > 5.0F) {
        return Lamp::Orange;
    }
    return ratio > 4.0F ? Lamp::Yellow : Lamp::Green;
}

std::string MeaningOf(Lamp lamp) {
    switch (lamp) {
    case Lamp::Green:
        return "compact, up to 4";
    case Lamp::Yellow:
        return "slightly slender, 4 to 5";
    case Lamp::Orange:
        return "slender, 5 to 8";
    case Lamp::Red:
        break;
    }
    return "very slender, above 8";
}

void FillGrids(LiteWindow& window, const ResultRow& result, int row) {
    window.SetMinorCell(row, kWidthColumn, Format(result.Width, "0"));
    const double shownWidth = NumberOf(window.MinorCell(row, kWidthColumn));
    window.SetMinorCell(row, kHeightColumn, Format(result.Height, "0"));
    const double shownHeight = NumberOf(window.MinorCell(row, kHeightColumn));
    window.SetMinorCell(row, kVelocityColumn, Format(result.Velocity, "0.00"));
    window.SetMinorCell(row, kLossColumn, Format(result.Loss, "0.00"));
    if (row == kMiddleRow) {
        window.SetOtherCell(kWidthColumn, Format(Checked(ToMillimetres(result.Equivalent)), "0"));
        window.SetOtherCell(kVelocityColumn,
                            Format(RoundDuctVelocity(result.Flow, result.Equivalent), "0.00"));
        window.SetOtherCell(kLossColumn, Format(result.Loss, "0.00"));
    }
    window.LightLamp(row, LampFor(shownWidth, shownHeight));
}

} // namespace plenair
