#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/RecordedSurface.h"
#include "platform/plane/Point.h"

#include <cstddef>
#include <cstdint>

// The network as it is drawn, on the grid and on paper alike.
namespace plenair {

// Line width of ducts and end marks on the grid, in its pixels.
constexpr int kNetworkLineWidth = 2;

// The grid lines, none of them on the outer edge. Leaves a line width of 1.
void DrawGridLines(DrawingSurface& surface, ColourNumber colour);

// The mark of a duct's end: the outline of a square.
void DrawEndMark(DrawingSurface& surface, Point at);

// The two end marks of each duct and the duct over them, in the order of the numbers and in the line width
// that is set.
void DrawDucts(DrawingSurface& surface);

// Letter and number at the middle of one duct, or of each.
void PrintLabel(DrawingSurface& surface, std::int16_t duct);
void PrintLabels(DrawingSurface& surface);

// A green line over the duct. Leaves the line width of the network.
void DrawHighlight(DrawingSurface& surface, std::int16_t duct);

// The picture of the grid. It knows how far it is the plain network, so that redrawing an unchanged one, as
// each highlight does, costs nothing.
class GridPicture : public RecordedSurface {
  public:
    // Clears the surface and draws the grid lines, the ducts and, if wanted, their labels.
    void ShowNetwork(ColourNumber gridColour, bool labels);

  private:
    struct Network {
        std::uint64_t Revision;
        Extent Size;
        ColourNumber GridColour;
        bool Labels;
        bool operator==(const Network&) const = default;
    };

    // The first m_networkItems items are m_shown, as long as nobody else has cut the picture.
    Network m_shown{};
    std::size_t m_networkItems = 0;
    std::size_t m_cuts = 0;
};

} // namespace plenair
