#include "project/CopyProject.h"

#include "platform/desktop/Clipboard.h"
#include "platform/text/NumberText.h"
#include "project/PlotDrawing.h"
#include "project/ProjectDrawing.h"
#include "project/model/DuctPath.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectModel.h"
#include "project/model/SheetBoxes.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace plenair {

namespace {

std::string KindOf(float colour) {
    switch (TypeOf(colour)) {
    case ElementType::Rigid:
        return "Rigid";
    case ElementType::Flexible:
        return "Flexible";
    case ElementType::Connection:
        return "Connection";
    case ElementType::None:
        break;
    }
    return "";
}

} // namespace

TableRows DuctTable() {
    TableRows table{{"Duct", "Kind"}};
    for (const SheetRow& row : kSheetRows) {
        table[0].emplace_back(row.Caption.substr(1)); // on the sheet it begins with a blank
    }
    for (int number = 1; number <= DuctCount; ++number) {
        const DuctRecord& duct = Duct(number);
        std::vector<std::string> line{DuctLabel(static_cast<std::int16_t>(number)), KindOf(duct.Colour)};
        for (const SheetRow& row : kSheetRows) {
            line.push_back(TextOf(duct, row.Box));
        }
        table.push_back(std::move(line));
    }
    return table;
}

TableRows PathTable() {
    TableRows table{{"Position", "Label", "Length (mm)", "Pressure Drop (Pa)", "Running Length (mm)",
                     "Running Pressure (Pa)"}};
    double length = 0;
    double pressure = 0;
    for (const PathElement& element : PlottedPath()) {
        length += element.Length;
        pressure += element.PressureDrop;
        const std::string place = std::to_string(element.Position);
        const std::string letter = TypeLetter(element.Colour);
        table.push_back({place, letter.empty() ? "" : letter + place, ShortestText(element.Length),
                         ShortestText(element.PressureDrop), ShortestText(length), ShortestText(pressure)});
    }
    return table;
}

void CopyShown(const ProjectWindows& windows) {
    if (DuctCount < 1) {
        return;
    }
    CopyToClipboard({PlotShowing != kFlagClear ? PathTable() : DuctTable(), &windows.Solver.PicGrid()});
}

} // namespace plenair
