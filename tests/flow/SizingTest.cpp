#include "flow/Sizing.h"

#include "core/Settings.h"
#include "flow/CalcFailure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace plenair {
namespace {

class Sizing : public testing::Test {
  protected:
    Sizing() { Settings = SettingsRecord(); }
    ~Sizing() override { Settings = SettingsRecord(); }
};

TEST_F(Sizing, RoundsUpToTheStep) {
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
}

TEST_F(Sizing, Fails) {
    EXPECT_NO_THROW(RoundUpSize(2147483.647));
    for (const double size : {2147483.6476, 1e306, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(RoundUpSize(size), CalcFailure) << size;
    }
    Settings.RoundOff = 0;
    EXPECT_THROW(RoundUpSize(0.35), CalcFailure);
    EXPECT_THROW(RoundedUpSize(0.35), CalcFailure);
}

TEST_F(Sizing, GivesAMultipleLessThanAStepAway) {
    std::mt19937 random(2);
    for (int i = 0; i < 20000; ++i) {
        Settings.RoundOff = static_cast<std::int16_t>(std::uniform_int_distribution<>(1, 400)(random));
        const double size = std::uniform_real_distribution<>(0, 40)(random);
        const double rounded = RoundedUpSize(size) * 1000;
        SCOPED_TRACE(testing::Message() << size << " by " << Settings.RoundOff);
        const double steps = rounded / Settings.RoundOff;
        ASSERT_NEAR(steps, std::round(steps), 1e-7);
        ASSERT_GT(rounded, size * 1000 - 0.5001);
        ASSERT_LT(rounded, size * 1000 + Settings.RoundOff);
    }
}

} // namespace
} // namespace plenair
