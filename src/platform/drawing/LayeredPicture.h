#pragma once

#include "platform/drawing/RecordedSurface.h"

namespace plenair {

// A picture in two layers: a network, which changes seldom, and over it what comes and goes. The network is
// in two sheets, since its labels lie over all of its lines, also over those that are added later. A painter
// keeps an image of each and only paints what has been added, so that what stands there costs nothing.
struct LayeredPicture {
    RecordedSurface NetworkLines;
    RecordedSurface NetworkLabels;
    RecordedSurface Overlay;

    Extent Size() const { return Overlay.Size(); }
    void SetSize(Extent size) {
        NetworkLines.SetSize(size);
        NetworkLabels.SetSize(size);
        Overlay.SetSize(size);
    }

    // Those of all layers, in the order in which they lie over one another.
    std::vector<DrawnItem> Items() const {
        std::vector<DrawnItem> items = NetworkLines.Items();
        items.insert(items.end(), NetworkLabels.Items().begin(), NetworkLabels.Items().end());
        items.insert(items.end(), Overlay.Items().begin(), Overlay.Items().end());
        return items;
    }

    void Clear() {
        NetworkLines.Clear();
        NetworkLabels.Clear();
        Overlay.Clear();
    }
};

} // namespace plenair
