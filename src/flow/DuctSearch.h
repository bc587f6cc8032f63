#pragma once

#include "flow/CalcFailure.h"

#include <functional>

// Sizing one rectangular duct of a given height: numbers to numbers. The width is rounded up to the size
// step, so a search does not solve for its target. It moves a working value in steps of 0.01, and takes the
// first one at which the rounded duct passes its test.
//
// Units: flow m³/s, height and roughness m, targets Pa/m and m/s. The targets and the losses compared with
// them are 32-bit floats. `working` belongs to the caller: it holds the last working value, after a failure
// the one that failed. Each search throws CalcFailure where its arithmetic has no result, after 500,000
// steps, and where the round ducts of its steps take millions of passes to settle.
namespace plenair {

struct SizedDuct {
    double Width = 0;      // m, on the size step
    double Velocity = 0;   // m/s, in the equivalent round duct
    double Loss = 0;       // Pa/m
    double Equivalent = 0; // m, equivalent round diameter rounded up to the size step
};

// Why no duct was found within caps.
enum class NoDuct {
    NegativeFlow,
    NegativeHeight,
    NoVelocity,  // the velocity cap leaves none to try
    NoWidth,     // so little is needed at that velocity that the width rounds to nothing
    LossTooHigh, // at every velocity down to 0
    OutOfReach   // of what can be calculated, or of the steps that a search may take
};

// Throws this where it finds none; `Velocity` is the last that was tried.
struct DuctNotFound : CalcFailure {
    DuctNotFound(NoDuct why, double lastVelocity) : Reason(why), Velocity(lastVelocity) {}

    NoDuct Reason;
    double Velocity; // m/s
};

// Called now and then during a search that takes long. What it throws ends the search there.
using SearchPulse = std::function<void()>;

// Steps the working loss up from `target` until the rounded duct reaches it, and takes the step before.
SizedDuct SizeForLoss(double flow, double height, float target, double roughness, double& working,
                      const SearchPulse& pulse = {});

// Takes the duct for `target` less 0.01.
SizedDuct SizeForVelocity(double flow, double height, float target, double roughness, double& working,
                          const SearchPulse& pulse = {});

// Steps the working velocity down from `velocityCap`, which itself is never tried, until the loss of the
// rounded duct is at most `lossCap`. Throws DuctNotFound.
SizedDuct SizeWithinCaps(double flow, double height, float lossCap, float velocityCap, double roughness,
                         double& working, const SearchPulse& pulse = {});

} // namespace plenair
