#include "flow/DuctSearch.h"

#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/FluidProperties.h"
#include "flow/GeneralCalcs.h"
#include "flow/Sizing.h"
#include "flow/Units.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

// Why a search may leap. The plain walk takes every step of 0.01 and settles the round duct at each. What one
// step hands on to the next is the friction factor alone, and each pass of its formula leaves a third or less
// of what two factors differ by: some steps on, nothing shows any more where a walk came from, down to the
// last bit. And the loss only falls with the velocity, and only rises with the working loss: where it is
// clearly short of passing the test, no step before has passed. So a walk that has not ended after its first
// steps looks for the last step that is clearly short, by halving, and goes to some steps before that. From
// there it walks twice, from a factor just below any that the plain walk can have there and from one just
// above. As long as the two take as many passes each time, the plain walk does too and lies between them;
// once they have the same bits it has these bits, and a few steps more leave no doubt. From there on each
// step is tested as ever. Where the passes differ it starts farther back. Where there is nothing to save, and
// where a factor, a roughness, a flow or a width is far from practice, the plain walk decides.
namespace plenair {

namespace {

constexpr int kMostSteps = 500000;
constexpr int kDiameterPasses = 10000; // for one working value
constexpr int kMostPasses = 5000000;   // a second or so; a usual step takes two to five
constexpr int kPassesOfAPulse = 1024;
constexpr double kStep = 0.01;
constexpr double kLastChange = 1E-5;    // at most, of a friction factor that has settled
constexpr double kFarStart = 1E+50;     // of a width, where the height says nothing about it
constexpr double kLeastWidth = 0.0005;  // m, what still rounds to 1 mm
constexpr double kCountableWidth = 2E6; // m, about what can be counted in mm

enum class Working { Loss, Velocity };

// Of a leap, in steps: when it is tried, and how many at least it must save. It ends in a run-up, by some
// steps before whose end the two walks must have met; a step of the working loss settles in more passes.
constexpr int LeapAfter(Working kind) {
    return kind == Working::Loss ? 20 : 3;
}
constexpr int FirstRunUp(Working kind) {
    return kind == Working::Loss ? 6 : 12;
}
constexpr int kMetBefore = 2;
constexpr int kWorthALeap = 8;

// The search for one duct. D and Friction, the round duct of the last working value, carry over to the next,
// which is part of the result.
struct Search {
    Working Kind;
    double Q;         // m³/s
    double H;         // m
    double Roughness; // m
    double AirDensity;
    const SearchPulse* Pulse;
    float Target = 0;  // of the loss, which a search for a loss steps up to
    float LossCap = 0; // what a search for a velocity steps down to

    double D = 1.0;
    double PreviousD = 0;
    double Friction = 1.0;
    int Passes = 0;            // to settle them, in all
    std::uint64_t Pattern = 0; // of the passes that each friction factor took

    double W = 0;            // width on the size step
    double DuctVelocity = 0; // in the round duct
    double EquivDiameter = 0;
    bool AtCap = false; // the velocity cap itself has been passed
    bool Final = false; // the loss has reached its target

