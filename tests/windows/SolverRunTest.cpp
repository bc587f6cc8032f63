#include "windows/SolverTest.h"

#include <algorithm>
#include <filesystem>

namespace plenair {
namespace {

// A run from the first click on the grid to the report on the disk.
class SolverRun : public SolverTest {
  protected:
    // Numbers as a user of this desktop types and sees them.
    std::string Local(std::string number) const {
        std::replace(number.begin(), number.end(), '.', m_decimalMark);
        return number;
    }

    void UseDecimalMark(char mark) {
        m_decimalMark = mark;
        SetNumberLocale({.decimalMark = std::string(1, mark), .groupMark = mark == ',' ? "." : ","});
    }

    // Fills the boxes from the first on: the text of each, and Enter, or only Enter for "-".
    void FillBoxes(const std::vector<std::string>& texts) const {
        EnterBox(1, "");
        for (const std::string& text : texts) {
            if (text != "-") {
                Type(Local(text).c_str());
            }
            Press(Qt::Key_Return);
        }
    }

    void ExpectSolution(const std::string& file) {
        desktop.ExpectMessage(MessageAnswer::Ok); // will save
        desktop.ExpectFile(file);
        desktop.ExpectMessage(MessageAnswer::Ok); // saved
        desktop.ExpectMessage(MessageAnswer::Ok); // solved
    }

    // Draws two rigid ducts with a flexible one between them and a connection at the end, and describes them.
    void DrawAndDescribe() const {
        DrawRow(3, "RFRC");
        ShowSheet();
        FillBoxes({"100", "-", "200", "5000", "5", "0.8"});
        ScrollOn();
        ScrollOn();
        FillBoxes({"500", "-", "300", "2500.5", "8", "1"});
        ScrollOn();
        FillBoxes({"-", "-", "-", "0", "5", "-", "-", "0.5"});
    }

