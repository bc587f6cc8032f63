#include "core/Settings.h"
#include "core/SettingsFile.h"
#include "desktop/DesktopTest.h"

#include <filesystem>
#include <sstream>

namespace plenair {
namespace {

const std::string kTable =
    "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, 350 325 4.61 0.67, 325 350 4.61 0.67";

class Focus : public DesktopTest {
  protected:
    // The Lite window with results, its focus in txtInputA.
    void Calculate() {
        Start();
        Type("300");
        Keys("Tab");
        Await("focus", "txtInputA");
        Type("500");
        Keys("Return");
        Await("selected", "txtInputA 500");
        EXPECT_EQ(Ask("table grdMinorCalc"), kTable);
    }

    void OpenSolver() {
        Choose("mnuFile", "mnuFileMajor");
        Await("active", "frmMajorCalc");
    }

    // The solver with a project of rigid ducts with these flows.
    void OpenProject(const std::string& flows) {
        std::string file = "\"\xa4\x30\"\r\n";
        const auto append = [&file](const std::string& flow) {
            for (const char* item :
                 {"0.1", "0.1", "0", flow.c_str(), "0", "0", "0", "0", "0.2", "0.2", "0", "0"}) {
                file += std::string(item) + "\r\n";
            }
        };
        file += "0\r\n0\r\n";
        append("0");
        std::istringstream words(flows);
        for (std::string flow; words >> flow;) {
            file += "\"\xa4\x31\"\r\n255\r\n0\r\n";
            append(flow);
        }
        WriteFile(File("p.gsp"), file);
        Start();
        OpenSolver();
        Click("cmdLoadGsp");
        Await("active", "QFileDialog");
        Type("p.gsp");
        Keys("Return");
        Await("active", "frmMajorCalc");
    }

    void ShowSheet() {
        Click("chkParam");
        Await("active", "frmMajorParam");
    }

