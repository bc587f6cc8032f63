#include "desktop/DesktopTest.h"
#include "platform/text/NumberText.h"
#include "project/model/ProjectBlocks.h"
#include "project/model/ProjectModel.h"

#include <filesystem>
#include <optional>

namespace plenair {
namespace {

// The lamp of the first row where there are results.
const std::string kResults = "accessibleName lblRatio(0): row 1: compact, up to 4";

class Focus : public DesktopTest {
  protected:
    // The Lite window with results, its focus in txtInputA.
    void Calculate() {
        Start();
        Play("300 Tab | focus: txtInputA\n500 Return | selected: txtInputA 500; " + kResults);
    }

    // The solver with a project of three rigid ducts, and the sheet on the first.
    void OpenProject() {
        StartProject();
        for (const double flow : {100, 50, 25}) {
            Ducts.push_back({.Colour = kRigidColour, .Flow = flow});
        }
        DuctCount = 3;
        WriteFile(File("p.gsp"), ProjectText());
        Start();
        Play(R"(mnuFile>mnuFileMajor | active: frmMajorCalc
            @cmdLoadGsp | active: QFileDialog
            p.gsp Return | active: frmMajorCalc
            @chkParam | active: frmMajorParam)");
    }

    // Saves the project by a click on its button, and gives the flows in the file.
    std::string SavedFlows() {
        Play(R"(@cmdSaveGsp | active: QFileDialog
            Control+a q.gsp Return | active: QMessageBox
            Return)");
        StartReading();
        ReadProjectText(File("q.gsp"));
        std::filesystem::remove(File("q.gsp"));
        return ShortestText(Duct(1).Flow) + " " + ShortestText(Duct(2).Flow) + " " +
               ShortestText(Duct(3).Flow);
    }

    // Another program takes the keyboard.
    void Leave() {
        m_other.emplace(QRect(0, 600, 200, 100)).Show();
        AwaitThat("it has the keyboard", [this] { return TheScreen().IsUpToDate(m_other->Id()); });
        Await("active", "none");
    }

