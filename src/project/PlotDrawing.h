#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "project/ProjectWindows.h"
#include "project/model/DuctPath.h"
#include "project/model/PlotGeometry.h"

#include <string>
#include <vector>

// The plot of the last path, on the grid and on paper alike.
namespace plenair {

// Why PathElements can't be plotted, for the user; empty if they can.
std::string WhyNoPlot();

// Draws the plot of PathElements on an empty surface. Throws CalcFailure, before anything is drawn, where
// there is nothing to plot.
void DrawPlot(DrawingSurface& surface, const PlotFigures& figures);

// Puts the plot of PathElements on the grid in place of what stands there. Throws like DrawPlot; then the
// picture stays.
void PlotPath(const ProjectWindows& windows);

// The elements of the plot that was put on the grid last, from place 1 on. PathElements may be those of a
// later path that was not plotted.
const std::vector<PathElement>& PlottedPath();

} // namespace plenair
