#include "lite/CopyResults.h"

#include "platform/desktop/Clipboard.h"

#include <string>

namespace plenair {

TableRows ResultTable(const LiteWindow& window) {
    TableRows table{{"Shape", "Width (mm)", "Height (mm)", "Diameter (mm)", "Velocity (m/s)", "Loss (Pa/m)"}};
    for (int row = 0; row < kResultRows; ++row) {
        const std::string width = window.MinorCell(row, kWidthColumn);
        const std::string height = window.MinorCell(row, kHeightColumn);
        if (!height.empty()) { // a flow that was worked out has no cell before it
            table.push_back({width.empty() ? "" : "Rectangular", width, height, "",
                             window.MinorCell(row, kVelocityColumn), window.MinorCell(row, kLossColumn)});
        }
    }
    if (!window.OtherCell(kWidthColumn).empty()) {
        table.push_back({"Round", "", "", window.OtherCell(kWidthColumn), window.OtherCell(kVelocityColumn),
                         window.OtherCell(kLossColumn)});
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
