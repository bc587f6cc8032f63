#include "flow/DuctSearch.h"

#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/FluidProperties.h"
#include "flow/GeneralCalcs.h"
#include "flow/Sizing.h"

#include <cstdint>
#include <optional>

namespace plenair {

namespace {

constexpr int kSteps = 500000;
constexpr int kDiameterPasses = 10000;
constexpr double kStep = 0.01;

// Where a search for a width starts when the height says nothing about it.
constexpr double kFarStart = 1E+50;

void CountStep(int& steps) {
    if (++steps > kSteps) {
        throw CalcFailure("a search without an end");
    }
}

// The width that OtherSide leads to, in m, without its dozens of passes: Newton's method on the same
// equation, from a `start` near it. Nothing where it lies outside of practice; then OtherSide has to tell.
std::optional<double> QuickWidth(double height, double diameter, double start) {
    constexpr double kMostWidth = 1000; // m
    constexpr int kPasses = 12;
    if (!(height > 0.0) || !(diameter > 0.0)) {
        return std::nullopt;
    }
    const double factor = std::pow(diameter / 1.3, 1.6) / height;
    // Where nothing is known yet: the solution lies above this, and from here the method finds it.
    double width = start > 0.0 ? start : std::pow(factor, 1 / 0.6);
    double change = 1.0;
    for (int pass = 0; std::fabs(change) > 1E-6; ++pass) { // squared by the next pass, so some 1E-12 are left
        const double next = factor * std::pow(width + height, 0.4);
        change = (width - next) / (1.0 - 0.4 * next / (width + height));
        width -= change;
        if (pass == kPasses || !(width > 0.0) || width > kMostWidth) {
            return std::nullopt;
        }
    }
    return width;
}

// What RoundUpSize makes of a width that is known but for a hair. All that it keeps is the whole millimetre
// that the width rounds to: clear of the middle between two of them the hair can't be seen in a single bit.
// Nothing otherwise.
std::optional<double> RoundedWhereClear(double width) {
    constexpr double kClearOfMiddle = 1E-4; // mm
    const std::int64_t step = Settings.RoundOff;
    const double millimetres = width * 1000;
    const double below = std::floor(millimetres);
    if (step <= 0 || std::fabs(millimetres - below - 0.5) < kClearOfMiddle) {
        return std::nullopt;
    }
    const auto whole = static_cast<std::int64_t>(millimetres - below < 0.5 ? below : below + 1);
    return static_cast<double>((whole + step - 1) / step * step) / 1000;
}

// The round duct of a working value. Diameter and friction factor carry over from one working value to the
// next, which is part of the result.
class RoundDuctSearch {
  public:
    RoundDuctSearch(double flow, double roughness)
        : m_flow(flow), m_roughness(roughness), m_density(Density(Settings.FluidTemp)) {}

    double Diameter = 1.0;
    double Friction = 1.0;

    void SettleForLoss(double loss) {
        Settle([&] { return DiameterForLoss(Friction, loss, m_flow, m_density); });
    }

    void SettleForVelocity(double velocity) {
        Settle([&] { return DiameterForVelocity(velocity, m_flow); });
    }

    // Width of the rectangle of `height` that stands for the round duct, on the size step. The search for it
    // starts at `start`.
    double RoundedWidth(double height, double start) {
        if (const auto quick = QuickWidth(height, Diameter, m_lastWidth)) {
            m_lastWidth = *quick;
            if (const auto rounded = RoundedWhereClear(*quick)) {
                return *rounded;
            }
        }
        double change = 1.0;
        return RoundedUpSize(OtherSide(height, Diameter, start, change));
    }

    double Velocity() const { return RoundDuctVelocity(m_flow, Diameter); }

    // Loss of the rectangle at the velocity of the round duct: what a search compares with its target.
    double TestedLoss(double width, double height, double velocity) {
        if (width != m_testedWidth) { // from one working value to the next it is mostly the same
            m_testedEquivalent = EquivalentDiameter(width, height);
            m_testedWidth = width;
        }
        return LossGradient(Friction, m_testedEquivalent, velocity, m_density);
    }

    // The duct as chosen. The friction factor stays that of the last round duct.
    SizedDuct Close(double width, double height) const {
        SizedDuct duct;
        duct.Width = width;
        const double equivalent = EquivalentDiameter(width, height);
        duct.Velocity = RoundDuctVelocity(m_flow, equivalent);
        duct.Loss = LossGradient(Friction, equivalent, duct.Velocity, m_density);
        duct.Equivalent = RoundedUpSize(equivalent);
        return duct;
    }

  private:
    template <typename DiameterOf>
    void Settle(DiameterOf diameterOf) {
        double previous = 0;
        int passes = 0;
        do {
            if (++passes > kDiameterPasses) {
                throw CalcFailure("the diameter does not settle");
            }
            previous = Diameter;
            Diameter = diameterOf();
            double change = 1.0;
            FrictionFactor(m_flow, Diameter, m_roughness, Friction, change);
        } while (!(std::fabs(previous - Diameter) < 0.0000000001));
    }

    double m_flow;
    double m_roughness;
    double m_density;
    double m_lastWidth = 0; // before it was rounded
    double m_testedWidth = -1;
    double m_testedEquivalent = 0;
};

} // namespace

SizedDuct SizeForLoss(double flow, double height, float target, double roughness, double& working) {
    working = static_cast<double>(target);
    RoundDuctSearch duct(flow, roughness);
    bool last = false;
    for (int steps = 0;;) {
        duct.SettleForLoss(working);
        const double width = duct.RoundedWidth(height, height);
        const double loss = duct.TestedLoss(width, height, duct.Velocity());
        if (last) {
            return duct.Close(width, height);
        }
        CountStep(steps);
        if (ToSingle(loss) < target) {
            working += kStep;
        } else {
            working -= kStep;
            last = true;
        }
    }
}

SizedDuct SizeForVelocity(double flow, double height, float target, double roughness, double& working) {
    working = static_cast<double>(target);
    RoundDuctSearch duct(flow, roughness);
    duct.SettleForVelocity(working);
    duct.RoundedWidth(height, kFarStart); // may fail for the target itself, though its width is not taken
    working -= kStep;
    duct.SettleForVelocity(working);
    return duct.Close(duct.RoundedWidth(height, kFarStart), height);
}

SizedDuct SizeWithinCaps(double flow, double height, float lossCap, float velocityCap, double roughness,
                         double& working) {
    working = static_cast<double>(velocityCap);
    RoundDuctSearch duct(flow, roughness);
    for (int steps = 0;;) {
        if (working <= 0.0) {
            throw CapsNotMet("no velocity keeps the loss within its cap");
        }
        duct.SettleForVelocity(working);
        const double width = duct.RoundedWidth(height, kFarStart);
        const double velocity = duct.Velocity();
        const bool capItself = steps == 0;
        if (!capItself && !(ToSingle(duct.TestedLoss(width, height, velocity)) > lossCap)) {
            return duct.Close(width, height);
        }
        CountStep(steps);
        working -= kStep;
    }
}

} // namespace plenair
