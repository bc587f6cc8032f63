#pragma once

#include "platform/desktop/CommonDialog.h"
#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/Printer.h"
#include "platform/plane/Point.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Form.h"
#include "platform/qt/PictureBox.h"
#include "project/ProjectDrawing.h"
#include "project/ProjectWindows.h"

#include <QString>

#include <array>
#include <functional>
#include <memory>

namespace plenair {

constexpr double kGridTop = 500; // of picGrid, in twips

// The Project Solver: a row of buttons and, below it, the grid on which the network is drawn. It fills the
// screen. The work behind each button is a function of src/project; a handler hands the event on.
class frmMajorCalc : public Form, public SolverWindow {
    Q_OBJECT

  public:
    explicit frmMajorCalc(SheetWindow& sheet);

    // `loadSheet` loads the other window, once this one has its size.
    void Form_Load(const std::function<void()>& loadSheet);

    const QWidget& Grid() const { return *picGrid; }

    // Takes the sheet off the screen, as a click on its button does.
    void UntickSheet();

    // What the rest of the program does for this window; the start routine sets them.
    std::function<void()> ShowOptions = [] {};
    std::function<void()> CloseSolver = [] {};

    void LayOut() override;
    void Repaint() override;
    GridPicture& PicGrid() override { return m_picture; }
    ColourNumber BackColour() const override;
    void ShowCross(Point place) override { picGrid->SetCross(place); }
    bool LabelsTicked() const override { return chkLabels->IsOn(); }
    bool SheetTicked() const override { return chkParam->IsOn(); }
    bool IsPressureVisible() const override { return !cmdCalcPressure->isHidden(); }
    void SetPressureVisible(bool visible) override { cmdCalcPressure->setVisible(visible); }
    CommonDialog& Dialog() override { return dlgMajor; }

  private:
    void CreateButtons();
    Button* AddButton(const QString& name, const QString& icon, const QString& toolTip, double left,
                      double width, void (frmMajorCalc::*click)());
    ToggleButton* AddToggle(ToggleButton::Kind kind, const QString& name, const QString& icon,
                            const QString& toolTip, double left, double width);

    void cmdClearGrid_Click();
    void cmdLoadGsp_Click();
    void cmdSaveGsp_Click();
    void cmdPrintGus_Click();
    void cmdMajorOptions_Click();
    void optDuct_Click(int index);
    void cmdLessDuct_Click();
    void chkLabels_Click();
    void chkParam_Click();
    void cmdGus_Click();
    void cmdGus_KeyPress(int character);
    void cmdCalcPressure_Click();
    void cmdClose_Click();
    void picGrid_MouseDown(Qt::MouseButton button, float x, float y);
    bool picGrid_KeyDown(int keyCode, bool control);

    ProjectWindows m_windows;
    GridPicture m_picture;
    CommonDialog dlgMajor;
    std::unique_ptr<Printer> m_printer;
    std::array<ToggleButton*, 3> optDuct = {};
    ToggleButton* chkLabels = nullptr;
    ToggleButton* chkParam = nullptr;
    Button* cmdCalcPressure = nullptr;
    Button* cmdClose = nullptr;
    PictureBox* picGrid = nullptr;
};

} // namespace plenair