    // Of the last step, to save working it out again; no result depends on these.
    double LastWidth = 0;
    double LastW = -1;
};

Search StartSearch(Working kind, double flow, double height, double roughness, const SearchPulse& pulse) {
    return {kind, flow, height, roughness, Density(Settings.FluidTemp), &pulse};
}

void CountStep(int& steps) {
    if (++steps > kMostSteps) {
        throw CalcFailure();
    }
}

void Settle(Search& search, double working) {
    int passes = 0;
    do {
        if (++passes > kDiameterPasses || ++search.Passes > kMostPasses) {
            throw CalcFailure();
        }
        if (search.Passes % kPassesOfAPulse == 0 && *search.Pulse) {
            (*search.Pulse)();
        }
        search.PreviousD = search.D;
        if (search.Kind == Working::Loss) {
            search.D = DiameterForLoss(search.Friction, working, search.Q, search.AirDensity);
        } else if (passes == 1) { // the same at each pass
            search.D = DiameterForVelocity(working, search.Q);
        }
        const SettledFriction settled = SettleFriction(search.Q, search.D, search.Roughness, search.Friction);
        search.Friction = settled.Factor;
        search.Pattern = search.Pattern * 1009 + static_cast<std::uint64_t>(settled.Passes);
    } while (!(std::fabs(search.PreviousD - search.D) < 0.0000000001));
    search.DuctVelocity = RoundDuctVelocity(search.Q, search.D);
}

// The width that OtherSide leads to, in m, without its dozens of passes: Newton's method on the same
// equation, from a `start` near it. Nothing where it lies outside of practice; then OtherSide has to tell.
std::optional<double> QuickWidth(double height, double diameter, double start) {
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
        if (pass == kPasses || !(width > 0.0) || width > kCountableWidth) {
            return std::nullopt;
        }
    }
    return width;
}

// What RoundUpSize makes of a size of so many whole millimetres, in m.
double OnSizeStep(double millimetres) {
    const std::int64_t step = Settings.RoundOff;
    const auto whole = static_cast<std::int64_t>(millimetres);
    const std::int64_t remainder = whole % step;
    return ToMetres(static_cast<double>(remainder == 0 ? whole : whole - remainder + step));
}

// What RoundUpSize makes of a width that is known but for a hair. All that it keeps is the whole millimetre
// that the width rounds to: clear of the middle between two of them the hair can't be seen in a single bit.
// Nothing otherwise.
std::optional<double> RoundedWhereClear(double width) {
    constexpr double kClearOfMiddle = 1E-4; // mm
    const double millimetres = ToMillimetres(width);
    const double below = std::floor(millimetres);
    if (Settings.RoundOff == 0 || std::fabs(millimetres - below - 0.5) < kClearOfMiddle) {
        return std::nullopt;
    }
    return OnSizeStep(millimetres - below < 0.5 ? below : below + 1);
}

// Gives the search the width of the rectangle that stands for the round duct, on the size step. The plain way
// to it starts at `start`.
void RoundWidth(Search& search, double start) {
    if (const auto quick = QuickWidth(search.H, search.D, search.LastWidth)) {
        search.LastWidth = *quick;
        if (const auto rounded = RoundedWhereClear(*quick)) {
            search.W = *rounded;
            return;
        }
    }
    search.W = RoundedUpSize(OtherSide(search.H, search.D, start));
}

// Loss of the rectangle at the velocity of the round duct: what a search compares with its bound.
double TestedLoss(Search& search) {
    if (search.W != search.LastW) { // from one working value to the next it is mostly the same
        search.EquivDiameter = EquivalentDiameter(search.W, search.H);
        search.LastW = search.W;
    }
    return LossGradient(search.Friction, search.EquivDiameter, search.DuctVelocity, search.AirDensity);
}

// The duct as chosen. The friction factor stays that of the last round duct.
SizedDuct Close(const Search& search) {
    const double diameter = EquivalentDiameter(search.W, search.H);
    const double velocity = RoundDuctVelocity(search.Q, diameter);
    const double loss = LossGradient(search.Friction, diameter, velocity, search.AirDensity);
    return {search.W, velocity, loss, RoundedUpSize(diameter)};
}

double StepOf(const Search& search) {
    return search.Kind == Working::Loss ? kStep : -kStep;
}

// `value` after `count` additions of `step`, bit for bit. Between two powers of two each of them is rounded
// by the same amount, so that they can be done at once.
double Stepped(double value, double step, int count) {
    while (count > 0) {
        const double next = value + step;
        const double moved = next - value;
        if (moved == 0.0) {
            return value; // too large to feel a step
        }
        const double power = std::exp2(std::ilogb(value));
        const double room = moved > 0 ? 2 * power - value : value - power;
        const int alike = static_cast<int>(std::min(room / std::fabs(moved) - 1, 1.0 * count));
        value = alike > 1 ? value + alike * moved : next;
        count -= std::max(alike, 1);
    }
    return value;
}

// How far the step at `working` is from passing its test, as a ratio: above 1 it is clearly short. 0 where
// anything about it is far from practice. `probe` is any walk; it comes to stand there. The width is taken as
// near to passing as any way to round it could, and the factor as any walk.
double Shortness(Search& probe, double working) {
    try {
        Settle(probe, working);
        const double reynolds =
            ReynoldsNumber(probe.DuctVelocity, probe.D, probe.AirDensity, Viscosity(Settings.FluidTemp));
        const auto width = QuickWidth(probe.H, probe.D, probe.LastWidth);
        if (!width || !(probe.Friction < 0.1) || !(probe.Roughness >= 0.0) || !(probe.Roughness < probe.D) ||
            !(reynolds > 100.0)) {
            return 0;
        }
        probe.LastWidth = *width;
        const double slack = 1 + 2 * kLastChange / probe.Friction;
        if (probe.Kind == Working::Loss) {
            probe.W = OnSizeStep(std::floor(ToMillimetres(*width) + 0.499));
            return Divide(probe.Target, TestedLoss(probe) * slack);
        }
        probe.W = OnSizeStep(std::floor(ToMillimetres(*width) + 0.501)) + ToMetres(1);
        return Divide(TestedLoss(probe), probe.LossCap * slack);
    } catch (const CalcFailure&) {
        return 0;
    }
}

// How many steps on from `working`, at most `most`, all steps are clearly short; fewer than `least` are none.
// By halving, and first around where that ends if the loss goes with a power of the working value.
int StepsClearlyShort(Search probe, double working, int least, int most) {
    constexpr int kGuesses = 8;
    static const SearchPulse kNoPulse;
    probe.Pulse = &kNoPulse; // what it throws would pass for a step that can't be calculated
    const double power = probe.Kind == Working::Loss ? 1 : -1 / 2.4;
    const auto shortness = [&](int steps) {
        return Shortness(probe, Stepped(working, StepOf(probe), steps));
    };
    int at = 0;
    double ratio = shortness(at);
    if (!(ratio > 1.0) || !(shortness(least) > 1.0)) {
        return 0;
    }
    int clear = least;
    int unclear = most + 1;
    for (int guesses = 0; unclear - clear > 1; ++guesses) {
        const double there = at * StepOf(probe) + working;
        const double beyond = ratio > 1.0 ? 1 : -1; // so that it is closed in upon from both sides
        const double guess = at + (std::pow(ratio, power) - 1) * there / StepOf(probe) + beyond;
        const bool isGuess = guesses < kGuesses && guess > clear && guess < unclear;
        at = isGuess ? static_cast<int>(guess) : clear + (unclear - clear) / 2;
        ratio = shortness(at);
        (ratio > 1.0 ? clear : unclear) = at;
    }
    return clear;
}

// The walk `steps` steps on from the working value `from`, if it is certain how it stands there: see above.
// `search` is any walk.
std::optional<Search> RunUpTo(Search search, double from, int steps) {
    Settle(search, from - StepOf(search));
    const int passesBefore = search.Passes;
    Settle(search, from);
    // A factor changed by no more than the limit at its last pass; at the rate at which passes close in it is
    // no farther from the settled one than this. A step mostly settles its factor twice.
    const double rate = std::sqrt(search.Friction) / 1.15;
    const bool once = search.Passes - passesBefore == 1;
    const double farthest = kLastChange * rate / (1 - rate) * (once ? 1 : rate);
    Search low = search;
    Search high = search;
    low.Friction -= 2 * farthest;
    high.Friction += 2 * farthest;
    bool met = false;
    for (int i = 0; i < steps; ++i) {
        from += StepOf(search);
        Settle(low, from);
        if (met) {
            continue;
        }
        Settle(high, from);
        met = low.Friction == high.Friction && low.D == high.D;
        if (low.Pattern != high.Pattern || (!met && i == steps - kMetBefore)) {
            return std::nullopt;
        }
    }
    return low;
}

// Takes a walk that is about to settle at `working` to a later step, if it is certain how it stands there.
void Leap(Search& search, double& working, int& steps) {
    if (Settings.RoundOff <= 0) {
        return; // sizes rounded by a step below 0 go up and down
    }
    const double step = StepOf(search);
    const double stepsToZero = search.Kind == Working::Velocity ? working / kStep - 1 : kMostSteps;
    const int most = static_cast<int>(std::min<double>(kMostSteps - steps, stepsToZero));
    int runUp = FirstRunUp(search.Kind);
    const int ahead = StepsClearlyShort(search, working, runUp + kWorthALeap, most);
    for (; ahead >= runUp + kWorthALeap; runUp *= 4) {
        if (const auto there = RunUpTo(search, Stepped(working, step, ahead - runUp - 1), runUp)) {
            search = *there;
            working = Stepped(working, step, ahead);
            steps += ahead;
            return;
        }
    }
}

SizedDuct WalkDown(Search search, double& working) {
    for (int steps = 0;;) {
        if (working <= 0.0) {
            throw CalcFailure();
        }
        Settle(search, working);
        RoundWidth(search, kFarStart);
        if (search.AtCap && !(ToSingle(TestedLoss(search)) > search.LossCap)) {
            return Close(search);
        }
        search.AtCap = true;
        CountStep(steps);
        working -= kStep;
        if (steps == LeapAfter(search.Kind)) {
            Leap(search, working, steps);
        }
    }
}

// Width in m of the duct that `velocity` asks for, before it is rounded; nothing where it can't be
// calculated.
std::optional<double> WidthAt(double flow, double height, double velocity) {
    try {
        return OtherSide(height, DiameterForVelocity(velocity, flow), kFarStart);
    } catch (const CalcFailure&) {
        return std::nullopt;
    }
}

NoDuct ReasonAt(double working, double flow, double height, float velocityCap) {
    if (flow < 0.0) {
        return NoDuct::NegativeFlow;
    }
    if (height < 0.0) {
        return NoDuct::NegativeHeight;
    }
    if (velocityCap <= static_cast<float>(kStep)) {
        return NoDuct::NoVelocity;
    }
    const std::optional<double> width = WidthAt(flow, height, working);
    if (width && *width < kLeastWidth) {
        return NoDuct::NoWidth;
    }
    // What is left of the velocity after many steps can be a hair above 0, and so the width beyond all
    // bounds.
    if (working < kStep / 2 || (width && *width > kCountableWidth)) {
        return NoDuct::LossTooHigh;
    }
    return NoDuct::OutOfReach;
}

} // namespace

