#include "desktop/DesktopTest.h"

#include <filesystem>

namespace plenair {
namespace {

// A user's work in the solver, lost and found.
class Work : public DesktopTest {
  protected:
    // The program with the solver open on two rigid ducts, and the sheet on the first of them.
    void DrawTwo() {
        Start();
        OpenSolver();
        Await("active", "frmMajorCalc");
        for (const int x : {100, 200, 300}) {
            ClickAt("picGrid", x, 100);
        }
        ShowSheet();
    }

    void ShowSheet() {
        Click("chkParam");
        Await("active", "frmMajorParam");
    }

    void OpenSolver() { Choose("mnuFile", "mnuFileMajor"); }

    void Store(const std::string& flow) {
        Click("txtParam(1)");
        Await("focus", "txtParam(1)");
        Type(flow);
        Keys("Return");
    }

    void Expect(const std::string& duct, const std::string& flow) {
        Await("text lblDuctNo", duct);
        Await("text txtParam(1)", flow);
    }

    // Whether the recovery file holds that number.
    bool IsKept(double number) const {
        std::error_code none;
        const std::string bits(reinterpret_cast<const char*>(&number), sizeof number);
        for (const auto& entry : std::filesystem::directory_iterator(File("state/plenair"), none)) {
            if (entry.path().extension() == ".recovery" &&
                ReadFile(entry.path().string()).find(bits) != std::string::npos) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(Work, AFollowOnIsTakenBackFromEitherWindow) {
    DrawTwo();
    Store("100");
    Click("scrDuctNo");
    ClickAt("scrDuctNo", -4, 6);
    Expect("R2", "100");
    Store("200");
    ClickAt("scrDuctNo", 4, 6);
    Expect("R1", "100");
    Store("300"); // over the 200 of R2 too
    Keys("Down");
    Keys("Control+z");
    Expect("R1", "100");
    ClickAt("scrDuctNo", -4, 6);
    Expect("R2", "200");
    Click("txtParam(1)");
    Type("77");
    Keys("Control+z"); // only what was typed
    Expect("R2", "200");
    Click("optDuct(0)");
    Await("active", "frmMajorCalc");
    Keys("Control+Shift+z");
    Expect("R1", "300");
    Keys("Control+z Control+z");
    Expect("R2", "100");
    Keys("Control+y");
    Expect("R2", "200");
}

TEST_F(Work, AfterACrashTheProjectIsBack) {
    DrawTwo();
    Store("123");
    AwaitThat("it is kept", [this] { return IsKept(123); });
    Kill();
    Start();
    OpenSolver();
    Await("active", "QMessageBox");
    EXPECT_EQ(Ask("text QMessageBox"), "Plenair was not closed properly. Restore the project it held?");
    Click("Yes");
    Await("active", "frmMajorCalc");
    ShowSheet();
    Expect("R1", "123");
    Click("cmdClose");
    Click("No");
    Await("active", "frmMinorCalc");
    EXPECT_TRUE(std::filesystem::is_empty(File("state/plenair")));
}

TEST_F(Work, TablesPastedAndTheManualOpened) {
    WriteFile(File("x-www-browser"), "#!/bin/sh\necho \"$1\" >\"$HOME/opened\"\n");
    std::filesystem::permissions(File("x-www-browser"), std::filesystem::perms::owner_all);
    std::filesystem::create_directory(File("manual"));
    WriteFile(File("manual/manual.html"), "");
    const auto awaitPasted = [this](const std::string& form, const std::string& part) {
        AwaitThat(part + " in " + form,
                  [&] { return TheScreen().Pasted(form).find(part) != std::string::npos; });
    };
    DrawTwo();
    Store("100.5");
    Keys("F1");
    AwaitThat("the browser is started",
              [this] { return ReadFile(File("opened")) == "file://" + File("manual/manual.html#sheet\n"); });
    Click("optDuct(0)");
    Await("active", "frmMajorCalc");
    Keys("Control+c");
    awaitPasted("UTF8_STRING", "\nR2\tRigid\t100.5\t0\t0\t0\t0\t0\t0\t0\n");
    awaitPasted("text/html", "<td align=\"right\">100.5</td>");
    awaitPasted("image/svg+xml", ">R2</text>");
    awaitPasted("image/png", "PNG");
    Click("txtParam(1)");
    Await("active", "frmMajorParam");
    Await("selected", "txtParam(1) 100.5");
    Keys("Control+c"); // in a box it is the box's own
    AwaitThat("the text is there", [] { return TheScreen().Pasted("UTF8_STRING") == "100.5"; });
    Click("cmdClose");
    Click("No");
    Await("active", "frmMinorCalc");
    Keys("Alt+h");
    Type("300");
    Keys("Tab");
    Type("500");
    Keys("Return Control+Shift+c");
    awaitPasted("UTF8_STRING", "\nRound\t\t\t375\t4.53\t0.69\n");
}

} // namespace
} // namespace plenair
