#pragma once

#include "lite/LiteWindow.h"

#include <cstdint>

// The five calculation bases of the Lite window. 0, 1 and 2 size a duct: five rows of heights around the one
// given, each with the width that meets the target. 3 and 4 analyse one given duct, in row 2.
namespace plenair {

// Runs the monthly reminder, then the basis. `inputA` is the flow in L/s in the bases 0 to 2, the width in mm
// in 3 and 4; `inputB` the height in mm; `value` the flow in L/s in basis 3, the velocity in m/s in basis 4,
// and without meaning otherwise. Targets of the sizing bases are read from the boxes at each row. A
// CalcFailure ends the basis without a word: rows finished by then stay. A basis outside 0 to 4 shows a
// message.
void CalculateBasis(LiteWindow& window, double inputA, double inputB, double value, std::int16_t basis);

// The routines behind it. Each throws CalcFailure where its arithmetic has no result, and where a search has
// taken 500,000 steps of 0.01 without an end.

// Basis 0: loss per metre of txtCalcBasis(0). Leaves Settings.MaxLPM at the last working value.
void CalcLossPerMetre(LiteWindow& window, double inputA, double inputB);

// Basis 1: velocity of txtCalcBasis(1). Leaves Settings.MaxVelocity at the last working value.
void CalcVelocity(LiteWindow& window, double inputA, double inputB);

// Basis 2: the loss of txtCalcBasis(2) and the velocity of txtCalcBasis(9), neither to be exceeded. Leaves
// Settings.MaxVelocity at the last working value.
void CalcCapped(LiteWindow& window, double inputA, double inputB);

// Basis 3: a duct at a flow.
void CalcAnalyseFlow(LiteWindow& window, double inputA, double inputB, double value);

// Basis 4: a duct at a velocity; its flow stands below the row.
void CalcAnalyseVelocity(LiteWindow& window, double inputA, double inputB, double value);

} // namespace plenair
