#include "flow/GeneralCalcs.h"

#include "core/Settings.h"
#include "flow/CalcFailure.h"
#include "flow/FluidProperties.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace plenair {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();

double FrictionFrom(double start, double flow, double diameter, double roughness) {
    double friction = start;
    double change = 1.0;
    const double result = FrictionFactor(flow, diameter, roughness, friction, change);
    EXPECT_EQ(result, friction);
    EXPECT_LE(change, 0.00001);
    return result;
}

double Friction(double flow, double diameter, double roughness) {
    return FrictionFrom(1.0, flow, diameter, roughness);
}

double Other(double side, double diameter, double start = 1E+50) {
    double other = start;
    double change = 1.0;
    const double result = OtherSide(side, diameter, other, change);
    EXPECT_EQ(result, other);
    return result;
}

class Flow : public testing::Test {
  protected:
    Flow() { Settings = SettingsRecord(); }
    ~Flow() override { Settings = SettingsRecord(); }
};

TEST_F(Flow, WorkedExamples) {
    EXPECT_NEAR(Density(26), 1.1859, 1e-12);
    EXPECT_NEAR(Viscosity(26), 0.00001846, 1e-15);
    EXPECT_LT(Density(315.25), 0.0);
    EXPECT_NEAR(Log10(1000), 3.0, 1e-15);
    const double velocity = RoundDuctVelocity(0.5, 0.4);
    EXPECT_NEAR(velocity, 3.97887, 5e-6);
    EXPECT_NEAR(ReynoldsNumber(velocity, 0.4, Density(26), Viscosity(26)), 102243.7, 0.05);
    EXPECT_NEAR(LossGradient(0.0197376, 0.4, velocity, 1.1859), 0.4632, 5e-5);
    EXPECT_NEAR(DiameterForLoss(0.02, 0.8, 0.5, 1.1859), 0.35954, 5e-6);
    EXPECT_NEAR(DiameterForVelocity(5, 0.5), 0.35682, 5e-6);
    EXPECT_NEAR(RoundDuctFlow(5, 0.35682), 0.5, 2e-5);
    EXPECT_NEAR(EquivalentDiameter(0.375, 0.3), 0.36898, 5e-6);
    EXPECT_NEAR(EquivalentDiameter(1, 1), 1.1014, 5e-5);
    EXPECT_EQ(EquivalentDiameter(0, 0.3), 0.0);
    EXPECT_EQ(DiameterForLoss(0.02, 0.8, 0, 1.1859), 0.0);
    EXPECT_NEAR(Other(0.3, 0.36), 0.36231, 5e-6);
    EXPECT_NEAR(Other(1, 1.0931653), 1.0, 1e-6);
}

TEST_F(Flow, FrictionFactorTakesTheLastOfItsPasses) {
    EXPECT_NEAR(Friction(0.5, 0.4, 0.00015), 0.0197376, 5e-8);
    // Slow, but it settles, at a Reynolds number of about 8.
    EXPECT_NEAR(Friction(0.00001, 0.1, 0.00015), 0.97372, 5e-6);

    // Each pass by itself: a search cut off before it is the start of the next.
    const double passes[] = {0.0164368, 0.0200244, 0.0197158, 0.0197394, 0.0197376};
    double friction = 1.0;
    double change = 1.0;
    FrictionFactor(0.5, 0.4, 0.00015, friction, change);
    EXPECT_NEAR(change, passes[3] - passes[4], 1e-7);

    // A start at the solution still makes one pass.
    const double again = FrictionFrom(friction, 0.5, 0.4, 0.00015);
    EXPECT_NE(again, friction);
    EXPECT_NEAR(again, friction, 0.000001);

    // The change of an earlier search that had settled: no pass, but the arguments must still make sense.
    double settled = 0.5;
    change = 0.00001;
    EXPECT_EQ(FrictionFactor(0.5, 0.4, 0.00015, settled, change), 0.5);
    EXPECT_THROW(FrictionFactor(0.5, 0, 0.00015, settled, change), CalcFailure);
}

