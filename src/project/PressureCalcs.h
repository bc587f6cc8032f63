#pragma once

#include "project/ProjectWindows.h"

#include <string>

// The pressure drop along a path.
namespace plenair {

// Velocity pressure in Pa at `velocity` in m/s, for the air of Settings.FluidTemp. Throws CalcFailure on
// overflow.
double VelocityPressure(double velocity);

// cmdCalcPressure_Click: asks for the path and works it out.
void AskForPath(const ProjectWindows& windows);

// Works out the total pressure drop of a typed path, tells it, and plots the path if the user wants it. A
// message tells what can't be done, and then the last path, or the picture on the grid, stays.
void PathPressure(const ProjectWindows& windows, std::string path);

} // namespace plenair