SizedDuct SizeForLoss(double flow, double height, float target, double roughness, double& working,
                      const SearchPulse& pulse) {
    working = static_cast<double>(target);
    Search search = StartSearch(Working::Loss, flow, height, roughness, pulse);
    search.Target = target;
    for (int steps = 0;;) {
        Settle(search, working);
        RoundWidth(search, height);
        const double loss = TestedLoss(search);
        if (search.Final) {
            return Close(search);
        }
        CountStep(steps);
        if (!(ToSingle(loss) < search.Target)) {
            working -= kStep;
            search.Final = true;
            continue;
        }
        working += kStep;
        if (steps == LeapAfter(search.Kind)) {
            Leap(search, working, steps);
        }
    }
}

SizedDuct SizeForVelocity(double flow, double height, float target, double roughness, double& working,
                          const SearchPulse& pulse) {
    working = static_cast<double>(target);
    Search search = StartSearch(Working::Velocity, flow, height, roughness, pulse);
    Settle(search, working);
    RoundWidth(search, kFarStart); // may fail for the target itself, though its width is not taken
    working -= kStep;
    Settle(search, working);
    RoundWidth(search, kFarStart);
    return Close(search);
}

SizedDuct SizeWithinCaps(double flow, double height, float lossCap, float velocityCap, double roughness,
                         double& working, const SearchPulse& pulse) {
    working = static_cast<double>(velocityCap);
    Search search = StartSearch(Working::Velocity, flow, height, roughness, pulse);
    search.LossCap = lossCap;
    try {
        return WalkDown(search, working);
    } catch (const CalcFailure&) {
        throw DuctNotFound(ReasonAt(working, flow, height, velocityCap), working);
    }
}

} // namespace plenair