    // Saves the project by a click on its button, and gives the flows in the file.
    std::string SavedFlows() {
        Click("cmdSaveGsp");
        Await("active", "QFileDialog");
        Keys("Control+a");
        Type("q.gsp");
        Keys("Return");
        Await("active", "QMessageBox");
        Keys("Return");
        std::istringstream lines(ReadFile(File("q.gsp")));
        std::string flows;
        int number = 0;
        for (std::string line; std::getline(lines, line);) {
            if (++number % 15 == 7 && number > 15) {
                line.pop_back();
                flows += (flows.empty() ? "" : " ") + line;
            }
        }
        std::filesystem::remove(File("q.gsp"));
        return flows;
    }
};

TEST_F(Focus, LiteComesBackFromTheSolverAsItWas) {
    Calculate();
    for (const std::string button : {"", "&Less", "&More"}) {
        for (const bool byMouse : {true, false}) {
            if (!button.empty() && byMouse) {
                Click("cmdMoreInfo");
                Await("text cmdMoreInfo", button);
            }
            if (byMouse) {
                OpenSolver();
                Click("cmdClose");
                Click("No");
            } else {
                Keys("Home Right"); // the caret stays where the user put it
                Keys("Alt+f");
                Await("focus", "mnuFile");
                Keys("p");
                Await("active", "frmMajorCalc");
                Keys("Alt+c");
                Await("active", "QMessageBox");
                Keys("Alt+n");
            }
            Await("active", "frmMinorCalc");
            Await("selected", byMouse ? "txtInputA 500" : "txtInputA ");
            EXPECT_EQ(Ask("cursorPosition txtInputA"), byMouse ? "3" : "1");
            EXPECT_EQ(Ask("table grdMinorCalc"), kTable);
            EXPECT_EQ(Ask("colour lblRatio(0)"), "#00ff00");
        }
        Keys("Control+a");
        Await("selected", "txtInputA 500");
        Keys("Return");
        Await("table grdMinorCalc", kTable);
    }
}

TEST_F(Focus, ASheetThatIsOnlyShownStoresNothing) {
    OpenProject("100 50 25");
    ShowSheet();
    EXPECT_EQ(SavedFlows(), "100 50 25");
    ClickAt("lblParameter", 5, 5); // wakes it
    Await("active", "frmMajorParam");
    EXPECT_EQ(SavedFlows(), "100 50 25");
    ClickAt("chkFollowOn", -5, 5);
    Await("active", "frmMajorParam");
    Click("chkParam");
    Await("visible frmMajorParam", "false");
    EXPECT_EQ(SavedFlows(), "100 50 25");
    ShowSheet();
    Click("txtParam(1)");
    Type("77");
    EXPECT_EQ(SavedFlows(), "77 77 77") << "what the user did enter is stored";
}

TEST_F(Focus, TheFirstClickAfterWakingKeepsTheWholeTextSelected) {
    OpenProject("100 50 25");
    ShowSheet();
    Click("txtParam(1)");
    Type("55");
    Await("text txtParam(1)", "55");
    ClickAt("txtParam(1)", 20, 6); // no double click
    Type("6");
    Await("text txtParam(1)", "655");
    ClickAt("cmdSaveGsp", 5, 5);
    Await("active", "QFileDialog");
    Keys("Escape");
    Await("active", "frmMajorCalc");
    Click("txtParam(3)");
    Await("active", "frmMajorParam");
    Type("7");
    Await("text txtParam(3)", "7");
}

TEST_F(Focus, MenusAndBoxesLeaveSelectionAndCaret) {
    Calculate();
    const std::pair<std::string, std::string> ways[] = {{"Alt_L", "Escape"},        {"Alt_L", "Alt_L"},
                                                        {"Alt+f", "Escape Escape"}, {"F10", "Escape Escape"},
                                                        {"F1", "Return"},           {"Alt+e o", "Alt+c"}};
    for (const auto& [out, back] : ways) {
        SCOPED_TRACE(out);
        for (const std::string caret : {"Control+a", "Home Right"}) {
            Keys(caret);
            Keys(out);
            Await("focus", out == "Alt_L"                   ? "QMenuBar"
                           : out == "Alt+f" || out == "F10" ? "mnuFile"
                           : out == "F1"                    ? "QPushButton"
                                                            : "txtDefPath");
            Keys(back);
            Await("active", "frmMinorCalc");
            Await("selected", caret == "Control+a" ? "txtInputA 500" : "txtInputA ");
            EXPECT_EQ(Ask("table grdMinorCalc"), caret == "Control+a" ? "" : "");
            Type("7");
            Await("text txtInputA", caret == "Control+a" ? "7" : "5700");
            Keys("Control+a");
            Type("500");
        }
    }
}

TEST_F(Focus, UpAndDownStepOnceAtTheRelease) {
    Calculate();
    const std::pair<std::string, std::string> steps[] = {
        {"Down", "325"}, {"Down", "350"}, {"Up", "325"}, {"Up", "300"}};
    for (const auto& [key, height] : steps) {
        const int before = std::atoi(Ask("presses").c_str());
        TheScreen().Key(key, true);
        AwaitThat("the key repeats", [&] { return std::atoi(Ask("presses").c_str()) > before + 15; });
        TheScreen().Key(key, false);
        Await("selected", "txtInputB " + height);
        Keys("Shift_L"); // nothing comes after it
        EXPECT_EQ(Ask("selected"), "txtInputB " + height);
    }
    EXPECT_EQ(Ask("table grdMinorCalc"), kTable);
}

TEST_F(Focus, AltTabComesBackToTheSheetAtItsDuct) {
    OpenProject("100 50 25");
    ShowSheet();
    ClickAt("scrDuctNo", -4, 6);
    Await("value scrDuctNo", "2");
    TheScreen().OpenOther();
    Await("active", "none");
    SwitchTo("frmMajorParam");
    EXPECT_EQ(Ask("value scrDuctNo"), "2");
    TheScreen().CloseOther();
}

TEST_F(Focus, WhatTheUserEnteredIsStoredWhateverTakesTheFocus) {
    OpenProject("100 50 25");
    ShowSheet();
    const auto type = [this](const std::string& flow) {
        Click("txtParam(1)");
        Await("active", "frmMajorParam");
        Await("focus", "txtParam(1)");
        Keys("Control+a");
        Type(flow);
    };
    type("11");
    TheScreen().OpenOther();
    Await("active", "none");
    SwitchTo("frmMajorParam");
    Await("cursorPosition txtParam(1)", "2"); // is still being typed
    Type("1");
    ClickAt("scrDuctNo", -4, 6);
    Await("text txtParam(1)", "111"); // duct 2 follows on
    type("22");
    TheScreen().Close("Plenair");
    Click("Cancel");
    Click("txtParam(4)");
    Keys("Escape"); // shows the record
    Await("text txtParam(1)", "22");
    type("33");
    TheScreen().Close("Duct Parameters");
    Await("visible frmMajorParam", "false");
    EXPECT_EQ(SavedFlows(), "111 33 33");
    TheScreen().CloseOther();
}

TEST_F(Focus, AClickOnWhatIsOnIsAClickAndArrowsChoose) {
    Settings.CalcBasis = 7; // there is none: the first counts
    Settings.MaxVelocity = 8;
    SaveSettings();
    Calculate();
    Click("cmdMoreInfo");
    const auto chooseInOptions = [this](const std::string& keys, const std::string& basis) {
        Keys("Alt+e o");
        Await("active", "frmInputs");
        Keys("Tab");
        Await("focus", "optCalcBasis(0)");
        Keys(keys);
        Await("checked optCalcBasis(" + basis + ")", "true");
        Keys("Alt+c");
        Await("active", "frmMinorCalc");
    };
    const auto table = [this](const std::string& expected) {
        Keys("Alt+r Return");
        Await("table grdMinorCalc", expected);
    };
    chooseInOptions("Right", "1");
    table("275 250 7.64 2.35, 250 275 7.64 2.35, 225 300 7.81 2.48, 225 325 7.22 2.04, 200 350 7.61 2.33");
    Click("optCalcBasis(0)");
    Await("selected", "txtCalcBasis(0) 0.8");
    table(kTable);
    chooseInOptions("Down", "2");
    TheScreen().OpenOther();
    Await("active", "none");
    Click("optCalcBasis(0)"); // in a window that isn't active
    Await("selected", "txtCalcBasis(0) 0.8");
    Await("active", "frmMinorCalc");
    table(kTable);
    TheScreen().CloseOther();
}

TEST_F(Focus, TheSheetsKeysAndTheSolversToolTips) {
    OpenProject("100 50 25");
    ShowSheet();
    Keys("Shift+Tab");
    Await("focus", "scrDuctNo");
    for (const auto& [key, duct] :
         {std::pair("Right", "2"), std::pair("Right", "3"), std::pair("Left", "2")}) {
        Keys(key);
        Await("value scrDuctNo", duct);
    }
    Point("cmdSaveGsp", 8, 6);
    Await("text QTipLabel", "Save Plenair Project");
    EXPECT_EQ(Ask("active"), "frmMajorParam");
}

} // namespace
} // namespace plenair
