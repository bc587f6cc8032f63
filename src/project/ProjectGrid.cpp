#include "project/ProjectGrid.h"

#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBox.h"
#include "platform/plane/Point.h"
#include "project/DuctColour.h"
#include "project/ProjectDrawing.h"
#include "project/ProjectKeeper.h"
#include "project/model/ProjectGeometry.h"
#include "project/model/ProjectModel.h"
#include "project/model/SheetBoxes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace plenair {

namespace {

// The number in the caption of lblDuctNo, which stands after the letter; 0 if there is none.
int NumberInCaption(const std::string& caption) {
    int number = 0;
    if (!caption.empty()) {
        std::from_chars(caption.data() + 1, caption.data() + caption.size(), number);
    }
    return number;
}

void HoldPoint(SolverWindow& solver, Point point) {
    solver.LastX = static_cast<int>(Whole(point.X));
    solver.LastY = static_cast<int>(Whole(point.Y));
}

} // namespace

void ResetProjectGrid(const ProjectWindows& windows) {
    windows.Solver.LayOut();
    DrawGridLines(windows.Solver.PicGrid(), windows.Solver.BackColour());
    DrawPending = kFlagClear;
}

void RedrawProject(const ProjectWindows& windows) {
    PlotShowing = kFlagClear;
    windows.Solver.LayOut();
    windows.Solver.PicGrid().ShowNetwork(windows.Solver.BackColour(), windows.Solver.LabelsTicked());
    DrawPending = kFlagClear;
}

void LabelDuct(const ProjectWindows& windows, std::int16_t duct) {
    if (windows.Solver.LabelsTicked() && IsDuct(duct)) {
        PrintLabel(windows.Solver.PicGrid(), duct);
    }
}

void HighlightDuct(const ProjectWindows& windows, std::int16_t duct) {
    if (!IsDuct(duct)) {
        return;
    }
    RedrawProject(windows);
    DrawHighlight(windows.Solver.PicGrid(), duct);
    LabelDuct(windows, duct);
}

void ClickGrid(const ProjectWindows& windows, MouseButton button, float x, float y) {
    if (BeepIfSolved()) {
        return;
    }
    if (button == MouseButton::Right) {
        DrawPending = kFlagClear;
        return;
    }
    if (DrawPending != kFlagClear && DuctCount == kMostDucts) {
        Beep();
        return;
    }
    SolverWindow& solver = windows.Solver;
    GridPicture& grid = solver.PicGrid();
    grid.SetLineWidth(kNetworkLineWidth);
    const Point point{static_cast<double>(SnapToGrid(x, grid.Size().Width, Axis::X)),
                      static_cast<double>(SnapToGrid(y, grid.Size().Height, Axis::Y))};
    DrawEndMark(grid, point);
    if (DrawPending == kFlagClear) {
        DrawPending = kFlagSet;
        HoldPoint(solver, point);
        return;
    }
    const Point last{static_cast<double>(solver.LastX), static_cast<double>(solver.LastY)};
    grid.Line(last, point, DrawnColour(DrawColour));
    AddDuct(last, point, grid.Size());
    HoldPoint(solver, point);
    windows.Sheet.SetScrollMaximum(DuctCount);
    LabelDuct(windows, DuctCount);
    NoteStep(windows);
}

bool BeepIfSolved() {
    if (Solved == kFlagClear) {
        return false;
    }
    Beep();
    return true;
}

void RemoveLastDuct(const ProjectWindows& windows) {
    if (DuctCount < 2) {
        return;
    }
    SheetWindow& sheet = windows.Sheet;
    --DuctCount;
    // May move the scroll bar off the removed duct, and so load another into the sheet.
    sheet.SetScrollMaximum(std::max(sheet.ScrollMaximum() - 1, 1));
    if (NumberInCaption(sheet.DuctNoCaption()) > sheet.ScrollMaximum()) {
        sheet.SetDuctNoCaption(std::to_string(sheet.ScrollMaximum()));
    }
    FitDucts();
    RedrawProject(windows);
    NoteStep(windows);
}

void ClearGrid(const ProjectWindows& windows) {
    const MessageAnswer answer = ShowMessage(
        {"Clear Existing Project?", "Load Project", MessageButtons::YesNo, MessageIcon::Question});
    if (answer == MessageAnswer::Yes) {
        EmptyGrid(windows);
    }
}

void EmptyGrid(const ProjectWindows& windows) {
    windows.Solver.SetPressureVisible(false);
    ClearProject();
    ShowEmptyProject(windows);
    NoteStep(windows);
}

void ShowEmptyProject(const ProjectWindows& windows) {
    SheetWindow& sheet = windows.Sheet;
    sheet.SetDuctNoColour(kNoDuctColour);
    sheet.SetScrollMaximum(1);
    sheet.SetDuctNoCaption("1");
    for (const SheetRow& row : kSheetRows) {
        // The last one keeps its text, but as nothing that somebody is typing.
        const bool keepsText = row.Box == SheetBox::ConnCoefficient;
        sheet.SetBoxText(row.Box, keepsText ? sheet.BoxText(row.Box) : "0");
    }
    windows.Solver.PicGrid().Clear();
    ResetProjectGrid(windows);
}

void ShowOrHideSheet(const ProjectWindows& windows) {
    if (windows.Solver.SheetTicked()) {
        windows.Sheet.Show();
        windows.Sheet.SetScrollValue(1);
        if (DuctCount > 0) {
            HighlightDuct(windows, 1);
        }
    } else {
        RedrawProject(windows);
        windows.Sheet.Hide();
    }
}

} // namespace plenair
