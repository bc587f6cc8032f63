#include "lite/CalculateMinorStuff.h"

#include "core/Settings.h"
#include "extras/Misc.h"
#include "flow/Arithmetic.h"
#include "flow/BoxNumbers.h"
#include "flow/CalcFailure.h"
#include "flow/DuctSearch.h"
#include "flow/FluidProperties.h"
#include "flow/GeneralCalcs.h"
#include "flow/Sizing.h"
#include "flow/Units.h"
#include "lite/Bases.h"
#include "lite/ResultGrids.h"
#include "platform/desktop/MessageBox.h"
#include "platform/desktop/Progress.h"
#include "platform/text/NumberText.h"

#include <string>

namespace plenair {

namespace {

// Runs one step of a calculation; a failure ends that step alone, silently.
template <typename Step>
void Attempt(Step step) {
    try {
        step();
    } catch (const CalcFailure&) {
        // The rows written so far stay, and the user sees where they end.
    }
}

void RunBasis(LiteWindow& window, double inputA, double inputB, double value, std::int16_t basis) {
    switch (static_cast<Basis>(basis)) {
    case Basis::LossPerMetre:
        return CalcLossPerMetre(window, inputA, inputB);
    case Basis::Velocity:
        return CalcVelocity(window, inputA, inputB);
    case Basis::Capped:
        return CalcCapped(window, inputA, inputB);
    case Basis::AnalyseFlow:
        return CalcAnalyseFlow(window, inputA, inputB, value);
    case Basis::AnalyseVelocity:
        return CalcAnalyseVelocity(window, inputA, inputB, value);
    }
    ShowMessage({"Error in Calculation.  Calculation basis not yet available.", "Plenair"});
}

// Five rows around the height given, one size step apart; `size` gives the duct for a height in m. The user
// may end it, as a failure would.
template <typename Size>
void FillRows(LiteWindow& window, double inputA, double inputB, Size size) {
    Waiting waiting;
    const SearchPulse pulse = [&] {
        if (!waiting.GoOn()) {
            throw CalcFailure();
        }
    };
    const double flow = ToCubicMetres(inputA);
    double height = inputB - ToInt16(2.0 * Settings.RoundOff);
    for (int row = 0; row < kResultRows; ++row) {
        const SizedDuct duct = size(flow, ToMetres(height), pulse);
        FillGrids(window,
                  {.Width = ToSingle(ToMillimetres(duct.Width)),
                   .Height = ToSingle(height),
                   .Velocity = ToSingle(duct.Velocity),
                   .Loss = ToSingle(duct.Loss),
                   .Equivalent = duct.Equivalent,
                   .Flow = flow},
                  row);
        height += Settings.RoundOff;
    }
}

// Friction factor of a duct that is given, from the usual start.
double FrictionOf(double flow, double equivalent) {
    return FrictionFactor(flow, equivalent, Settings.SurfaceRoughness1, 1.0);
}

} // namespace

void CalculateBasis(LiteWindow& window, double inputA, double inputB, double value, std::int16_t basis) {
    Attempt([] { MonthlyReminder(); });
    Attempt([&] { RunBasis(window, inputA, inputB, value, basis); });
}

void CalcLossPerMetre(LiteWindow& window, double inputA, double inputB) {
    FillRows(window, inputA, inputB, [&](double flow, double height, const SearchPulse& pulse) {
        const float target = SingleOf(window.BasisText(0));
        return SizeForLoss(flow, height, target, Settings.SurfaceRoughness1, Settings.MaxLPM, pulse);
    });
}

void CalcVelocity(LiteWindow& window, double inputA, double inputB) {
    FillRows(window, inputA, inputB, [&](double flow, double height, const SearchPulse& pulse) {
        const float target = SingleOf(window.BasisText(1));
        return SizeForVelocity(flow, height, target, Settings.SurfaceRoughness1, Settings.MaxVelocity, pulse);
    });
}

void CalcCapped(LiteWindow& window, double inputA, double inputB) {
    FillRows(window, inputA, inputB, [&](double flow, double height, const SearchPulse& pulse) {
        const float lossCap = SingleOf(window.BasisText(2));
        const float velocityCap = SingleOf(window.BasisText(kVelocityCapBox));
        return SizeWithinCaps(flow, height, lossCap, velocityCap, Settings.SurfaceRoughness1,
                              Settings.MaxVelocity, pulse);
    });
}

void CalcAnalyseFlow(LiteWindow& window, double inputA, double inputB, double value) {
    const double equivalent = EquivalentDiameter(ToMetres(inputA), ToMetres(inputB));
    const double flow = ToCubicMetres(value);
    const double velocity = RoundDuctVelocity(flow, equivalent);
    const double friction = FrictionOf(flow, equivalent);
    const double loss = LossGradient(friction, equivalent, velocity, Density(Settings.FluidTemp));
    const double rounded = RoundedUpSize(equivalent);
    FillGrids(window,
              {.Width = ToSingle(inputA),
               .Height = ToSingle(inputB),
               .Velocity = ToSingle(velocity),
               .Loss = ToSingle(loss),
               .Equivalent = rounded,
               .Flow = flow},
              kMiddleRow);
}

void CalcAnalyseVelocity(LiteWindow& window, double inputA, double inputB, double value) {
    const double equivalent = EquivalentDiameter(ToMetres(inputA), ToMetres(inputB));
    const double flow = RoundDuctFlow(value, equivalent);
    const double friction = FrictionOf(flow, equivalent);
    const double loss = LossGradient(friction, equivalent, value, Density(Settings.FluidTemp));
    const double rounded = RoundedUpSize(equivalent);
    FillGrids(window,
              {.Width = ToSingle(inputA),
               .Height = ToSingle(inputB),
               .Velocity = ToSingle(value),
               .Loss = ToSingle(loss),
               .Equivalent = rounded,
               .Flow = flow},
              kMiddleRow);
    window.SetMinorCell(kMiddleRow + 1, kHeightColumn, "( " + Format(Checked(ToLitres(flow)), "0"));
    window.SetMinorCell(kMiddleRow + 1, kVelocityColumn, "L/s )");
}

} // namespace plenair
