#include "lite/CopyResults.h"

#include "platform/desktop/Clipboard.h"

#include <string>

namespace plenair {

TableRows ResultTable(const LiteWindow& window) {
    TableRows table{{"Shape", "Width (mm)", "Height (mm)", "Diameter (mm)", "Velocity (m/s)", "Loss (Pa/m)"}};
    for (int row = 0; row < kResultRows; ++row) {
        const auto cell = [&](int column) { return window.MinorCell(row, column); };
        const std::string width = cell(kWidthColumn);
        const std::string height = cell(kHeightColumn);
        if (!height.empty()) { // a flow that was worked out has no cell before it
            table.push_back({width.empty() ? "" : "Rectangular", width, height, "", cell(kVelocityColumn),
                             cell(kLossColumn)});
        }
    }
    if (const std::string diameter = window.OtherCell(kWidthColumn); !diameter.empty()) {
        table.push_back(
            {"Round", "", "", diameter, window.OtherCell(kVelocityColumn), window.OtherCell(kLossColumn)});
    }
    return table;
}

void CopyResults(const LiteWindow& window) {
    const TableRows table = ResultTable(window);
    if (table.size() > 1) {
        CopyToClipboard({table, nullptr});
    }
}

} // namespace plenair
