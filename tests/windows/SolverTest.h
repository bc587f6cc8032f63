#pragma once

#include "platform/qt/PictureBox.h"
#include "project/model/ProjectGeometry.h"
#include "project/model/ProjectModel.h"
#include "project/windows/frmMajorCalc.h"
#include "project/windows/frmMajorParam.h"
#include "windows/WindowTest.h"

#include <QImage>
#include <QPointer>

namespace plenair {

// The Project Solver, opened from the menu of the Lite window.
class SolverTest : public WindowTest {
  protected:
    void OpenSolver();
    void EndProgram();

    frmMajorCalc& Solver() const { return *m_solver; }
    frmMajorParam& Sheet() const { return *m_sheet; }
    bool SolverIsThere() const { return m_solver != nullptr; }

    // A control of either window.
    template <typename Control = QWidget>
    Control& Get(const std::string& name) const {
        for (QWidget* window : {static_cast<QWidget*>(m_solver), static_cast<QWidget*>(m_sheet)}) {
            if (auto* control = window->findChild<Control*>(QString::fromStdString(name))) {
                return *control;
            }
        }
        throw std::runtime_error("no control " + name);
    }

    // Clicks, at which the desktop makes the window the active one; on the grid near a crossing of its lines.
    void ClickOn(const std::string& name) const { ClickAt(Get(name), Get(name).rect().center()); }
    void ClickGrid(int column, int row, Qt::MouseButton button = Qt::LeftButton) const;

    // Ducts along the third row, one cell long, in the types of the letters. Ends the chain.
    void DrawRow(const std::string& types) const;

    // The solver with such a row of ducts and the sheet on the first of them.
    void OpenSheet(const std::string& types);

    // A box of the sheet, changed as a user does: by a click, which selects the old text, and keys.
    TextBox& SheetBox(int box) const;
    void EnterBox(int box, const char* text) const;

    // The texts of the boxes, and a letter for each: open on white o, locked on white L, without white l.
    std::string SheetTexts() const;
    std::string SheetLooks() const;

    // Clicks on the arrows of the scroll bar.
    void ScrollOn() const { ClickAt(Get("scrDuctNo"), Get("scrDuctNo").rect().bottomRight() - QPoint(4, 4)); }
    void ScrollBack() const { ClickAt(Get("scrDuctNo"), {4, 4}); }

    // The caption of lblDuctNo and its colour, as in "R3 #ff0000".
    std::string DuctNo() const;

    // What picGrid shows, and the colour of a pixel as #rrggbb.
    QImage Grid() const { return Get<PictureBox>("picGrid").grab().toImage(); }
    static std::string ColourAt(const QImage& image, int x, int y);

    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }

  private:
    void ClickAt(const QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton) const;

    QPointer<frmMajorCalc> m_solver;
    QPointer<frmMajorParam> m_sheet;
};

} // namespace plenair
