#pragma once

#include "lite/windows/frmMinorCalc.h"
#include "platform/qt/PictureBox.h"
#include "project/model/ProjectGeometry.h"
#include "project/model/ProjectModel.h"
#include "project/windows/frmMajorCalc.h"
#include "project/windows/frmMajorParam.h"
#include "support/Test.h"

#include <QApplication>
#include <QImage>
#include <QPointer>
#include <QTest>

namespace plenair {

// Whether dialogs of the desktop may open, which otherwise fail the test and are closed. Each test sets it
// anew.
inline bool dialogsExpected = false;

// What the program was connected with, on a desktop whose language groups digits as in 12,34,567.
inline DesktopServices connected;
inline NumberLocale connectedNumbers;

// A click as a user has it: it goes to the window, which passes it to what stands there, and makes the window
// the active one. A click on what can't be seen fails the test.
void ClickOn(QWidget* control);
void ClickAt(QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton);

// Opens something that waits for its user, and takes the steps, each when a modal window is the active one.
// What is left open then is hidden.
using DialogStep = std::function<void(QWidget& dialog)>;
void WorkOn(const std::function<void()>& open, const std::vector<DialogStep>& steps);

// Object name of what has the focus; "nothing" if nothing has it.
std::string Focused();

// The colour at a place, in pixels of the window that it is a picture of, as #rrggbb.
inline std::string ColourAt(const QImage& image, int x, int y) {
    return image.pixelColor((QPointF(x, y) * image.devicePixelRatio()).toPoint()).name().toStdString();
}

// The colours of a picture's pixels along its row and its column through a place, as "#ffffff 14".
std::string Across(const QImage& picture, int x, int y);

// What was seen must be what a file of this folder holds. With PLENAIR_WRITE_LAYOUT set that is written anew,
// and its diff is what to look at.
void ExpectAsInFile(const std::string& name, const std::string& seen);

// The Lite window, started as the program starts it. This month's reminder is done, and a settings file of
// the defaults is there, unless a test does otherwise before Start.
class WindowTest : public ProgramTest {
  protected:
    WindowTest();
    ~WindowTest() override { EndProgram(); }

    static void WriteSettingsFile(const SettingsRecord& settings);
    void Start();
    static void EndProgram();

    // Keys and clicks of a script go to the active window, as a user's. A step is
    //   a text or a key ("Tab", "Alt+H");
    //   @name, a click on a control, @next or @back on the arrows of the sheet's scroll bar;
    //   #2,3, a click on a crossing of the grid, #m2,3 by the middle button, #r by the right one;
    //   name=text, which puts the text into a box, and menu>entry, which chooses from a menu;
    //   ?Yes and the like, an answer to come (see ScriptedDesktop::Expect);
    //   !name, one of `actions`: !fill calculates 500 L/s at 300 mm.
    // A question is one of `questions` or a property of a control ("text txtInputA"):
    //   focus, tabs (where Tab leads until it comes back), selected (the box that has the focus, and what is
    //   selected in it), basis, log (what reached the desktop); table: its cells and lamps and the round
    //   duct, or "filled", as by !fill, or "blank".
    void Do(const std::string& step) override;
    std::string Ask(const std::string& question) override;
    std::map<std::string, std::function<void()>> actions;
    std::map<std::string, std::function<std::string()>> questions;

    // A control of any window by its name, of the modal one first.
    template <typename Control = QWidget>
    Control& Find(const std::string& name) const {
        QWidgetList windows = QApplication::topLevelWidgets();
        windows.prepend(QApplication::activeModalWidget());
        for (QWidget* window : windows) {
            if (auto* control =
                    window == nullptr ? nullptr : window->findChild<Control*>(QString::fromStdString(name))) {
                return *control;
            }
        }
        throw std::runtime_error("no control " + name);
    }
    template <typename Window>
    static Window* FindWindow() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<Window*>(window)) {
                return found;
            }
        }
        return nullptr;
    }

    // What a control shows on the screen, where only what was told to have changed is painted anew.
    QImage OnScreen(const std::string& name) const;

    frmMinorCalc& Window() const { return *FindWindow<frmMinorCalc>(); }
    TextBox& Box(const std::string& name) const { return Find<TextBox>(name); }

  private:
    std::string Table() const;
};

// The Project Solver, opened from the menu of the Lite window. More questions: flows (of the ducts), network
// ("R 1,1-2,1 F 2,1-2,3", in crossings of the grid lines), duct (the caption of the sheet and its colour),
// sheet (the texts of its boxes), looks (a letter for each box: open on white o, locked on white L, without
// white l) and state (flows, the project's name, "solved", + where the pressures can be asked for, the duct
// of the sheet and its flow: "100 200 plant.gsp solved+, F2 200").
class SolverTest : public WindowTest {
  protected:
    SolverTest();
    void OpenSolver();

    frmMajorCalc& Solver() const { return *m_solver; }
    frmMajorParam& Sheet() const { return *FindWindow<frmMajorParam>(); }
    bool SolverIsThere() const { return m_solver != nullptr; }

    // Ducts along the third row, one cell long, in the types of the letters. Ends the chain.
    void DrawRow(const std::string& types);

    // The solver with such a row of ducts and the sheet on the first of them.
    void OpenSheet(const std::string& types);

    // What picGrid shows.
    QImage Grid() const { return OnScreen("picGrid"); }

  private:
    TextBox& SheetBoxOf(const SheetRow& row) const {
        return Box("txtParam(" + std::to_string(static_cast<int>(row.Box)) + ")");
    }

    QPointer<frmMajorCalc> m_solver;
};

} // namespace plenair
