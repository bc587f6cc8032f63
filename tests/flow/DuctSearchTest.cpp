#include "flow/DuctSearch.h"
#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/FluidProperties.h"
#include "flow/GeneralCalcs.h"
#include "flow/Sizing.h"

#include <gtest/gtest.h>

#include <random>

namespace plenair {
namespace {

// The search within caps in its plainest form, step by step, with every pass of every function.
SizedDuct PlainSearch(double flow, double height, float lossCap, float velocityCap, double roughness,
                      double& working) {
    working = static_cast<double>(velocityCap);
    const double density = Density(Settings.FluidTemp);
    double diameter = 1.0;
    double friction = 1.0;
    for (bool capItself = true;; capItself = false, working -= 0.01) {
        double previous = 0;
        do {
            previous = diameter;
            diameter = DiameterForVelocity(working, flow);
            double change = 1.0;
            FrictionFactor(flow, diameter, roughness, friction, change);
        } while (!(std::fabs(previous - diameter) < 0.0000000001));
        double width = 1E+50;
        double change = 1.0;
        width = RoundedUpSize(OtherSide(height, diameter, width, change));
        const double velocity = RoundDuctVelocity(flow, diameter);
        const double equivalent = EquivalentDiameter(width, height);
        const double tested = LossGradient(friction, equivalent, velocity, density);
        if (!capItself && !(ToSingle(tested) > lossCap)) {
            const double shown = RoundDuctVelocity(flow, equivalent);
            return {width, shown, LossGradient(friction, equivalent, shown, density),
                    RoundedUpSize(equivalent)};
        }
    }
}

// The quick way to a width must not show in a single bit of a result, at any size step.
TEST(DuctSearch, GivesTheBitsOfThePlainSearch) {
    std::mt19937 random(20261124);
    std::uniform_real_distribution<double> flow(0.02, 6);
    std::uniform_real_distribution<double> height(0.03, 1.5);
    std::uniform_real_distribution<float> lossCap(0.2F, 4.0F);
    std::uniform_real_distribution<float> velocityCap(2.0F, 14.0F);
    const std::int16_t steps[] = {1, 5, 10, 25, 30, 50, 100};
    Settings = SettingsRecord();
    for (int i = 0; i < 3000; ++i) {
        Settings.RoundOff = steps[i % 7];
        const double roughness = i % 2 == 0 ? Settings.SurfaceRoughness1 : Settings.SurfaceRoughness2;
        const double q = flow(random);
        const double h = height(random);
        const float loss = lossCap(random);
        const float velocity = velocityCap(random);
        double working = 0, plainWorking = 0;
        const SizedDuct duct = SizeWithinCaps(q, h, loss, velocity, roughness, working);
        const SizedDuct plain = PlainSearch(q, h, loss, velocity, roughness, plainWorking);
        ASSERT_TRUE(duct.Width == plain.Width && duct.Velocity == plain.Velocity && duct.Loss == plain.Loss &&
                    duct.Equivalent == plain.Equivalent && working == plainWorking)
            << "flow " << q << ", height " << h << ", caps " << loss << " and " << velocity << ", step "
            << Settings.RoundOff;
    }
    Settings = SettingsRecord();
}

} // namespace
} // namespace plenair