  private:
    char m_decimalMark = '.';
};

TEST_F(SolverRun, AWholeProjectByMouseAndKeys) {
    std::string files[2];
    for (const bool comma : {false, true}) {
        SCOPED_TRACE(comma ? "decimal comma" : "decimal point");
        UseDecimalMark(comma ? ',' : '.');
        OpenSolver();
        DrawAndDescribe();
        EXPECT_EQ(SheetTexts(), Local("0 0 0 0 5 0 0 0.5"));
        ScrollBack();
        EXPECT_EQ(SheetTexts(), Local("500 0 300 2500.5 8 1 0 0"));
        ScrollBack();
        EXPECT_EQ(SheetTexts(), Local("100 0 200 5000 5 0.8 0 0"));

        desktop.Log.clear();
        ExpectSolution(File("plant.gsp"));
        ClickOn("cmdGus");
        EXPECT_EQ(desktop.Log,
                  (std::vector<std::string>{"message: Gus will begin by saving your project.", "dialog",
                                            "message: Plenair Project Saved", "hourglass", "default pointer",
                                            "call", "message: Plenair Solution Complete"}));
        const std::string project = ReadFile(File("plant.gsp"));
        const std::string report = ReadFile(File("plant.Gus"));
        EXPECT_EQ(std::count(project.begin(), project.end(), '\n'), 75);
        EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 75);
        EXPECT_EQ(project.find(','), std::string::npos);
        files[comma ? 1 : 0] = project + report;
        EXPECT_NE(files[0], "");

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

        desktop.ExpectInput("1,2, 3,4");
        desktop.ExpectMessage(MessageAnswer::No);
        ClickOn("cmdCalcPressure");
        EXPECT_EQ(desktop.LastText(), "Total Pressure is 16 Pa.\n\nProceed with plot?");
        ClickOn("cmdClose"); // without a question
        EXPECT_TRUE(Window().isVisible());
        EndProgram();
    }
    EXPECT_EQ(files[0], files[1]) << "files don't depend on the locale";
}

TEST_F(SolverRun, ASecondRunAfterAFailedOne) {
    OpenSolver();
    DrawRow(3, "RRR");
    ShowSheet();
    FillBoxes({"100", "-", "200", "5000", "5", "0.8"});
    Get<CheckBox>("chkFollowOn").setChecked(false);
    ScrollOn();
    EnterBox(6, "0"); // the click on the button stores it
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectFile(File("plant.gsp"));
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectMessage(MessageAnswer::Ok);
    ClickOn("cmdGus");
    const MessageRequest& failure = desktop.Messages().back();
    EXPECT_EQ(failure.title + ": " + failure.text,
              "Error: Unexpected zero value encountered.  Solution incomplete.");
    EXPECT_EQ(failure.icon, MessageIcon::Critical);
    EXPECT_EQ(desktop.Log.back(), "default pointer");
    EXPECT_FALSE(std::filesystem::exists(File("plant.Gus")));
    EXPECT_EQ(Solved, FlagClear);
    EXPECT_FALSE(Get("cmdCalcPressure").isVisible());
    EXPECT_EQ(DuctNo(), "R2 #ff0000") << "the sheet stays on the duct that failed";
    EXPECT_EQ(SheetTexts(), "100 0 200 5000 5 0 0 0");
    EXPECT_EQ(SheetLooks(), "olooooll");

    EnterBox(6, "0.8");
    ExpectSolution(File("plant.gsp"));
    ClickOn("cmdGus");
    EXPECT_NE(Solved, FlagClear);
    EXPECT_TRUE(std::filesystem::exists(File("plant.Gus")));
    // What the first run solved is the cap of the second.
    EXPECT_NE(ReadFile(File("plant.gsp")).find("\r\n3.03\r\n"), std::string::npos);
    ScrollOn();
    EXPECT_EQ(SheetTexts(), "100 175 200 5000 3.03 0.63 225 0");
}

TEST_F(SolverRun, CancelledAtEachStepLeavesTheProject) {
    OpenSolver();
    ClickOn("cmdGus"); // of an empty project
    EXPECT_TRUE(desktop.Log.empty());
    DrawRow(3, "R");
    ShowSheet();
    FillBoxes({"100", "-", "200", "5000", "5", "0.8"});
    desktop.ExpectMessage(MessageAnswer::Cancel);
    ClickOn("cmdGus");
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectCancel();
    ClickOn("cmdGus");
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectFile(File("no/such/folder/plant.gsp"));
    ClickOn("cmdGus");
    EXPECT_EQ(Solved, FlagClear);
    EXPECT_EQ(SheetTexts(), "100 0 200 5000 5 0.8 0 0");
    EXPECT_EQ(SheetLooks(), "olooooll");
}

TEST_F(SolverRun, OpenedAgainAfterASolvedProject) {
    OpenSolver();
    DrawRow(3, "R");
    ShowSheet();
    FillBoxes({"100", "-", "200", "5000", "5", "0.8"});
    ExpectSolution(File("plant.gsp"));
    ClickOn("cmdGus");
    ClickOn("cmdClose");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    EndProgram();
    OpenSolver();
    EXPECT_FALSE(Get("cmdCalcPressure").isVisible());
    EXPECT_FALSE(Sheet().isVisible());
    DrawRow(3, "F");
    ShowSheet();
    EXPECT_EQ(SheetTexts(), "0 0 0 0 0 0 0 0");
    EXPECT_EQ(SheetLooks(), "olooooll");
    desktop.ExpectCancel();
    ClickOn("cmdSaveGsp");
    EXPECT_EQ(desktop.LastDialog().FileName, "") << "without the name of the last project";
    EXPECT_EQ(desktop.Beeps(), 0);
}

TEST_F(SolverRun, LoadingASolvedProjectOpensIt) {
    OpenSolver();
    DrawAndDescribe();
    ExpectSolution(File("plant.gsp"));
    ClickOn("cmdGus");
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectFile(File("plant.Gus"));
    ClickOn("cmdLoadGsp");
    EXPECT_EQ(SheetTexts(), "100 175 200 5000 3.03 0.63 225 0") << "results count as inputs";
    EXPECT_EQ(SheetLooks(), "olooooll");
    EXPECT_TRUE(Get("cmdCalcPressure").isVisible());
    desktop.ExpectInput("3 ");
    desktop.ExpectMessage(MessageAnswer::No);
    ClickOn("cmdCalcPressure");
    EXPECT_EQ(desktop.LastText(), "Total Pressure is 2 Pa.\n\nProceed with plot?");
}

} // namespace
} // namespace plenair
