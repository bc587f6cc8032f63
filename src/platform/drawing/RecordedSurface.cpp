#include "platform/drawing/RecordedSurface.h"

#include <algorithm>
#include <utility>

namespace plenair {

void RecordedSurface::SetSize(double width, double height) {
    m_width = width;
    m_height = height;
}

void RecordedSurface::Line(double x1, double y1, double x2, double y2, ColourNumber colour) {
    Add(DrawnItem::Shape::Line, x1, y1, x2, y2, colour);
}

void RecordedSurface::Box(double x1, double y1, double x2, double y2, ColourNumber colour) {
    Add(DrawnItem::Shape::Box, x1, y1, x2, y2, colour);
}

void RecordedSurface::SetPosition(double x, double y) {
    m_x = x;
    m_y = y;
}

void RecordedSurface::Print(const std::string& text) {
    Add(DrawnItem::Shape::Text, m_x, m_y, m_x, m_y, kBlackColour);
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

void RecordedSurface::Add(DrawnItem::Shape kind, double x1, double y1, double x2, double y2,
                          ColourNumber colour) {
    m_items.push_back({kind, m_style, m_lineWidth, colour, x1, y1, x2, y2, {}});
    TellChange();
}

void RecordedSurface::TellChange() const {
    if (m_changed) {
        m_changed();
    }
}

} // namespace plenair
