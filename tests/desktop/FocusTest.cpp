#include "desktop/DesktopTest.h"

namespace plenair {
namespace {

class Focus : public DesktopTest {};

TEST_F(Focus, TheBenchWorks) {
    Start();
    Await("focus", "txtInputB");
    Type("300");
    Keys("Tab");
    Await("focus", "txtInputA");
    Type("500");
    Keys("Return");
    Await("selected", "txtInputA 500");
    EXPECT_EQ(Ask("table grdMinorCalc"),
              "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, 350 325 4.61 "
              "0.67, 325 350 4.61 0.67");
    Choose("mnuFile", "mnuFileMajor");
    Await("active", "frmMajorCalc");
    Click("cmdClose");
    Click("No");
    Await("active", "frmMinorCalc");
    Keys("Alt+f");
    Await("focus", "mnuFile");
    Keys("x");
    AwaitThat("the program ends", [this] { return HasEnded(); });
}

} // namespace
} // namespace plenair
