#include "flow/GeneralCalcs.h"

#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/CalcFailure.h"
#include "flow/FluidProperties.h"

#include <cmath>

namespace plenair {

namespace {

constexpr int kFrictionPasses = 1000;
constexpr int kOtherSidePasses = 100000;

} // namespace

double Log10(double x) {
    return Checked(std::log(Checked(x)) / std::log(10.0));
}

double RoundDuctVelocity(double flow, double diameter) {
    return Divide(flow, (diameter * diameter * kPi) / 4);
}

double ReynoldsNumber(double velocity, double diameter, double density, double viscosity) {
    return Divide((velocity * diameter) * density, viscosity);
}

double FrictionFactor(double flow, double diameter, double roughness, double start) {
    return SettleFriction(flow, diameter, roughness, start).Factor;
}

SettledFriction SettleFriction(double flow, double diameter, double roughness, double start) {
    const double velocity = RoundDuctVelocity(flow, diameter);
    const double reynolds =
        ReynoldsNumber(velocity, diameter, Density(Settings.FluidTemp), Viscosity(Settings.FluidTemp));
    const double rough = Divide(roughness, diameter) / 3.7;
    double friction = start;
    double change = 1.0;
    int pass = 0;
    for (; change > 0.00001; ++pass) {
        if (pass == kFrictionPasses) {
            throw CalcFailure();
        }
        const double x = Divide(2.51, SquareRoot(friction) * reynolds) + rough;
        const double log = Log10(x);
        const double next = Divide(0.25, log * log);
        change = std::fabs(friction - next);
        friction = next;
    }
    return {friction, pass};
}

double LossGradient(double friction, double diameter, double velocity, double density) {
    return Divide((velocity * velocity * friction) * density, diameter + diameter);
}

double DiameterForLoss(double friction, double loss, double flow, double density) {
    const double perLoss = Divide(1.0, loss);
    return Power(Divide(flow * flow * (8 * friction * density * perLoss), kPi * kPi), 1.0 / 5);
}

double DiameterForVelocity(double velocity, double flow) {
    return SquareRoot(Divide(flow * 4, velocity * kPi));
}

double RoundDuctFlow(double velocity, double diameter) {
    return Checked(((diameter * diameter * kPi) / 4) * velocity);
}

double EquivalentDiameter(double a, double b) {
    return Power(Divide(Power(a, 3) * 32 * Power(b, 3), kPi * kPi * (a + b)), 1.0 / 5);
}

double OtherSide(double side, double diameter, double start) {
    double other = start;
    double change = 1.0;
    for (int pass = 0; change > 0.0000000001; ++pass) {
        if (pass == kOtherSidePasses) {
            throw CalcFailure();
        }
        const double next = Divide(Power(Power(other + side, 0.25) * diameter / 1.3, 1.6), side);
        change = std::fabs(other - next);
        other = next;
    }
    return other;
}

} // namespace plenair
