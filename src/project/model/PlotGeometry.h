#pragma once

#include "platform/plane/Point.h"

#include <string>
#include <vector>

// The plot of accumulated pressure against accumulated length: where each of its parts stands, in the units
// of a surface. The path falls from the upper left corner of the frame to the lower right one.
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

struct PlotScales {
    double LengthScale = 0; // mm per unit
    double DropScale = 0;   // Pa per unit
};

struct PlotLine {
    Point Start;
    Point End;
    float Colour = 0;
};

struct PlotLabel {
    Point Place;
    std::string Text;
};

struct PlotGeometry {
    Point NearCorner; // of the frame
    Point FarCorner;
    std::vector<PlotLine> Guides; // of each element the vertical one, then the horizontal one
    std::vector<PlotLine> Path;
    std::vector<PlotLabel> Labels; // the pressures, the lengths in m, the elements' places in the path
};

// What the elements of PathElements come to together.
struct PathSums {
    double Length = 0; // mm
    double Drop = 0;   // Pa
};
PathSums SumsOfPath();

// The scales of PathElements on a surface of that size. Throws CalcFailure where there are none, as with a
// path without length or drop.
PlotScales ScalesOfPlot(Extent surface, const PlotFigures& figures);

// The plot of PathElements. Throws CalcFailure where it has no scales.
PlotGeometry LayOutPlot(Extent surface, const PlotFigures& figures);

} // namespace plenair
