#pragma once

#include "project/ProjectWindows.h"
#include "project/model/DuctPath.h"

// The plot of accumulated pressure against accumulated length.
namespace plenair {

// Where the parts of the plot stand; fractions are of the surface's width and height.
struct PlotFigures {
    double NearEdge; // of the frame
    double FarEdge;
    double Span; // between the two
    int PathLineWidth;
    double PressureLabelX; // added to the near edge
    double PressureLabelY;
    double LengthLabelX;
    double DuctLabelY; // a fraction
};

constexpr PlotFigures kGridPlot{0.05, 0.95, 0.9, 2, 50, -200, -50, 0};
constexpr PlotFigures kPaperPlot{0.125, 0.875, 0.75, 5, 0, 0, 0, 0.125};

// Why the path can't be plotted, for the user; empty if it can.
std::string WhyNoPlot();

// Draws the plot of PathElements on an empty surface, the same picture on both kinds. Throws CalcFailure,
// before anything is drawn, where there is nothing to plot.
void DrawPathPlot(DrawingSurface& surface, const PlotFigures& figures);

// Puts the plot on the grid in place of the network.
void PlotPath(const ProjectWindows& windows);

} // namespace plenair
