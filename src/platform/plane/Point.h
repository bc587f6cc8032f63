#pragma once

namespace plenair {

// A place on a surface, and the size of one, in its units, from its top left corner.
struct Point {
    double X = 0;
    double Y = 0;
    bool operator==(const Point&) const = default;
};

struct Extent {
    double Width = 0;
    double Height = 0;
    bool operator==(const Extent&) const = default;
};

} // namespace plenair
