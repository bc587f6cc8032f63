#include "project/windows/frmMajorCalc.h"

#include "extras/Misc.h"
#include "platform/qt/DesktopPrinter.h"
#include "platform/qt/FocusEvents.h"
#include "platform/qt/ReadableStyle.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"
#include "project/CalculateMajorStuff.h"
#include "project/CopyProject.h"
#include "project/PressureCalcs.h"
#include "project/Printout.h"
#include "project/ProjectFiles.h"
#include "project/ProjectGrid.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectModel.h"
#include "project/windows/SolverKeys.h"

#include <QColor>
#include <QKeySequence>
#include <QPalette>

#include <cstddef>

#include <algorithm>

namespace plenair {

namespace {

constexpr double kButtonTop = 50;
constexpr double kButtonHeight = 400;
constexpr double kCloseWidth = 1000;
constexpr double kGridLeft = 50;

} // namespace

frmMajorCalc::frmMajorCalc(SheetWindow& sheet)
    : Form("frmMajorCalc", "Plenair", Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_windows{*this, sheet}, m_printer(MakeDesktopPrinter()) {
    dlgMajor.CancelError = true;
    CreateButtons();
    picGrid = new PictureBox("picGrid", m_picture, Client());
    picGrid->setAccessibleName("Network");
    picGrid->ItemCount = [] { return std::max<int>(DuctCount, 0); };
    picGrid->ItemText = [](int index) { return DuctInWords(static_cast<std::int16_t>(index + 1)); };
    picGrid->MouseDown = [this](Qt::MouseButton button, float x, float y) {
        picGrid_MouseDown(button, x, y);
    };
    picGrid->KeyDown = [this](int keyCode, bool control) { return picGrid_KeyDown(keyCode, control); };
    AddSolverKeys(*this, m_windows, "solver");
    AddKeys(QKeySequence::keyBindings(QKeySequence::Copy), [this] { CopyShown(m_windows); });
    // There is no button for it in the frame, but a desktop has other ways to ask a window to close.
    connect(this, &Form::CloseRequested, this, [this] {
        GiveFocus(cmdClose); // so that what is being typed on the sheet is stored first
        cmdClose_Click();
    });
}

Button* frmMajorCalc::AddButton(const QString& name, const QString& icon, const QString& toolTip, double left,
                                double width, void (frmMajorCalc::*click)()) {
    auto* button = new Button(name, QString(), Client());
    button->SetIcon(icon, toolTip);
    button->Click = [this, click] { (this->*click)(); };
    Place(button, left, kButtonTop, width, kButtonHeight);
    return button;
}

ToggleButton* frmMajorCalc::AddToggle(ToggleButton::Kind kind, const QString& name, const QString& icon,
                                      const QString& toolTip, double left, double width) {
    auto* button = new ToggleButton(kind, name, Client());
    button->SetIcon(icon, toolTip);
    Place(button, left, kButtonTop, width, kButtonHeight);
    return button;
}

void frmMajorCalc::CreateButtons() {
    // From left to right, which is the tab order too.
    AddButton("cmdClearGrid(2)", "solver/clear", "Clear Model", 105, 400, &frmMajorCalc::cmdClearGrid_Click);
    AddButton("cmdLoadGsp", "solver/open", "Open Plenair Project", 525, 400, &frmMajorCalc::cmdLoadGsp_Click);
    AddButton("cmdSaveGsp", "solver/save", "Save Plenair Project", 945, 400, &frmMajorCalc::cmdSaveGsp_Click);
    AddButton("cmdPrintGus", "solver/print", "Print Plenair Project", 1365, 400,
              &frmMajorCalc::cmdPrintGus_Click);
    AddButton("cmdMajorOptions", "solver/options", "Calculation Options", 1995, 400,
              &frmMajorCalc::cmdMajorOptions_Click);
    const QString types[][2] = {{"solver/rigid", "Draw Rigid Duct"},
                                {"solver/flexible", "Draw Flexible Duct"},
                                {"solver/connection", "Draw Duct Connection"}};
    for (int i = 0; i < 3; ++i) {
        auto* option = AddToggle(ToggleButton::Kind::Option, ArrayName("optDuct", i), types[i][0],
                                 types[i][1], 2625 + 630 * i, 600);
        option->Click = [this, i] { optDuct_Click(i); };
        optDuct[static_cast<std::size_t>(i)] = option;
    }
    AddButton("cmdLessDuct(2)", "solver/remove-last", "Remove Last Duct", 4515, 600,
              &frmMajorCalc::cmdLessDuct_Click);
    chkLabels = AddToggle(ToggleButton::Kind::CheckBox, "chkLabels", "solver/labels", "Show/Hide Duct Labels",
                          5355, 400);
    chkLabels->SetOn(true);
    chkLabels->Click = [this] { chkLabels_Click(); };
    chkParam = AddToggle(ToggleButton::Kind::CheckBox, "chkParam", "solver/sheet", "View/Set Duct Parameters",
                         5775, 400);
    chkParam->Click = [this] { chkParam_Click(); };
    Button* cmdGus =
        AddButton("cmdGus", "solver/solve", "Solve Project", 6405, 795, &frmMajorCalc::cmdGus_Click);
    cmdGus->KeyPress = [this](int character) { cmdGus_KeyPress(character); };
    cmdCalcPressure = AddButton("cmdCalcPressure", "solver/pressure", "Show Pressure Drops", 7245, 795,
                                &frmMajorCalc::cmdCalcPressure_Click);
    cmdCalcPressure->hide();
    cmdClose = new Button("cmdClose", "&Close", Client());
    cmdClose->setToolTip("Return to Plenair Lite");
    cmdClose->SetFocusable();
    cmdClose->Click = [this] { cmdClose_Click(); };
    Place(cmdClose, 7770, kButtonTop, kCloseWidth, kButtonHeight);
}

void frmMajorCalc::Form_Load(const std::function<void()>& loadSheet) {
    ResetProjectGrid(m_windows);
    loadSheet();
    optDuct[0]->SetOn(true);
}

void frmMajorCalc::LayOut() {
    FillScreen();
    // A desktop's frame may be wider than the room that is left for it.
    const double closeRight = std::min(ScreenWidth() - 100, Client()->width() * TwipsPerPixelX());
    Place(cmdClose, closeRight - kCloseWidth, kButtonTop, kCloseWidth, kButtonHeight);
    m_picture.SetSize({ScreenWidth() - 200, ScreenHeight() - 1050});
    Place(picGrid, kGridLeft, kGridTop, m_picture.Size().Width, m_picture.Size().Height);
    ShowCross(PlaceOf(Cross, m_picture.Size()));
}

void frmMajorCalc::Repaint() {
    // It is large. More often the eye would not follow the green line, nor the run be as fast.
    constexpr int kNow = 50; // ms
    RepaintAtMostEvery(kNow);
}

ColourNumber frmMajorCalc::BackColour() const {
    // The grid is white under any theme; lines in the colour of a dark one would outshine the network.
    const QColor background = palette().color(QPalette::Window);
    if (IsHighContrast(palette())) {
        return ToColourNumber(QColor(192, 192, 192)); // white ones wouldn't be seen at all
    }
    return ToColourNumber(background.lightness() < 128 ? QColor(240, 240, 240) : background);
}

void frmMajorCalc::UntickSheet() {
    GiveFocus(chkParam); // stores what is being typed on the sheet
    chkParam->SetOn(false);
}

void frmMajorCalc::cmdClearGrid_Click() {
    ClearGrid(m_windows);
}

void frmMajorCalc::cmdLoadGsp_Click() {
    LoadProject(m_windows);
}

void frmMajorCalc::cmdSaveGsp_Click() {
    if (!BeepIfSolved()) {
        SaveProject(m_windows);
    }
}

void frmMajorCalc::cmdPrintGus_Click() {
    PrintShown(m_windows, *m_printer);
}

void frmMajorCalc::cmdMajorOptions_Click() {
    ShowOptions();
}

void frmMajorCalc::optDuct_Click(int index) {
    const float colours[] = {kRigidColour, kFlexibleColour, kConnectionColour};
    DrawColour = colours[index];
}

void frmMajorCalc::cmdLessDuct_Click() {
    if (!BeepIfSolved()) {
        RemoveLastDuct(m_windows);
    }
}

void frmMajorCalc::chkLabels_Click() {
    RedrawProject(m_windows);
}

void frmMajorCalc::chkParam_Click() {
    ShowOrHideSheet(m_windows);
}

void frmMajorCalc::cmdGus_Click() {
    SolveProject(m_windows);
}

void frmMajorCalc::cmdGus_KeyPress(int character) {
    if (character == 'Q') {
        PlayCall();
    }
}

void frmMajorCalc::cmdCalcPressure_Click() {
    AskForPath(m_windows);
}

void frmMajorCalc::cmdClose_Click() {
    if (isVisible() && AskBeforeClosing(m_windows)) {
        CloseSolver();
    }
}

bool frmMajorCalc::picGrid_KeyDown(int keyCode, bool control) {
    return PressGridKey(m_windows, keyCode, control);
}

void frmMajorCalc::picGrid_MouseDown(Qt::MouseButton button, float x, float y) {
    PointAtGrid(m_windows, {static_cast<double>(x), static_cast<double>(y)});
    switch (button) {
    case Qt::LeftButton:
        return ClickGrid(m_windows, MouseButton::Left, x, y);
    case Qt::RightButton:
        return ClickGrid(m_windows, MouseButton::Right, x, y);
    case Qt::MiddleButton:
        return ClickGrid(m_windows, MouseButton::Middle, x, y);
    default:
        return;
    }
}

} // namespace plenair
