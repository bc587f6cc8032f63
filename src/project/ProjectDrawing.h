#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/LayeredPicture.h"
#include "platform/plane/Point.h"

#include <cstddef>
#include <cstdint>
#include <string>

// The network as it is drawn, on the grid and on paper alike.
namespace plenair {

// Line width of ducts and end marks on the grid, in its pixels.
constexpr int kNetworkLineWidth = 2;

// The grid lines, none of them on the outer edge. Leaves a line width of 1.
void DrawGridLines(DrawingSurface& surface, ColourNumber colour);

// The mark of a duct's end: the outline of a square.
void DrawEndMark(DrawingSurface& surface, Point at);

// The two end marks of a duct and the duct over them, in the line width that is set.
void DrawDuct(DrawingSurface& surface, std::int16_t duct);

// Letter and number at the middle of one duct, or of each from `first` to the last.
void PrintLabel(DrawingSurface& surface, std::int16_t duct);
void PrintLabels(DrawingSurface& surface, int first = 1);

// A duct in words, for those who can't see it: label, type, the crossings of grid lines from which and to
// which it goes, counted from 0 at the top left, and the values of the sheet that are not 0.
std::string DuctInWords(std::int16_t duct);

// A green line over the duct. Leaves the line width of the network.
void DrawHighlight(DrawingSurface& surface, std::int16_t duct);

// What of a network stands in a picture.
struct ShownNetwork {
    std::uint64_t Revision = 0;
    Extent Size;
    ColourNumber GridColour = 0;
    bool Labels = false;
    std::size_t Clearings = 0; // of the picture
    bool operator==(const ShownNetwork&) const = default;
};

// The picture of the grid.
struct GridPicture : LayeredPicture {
    ShownNetwork Shown;
    int ShownDucts = -1; // ducts 1 to this one stand there
};

// Shows the network and nothing over it: the grid lines, the ducts and, if wanted, their labels. What of it
// stands there stays, so that a network that is shown already, as at each highlight, costs nothing, and one
// that has grown the new ducts alone.
void ShowNetwork(GridPicture& picture, ColourNumber gridColour, bool labels);

} // namespace plenair
