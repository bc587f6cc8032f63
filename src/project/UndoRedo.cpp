#include "project/UndoRedo.h"

#include "project/DuctSheet.h"
#include "project/ProjectGrid.h"
#include "project/ProjectKeeper.h"
#include "project/model/History.h"
#include "project/model/ProjectModel.h"

#include <optional>

namespace plenair {

namespace {

void ShowStep(const ProjectWindows& windows, const std::optional<SteppedTo>& step) {
    if (step) {
        ShowProject(windows, step->Duct, step->PressureShown);
        KeepProject();
    }
}

} // namespace

void Undo(const ProjectWindows& windows) {
    if (HoldsUnstoredText(windows)) {
        TakeBackTyping(windows);
    } else {
        ShowStep(windows, UndoStep());
    }
}

void Redo(const ProjectWindows& windows) {
    if (!HoldsUnstoredText(windows)) {
        ShowStep(windows, RedoStep());
    }
}

void ShowProject(const ProjectWindows& windows, std::int16_t duct, bool pressureShown) {
    SheetWindow& sheet = windows.Sheet;
    windows.Solver.SetPressureVisible(pressureShown);
    if (DuctCount == 0) {
        PlotShowing = kFlagClear;
        ShowEmptyProject(windows);
        return;
    }
    sheet.SetScrollMaximum(DuctCount);
    RedrawProject(windows);
    if (duct != 0) {
        sheet.SetScrollValue(duct);
        ChangeDuctNo(windows); // names the duct also where the sheet stood on that number before
    } else {
        ShowDuctSheet(windows, SheetDuct(windows));
    }
    if (windows.Solver.SheetTicked() && !sheet.IsVisible()) {
        sheet.Show(); // a load that was cancelled has hidden it
    }
}

} // namespace plenair
