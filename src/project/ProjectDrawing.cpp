#include "project/ProjectDrawing.h"

#include "platform/text/NumberText.h"
#include "project/DuctColour.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectGeometry.h"
#include "project/model/ProjectModel.h"
#include "project/model/SheetBoxes.h"

namespace plenair {

namespace {

constexpr double kEndMark = 50; // half a side
constexpr int kGridLineWidth = 1;
constexpr int kHighlightLineWidth = 4;

// The lines' places are summed up in 32 bits.
float Next(float place, double pitch) {
    return static_cast<float>(static_cast<double>(place) + pitch);
}

} // namespace

void DrawGridLines(DrawingSurface& surface, ColourNumber colour) {
    const auto [width, height] = surface.Size();
    surface.SetLineWidth(kGridLineWidth);
    const double across = GridPitch(width, Axis::X);
    float x = Next(0, across);
    for (int line = 1; line < kCellsAcross; ++line, x = Next(x, across)) {
        const double at = static_cast<double>(x);
        surface.Line({at, 0}, {at, height}, colour);
    }
    const double down = GridPitch(height, Axis::Y);
    float y = Next(0, down);
    for (int line = 1; line < kCellsDown; ++line, y = Next(y, down)) {
        const double at = static_cast<double>(y);
        surface.Line({0, at}, {width, at}, colour);
    }
}

void DrawEndMark(DrawingSurface& surface, Point at) {
    surface.Box({at.X - kEndMark, at.Y - kEndMark}, {at.X + kEndMark, at.Y + kEndMark}, kBlackColour);
}

void DrawDuct(DrawingSurface& surface, std::int16_t duct) {
    const DuctRecord& record = Duct(duct);
    const Point start = StartOf(record, surface.Size());
    const Point end = EndOf(record, surface.Size());
    DrawEndMark(surface, start);
    DrawEndMark(surface, end);
    surface.Line(start, end, DrawnColour(record.Colour));
}

void PrintLabel(DrawingSurface& surface, std::int16_t duct) {
    surface.SetPosition(LabelPlace(Duct(duct), surface.Size()));
    surface.Print(DuctLabel(duct));
}

void PrintLabels(DrawingSurface& surface, int first) {
    for (int number = first; number <= DuctCount; ++number) {
        PrintLabel(surface, static_cast<std::int16_t>(number));
    }
}

std::string DuctInWords(std::int16_t number) {
    const DuctRecord& duct = Duct(number);
    const auto crossing = [](double x, double y) {
        const Point inCells = Drawable({x * kCellsAcross, y * kCellsDown});
        return Format(inCells.X, "0") + ", " + Format(inCells.Y, "0");
    };
    const char* const types[] = {"", " rigid", " flexible", " connection"};
    std::string words = DuctLabel(number) + types[static_cast<std::size_t>(TypeOf(duct.Colour))] + ", from " +
                        crossing(duct.StartX, duct.StartY) + " to " + crossing(duct.EndX, duct.EndY);
    for (const SheetRow& row : kSheetRows) {
        if (const std::string text = TextOf(duct, row.Box); text != "0") {
            words += std::string(",").append(row.Caption).append(" ").append(text);
        }
    }
    return words;
}

void DrawHighlight(DrawingSurface& surface, std::int16_t duct) {
    const DuctRecord& record = Duct(duct);
    surface.SetLineWidth(kHighlightLineWidth);
    surface.Line(StartOf(record, surface.Size()), EndOf(record, surface.Size()), kGreenColour);
    surface.SetLineWidth(kNetworkLineWidth);
}

void ShowNetwork(GridPicture& picture, ColourNumber gridColour, bool labels) {
    ShownNetwork wanted{NetworkRevision(), picture.Size(), gridColour, labels, picture.BaseLines.Clearings()};
    if (wanted != picture.Shown || DuctCount < picture.ShownDucts) {
        picture.Clear();
        wanted.Clearings = picture.BaseLines.Clearings();
        picture.Shown = wanted;
        picture.ShownDucts = 0;
        picture.BaseLines.SetLineStyle(LineStyle::Solid);
        DrawGridLines(picture.BaseLines, gridColour);
        picture.BaseLines.SetLineWidth(kNetworkLineWidth);
    }
    for (int number = picture.ShownDucts + 1; number <= DuctCount; ++number) {
        DrawDuct(picture.BaseLines, static_cast<std::int16_t>(number));
    }
    if (labels) {
        PrintLabels(picture.BaseTexts, picture.ShownDucts + 1);
    }
    picture.ShownDucts = DuctCount;
    picture.Overlay.Clear();
    picture.Overlay.SetLineStyle(LineStyle::Solid);
    picture.Overlay.SetLineWidth(kNetworkLineWidth);
}

} // namespace plenair
