#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/plane/Point.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace plenair {

struct DrawnItem {
    enum class Shape { Line, Box, Text };

    Shape Kind = Shape::Line;
    LineStyle Style = LineStyle::Solid;
    int LineWidth = 1;
    ColourNumber Colour = kBlackColour;
    Point Start{}; // of a text: its top left corner
    Point End{};
    std::string Text{};
};

// A surface that keeps its picture as the list of what was drawn, so that it can be painted when it is to be
// seen, at any scale, and as often as needed.
class RecordedSurface : public DrawingSurface {
  public:
    Extent Size() const override { return m_size; }

    // What was drawn stays where it is.
    void SetSize(Extent size) { m_size = size; }

    void SetLineWidth(int width) override { m_lineWidth = width; }
    void SetLineStyle(LineStyle style) override { m_style = style; }
    void Line(Point start, Point end, ColourNumber colour) override;
    void Box(Point corner, Point opposite, ColourNumber colour) override;
    void SetPosition(Point place) override { m_position = place; }
    void Print(const std::string& text) override;
    void Clear();

    const std::vector<DrawnItem>& Items() const { return m_items; }

    // Until this number changes, items are only added.
    std::size_t Clearings() const { return m_clearings; }

    // `changed` runs after every change of the picture, and only has to note it.
    void WhenChanged(std::function<void()> changed) { m_changed = std::move(changed); }

  private:
    void Add(DrawnItem::Shape kind, Point start, Point end, ColourNumber colour);
    void TellChange() const;

    Extent m_size;
    int m_lineWidth = 1;
    LineStyle m_style = LineStyle::Solid;
    Point m_position;
    std::vector<DrawnItem> m_items;
    std::size_t m_clearings = 0;
    std::function<void()> m_changed;
};

} // namespace plenair
