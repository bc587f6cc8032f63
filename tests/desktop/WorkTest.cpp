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
    Click("chkParam");
    Await("active", "frmMajorParam");
    Expect("R1", "123");
    Click("cmdClose");
    Click("No");
    Await("active", "frmMinorCalc");
    EXPECT_TRUE(std::filesystem::is_empty(File("state/plenair")));
}

TEST_F(Work, ATablePasted) {
    DrawTwo();
    Store("100.5");
    Click("optDuct(0)");
    Await("active", "frmMajorCalc");
    Keys("Control+c");
    AwaitThat("the table is there", [] {
        return TheScreen().Pasted("UTF8_STRING").ends_with("\nR2\tRigid\t100.5\t0\t0\t0\t0\t0\t0\t0\n");
    });
    EXPECT_NE(TheScreen().Pasted("text/html").find("<td align=\"right\">100.5</td>"), std::string::npos);
    EXPECT_NE(TheScreen().Pasted("image/svg+xml").find(">R2</text>"), std::string::npos);
    EXPECT_EQ(TheScreen().Pasted("image/png").substr(1, 3), "PNG");
    // In a box it is the box's own.
    Click("txtParam(1)");
    Await("active", "frmMajorParam");
    Await("selected", "txtParam(1) 100.5");
    Keys("Control+c");
    AwaitThat("the text is there", [] { return TheScreen().Pasted("UTF8_STRING") == "100.5"; });
}

} // namespace
} // namespace plenair
