#include "lite/CopyResults.h"

#include "platform/desktop/Clipboard.h"

#include <string>

namespace plenair {

TableRows ResultTable(const LiteWindow& window) {
    TableRows table{{"Shape", "Width (mm)", "Height (mm)", "Diameter (mm)", "Velocity (m/s)", "Loss (Pa/m)"}};
    for (int row = 0; row < 5; ++row) {
        const auto cell = [&](int column) { return window.MinorCell(row, column); };
        if (!cell(1).empty()) { // a flow that was worked out has no cell before it
            table.push_back({cell(0).empty() ? "" : "Rectangular", cell(0), cell(1), "", cell(2), cell(3)});
        }
    }
    if (!window.OtherCell(0).empty()) {
        table.push_back({"Round", "", "", window.OtherCell(0), window.OtherCell(2), window.OtherCell(3)});
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
