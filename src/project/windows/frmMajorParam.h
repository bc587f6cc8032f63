#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Form.h"
#include "platform/qt/TextBox.h"
#include "project/ProjectWindows.h"
#include "project/model/SheetBoxes.h"

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace plenair {

// The sheet of one duct, a small window that stays above the Project Solver: eight boxes and a scroll bar
// that moves from duct to duct. The duct that it stands on is the value of the scroll bar.
class frmMajorParam : public Form, public SheetWindow {
    Q_OBJECT

  public:
    frmMajorParam();

    // Ties the sheet to its solver, places it in the top right corner of the grid, and shows the present
    // duct.
    void Form_Load(SolverWindow& solver, const QWidget& grid);

    bool IsVisible() const override { return isVisible(); }
    void Show() override;
    void Hide() override { hide(); }
    void Repaint() override;
    int ScrollValue() const override { return scrDuctNo->value(); }
    void SetScrollValue(int value) override { scrDuctNo->setValue(value); }
    int ScrollMaximum() const override { return scrDuctNo->maximum(); }
    void SetScrollMaximum(int maximum) override { scrDuctNo->setMaximum(maximum); }
    std::string DuctNoCaption() const override;
    void SetDuctNoCaption(const std::string& caption) override;
    void SetDuctNoColour(ColourNumber colour) override;
    std::string BoxText(SheetBox box) const override { return TxtParam(box)->Text(); }
    void SetBoxText(SheetBox box, const std::string& text) override { TxtParam(box)->SetText(text); }
    bool IsBoxEdited(SheetBox box) const override { return TxtParam(box)->isModified(); }
    bool IsBoxLocked(SheetBox box) const override { return TxtParam(box)->isReadOnly(); }
    void SetBoxLook(SheetBox box, bool locked, bool white) override;
    bool FollowOnTicked() const override { return chkFollowOn->isChecked(); }

  private:
    void CreateControls();
    void PlaceOnGrid();
    void Form_GotFocus();
    void scrDuctNo_Change();
    void txtParam_GotFocus(SheetBox index);
    void txtParam_LostFocus(SheetBox index);
    void txtParam_KeyDown(SheetBox index, int keyCode);
    void txtParam_KeyPress(SheetBox index, int character);

    void FocusBox(std::optional<SheetBox> box);
    TextBox* TxtParam(SheetBox box) const { return txtParam[PositionOf(box)]; }

    std::unique_ptr<ProjectWindows> m_windows;
    const QWidget* m_grid = nullptr;
    bool m_wasShown = false;
    Label* lblDuct = nullptr;
    Label* lblDuctNo = nullptr;
    ScrollBar* scrDuctNo = nullptr;
    std::array<TextBox*, kSheetRows.size()> txtParam = {};
    CheckBox* chkFollowOn = nullptr;
};

} // namespace plenair