// Exact solutions of Colebrook-White with 3.7 and 2.51, not from this program.
TEST_F(Flow, FrictionFactorMeetsColebrookWhite) {
    const struct {
        const char* name;
        double reynolds;
        double roughness; // relative
        double exact;
    } rows[] = {
        {"usual", 1e5, 1e-4, 0.0185138661},
        {"smooth", 1e5, 0, 0.0179897731},
        {"slow", 1.5e4, 1.5e-4, 0.0280879094},
        {"fast", 1e6, 1e-4, 0.0134414377},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const double diameter = 0.4;
        const double velocity = row.reynolds * Viscosity(26) / (Density(26) * diameter);
        const double flow = RoundDuctFlow(velocity, diameter);
        // The passes shrink the error by at least a factor of 5 here, so it is well below the last change.
        EXPECT_NEAR(Friction(flow, diameter, row.roughness * diameter), row.exact, 0.000005);
    }
}

// Published circular equivalents, in mm.
TEST_F(Flow, OtherSideMeetsThePublishedEquivalents) {
    const double rows[][3] = {{100, 100, 109}, {200, 100, 152},  {300, 200, 266},
                              {600, 600, 656}, {1000, 500, 762}, {1600, 800, 1219}};
    for (const auto& [a, b, published] : rows) {
        SCOPED_TRACE(testing::Message() << a << " x " << b);
        // Which round duct has this rectangle: the published one, to the whole millimetre.
        EXPECT_LE(Other(b / 1000, (published - 0.6) / 1000), a / 1000);
        EXPECT_GE(Other(b / 1000, (published + 0.6) / 1000), a / 1000);
        EXPECT_LE(Other(a / 1000, (published - 0.6) / 1000), b / 1000);
        EXPECT_GE(Other(a / 1000, (published + 0.6) / 1000), b / 1000);
    }
}

TEST_F(Flow, RandomDucts) {
    std::mt19937 random(1);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int i = 0; i < 2000; ++i) {
        const double side = between(0.05, 2.0);
        const double diameter = between(0.08, 2.0);
        SCOPED_TRACE(testing::Message() << side << ", " << diameter);
        const double other = Other(side, diameter);
        // The formula turned round.
        EXPECT_NEAR(1.3 * std::pow(side * other, 0.625) / std::pow(side + other, 0.25), diameter, 1e-9);
        EXPECT_NEAR(Other(side, diameter, side), other, 1e-9) << "the start matters";
        EXPECT_EQ(EquivalentDiameter(side, other), EquivalentDiameter(other, side));
        if (std::max(side, other) < 8 * std::min(side, other)) {
            EXPECT_GT(EquivalentDiameter(side, other), diameter);
            EXPECT_LT(EquivalentDiameter(side, other), 1.05 * diameter);
        }

        const double velocity = between(0.5, 20);
        const double flow = RoundDuctFlow(velocity, diameter);
        EXPECT_NEAR(DiameterForVelocity(velocity, flow), diameter, 1e-9);
        const double friction = Friction(flow, diameter, between(0, 0.003));
        const double loss = LossGradient(friction, diameter, velocity, 1.2);
        EXPECT_NEAR(DiameterForLoss(friction, loss, flow, 1.2), diameter, 1e-9);
    }
}

