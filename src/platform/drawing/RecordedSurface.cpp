#include "platform/drawing/RecordedSurface.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace plenair {

void RecordedSurface::Line(Point start, Point end, ColourNumber colour) {
    Add(DrawnItem::Shape::Line, start, end, colour);
}

void RecordedSurface::Box(Point corner, Point opposite, ColourNumber colour) {
    Add(DrawnItem::Shape::Box, corner, opposite, colour);
}

void RecordedSurface::Print(const std::string& text) {
    Add(DrawnItem::Shape::Text, m_position, m_position, kBlackColour);
    m_items.back().Text = text;
}

void RecordedSurface::CutBackTo(std::size_t count) {
    if (count < m_items.size()) {
        m_items.resize(count);
        m_kept = std::min(m_kept, count);
        ++m_cuts;
        TellChange();
    }
}

std::size_t RecordedSurface::TakeItemsKept() {
    return std::exchange(m_kept, m_items.size());
}

void RecordedSurface::Add(DrawnItem::Shape kind, Point start, Point end, ColourNumber colour) {
    m_items.push_back({kind, m_style, m_lineWidth, colour, start, end, {}});
    TellChange();
}

void RecordedSurface::TellChange() const {
    if (m_changed) {
        m_changed();
    }
}

} // namespace plenair
