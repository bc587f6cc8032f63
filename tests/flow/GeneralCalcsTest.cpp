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

double Friction(double flow, double diameter, double roughness) {
    return FrictionFactor(flow, diameter, roughness, 1.0);
}

double Other(double side, double diameter, double start = 1E+50) {
    return OtherSide(side, diameter, start);
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
    EXPECT_EQ(LossGradient(0.02, 0.4, 1e-200, 1.2), 0.0) << "an underflow is no failure";
    EXPECT_NEAR(Other(0.3, 0.36), 0.36231, 5e-6);
    EXPECT_NEAR(Other(1, 1.0931653), 1.0, 1e-6);
}

TEST_F(Flow, FrictionFactorTakesTheLastOfItsPasses) {
    EXPECT_NEAR(Friction(0.5, 0.4, 0.00015), 0.0197376, 5e-8);
    EXPECT_NEAR(Friction(0.00001, 0.1, 0.00015), 0.97372, 5e-6) << "slow, but it settles";
    // A start at the solution still makes one pass.
    const double friction = Friction(0.5, 0.4, 0.00015);
    const double again = FrictionFactor(0.5, 0.4, 0.00015, friction);
    EXPECT_NE(again, friction);
    EXPECT_NEAR(again, friction, 0.000001);
}

// Exact solutions of Colebrook-White with 3.7 and 2.51, not from this program.
TEST_F(Flow, FrictionFactorMeetsColebrookWhite) {
    const double rows[][3] = {{1e5, 1e-4, 0.0185138661},
                              {1e5, 0, 0.0179897731},
                              {1.5e4, 1.5e-4, 0.0280879094},
                              {1e6, 1e-4, 0.0134414377}};
    for (const auto& [reynolds, relativeRoughness, exact] : rows) {
        const double diameter = 0.4;
        const double velocity = reynolds * Viscosity(26) / (Density(26) * diameter);
        const double flow = RoundDuctFlow(velocity, diameter);
        // The passes shrink the error by at least a factor of 5 here, so it is well below the last change.
        EXPECT_NEAR(Friction(flow, diameter, relativeRoughness * diameter), exact, 0.000005) << reynolds;
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
    // Divisions by zero, overflows, roots, powers and logarithms out of range, no numbers, no end.
    const std::function<void()> calculations[] = {
        [] { Log10(0); },
        [] { Log10(NoNumber); },
        [] { RoundDuctVelocity(0.5, 0); },
        [] { RoundDuctVelocity(1e300, 1e-100); },
        [] { ReynoldsNumber(1, 1, 1, 0); },
        [] { ReynoldsNumber(1e200, 1e200, 1, 1); },
        [] { Density(Infinity); },
        [] { Viscosity(-Infinity); },
        [] { Friction(0, 0.4, 0.00015); },
        [] { Friction(0.5, 0, 0.00015); },
        [] { FrictionFactor(0.5, 0.4, 0.00015, 0); },
        [] { Friction(0.000001, 0.1, 0.00015); },
        [] { Friction(1e300, 1, 3.7); }, // the logarithm is exactly 0
        [] { LossGradient(0.02, 0, 4, 1.2); },
        [] { LossGradient(0.02, 0.4, 1e200, 1.2); },
        [] { DiameterForLoss(0.02, 0, 0.5, 1.2); },
        [] { DiameterForLoss(0.02, -0.8, 0.5, 1.2); },
        [] { DiameterForLoss(0.02, 0.8, 1e200, 1.2); },
        [] { DiameterForVelocity(0, 0.5); },
        [] { DiameterForVelocity(-5, 0.5); },
        [] { RoundDuctFlow(1e200, 1e100); },
        [] { EquivalentDiameter(0, 0); },
        [] { EquivalentDiameter(-0.1, 0.3); },
        [] { EquivalentDiameter(-0.3, 0.3); },
        [] { EquivalentDiameter(1e110, 1); },
        [] { Other(0, 0.36); },
        [] { Other(-0.3, 0.36); },
        [] { Other(0.3, -0.36); },
        [] { Other(0.3, NoNumber); },
    };
    for (std::size_t i = 0; i < std::size(calculations); ++i) {
        EXPECT_THROW(calculations[i](), CalcFailure) << i;
    }
    for (const double temperature : {315.25, NoNumber}) { // too hot: the density is negative
        Settings.FluidTemp = temperature;
        EXPECT_THROW(Friction(0.5, 0.4, 0), CalcFailure) << temperature;
    }
}

} // namespace
} // namespace plenair
