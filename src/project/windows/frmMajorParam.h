#pragma once

#include "platform/qt/Controls.h"
#include "platform/qt/Form.h"
#include "platform/qt/TextBox.h"
#include "project/ProjectWindows.h"

#include <array>
#include <memory>

namespace plenair {

// The sheet of one duct, a small window that stays above the Project Solver: eight boxes and a scroll bar
// that moves from duct to duct. The duct that it stands on is the value of the scroll bar.
class frmMajorParam : public Form, public SheetWindow {
    Q_OBJECT

  public:
    frmMajorParam();

    // Ties the sheet to its solver, places it in the top right corner of the grid, and shows the present
    // duct.
    void Form_Load(SolverWindow& solver, double gridWidth, double gridTop);

    bool IsVisible() const override { return isVisible(); }
    void Show() override;
    void Hide() override { hide(); }
    void Repaint() override { repaint(); }
    int ScrollValue() const override { return scrDuctNo->value(); }
    void SetScrollValue(int value) override { scrDuctNo->setValue(value); }
    int ScrollMaximum() const override { return scrDuctNo->maximum(); }
    void SetScrollMaximum(int maximum) override { scrDuctNo->setMaximum(maximum); }
    std::string DuctNoCaption() const override;
    void SetDuctNoCaption(const std::string& caption) override;
    void SetDuctNoColour(ColourNumber colour) override;
    std::string BoxText(int box) const override { return TxtParam(box)->Text(); }
    void SetBoxText(int box, const std::string& text) override { TxtParam(box)->SetText(text); }
    bool IsBoxLocked(int box) const override { return TxtParam(box)->isReadOnly(); }
    void SetBoxLook(int box, bool locked, bool white) override;
    bool FollowOnTicked() const override { return chkFollowOn->isChecked(); }

  private:
    void CreateControls();
    void Form_GotFocus();
    void scrDuctNo_Change();
    void txtParam_GotFocus(int box);
    void txtParam_LostFocus(int box);
    void txtParam_KeyDown(int box, int keyCode);
    void txtParam_KeyPress(int box, int character);

    TextBox* TxtParam(int box) const { return txtParam[static_cast<std::size_t>(box - 1)]; }

    std::unique_ptr<ProjectWindows> m_windows;
    Label* lblDuct = nullptr;
    Label* lblDuctNo = nullptr;
    ScrollBar* scrDuctNo = nullptr;
    std::array<TextBox*, kSheetBoxes> txtParam = {};
    CheckBox* chkFollowOn = nullptr;
};

} // namespace plenair
