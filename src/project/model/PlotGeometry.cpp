#include "project/model/PlotGeometry.h"

#include "flow/CalcFailure.h"
#include "flow/Units.h"
#include "platform/text/NumberText.h"
#include "project/model/DuctPath.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectGeometry.h"

#include <cmath>
#include <cstddef>

namespace plenair {

namespace {

void AddGuides(PlotGeometry& plot, const PlotScales& scales) {
    const Point near = plot.NearCorner;
    const Point far = plot.FarCorner;
    double x = near.X;
    double y = near.Y;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        x += PathElements[position].Length / scales.LengthScale;
        plot.Guides.push_back({Drawable({x, near.Y}), Drawable({x, far.Y})});
        y += PathElements[position].PressureDrop / scales.DropScale;
        plot.Guides.push_back({Drawable({near.X, y}), Drawable({far.X, y})});
    }
}

void AddPath(PlotGeometry& plot, const PlotScales& scales) {
    Point start = plot.NearCorner;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        const PathElement& element = PathElements[position];
        const Point end{start.X + element.Length / scales.LengthScale,
                        start.Y + element.PressureDrop / scales.DropScale};
        plot.Path.push_back({Drawable(start), Drawable(end), element.Colour});
        start = end;
    }
}

void AddPressures(PlotGeometry& plot, const PlotScales& scales, const PlotFigures& figures) {
    Point place{plot.NearCorner.X + figures.PressureLabelX, plot.NearCorner.Y + figures.PressureLabelY};
    double pressure = 0;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        pressure += PathElements[position].PressureDrop;
        place.Y += PathElements[position].PressureDrop / scales.DropScale;
        plot.Labels.push_back({Drawable(place), Format(pressure, "0")});
    }
}

void AddLengths(PlotGeometry& plot, const PlotScales& scales, const PlotFigures& figures) {
    Point place{plot.NearCorner.X + figures.LengthLabelX, plot.FarCorner.Y};
    double length = 0;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        length += PathElements[position].Length;
        place.X += PathElements[position].Length / scales.LengthScale;
        plot.Labels.push_back({Drawable(place), Format(ToMetres(length), "0.0")});
    }
}

void AddElementLabels(PlotGeometry& plot, const PlotScales& scales, double y) {
    double length = 0;
    for (std::size_t position = 1; position < PathElements.size(); ++position) {
        const PathElement& element = PathElements[position];
        const double x = plot.NearCorner.X + (element.Length / 2 + length) / scales.LengthScale;
        length += element.Length;
        const std::string letter = TypeLetter(element.Colour);
        if (!letter.empty()) {
            plot.Labels.push_back({Drawable({x, y}), letter + std::to_string(element.Position)});
        }
    }
}

} // namespace

PathSums SumsOfPath() {
    PathSums sums;
    for (const PathElement& element : PathElements) {
        sums.Length += element.Length;
        sums.Drop += element.PressureDrop;
    }
    return sums;
}

PlotScales ScalesOfPlot(Extent surface, const PlotFigures& figures) {
    const PathSums sums = SumsOfPath();
    const PlotScales scales{sums.Length / (surface.Width * figures.Span),
                            sums.Drop / (surface.Height * figures.Span)};
    if (!std::isnormal(scales.LengthScale) || !std::isnormal(scales.DropScale)) {
        throw CalcFailure();
    }
    return scales;
}

PlotGeometry LayOutPlot(Extent surface, const PlotFigures& figures) {
    const PlotScales scales = ScalesOfPlot(surface, figures);
    PlotGeometry plot;
    plot.NearCorner = {surface.Width * figures.NearEdge, surface.Height * figures.NearEdge};
    plot.FarCorner = {surface.Width * figures.FarEdge, surface.Height * figures.FarEdge};
    AddGuides(plot, scales);
    AddPath(plot, scales);
    AddPressures(plot, scales, figures);
    AddLengths(plot, scales, figures);
    AddElementLabels(plot, scales, surface.Height * figures.DuctLabelY);
    return plot;
}

} // namespace plenair
