#include "project/ProjectGrid.h"

#include "platform/desktop/Desktop.h"
#include "platform/desktop/KeyCodes.h"
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

constexpr int kLongStep = 5; // crossings that the keyboard's cross moves by with Ctrl

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
    DrawGridLines(windows.Solver.PicGrid().Overlay, windows.Solver.BackColour());
    DrawPending = kFlagClear;
}

void RedrawProject(const ProjectWindows& windows) {
    PlotShowing = kFlagClear;
    windows.Solver.LayOut();
    ShowNetwork(windows.Solver.PicGrid(), windows.Solver.BackColour(), windows.Solver.LabelsTicked());
    DrawPending = kFlagClear;
}

void LabelDuct(const ProjectWindows& windows, std::int16_t duct) {
    if (windows.Solver.LabelsTicked() && IsDuct(duct)) {
        PrintLabel(windows.Solver.PicGrid().Overlay, duct);
    }
}

void HighlightDuct(const ProjectWindows& windows, std::int16_t duct) {
    if (!IsDuct(duct)) {
        return;
    }
    RedrawProject(windows);
    DrawHighlight(windows.Solver.PicGrid().Overlay, duct);
    LabelDuct(windows, duct);
}

bool PressGridKey(const ProjectWindows& windows, int keyCode, bool control) {
    SolverWindow& solver = windows.Solver;
    const Extent size = solver.PicGrid().Size();
    const Point place = PlaceOf(solver.Cross, size);
    const int step = control ? kLongStep : 1;
    const auto move = [&](int columns, int rows) { solver.Cross = Moved(solver.Cross, columns, rows); };
    const auto click = [&](MouseButton button) {
        ClickGrid(windows, button, static_cast<float>(place.X), static_cast<float>(place.Y));
    };
    switch (keyCode) {
    case kKeyLeft:
        move(-step, 0);
        break;
    case kKeyRight:
        move(step, 0);
        break;
    case kKeyUpArrow:
        move(0, -step);
        break;
    case kKeyDownArrow:
        move(0, step);
        break;
    case kKeyHome:
        move(-kCellsAcross, 0);
        break;
    case kKeyEnd:
        move(kCellsAcross, 0);
        break;
    case kKeyPageUp:
        move(0, -kCellsDown);
        break;
    case kKeyPageDown:
        move(0, kCellsDown);
        break;
    case kKeySpace:
    case kKeyEnter:
        click(MouseButton::Left);
        break;
    case kKeyEscape:
        click(MouseButton::Right);
        break;
    default:
        return false;
    }
    solver.ShowCross(PlaceOf(solver.Cross, size));
    return true;
}

void PointAtGrid(const ProjectWindows& windows, Point place) {
    SolverWindow& solver = windows.Solver;
    const Extent size = solver.PicGrid().Size();
    solver.Cross = CrossingAt(place, size);
    solver.ShowCross(PlaceOf(solver.Cross, size));
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
    RecordedSurface& grid = solver.PicGrid().Overlay;
    grid.SetLineWidth(kNetworkLineWidth);
    const Point point = SnapToGrid(Point{static_cast<double>(x), static_cast<double>(y)}, grid.Size());
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
    NoteStep(windows, DuctCount);
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
