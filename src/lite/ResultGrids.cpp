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

void FillGrids(LiteWindow& window, float width, float height, float velocity, float loss, double equivalent,
               double flow, std::int16_t row) {
    window.SetMinorCell(row, 0, Format(width, "0"));
    const double shownWidth = NumberOf(window.MinorCell(row, 0));
    window.SetMinorCell(row, 1, Format(height, "0"));
    const double shownHeight = NumberOf(window.MinorCell(row, 1));
    window.SetMinorCell(row, 2, Format(velocity, "0.00"));
    window.SetMinorCell(row, 3, Format(loss, "0.00"));
    if (row == 2) {
        window.SetOtherCell(0, Format(Checked(ToMillimetres(equivalent)), "0"));
        window.SetOtherCell(2, Format(RoundDuctVelocity(flow, equivalent), "0.00"));
        window.SetOtherCell(3, Format(loss, "0.00"));
    }
    window.LightLamp(row, LampFor(shownWidth, shownHeight));
}

} // namespace plenair
