#include "project/PlotDrawing.h"
#include "project/DuctColour.h"
#include "project/ProjectDrawing.h"
#include "project/model/ProjectModel.h"

namespace plenair {

namespace {

std::vector<PathElement> s_plotted;

constexpr int kFrameLineWidth = 1;

void Draw(DrawingSurface& surface, const PlotGeometry& plot, int pathLineWidth) {
    surface.SetLineStyle(LineStyle::Solid);
    surface.SetLineWidth(kFrameLineWidth);
    surface.Box(plot.NearCorner, plot.FarCorner, kBlackColour);
    surface.SetLineStyle(LineStyle::Dashed);
    for (const PlotLine& guide : plot.Guides) {
        surface.Line(guide.Start, guide.End, kBlackColour);
    }
    surface.SetLineStyle(LineStyle::Solid);
    surface.SetLineWidth(pathLineWidth);
    for (const PlotLine& line : plot.Path) {
        surface.Line(line.Start, line.End, DrawnColour(line.Colour));
    }
    for (const PlotLabel& label : plot.Labels) {
        surface.SetPosition(label.Place);
        surface.Print(label.Text);
    }
}

} // namespace

std::string WhyNoPlot() {
    const PathSums sums = SumsOfPath();
    if (sums.Length == 0.0) {
        return "There is nothing to plot, since the ducts of this path have no length.";
    }
    if (sums.Drop == 0.0) {
        return "There is nothing to plot, since the pressure does not drop along this path.";
    }
    return "";
}

void DrawPlot(DrawingSurface& surface, const PlotFigures& figures) {
    Draw(surface, LayOutPlot(surface.Size(), figures), figures.PathLineWidth);
}

void PlotPath(const ProjectWindows& windows) {
    GridPicture& grid = windows.Solver.PicGrid();
    const PlotGeometry plot = LayOutPlot(grid.Size(), kGridPlot);
    grid.Clear();
    Draw(grid.Overlay, plot, kGridPlot.PathLineWidth);
    PlotShowing = kFlagSet;
    s_plotted.assign(PathElements.begin() + 1, PathElements.end());
}

const std::vector<PathElement>& PlottedPath() {
    return s_plotted;
}

} // namespace plenair