TEST_F(Flow, FailsWhereThereIsNoResult) {
    const struct {
        const char* name;
        std::function<void()> calculation;
        double temperature = 26;
    } rows[] = {
        {"logarithm of 0", [] { Log10(0); }},
        {"logarithm of a negative number", [] { Log10(-1); }},
        {"logarithm of no number", [] { Log10(NoNumber); }},
        {"logarithm of infinity", [] { Log10(Infinity); }},
        {"velocity, diameter 0", [] { RoundDuctVelocity(0.5, 0); }},
        {"velocity, 0 / 0", [] { RoundDuctVelocity(0, 0); }},
        {"velocity, too large", [] { RoundDuctVelocity(Largest, 1e-100); }},
        {"velocity, square of the diameter too large", [] { RoundDuctVelocity(1, 1e200); }},
        {"velocity, no number", [] { RoundDuctVelocity(NoNumber, 1); }},
        {"Reynolds number, viscosity 0", [] { ReynoldsNumber(1, 1, 1, 0); }},
        {"Reynolds number, too large", [] { ReynoldsNumber(1e200, 1e200, 1, 1); }},
        {"density, too large", [] { Density(Infinity); }},
        {"density, no number", [] { Density(NoNumber); }},
        {"viscosity, too large", [] { Viscosity(-Infinity); }},
        {"friction, flow 0", [] { Friction(0, 0.4, 0.00015); }},
        {"friction, diameter 0", [] { Friction(0.5, 0, 0.00015); }},
        {"friction, flow and diameter 0", [] { Friction(0, 0, 0.00015); }},
        {"friction, start 0", [] { FrictionFrom(0, 0.5, 0.4, 0.00015); }},
        {"friction, start negative", [] { FrictionFrom(-1, 0.5, 0.4, 0.00015); }},
        {"friction, never settles", [] { Friction(0.000001, 0.1, 0.00015); }},
        {"friction, logarithm exactly 0", [] { Friction(1e300, 1, 3.7); }},
        {"friction, density negative", [] { Friction(0.5, 0.4, 0); }, 315.25},
        {"friction, roughness no number", [] { Friction(0.5, 0.4, NoNumber); }},
        {"friction, temperature no number", [] { Friction(0.5, 0.4, 0.00015); }, NoNumber},
        {"loss, diameter 0", [] { LossGradient(0.02, 0, 4, 1.2); }},
        {"loss, too large", [] { LossGradient(0.02, 0.4, 1e200, 1.2); }},
        {"diameter, loss 0", [] { DiameterForLoss(0.02, 0, 0.5, 1.2); }},
        {"diameter, loss negative", [] { DiameterForLoss(0.02, -0.8, 0.5, 1.2); }},
        {"diameter, density negative", [] { DiameterForLoss(0.02, 0.8, 0.5, -1.2); }},
        {"diameter, flow too large", [] { DiameterForLoss(0.02, 0.8, 1e200, 1.2); }},
        {"diameter, velocity 0", [] { DiameterForVelocity(0, 0.5); }},
        {"diameter, velocity negative", [] { DiameterForVelocity(-5, 0.5); }},
        {"diameter, flow 4 times too large", [] { DiameterForVelocity(5, Largest); }},
        {"flow, too large", [] { RoundDuctFlow(1e200, 1e100); }},
        {"equivalent, both sides 0", [] { EquivalentDiameter(0, 0); }},
        {"equivalent, one side negative", [] { EquivalentDiameter(-0.1, 0.3); }},
        {"equivalent, sides cancel", [] { EquivalentDiameter(-0.3, 0.3); }},
        {"equivalent, too large", [] { EquivalentDiameter(1e110, 1); }},
        {"equivalent, infinite", [] { EquivalentDiameter(Infinity, 0.3); }},
        {"equivalent, no number", [] { EquivalentDiameter(NoNumber, 0.3); }},
        {"other side, side 0", [] { Other(0, 0.36); }},
        {"other side, side negative", [] { Other(-0.3, 0.36); }},
        {"other side, side negative, near start", [] { Other(-0.3, 0.36, 0.3); }},
        {"other side, diameter negative", [] { Other(0.3, -0.36); }},
        {"other side, diameter infinite", [] { Other(0.3, Infinity); }},
        {"other side, diameter no number", [] { Other(0.3, NoNumber); }},
    };
    for (const auto& row : rows) {
        Settings.FluidTemp = row.temperature;
        EXPECT_THROW(row.calculation(), CalcFailure) << row.name;
    }
}

TEST_F(Flow, AnUnderflowIsNoFailure) {
    EXPECT_EQ(RoundDuctFlow(1e-200, 1e-100), 0.0);
    EXPECT_EQ(LossGradient(0.02, 0.4, 1e-200, 1.2), 0.0);
    EXPECT_EQ(EquivalentDiameter(1e-200, 0.3), 0.0);
    EXPECT_EQ(DiameterForLoss(0.02, 0.8, 1e-200, 1.2), 0.0);
}

} // namespace
} // namespace plenair
