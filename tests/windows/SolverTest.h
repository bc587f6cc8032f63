#pragma once

#include "platform/NumberText.h"
#include "platform/qt/PictureBox.h"
#include "platform/qt/Twips.h"
#include "project/ProjectModel.h"
#include "project/ScriptedDesktop.h"
#include "project/frmMajorCalc.h"
#include "project/frmMajorParam.h"
#include "windows/WindowTest.h"

#include <QImage>
#include <QPointer>
#include <QStyle>

namespace plenair {

// The Project Solver, opened from the menu of the Lite window. Messages, dialogs and sounds come from and go
// to `desktop`.
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

    // A click, at which the desktop makes the window the active one.
    void ClickOn(const std::string& name) const;

    // A click at a crossing of the grid lines, a few pixels off it.
    void ClickGrid(int column, int row, Qt::MouseButton button = Qt::LeftButton) const;

    // Ducts along the row of that number, one cell long, in the types that the letters R, F and C tell. Ends
    // the chain.
    void DrawRow(int row, const std::string& types) const;

    void ShowSheet() const;

    // The sheet's box, and its contents changed as a user does: a click, which selects the old text, and
    // keys.
    TextBox& SheetBox(int box) const;
    void EnterBox(int box, const char* text) const;

    // The texts of the boxes with blanks between, and a letter for each: open on white o, locked on white L,
    // locked without white l.
    std::string SheetTexts() const;
    std::string SheetLooks() const;

    // Presses the arrow button of the scroll bar that moves to the next or the last duct.
    void ScrollOn() const;
    void ScrollBack() const;

    // The caption of lblDuctNo and its colour, as in "R3 #ff0000".
    std::string DuctNo() const;

    // What picGrid shows, and the colour of one of its pixels as #rrggbb.
    QImage Grid() const;
    static std::string ColourAt(const QImage& image, int x, int y);

    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }

    ScriptedDesktop desktop;

  private:
    void ClickAt(const QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton) const;
    void ClickScrollBar(QStyle::SubControl part) const;

    QPointer<frmMajorCalc> m_solver;
    QPointer<frmMajorParam> m_sheet;
};

} // namespace plenair
