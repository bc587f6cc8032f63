#pragma once

#include "lite/Bases.h"
#include "lite/LiteWindow.h"
#include "platform/desktop/CommonDialog.h"
#include "platform/qt/Controls.h"
#include "platform/qt/FocusEvents.h"
#include "platform/qt/Form.h"
#include "platform/qt/MSFlexGrid.h"
#include "platform/qt/TextBox.h"

#include <QAction>
#include <QMenu>
#include <QString>

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <string>

class QMenu;

namespace plenair {

// Plenair Lite, the first window: sizes one duct at a time. Two inputs, five calculation bases, Enter. Folded
// it ends below cmdMoreInfo; the bases then lie below its bottom edge and are as alive as ever.
//
// The text boxes are the live store of the targets: the calculation reads them here, through LiteWindow.
class frmMinorCalc : public Form, public LiteWindow {
    Q_OBJECT

  public:
    frmMinorCalc();

    // Blanks both grids and all lamps.
    void ResetGrid();

    // What the rest of the program does for this window; the start routine sets them.
    std::function<void()> OpenProjectSolver = [] {};
    std::function<void()> ShowOptions = [] {};
    std::function<void()> ShowAbout = [] {};
    std::function<void()> EndProgram = [] {};

    // Takes over the basis and the targets of Settings, as after the options.
    void TakeSettings();

    void FocusInputA() override;

    std::string CurrentCell() const override { return grdMinorCalc->Text(); }
    void SetCurrentCell(int row, int column) override;
    void EnableRecordLog(bool enabled) override { mnuFileLog->setEnabled(enabled); }
    CommonDialog& Dialog() override { return dlgMinor; }

    std::string BasisText(int index) const override;
    std::string MinorCell(int row, int column) const override;
    void SetMinorCell(int row, int column, const std::string& text) override;
    std::string OtherCell(int column) const override;
    void SetOtherCell(int column, const std::string& text) override;
    void LightLamp(int row, Lamp colour) override;
    std::string InputA() const override { return txtInputA->Text(); }
    std::string InputB() const override { return txtInputB->Text(); }
    void SetInputB(const std::string& text) override;
    void FocusInputB() override { GiveFocus(txtInputB); }

  private:
    void CreateInputs();
    void CreateResults();
    void CreateBases();
    void CreateMenus();
    void SetTabStops();
    QAction* AddEntry(QMenu* menu, const QString& name, const QString& caption,
                      void (frmMinorCalc::*handler)());

    void Form_Load();
    void SetFolded(bool folded);
    void Calculate();

    void txtInputA_KeyPress(int character);
    void txtInputB_KeyPress(int character);
    void txtCalcBasis_Change(int index);
    void txtCalcBasis_GotFocus(int index);
    void txtCalcBasis_KeyPress(int character);
    void optCalcBasis_Click(int index);
    void cmdMoreInfo_Click();
    void cmdLog_Click(int index);
    void mnuFileMajor_Click();
    void mnuFileLog_Click();
    void mnuFileLogOpen_Click();
    void mnuFileExit_Click();
    void mnuEditOptions_Click();
    void mnuViewOnTop_Click();
    void mnuHelpManual_Click();
    void mnuHelpAbout_Click();

    TextBox* TxtCalcBasis(int index) const { return txtCalcBasis.at(index); }
    Option* OptCalcBasis(int index) const { return optCalcBasis.at(static_cast<std::size_t>(index)); }

    Label* lblInputA = nullptr;
    Label* lblInputB = nullptr;
    TextBox* txtInputA = nullptr;
    TextBox* txtInputB = nullptr;
    MSFlexGrid* grdMinorCalc = nullptr;
    MSFlexGrid* grdOtherShapes = nullptr;
    std::array<Label*, kResultRows> lblRatio = {};
    Button* cmdMoreInfo = nullptr;
    std::array<Option*, kBases> optCalcBasis = {};
    std::map<int, TextBox*> txtCalcBasis; // 0 to 4 and 9
    QAction* mnuFileLog = nullptr;
    QAction* mnuViewOnTop = nullptr;
    CommonDialog dlgMinor;
    bool m_folded = true;
};

} // namespace plenair
