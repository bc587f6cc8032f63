#include "flow/CalcFailure.h"
#include "flow/FluidProperties.h"
#include "flow/GeneralCalcs.h"
#include "flow/Sizing.h"
#include "support/Test.h"

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Far = 1E+50; // where the search for the other side starts

// That a calculation has no result for any of these arguments.
template <typename... Doubles>
void ExpectFailure(double (*calculation)(Doubles...), const std::vector<std::tuple<Doubles...>>& rows) {
    for (const auto& arguments : rows) {
        EXPECT_THROW(std::apply(calculation, arguments), CalcFailure) << testing::PrintToString(arguments);
    }
}

class Flow : public testing::Test {
  protected:
    Flow() { Settings = SettingsRecord(); }
};

TEST_F(Flow, WorkedExamples) {
    const double velocity = RoundDuctVelocity(0.5, 0.4);
    const double friction = FrictionFactor(0.5, 0.4, 0.00015, 1);
    const double rows[][3] = {
        {Density(26), 1.1859, 1e-12},
        {Viscosity(26), 0.00001846, 1e-15},
        {Log10(1000), 3.0, 1e-15},
        {velocity, 3.97887, 5e-6},
        {ReynoldsNumber(velocity, 0.4, Density(26), Viscosity(26)), 102243.7, 0.05},
        {LossGradient(0.0197376, 0.4, velocity, 1.1859), 0.4632, 5e-5},
        {LossGradient(0.02, 0.4, 1e-200, 1.2), 0, 0}, // an underflow is no failure
        {DiameterForLoss(0.02, 0.8, 0, 1.1859), 0, 0},
        {DiameterForLoss(0.02, 0.8, 0.5, 1.2), 0.3603879828628032, 1e-10},
        {DiameterForVelocity(5, 0.5), 0.3568248232305542, 1e-10},
        {RoundDuctFlow(5, 0.4), 0.6283185307179586, 1e-10},
        {OtherSide(0.3, 0.37, Far), 0.3832975980380037, 1e-9},
        {OtherSide(0.3, 0.37, 0.3), 0.3832975980380037, 1e-9}, // wherever it starts
        {OtherSide(1.5, 0.1, Far), 0.012987738645151266, 1e-9},
        {EquivalentDiameter(0.375, 0.3), 0.36897828291572543, 1e-10},
        {EquivalentDiameter(0, 0.3), 0, 0},
        {friction, 0.0197376, 5e-8},
        {FrictionFactor(0.00001, 0.1, 0.00015, 1), 0.97372, 5e-6}, // slow, but it settles
        {FrictionFactor(0.5, 0.4, 0.00015, friction), friction, 0.000001}};
    for (const auto& [value, expected, tolerance] : rows) {
        EXPECT_NEAR(value, expected, tolerance);
    }
    EXPECT_LT(Density(315.25), 0.0);
    EXPECT_NE(FrictionFactor(0.5, 0.4, 0.00015, friction), friction)
        << "a start at the solution makes one pass";
    // Exact solutions of Colebrook-White with 3.7 and 2.51, not from this program. The passes shrink the
    // error by at least a factor of 5 here.
    const double exact[][3] = {{1e5, 1e-4, 0.0185138661},
                               {1e5, 0, 0.0179897731},
                               {1.5e4, 1.5e-4, 0.0280879094},
                               {1e6, 1e-4, 0.0134414377}};
    for (const auto& [reynolds, relativeRoughness, factor] : exact) {
        const double flow = RoundDuctFlow(reynolds * Viscosity(26) / (Density(26) * 0.4), 0.4);
        EXPECT_NEAR(FrictionFactor(flow, 0.4, relativeRoughness * 0.4, 1), factor, 0.000005) << reynolds;
    }
}

TEST_F(Flow, FailsWhereThereIsNoResult) {
    // Divisions by zero, overflows, roots, powers and logarithms out of range, no numbers, no end.
    ExpectFailure(Log10, {{0}, {NoNumber}});
    ExpectFailure(RoundDuctVelocity, {{0.5, 0}, {1e300, 1e-100}});
    ExpectFailure(ReynoldsNumber, {{1, 1, 1, 0}, {1e200, 1e200, 1, 1}});
    ExpectFailure(Density, {{Infinity}});
    ExpectFailure(Viscosity, {{-Infinity}});
    ExpectFailure(FrictionFactor, {{0, 0.4, 0.00015, 1},
                                   {0.5, 0, 0.00015, 1},
                                   {0.5, 0.4, 0.00015, 0},
                                   {0.000001, 0.1, 0.00015, 1},
                                   {1e300, 1, 3.7, 1}}); // the logarithm is exactly 0
    ExpectFailure(LossGradient, {{0.02, 0, 4, 1.2}, {0.02, 0.4, 1e200, 1.2}});
    ExpectFailure(DiameterForLoss, {{0.02, 0, 0.5, 1.2}, {0.02, -0.8, 0.5, 1.2}, {0.02, 0.8, 1e200, 1.2}});
    ExpectFailure(DiameterForVelocity, {{0, 0.5}, {-5, 0.5}});
    ExpectFailure(RoundDuctFlow, {{1e200, 1e100}});
    ExpectFailure(EquivalentDiameter, {{0, 0}, {-0.1, 0.3}, {-0.3, 0.3}, {1e110, 1}});
    ExpectFailure(OtherSide, {{0, 0.36, Far}, {-0.3, 0.36, Far}, {0.3, -0.36, Far}, {0.3, NoNumber, Far}});
    for (const double size : {2147483.6476, 1e306, NoNumber}) {
        EXPECT_THROW(RoundUpSize(size), CalcFailure) << size;
    }
    for (const double temperature : {315.25, NoNumber}) { // too hot: the density is negative
        Settings.FluidTemp = temperature;
        ExpectFailure(FrictionFactor, {{0.5, 0.4, 0, 1}});
    }
    Settings.RoundOff = 0;
    ExpectFailure(RoundedUpSize, {{0.35}});
}

TEST_F(Flow, SizesRoundUpToTheStep) {
    // Up, except from within half a millimetre above, in steps that count from 0. Half a millimetre goes to
    // the even neighbour, but the text to the one away from zero. The remainder has the sign of the size.
    const struct {
        std::int16_t step;
        double size;
        const char* rounded;
    } rows[] = {
        {25, 0.3506, "0.375"}, {25, 0.3746, "0.375"},  {25, 0.35, "0.350"},    {25, 0.3501, "0.350"},
        {25, 0, "0.000"},      {25, 0.0004, "0.000"},  {25, 0.0006, "0.025"},  {25, 0.3505, "0.351"},
        {1, 0.3506, "0.351"},  {1, 0.35049, "0.350"},  {1, 0.0025, "0.003"},   {30, 0.3604, "0.360"},
        {30, 0.3606, "0.390"}, {30, 1.0, "1.020"},     {25, -0.35, "-0.350"},  {25, -0.3506, "-0.325"},
        {25, -0.012, "0.025"}, {-25, 0.3506, "0.325"}, {-25, -0.351, "-0.375"}};
    for (const auto& row : rows) {
        Settings.RoundOff = row.step;
        EXPECT_EQ(RoundUpSize(row.size), row.rounded) << row.size << " by " << row.step;
    }
    EXPECT_NO_THROW(RoundUpSize(2147483.647));
}

} // namespace
