#include "project/PathPlot.h"

#include "flow/CalcFailure.h"
#include "platform/text/NumberText.h"

#include <cmath>

namespace plenair {

namespace {

struct PathTotals {
    double Length = 0;
    double Drop = 0;
};

PathTotals TotalsOfPath() {
    PathTotals totals;
    for (const PathElement& element : PathElements) {
        totals.Length += element.Length;
        totals.Drop += element.PressureDrop;
    }
    return totals;
}

// One plot on one surface.
class PathPlot {
  public:
    PathPlot(DrawingSurface& surface, const PlotFigures& figures);

    void Draw() const;

  private:
    void DrawFrame() const;
    void DrawGuides() const;
    void DrawPath() const;
    void PrintPressures() const;
    void PrintLengths() const;
    void PrintDucts() const;
    double AcrossOf(double length) const { return length / m_lengthScale; }
    double DownOf(double drop) const { return drop / m_dropScale; }
    void Line(double x1, double y1, double x2, double y2, ColourNumber colour) const;
    void Print(double x, double y, const std::string& text) const;

    DrawingSurface& m_surface;
    PlotFigures m_figures;
    double m_left;
    double m_top;
    double m_right;
    double m_bottom;
    double m_lengthScale; // mm per unit
    double m_dropScale;   // Pa per unit
};

PathPlot::PathPlot(DrawingSurface& surface, const PlotFigures& figures)
    : m_surface(surface), m_figures(figures), m_left(surface.Width() * figures.NearEdge),
      m_top(surface.Height() * figures.NearEdge), m_right(surface.Width() * figures.FarEdge),
      m_bottom(surface.Height() * figures.FarEdge) {
    const PathTotals totals = TotalsOfPath();
    m_lengthScale = totals.Length / (surface.Width() * figures.Span);
    m_dropScale = totals.Drop / (surface.Height() * figures.Span);
    if (!std::isnormal(m_lengthScale) || !std::isnormal(m_dropScale)) {
        throw CalcFailure("a plot without a scale");
    }
}

void PathPlot::Draw() const {
    DrawFrame();
    DrawGuides();
    DrawPath();
    PrintPressures();
    PrintLengths();
    PrintDucts();
}

void PathPlot::Line(double x1, double y1, double x2, double y2, ColourNumber colour) const {
    m_surface.Line(Drawable(x1), Drawable(y1), Drawable(x2), Drawable(y2), colour);
}

void PathPlot::Print(double x, double y, const std::string& text) const {
    m_surface.SetPosition(Drawable(x), Drawable(y));
    m_surface.Print(text);
}

void PathPlot::DrawFrame() const {
    m_surface.SetLineStyle(LineStyle::Solid);
    m_surface.SetLineWidth(1);
    m_surface.Box(m_left, m_top, m_right, m_bottom, kBlackColour);
}

void PathPlot::DrawGuides() const {
    m_surface.SetLineStyle(LineStyle::Dashed);
    double x = m_left;
    double y = m_top;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        x += AcrossOf(PathElements[position].Length);
        Line(x, m_top, x, m_bottom, kBlackColour);
        y += DownOf(PathElements[position].PressureDrop);
        Line(m_left, y, m_right, y, kBlackColour);
    }
}

void PathPlot::DrawPath() const {
    m_surface.SetLineStyle(LineStyle::Solid);
    m_surface.SetLineWidth(m_figures.PathLineWidth);
    double x = m_left;
    double y = m_top;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        const PathElement& element = PathElements[position];
        const double nextX = x + AcrossOf(element.Length);
        const double nextY = y + DownOf(element.PressureDrop);
        Line(x, y, nextX, nextY, DrawnColour(element.Colour));
        x = nextX;
        y = nextY;
    }
}

void PathPlot::PrintPressures() const {
    const double x = m_left + m_figures.PressureLabelX;
    double y = m_top + m_figures.PressureLabelY;
    double pressure = 0;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        pressure += PathElements[position].PressureDrop;
        y += DownOf(PathElements[position].PressureDrop);
        Print(x, y, Format(pressure, "0"));
    }
}

void PathPlot::PrintLengths() const {
    double x = m_left + m_figures.LengthLabelX;
    double length = 0;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        length += PathElements[position].Length;
        x += AcrossOf(PathElements[position].Length);
        Print(x, m_bottom, Format(length / 1000, "0.0"));
    }
}

void PathPlot::PrintDucts() const {
    const double y = m_surface.Height() * m_figures.DuctLabelY;
    double length = 0;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        const PathElement& element = PathElements[position];
        const double x = m_left + AcrossOf(element.Length / 2 + length);
        length += element.Length;
        const std::string letter = TypeLetter(element.Colour);
        if (!letter.empty()) {
            Print(x, y, letter + std::to_string(element.Position));
        }
    }
}

} // namespace

std::string WhyNoPlot() {
    const PathTotals totals = TotalsOfPath();
    if (totals.Length == 0.0) {
        return "There is nothing to plot, since the ducts of this path have no length.";
    }
    if (totals.Drop == 0.0) {
        return "There is nothing to plot, since the pressure does not drop along this path.";
    }
    return "";
}

void DrawPathPlot(DrawingSurface& surface, const PlotFigures& figures) {
    PathPlot(surface, figures).Draw();
}

void PlotPath(const ProjectWindows& windows) {
    GridPicture& grid = windows.Solver.PicGrid();
    const PathPlot plot(grid, kGridPlot); // a path that can't be plotted leaves the picture on the grid
    grid.Clear();
    plot.Draw();
    PlotShowing = kFlagSet;
}

} // namespace plenair
