#include "windows/WindowTest.h"

#include <QElapsedTimer>

namespace {

// A run from the first click on the grid to the report on the disk. The fixture counts what paints the sheet.
class SolverRun : public SolverTest, public QObject {
  protected:
    SolverRun() {
        questions["said"] = [this] { return desktop.LastText(); };
        questions["files"] = [this] {
            return std::string(fs::exists(File("plant.gsp")) ? "project " : "") +
                   (fs::exists(File("plant.Gus")) ? "report" : "");
        };
    }
    bool eventFilter(QObject*, QEvent* event) override {
        m_paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int m_paints = 0;
};

TEST_F(SolverRun, AWholeProjectByMouseAndKeys) {
    std::string files[2];
    for (const bool comma : {false, true}) {
        SCOPED_TRACE(comma ? "decimal comma" : "decimal point");
        SetNumberLocale({comma ? "," : ".", comma ? "." : ","});
        std::string script = R"(
            txtParam(1)=100 Return Return 200 Return 5000 Return 5 Return 0.8 Return @next @next
            txtParam(1)=500 Return Return 300 Return 2500.5 Return 8 Return 1 Return @next
            txtParam(4)=0 Return 5 Return Return Return 0.5 Return @back | sheet: 500 0 300 2500.5 8 1 0 0
            ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | looks: LLLLLLLL; duct: R1 #ff0000; visible cmdCalcPressure: true
            | sheet: 100 175 200 5000 3.03 0.63 225 0
            @next | sheet: 100 200 200 5000 2.63 0.73 225 0
            @next | sheet: 500 350 300 2500.5 5.03 0.83 375 0
            @next | sheet: 0 0 0 0 5 0 0 0.5
            @txtParam(1) 7 | text txtParam(1): 0
            ?<1,2,3,4 ?No @cmdCalcPressure)";
        for (std::size_t at = 1; comma && at + 1 < script.size(); ++at) {
            script[at] = script[at] == '.' && std::isdigit(script[at + 1]) != 0 ? ',' : script[at];
        }
        OpenSheet("RFRC");
        Play(script);
        EXPECT_EQ(desktop.LastText(), "Total Pressure is 16 Pa.\n\nProceed with plot?");
        files[comma ? 1 : 0] = ReadFile(File("plant.gsp")) + ReadFile(File("plant.Gus"));
        Play("@cmdClose | visible cmdMoreInfo: true"); // without a question
        EndProgram();
        OpenSheet("F"); // nothing of the solved project is left
        Play("?- @cmdSaveGsp | sheet: 0 0 0 0 0 0 0 0; looks: olooooll; visible cmdCalcPressure: false");
        EXPECT_EQ(desktop.LastDialog().FileName, "");
        EndProgram();
    }
    EXPECT_EQ(files[0], files[1]) << "files don't depend on the locale";
}

TEST_F(SolverRun, ASecondRunAfterAFailedOne) {
    OpenSheet("RRR");
    Play(R"(?Cancel @cmdGus ?Ok ?- @cmdGus ?Ok ?=no/such/folder/plant.gsp @cmdGus | files: ; looks: olooooll
        txtParam(1)=100 Return Return 200 Return 5000 Return 5 Return 0.8 Return)");
    Find<CheckBox>("chkFollowOn").setChecked(false);
    // The click on the button stores the last text; the sheet stays on the duct that failed. The results of
    // the first run are the caps of the second; the report is an open project.
    Play(R"(@next txtParam(6)=0 ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | duct: R2 #ff0000; files: project 
        | visible cmdCalcPressure: false; said: Unexpected zero value encountered.  Solution incomplete.
        txtParam(6)=0.8 ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | sheet: 100 200 200 5000 2.63 0.45 225 0
        @next | sheet: 100 175 200 5000 3.03 0.63 225 0
        ?Yes ?=plant.Gus @cmdLoadGsp | looks: olooooll
        ?<3 ?No @cmdCalcPressure)");
    EXPECT_TRUE(desktop.LastText().starts_with("Total Pressure is 3 Pa."));
}

// A screen shows some sixty pictures a second.
TEST_F(SolverRun, PaintsTheSheetAtMostOnceAFrame) {
    OpenSheet(std::string(30, 'R'));
    Play("txtParam(1)=100 Return Return 200 Return 5000 Return 5 Return 0.8 Return");
    Sheet().installEventFilter(this);
    QElapsedTimer time;
    time.start();
    Play("?Ok ?=plant.gsp ?Ok ?Ok @cmdGus");
    EXPECT_GE(m_paints, 1);
    EXPECT_LE(m_paints, time.elapsed() / 17 + 2);
}

} // namespace
