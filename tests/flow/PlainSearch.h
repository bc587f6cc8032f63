#pragma once

#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/DuctSearch.h"
#include "flow/FluidProperties.h"
#include "flow/GeneralCalcs.h"
#include "flow/Sizing.h"

namespace plenair {

// The three searches in their plainest form, step by step, with every pass of every function: what the quick
// ones are measured by, in bits and in time.
class PlainSearch {
  public:
    PlainSearch(double flow, double height, double roughness, double& working)
        : m_flow(flow), m_height(height), m_roughness(roughness), m_working(working) {}

    SizedDuct ForLoss(float target) {
        m_working = static_cast<double>(target);
        int steps = 0;
        while (ToSingle(LossAtLoss()) < target) {
            CountStep(steps);
            m_working += 0.01;
        }
        CountStep(steps);
        m_working -= 0.01;
        LossAtLoss();
        return Closed();
    }

    SizedDuct ForVelocity(float target) {
        m_working = static_cast<double>(target);
        StepAtVelocity();
        m_working -= 0.01;
        StepAtVelocity();
        return Closed();
    }

    SizedDuct WithinCaps(float lossCap, float velocityCap) {
        m_working = static_cast<double>(velocityCap);
        StepAtVelocity();
        int steps = 0;
        do {
            CountStep(steps);
            m_working -= 0.01;
            StepAtVelocity();
            CappedLoss = ToSingle(TestedLoss());
        } while (CappedLoss > lossCap);
        return Closed();
    }

    double ExactWidth = 0; // the last, before it was rounded
    float CappedLoss = 0;  // the last that was compared with the cap

  private:
    static void CountStep(int& steps) {
        if (++steps > 500000) {
            throw CalcFailure();
        }
    }

    template <typename Diameter>
    void Settle(Diameter diameter) {
        double previous = 0;
        int passes = 0;
        do {
            if (++passes > 10000) {
                throw CalcFailure();
            }
            previous = m_diameter;
            m_diameter = diameter();
            m_friction = FrictionFactor(m_flow, m_diameter, m_roughness, m_friction);
        } while (!(std::fabs(previous - m_diameter) < 0.0000000001));
    }

    double LossAtLoss() {
        Settle([&] { return DiameterForLoss(m_friction, m_working, m_flow, m_density); });
        RoundWidth(m_height);
        return TestedLoss();
    }

    void StepAtVelocity() {
        Settle([&] { return DiameterForVelocity(m_working, m_flow); });
        RoundWidth(1E+50);
    }

    void RoundWidth(double start) {
        ExactWidth = OtherSide(m_height, m_diameter, start);
        m_width = RoundedUpSize(ExactWidth);
    }

    // With the velocity of the round duct.
    double TestedLoss() const {
        const double V = RoundDuctVelocity(m_flow, m_diameter);
        return LossGradient(m_friction, EquivalentDiameter(m_width, m_height), V, m_density);
    }

    SizedDuct Closed() const {
        const double E = EquivalentDiameter(m_width, m_height);
        const double V = RoundDuctVelocity(m_flow, E);
        return {m_width, V, LossGradient(m_friction, E, V, m_density), RoundedUpSize(E)};
    }

    double m_flow;
    double m_height;
    double m_roughness;
    double& m_working;
    double m_density = Density(Settings.FluidTemp);
    double m_diameter = 1.0;
    double m_friction = 1.0;
    double m_width = 0;
};

} // namespace plenair
