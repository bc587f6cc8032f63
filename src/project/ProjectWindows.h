#pragma once

#include "platform/desktop/CommonDialog.h"
#include "project/ProjectDrawing.h"
#include "project/model/ProjectGeometry.h"
#include "project/model/SheetBoxes.h"

#include <string>

// What the work on a project needs of its two windows. The windows implement these and hand every event on to
// the functions of this folder; tests implement them without a window.
//
// Setting a property runs the handler that goes with it before the call returns, and only if it changes
// something.
namespace plenair {

// frmMajorCalc
class SolverWindow {
  public:
    virtual ~SolverWindow() = default;

    // The start point held for the next click, in the grid's units.
    int LastX = 0;
    int LastY = 0;

    // Where the keyboard's cross stands on the grid.
    Crossing Cross{kCellsAcross / 2, kCellsDown / 2};

    // Puts the window over the whole screen, cmdClose at its right and picGrid below, and gives PicGrid its
    // size.
    virtual void LayOut() = 0;

    virtual void Repaint() = 0; // at once, but not more often than can be followed

    // What picGrid shows.
    virtual GridPicture& PicGrid() = 0;

    // The colour of the grid lines: the background of the window, as long as that is a light one.
    virtual ColourNumber BackColour() const = 0;

    // Shows the keyboard's cross at a place of the grid, while picGrid has the focus.
    virtual void ShowCross(Point place) = 0;

    virtual bool LabelsTicked() const = 0;      // chkLabels
    virtual bool SheetTicked() const = 0;       // chkParam
    virtual bool IsPressureVisible() const = 0; // cmdCalcPressure
    virtual void SetPressureVisible(bool visible) = 0;
    virtual CommonDialog& Dialog() = 0; // dlgMajor; its CancelError is on
};

// frmMajorParam, with a box for each SheetBox.
class SheetWindow {
  public:
    virtual ~SheetWindow() = default;

    virtual bool IsVisible() const = 0;
    virtual void Show() = 0; // without a modal wait
    virtual void Hide() = 0;
    virtual void Repaint() = 0; // at once, but not more often than a screen can show

    // scrDuctNo; its minimum is 1. A change of the value runs ChangeDuctNo, also the one that a maximum below
    // the value brings.
    virtual int ScrollValue() const = 0;
    virtual void SetScrollValue(int value) = 0;
    virtual int ScrollMaximum() const = 0;
    virtual void SetScrollMaximum(int maximum) = 0;

    // lblDuctNo
    virtual std::string DuctNoCaption() const = 0;
    virtual void SetDuctNoCaption(const std::string& caption) = 0;
    virtual void SetDuctNoColour(ColourNumber colour) = 0;

    // txtParam. A box is white, or has the background colour of the window.
    virtual std::string BoxText(SheetBox box) const = 0;
    virtual void SetBoxText(SheetBox box, const std::string& text) = 0;
    virtual bool IsBoxEdited(SheetBox box) const = 0; // by the user, since its text was set
    virtual bool IsBoxLocked(SheetBox box) const = 0;
    virtual void SetBoxLook(SheetBox box, bool locked, bool white) = 0;

    virtual bool FollowOnTicked() const = 0; // chkFollowOn
};

struct ProjectWindows {
    SolverWindow& Solver;
    SheetWindow& Sheet;
};

} // namespace plenair
