#pragma once

// The physics and geometry of one duct. SI units throughout: flow m³/s, lengths m, velocity m/s, loss Pa per
// metre, density kg/m³, viscosity Pa s. Every function throws CalcFailure where its arithmetic has no result.
namespace plenair {

// Pi, to the digits that all results of the program rest on.
constexpr double kPi = 3.14159265359;

// Decimal logarithm; `x` must be positive.
double Log10(double x);

// Velocity of `flow` in a round duct; `diameter` must not be 0.
double RoundDuctVelocity(double flow, double diameter);

// Reynolds number (velocity × diameter × density / viscosity).
double ReynoldsNumber(double velocity, double diameter, double density, double viscosity);

// Darcy friction factor of a round duct by Colebrook-White, by repeated substitution until it changes by at
// most 0.00001. The air is that of Settings.FluidTemp. `roughness` is absolute, in m; `start`, positive, is
// the factor of the first pass, of which there is always one. No laminar branch: the formula holds at every
// Reynolds number. Fails at a flow or diameter of 0, at an x whose logarithm has no use, and after 1,000
// passes without settling (Reynolds numbers around 1).
double FrictionFactor(double flow, double diameter, double roughness, double start);

// The same, with the number of passes that it took.
struct SettledFriction {
    double Factor;
    int Passes;
};
SettledFriction SettleFriction(double flow, double diameter, double roughness, double start);

// Pressure loss in Pa per metre by Darcy-Weisbach, `friction` being the Darcy factor.
double LossGradient(double friction, double diameter, double velocity, double density);

// Diameter of the round duct with the given loss per metre: Darcy-Weisbach solved for the diameter. `loss`
// must be positive. A flow of 0 gives 0.
double DiameterForLoss(double friction, double loss, double flow, double density);

// Diameter of the round duct with the given velocity, which must be positive.
double DiameterForVelocity(double velocity, double flow);

// Flow at `velocity` in a round duct.
double RoundDuctFlow(double velocity, double diameter);

// Equivalent round diameter of a rectangle: same flow, friction factor and loss per metre. The sides are
// interchangeable; one side of 0 gives 0, both fail.
double EquivalentDiameter(double a, double b);

// Second side of the rectangle of one `side` whose equivalent diameter is `diameter`, by Huebscher's formula
// 1.3 (a b)^0.625 / (a + b)^0.25, by repeated substitution from `start` until it changes by at most 1E-10.
// Not the inverse of EquivalentDiameter. Fails at a side of 0 or below, and after 100,000 passes without
// settling (some 20 to 40 are usual).
double OtherSide(double side, double diameter, double start);

} // namespace plenair
