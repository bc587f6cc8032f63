#include "windows/SolverTest.h"

#include <QElapsedTimer>

namespace {

// A run from the first click on the grid to the report on the disk.
class SolverRun : public SolverTest {
  protected:
    // Numbers as a user of this desktop types and sees them.
    static std::string Local(std::string number) {
        std::replace(number.begin(), number.end(), '.', CurrentNumberLocale().DecimalMark[0]);
        return number;
    }

    // Fills the boxes from the first on: the text of each, and Enter, or only Enter for "-".
    void FillBoxes(const std::vector<std::string>& texts) const {
        EnterBox(1, "");
        for (const std::string& text : texts) {
            Type(text == "-" ? "" : Local(text).c_str());
            Press(Qt::Key_Return);
        }
    }

    // Solves the project, which is saved as plant.gsp. One message follows.
    void Solve() {
        desktop.ExpectMessage(MessageAnswer::Ok); // will save
        desktop.ExpectFile(File("plant.gsp"));
        desktop.ExpectMessage(MessageAnswer::Ok); // saved
        desktop.ExpectMessage(MessageAnswer::Ok);
        ClickOn("cmdGus");
    }

    std::string TotalOf(const char* path) {
        desktop.ExpectInput(path);
        desktop.ExpectMessage(MessageAnswer::No);
        ClickOn("cmdCalcPressure");
        return desktop.LastText().substr(0, desktop.LastText().find('\n'));
    }
};

TEST_F(SolverRun, AWholeProjectByMouseAndKeys) {
    std::string files[2];
    for (const bool comma : {false, true}) {
        SCOPED_TRACE(comma ? "decimal comma" : "decimal point");
        SetNumberLocale({comma ? "," : ".", comma ? "." : ","});
        OpenSheet("RFRC");
        FillBoxes({"100", "-", "200", "5000", "5", "0.8"});
        ScrollOn();
        ScrollOn();
        FillBoxes({"500", "-", "300", "2500.5", "8", "1"});
        ScrollOn();
        FillBoxes({"-", "-", "-", "0", "5", "-", "-", "0.5"});
        ScrollBack();
        EXPECT_EQ(SheetTexts(), Local("500 0 300 2500.5 8 1 0 0"));
        Solve();
        const std::string project = ReadFile(File("plant.gsp"));
        const std::string report = ReadFile(File("plant.Gus"));
        EXPECT_EQ(project.find(','), std::string::npos);
        files[comma ? 1 : 0] = project + report;
        EXPECT_TRUE(Get("cmdCalcPressure").isVisible());
        EXPECT_EQ(DuctNo(), "R1 #ff0000");
        EXPECT_EQ(SheetLooks(), "LLLLLLLL");
        const char* solved[] = {"100 175 200 5000 3.03 0.63 225 0", "100 200 200 5000 2.63 0.73 225 0",
                                "500 350 300 2500.5 5.03 0.83 375 0", "0 0 0 0 5 0 0 0.5"};
        for (const char* texts : solved) {
            EXPECT_EQ(SheetTexts(), Local(texts));
            ScrollOn();
        }
        ClickOn("txtParam(1)");
        Type("7");
        EXPECT_EQ(SheetBox(1).Text(), "0") << "a solved project is closed to changes";
        EXPECT_EQ(TotalOf("1,2, 3,4"), "Total Pressure is 16 Pa.");
        ClickOn("cmdClose"); // without a question
        EXPECT_TRUE(Window().isVisible());
        EndProgram();
        OpenSheet("F"); // nothing of the solved project is left
        EXPECT_FALSE(Get("cmdCalcPressure").isVisible());
        EXPECT_EQ(SheetTexts(), "0 0 0 0 0 0 0 0");
        EXPECT_EQ(SheetLooks(), "olooooll");
        desktop.ExpectCancel();
        ClickOn("cmdSaveGsp");
        EXPECT_EQ(desktop.LastDialog().FileName, "");
        EndProgram();
    }
    EXPECT_EQ(files[0], files[1]) << "files don't depend on the locale";
}

TEST_F(SolverRun, ASecondRunAfterAFailedOne) {
    OpenSheet("RRR");
    FillBoxes({"100", "-", "200", "5000", "5", "0.8"});
    Get<CheckBox>("chkFollowOn").setChecked(false);
    ScrollOn();
    EnterBox(6, "0"); // the click on the button stores it
    Solve();
    EXPECT_EQ(desktop.LastText(), "Unexpected zero value encountered.  Solution incomplete.");
    EXPECT_FALSE(fs::exists(File("plant.Gus")));
    EXPECT_FALSE(Get("cmdCalcPressure").isVisible());
    EXPECT_EQ(DuctNo(), "R2 #ff0000") << "the sheet stays on the duct that failed";
    EnterBox(6, "0.8");
    Solve();
    EXPECT_EQ(SheetTexts(), "100 200 200 5000 2.63 0.45 225 0")
        << "the results of the first run are its caps";
    ScrollOn();
    EXPECT_EQ(SheetTexts(), "100 175 200 5000 3.03 0.63 225 0");

    // The report is an open project, and the results count as inputs.
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectFile(File("plant.Gus"));
    ClickOn("cmdLoadGsp");
    EXPECT_EQ(SheetLooks(), "olooooll");
    EXPECT_EQ(TotalOf("3 "), "Total Pressure is 3 Pa.");
}

// A screen shows some sixty pictures a second.
TEST_F(SolverRun, PaintsTheSheetAtMostOnceAFrame) {
    class Paints : public QObject {
      public:
        int Count = 0;

      protected:
        bool eventFilter(QObject*, QEvent* event) override {
            Count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paints;
    OpenSheet(std::string(30, 'R'));
    FillBoxes({"100", "-", "200", "5000", "5", "0.8"});
    Sheet().installEventFilter(&paints);
    QElapsedTimer time;
    time.start();
    Solve();
    EXPECT_GE(paints.Count, 1);
    EXPECT_LE(paints.Count, time.elapsed() / 17 + 2);
}

TEST_F(SolverRun, CancelledAtEachStep) {
    OpenSolver();
    ClickOn("cmdGus"); // does nothing for an empty project
    DrawRow("R");
    desktop.ExpectMessage(MessageAnswer::Cancel);
    ClickOn("cmdGus");
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectCancel();
    ClickOn("cmdGus");
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectFile(File("no/such/folder/plant.gsp"));
    ClickOn("cmdGus");
    EXPECT_EQ(desktop.Log.back(), "dialog");
    EXPECT_EQ(Solved, kFlagClear);
}

} // namespace
