#include "platform/drawing/RecordedSurface.h"

namespace plenair {

void RecordedSurface::Line(Point start, Point end, ColourNumber colour) {
    Add(DrawnItem::Shape::Line, start, end, colour);
}

void RecordedSurface::Box(Point corner, Point opposite, ColourNumber colour) {
    Add(DrawnItem::Shape::Box, corner, opposite, colour);
}

void RecordedSurface::Print(const std::string& text) {
    m_items.push_back(
        {DrawnItem::Shape::Text, m_style, m_lineWidth, kBlackColour, m_position, m_position, text});
    TellChange();
}

void RecordedSurface::Clear() {
    if (!m_items.empty()) {
        m_items.clear();
        ++m_clearings;
        TellChange();
    }
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
