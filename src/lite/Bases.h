#pragma once

#include "core/Settings.h"

#include <array>
#include <cstdint>

// The calculation bases, and the boxes of their targets.
namespace plenair {

// Values of Settings.CalcBasis, and indices of the options and boxes.
enum class Basis : std::int16_t { LossPerMetre, Velocity, Capped, AnalyseFlow, AnalyseVelocity };
constexpr int kBases = 5;

// An analysis works on a duct that is given, and txtInputA holds its width; the others size one for a flow.
constexpr bool IsAnalysis(int index) {
    return index == static_cast<int>(Basis::AnalyseFlow) || index == static_cast<int>(Basis::AnalyseVelocity);
}

// Index of the second box of Basis::Capped; the first holds the loss.
constexpr int kVelocityCapBox = 9;

struct BasisBox {
    int Index;
    double SettingsRecord::*Default; // where its text comes from
    bool FollowsOptions;             // takes a new text from the options, too
};

constexpr std::array<BasisBox, 6> kBasisBoxes{{{0, &SettingsRecord::MaxLPM, true},
                                               {1, &SettingsRecord::MaxVelocity, true},
                                               {2, &SettingsRecord::MaxLPM, true},
                                               {kVelocityCapBox, &SettingsRecord::MaxVelocity, true},
                                               {3, &SettingsRecord::Analysis, true},
                                               {4, &SettingsRecord::MaxVelocity, false}}};

} // namespace plenair