    std::optional<OtherWindow> m_other;
};

TEST_F(Focus, LiteComesBackFromTheSolverAsItWas) {
    Calculate();
    const std::string back = " | active: frmMinorCalc; " + kResults;
    Play("@cmdMoreInfo | text cmdMoreInfo: &Less\n"
         "mnuFile>mnuFileMajor | active: frmMajorCalc\n@cmdClose @No" +
         back + "; selected: txtInputA 500; cursorPosition txtInputA: 3\n" +
         "Home Right Alt+f | focus: mnuFile\n" // the caret stays where the user put it
         "p | active: frmMajorCalc\nAlt+c | active: QMessageBox\nAlt+n" +
         back + "; selected: txtInputA ; cursorPosition txtInputA: 1");
}

TEST_F(Focus, ASheetThatIsOnlyShownStoresNothing) {
    OpenProject();
    EXPECT_EQ(SavedFlows(), "100 50 25");
    Play("@lblParameter:5,5 | active: frmMajorParam"); // wakes it
    EXPECT_EQ(SavedFlows(), "100 50 25");
    Play("@chkFollowOn:-5,5 | active: frmMajorParam\n@chkParam | visible frmMajorParam: false");
    EXPECT_EQ(SavedFlows(), "100 50 25");
    Play("@chkParam | active: frmMajorParam\n@txtParam(1) 77");
    EXPECT_EQ(SavedFlows(), "77 77 77") << "what the user did enter is stored";
}

TEST_F(Focus, TheFirstClickAfterWakingKeepsTheWholeTextSelected) {
    OpenProject();
    Play(R"(@txtParam(1) 55 | text txtParam(1): 55
        @txtParam(1):20,6 6 | text txtParam(1): 655
        @cmdSaveGsp:5,5 | active: QFileDialog
        Escape | active: frmMajorCalc
        @txtParam(3) | active: frmMajorParam
        7 | text txtParam(3): 7)");
    Point("cmdSaveGsp"); // a tool tip needs no waking
    Play("| text QTipLabel: Save Plenair Project; active: frmMajorParam");
}

TEST_F(Focus, MenusAndBoxesLeaveSelectionAndCaret) {
    Calculate();
    const std::tuple<std::string, std::string, std::string> ways[] = {
        {"Alt_L", "QMenuBar", "Escape"}, {"Alt_L", "QMenuBar", "Alt_L"},  {"Alt+f", "mnuFile", "Escape"},
        {"F10", "mnuFile", "Escape"},    {"F1", "QPushButton", "Return"}, {"Alt+e o", "txtDefPath", "Alt+c"}};
    for (const auto& [out, focus, back] : ways) {
        for (const bool all : {true, false}) {
            Play((all ? "Control+a " : "Home Right ") + out + " | focus: " + focus + "\n" + back +
                 " | active: frmMinorCalc; selected: txtInputA " + (all ? "500" : "") +
                 "; accessibleName lblRatio(0): row 1: no duct\n7 | text txtInputA: " + (all ? "7" : "5700") +
                 "\nControl+a 500");
        }
    }
    Click("txtInputB", 20, 6, 3); // its own menu
    Play("| focus: qt_edit_menu\nEscape | selected: txtInputB 300\n"
         "@txtInputB:3,6 | selected: txtInputB ; cursorPosition txtInputB: 0");
}

TEST_F(Focus, UpAndDownStepOnceAtTheRelease) {
    Calculate();
    const std::pair<std::string, std::string> steps[] = {{"Down", "325"}, {"Up", "300"}};
    for (const auto& [key, height] : steps) {
        const int before = Presses();
        TheScreen().Key(key, true);
        AwaitThat("the key repeats", [&] { return Presses() > before + 15; });
        EXPECT_NE(Ask("text txtInputB"), height) << "not before the release";
        TheScreen().Key(key, false);
        Await("selected", "txtInputB " + height);
        Key("Shift_L"); // nothing comes after it
        EXPECT_EQ(Ask("selected"), "txtInputB " + height);
    }
    Play("| " + kResults);
}

TEST_F(Focus, WhatTheUserEnteredIsStoredWhateverTakesTheFocus) {
    OpenProject();
    Play("@txtParam(1) | active: frmMajorParam; focus: txtParam(1)\nControl+a 11");
    Leave();
    SwitchTo("frmMajorParam");
    Play("| cursorPosition txtParam(1): 2\n" // it is still being typed
         "1 @scrDuctNo:-4,6 | text txtParam(1): 111; value scrDuctNo: 2");
    EXPECT_EQ(SavedFlows(), "111 111 111"); // the later ducts follow on
    Play("@scrDuctNo:-4,6 | active: frmMajorParam; value scrDuctNo: 3");
    Leave();
    SwitchTo("frmMajorParam");
    EXPECT_EQ(Ask("value scrDuctNo"), "3") << "at its duct";
}

// A window manager may give the keyboard to a window that is hidden meanwhile, and may even show it if it was
// busy when it heard of both.
TEST_F(Focus, ASheetThatIsHiddenBeforeItCameDoesNotComeAndNeverHadTheKeyboard) {
    Start();
    Play("Alt+f p | visible picGrid: true");
    Point("chkParam");
    for (int times = 0; times < 20; ++times) {
        for (const bool down : {true, false, true, false}) {
            TheScreen().Button(1, down);
        }
        const int before = Presses();
        int asked = 0;
        AwaitThat("the sheet is as the program has it, and keys come to where the server has the keyboard",
                  [&] {
                      // One more, as the first may go to the sheet just when that goes.
                      if (asked++ % 100 == 0) {
                          TheScreen().Chord("Tab");
                      }
                      const bool isSeen = TheScreen().Windows().find("Duct") != std::string::npos;
                      return Presses() > before && IsSettled() &&
                             isSeen == (Ask("visible frmMajorParam") == "true");
                  });
    }
}

} // namespace
} // namespace plenair
