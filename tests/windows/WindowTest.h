#pragma once

#include "lite/windows/frmMinorCalc.h"
#include "support/Test.h"

#include <QTest>

namespace plenair {

// Whether dialogs of the desktop may open, which otherwise fail the test and are closed. Each test sets it
// anew.
inline bool dialogsExpected = false;

// Keys and mouse as a user has them: they go to the window, which passes them to whatever has the focus or
// stands there. A click on what can't be seen fails the test.
void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(const char* text);
void ClickOn(QWidget* control);

// Object name of what has the focus; "nothing" if nothing has it.
std::string Focused();

// The Lite window, started as the program starts it. This month's reminder is done, and a settings file of
// the defaults is there, unless a test does otherwise before Start.
class WindowTest : public testing::Test {
  protected:
    WindowTest();
    ~WindowTest() override;

    void WriteSettingsFile(const SettingsRecord& settings) const;
    void Start();

    frmMinorCalc& Window() const;
    template <typename Control>
    Control& Find(const std::string& name) const {
        auto* control = Window().findChild<Control*>(QString::fromStdString(name));
        if (control == nullptr) {
            throw std::runtime_error("no control " + name);
        }
        return *control;
    }
    TextBox& Box(const std::string& name) const { return Find<TextBox>(name); }
    std::string Text(const std::string& name) const { return Box(name).Text(); }
    void Click(const std::string& name) const { ClickOn(&Find<QWidget>(name)); }
    void Unfold() const { Click("cmdMoreInfo"); }
    void ChooseFromMenu(const std::string& menu, const std::string& entry) const;
    // Puts `text` into a box as a user does: click, which selects the old one, and type.
    void Enter(const std::string& box, const char* text) const;
    // Five ducts of 500 L/s around 300 mm on the screen, the focus in txtInputA.
    void FillTable() const;
    // The cells of a row with blanks between, and of all rows that are not blank with commas.
    std::string Row(int row) const;
    std::string Table() const;
    std::string RoundDuct() const;
    bool IsBlank() const;
    // The texts of the basis boxes 0 to 4 and 9, with a blank behind each.
    std::string BasisTexts() const;
    // Whether the box has the focus and its whole text is selected.
    testing::AssertionResult HasFocusSelected(const std::string& box) const;

    ProgramEnvironment m_environment;
    ScriptedDesktop desktop;
};

// What FillTable shows.
inline const std::string FilledTable =
    "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, 350 325 4.61 0.67, 325 350 4.61 0.67";

} // namespace plenair
