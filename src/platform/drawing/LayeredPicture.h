#pragma once

#include "platform/drawing/RecordedSurface.h"

#include <vector>

namespace plenair {

// A picture of three surfaces, one over the other: a base, which changes seldom, and over it what comes and
// goes. The base is two of them, since its texts lie over all of its lines, also over those that are added
// later. A painter keeps an image of each and only paints what has been added, so that what stands there
// costs nothing.
struct LayeredPicture {
    RecordedSurface BaseLines;
    RecordedSurface BaseTexts;
    RecordedSurface Overlay;

    Extent Size() const { return Overlay.Size(); }
    void SetSize(Extent size) {
        BaseLines.SetSize(size);
        BaseTexts.SetSize(size);
        Overlay.SetSize(size);
    }

    // Those of all three, in the order in which they lie over one another.
    std::vector<DrawnItem> Items() const {
        std::vector<DrawnItem> items = BaseLines.Items();
        items.insert(items.end(), BaseTexts.Items().begin(), BaseTexts.Items().end());
        items.insert(items.end(), Overlay.Items().begin(), Overlay.Items().end());
        return items;
    }

    void Clear() {
        BaseLines.Clear();
        BaseTexts.Clear();
        Overlay.Clear();
    }
};

} // namespace plenair
