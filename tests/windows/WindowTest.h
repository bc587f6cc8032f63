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

// Keys and mouse as a user has them: they go to the window, which passes them to whatever has the focus or
// stands there. A window that is clicked becomes the active one. A click on what can't be seen fails the
// test.
void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(const std::string& text);
void ClickOn(QWidget* control);
void ClickAt(QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton);

// Opens something that waits for its user, and takes the steps, each when a modal window is the active one.
// What is left open then is hidden.
using DialogStep = std::function<void(QWidget& dialog)>;
void WorkOn(const std::function<void()>& open, const std::vector<DialogStep>& steps);

// Object name of what has the focus; "nothing" if nothing has it.
std::string Focused();

// The Lite window, started as the program starts it. This month's reminder is done, and a settings file of
// the defaults is there, unless a test does otherwise before Start.
class WindowTest : public testing::Test {
  protected:
    WindowTest();
    ~WindowTest() override { EndProgram(); }

    void WriteSettingsFile(const SettingsRecord& settings) const;
    void Start();
    static void EndProgram();

    // Plays a script (see Script.h).
    // A step is a text or a key ("Tab", "Alt+H"); @name clicks a control, @next and @back the arrows of the
    // sheet's scroll bar, name=text changes a box by click and
    // keys, menu>entry chooses from a menu, #2,3 clicks a crossing of the grid (#m2,3 by the middle button,
    // #r by the right one). ?Yes, ?=file, ?- and ?<text script an answer to a message, a file dialog (in the
    // folder of the test), its cancel and an input box. What can be seen is what Ask knows.
    void Play(const std::string& script);
    std::string Ask(const std::string& question) const;

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

    frmMinorCalc& Window() const { return *FindWindow<frmMinorCalc>(); }
    TextBox& Box(const std::string& name) const { return Find<TextBox>(name); }
    std::string Text(const std::string& name) const { return Box(name).Text(); }
    void Click(const std::string& name) const { ClickOn(&Find(name)); }
    void Unfold() const { Click("cmdMoreInfo"); }
    void ChooseFromMenu(const std::string& menu, const std::string& entry) const;
    // Puts `text` into a box as a user does: click, which selects the old one, and type.
    void Enter(const std::string& box, const std::string& text) const;
    // Five ducts of 500 L/s around 300 mm on the screen, the focus in txtInputA.
    void FillTable();
    // The cells of a row with blanks between, and of all rows that are not blank with commas.
    std::string Row(int row) const;
    std::string Table() const;
    std::string RoundDuct() const;
    bool IsBlank() const;
    // The texts of the basis boxes 0 to 4 and 9, with a blank behind each.
    std::string BasisTexts() const;
    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }

    ProgramEnvironment m_environment;
    ScriptedDesktop desktop;

  private:
    void Do(const std::string& step);
};

// What FillTable shows.
inline const std::string FilledTable =
    "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, 350 325 4.61 0.67, 325 350 4.61 0.67";

// The Project Solver, opened from the menu of the Lite window.
class SolverTest : public WindowTest {
  protected:
    void OpenSolver();

    frmMajorCalc& Solver() const { return *m_solver; }
    frmMajorParam& Sheet() const { return *FindWindow<frmMajorParam>(); }
    bool SolverIsThere() const { return m_solver != nullptr; }

    // Ducts along the third row, one cell long, in the types of the letters. Ends the chain.
    void DrawRow(const std::string& types);

    // The solver with such a row of ducts and the sheet on the first of them.
    void OpenSheet(const std::string& types);

    // A box of the sheet, changed as a user does: by a click, which selects the old text, and keys.
    TextBox& SheetBox(int box) const { return Box("txtParam(" + std::to_string(box) + ")"); }
    void EnterBox(int box, const std::string& text) const;

    // What picGrid shows, and the colour of a pixel as #rrggbb.
    QImage Grid() const { return Find("picGrid").grab().toImage(); }
    static std::string ColourAt(const QImage& image, int x, int y) {
        return image.pixelColor(x, y).name().toStdString();
    }

  private:
    QPointer<frmMajorCalc> m_solver;
};

} // namespace plenair
