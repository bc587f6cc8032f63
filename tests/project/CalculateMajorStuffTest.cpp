#include "project/FakeWindows.h"

#include "project/CalculateMajorStuff.h"
#include "project/ProjectBlocks.h"

#include <filesystem>

namespace plenair {

namespace {

class SolveTest : public ProjectTest {
  protected:
    // Answers everything up to the start of the search.
    void ExpectSave() {
        desktop.ExpectMessage(MessageAnswer::Ok);
        desktop.ExpectFile(File("plant.gsp"));
        desktop.ExpectMessage(MessageAnswer::Ok);
    }

    // Width, velocity, loss and equivalent diameter as they stand in the record.
    static std::string Result(const DuctRecord& duct) {
        std::ostringstream text;
        text << duct.Width << ' ' << duct.Height << ' ' << duct.Velocity << ' ' << duct.LossPerMetre << ' '
             << duct.EquivRound;
        return text.str();
    }
};

} // namespace

TEST_F(SolveTest, WorkedExamples) {
    struct Case {
        const char* name;
        float colour;
        double flow;
        double height;
        double velocity;
        double loss;
        std::string result;
        double working;
    };
    const Case cases[] = {
        {"rigid", RigidColour, 100, 200, 5, 0.8, "175 200 3.03 0.63 225", 3.40},
        {"flexible", FlexibleColour, 100, 200, 5, 0.8, "200 200 2.63 0.73 225", 2.77},
        {"unknown colour", 0, 100, 200, 5, 0.8, "200 200 2.63 0.73 225", 2.77},
        {"larger", RigidColour, 500, 300, 8, 1, "350 300 5.03 0.83 375", 5.45},
        {"the first candidate will do", RigidColour, 100, 200, 3, 100, "200 200 2.63 0.45 225", 2.99},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        StartProject();
        AddSized(row.colour, row.flow, row.height, row.velocity, row.loss);
        SolveDucts(windows);
        EXPECT_EQ(Result(Ducts[1]), row.result);
        EXPECT_NEAR(Settings.MaxVelocity, row.working, 0.006);
        EXPECT_EQ(Ducts[1].Flow, row.flow);
    }
}

TEST_F(SolveTest, WholeRunInItsOrder) {
    AddSized(RigidColour, 100, 200, 5, 0.8);
    AddSized(ConnectionColour, 0, 0, 4, 0);
    Ducts.back().ConnCoefficient = 0.5F;
    AddSized(FlexibleColour, 100, 200, 5, 0.8);
    RedrawProject(windows);
    sheet.SetScrollMaximum(3);
    ExpectSave();
    desktop.ExpectMessage(MessageAnswer::Ok);
    SolveProject(windows);
    EXPECT_EQ(desktop.Log,
              (Lines{"message: Gus will begin by saving your project.", "dialog",
                     "message: Plenair Project Saved", "hourglass", "repaint 1: 100 0 200 0 5 0.8 0 0",
                     "repaint 2: 0 0 0 0 4 0 0 0.5", "repaint 3: 100 0 200 0 5 0.8 0 0", "default pointer",
                     "pressure button", "call", "message: Plenair Solution Complete"}));
    EXPECT_EQ(desktop.Messages().front().title, "Solve");
    EXPECT_EQ(desktop.Messages().front().buttons, MessageButtons::OkCancel);
    EXPECT_EQ(desktop.Messages().back().title, "Plenair");
    EXPECT_EQ(desktop.Messages().back().icon, MessageIcon::Exclamation);

    EXPECT_EQ(Solved, FlagSet);
    EXPECT_EQ(sheet.value, 1);
    EXPECT_EQ(sheet.AllTexts(), "100 175 200 0 3.03 0.63 225 0");
    EXPECT_EQ(sheet.Looks(), "LLLLLLLL");
    EXPECT_EQ(Result(Ducts[2]), "0 0 4 0 0");
    EXPECT_EQ(Result(Ducts[3]), "200 200 2.63 0.73 225");

    // The inputs survive in the project file, the results are in the report.
    EXPECT_EQ(ReadFile(File("plant.Gus")), ProjectText());
    EXPECT_NE(ReadFile(File("plant.gsp")).find("\r\n5\r\n"), std::string::npos);
    EXPECT_EQ(ReadFile(File("plant.gsp")).find("3.03"), std::string::npos);

    SolveProject(windows);
    EXPECT_EQ(desktop.Log.back(), "beep");
}

TEST_F(SolveTest, SheetShownMarksEachDuctAndEndsAtTheFirst) {
    for (int duct = 0; duct < 3; ++duct) {
        AddSized(RigidColour, 100, 200, 5, 0.8);
    }
    sheet.visible = true;
    SolveDucts(windows);
    EXPECT_EQ(sheet.value, 1);
    EXPECT_EQ(sheet.caption, "R1");
    EXPECT_EQ(Described(solver.picGrid).back(), "text R1: 0,0");
}

TEST_F(SolveTest, DecimalCommaGivesTheSame) {
    SetNumberLocale({",", "."});
    AddSized(RigidColour, 100, 200, 5, 0.8);
    SolveDucts(windows);
    EXPECT_EQ(sheet.texts[5], "3,03");
    EXPECT_EQ(Result(Ducts[1]), "175 200 3.03 0.63 225");
}

TEST_F(SolveTest, NothingToDoOrNoWish) {
    SolveProject(windows); // no ducts
    EXPECT_TRUE(desktop.Log.empty());
    AddSized(RigidColour, 100, 200, 5, 0.8);
    desktop.ExpectMessage(MessageAnswer::Cancel);
    SolveProject(windows);
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectCancel();
    SolveProject(windows);
    std::filesystem::create_directory(File("plant.gsp"));
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectFile(File("plant.gsp"));
    SolveProject(windows);
    EXPECT_EQ(desktop.Log.back(), "dialog");
    EXPECT_EQ(Ducts[1].Width, 0);
    EXPECT_EQ(Solved, FlagClear);
}

TEST_F(SolveTest, ConnectionsOnlyStayAsTheyAre) {
    AddSized(ConnectionColour, 0, 0, 0, 0);
    const std::string before = ProjectText();
    ExpectSave();
    desktop.ExpectMessage(MessageAnswer::Ok);
    SolveProject(windows);
    EXPECT_EQ(Solved, FlagSet);
    EXPECT_EQ(ReadFile(File("plant.Gus")), before);
}

TEST_F(SolveTest, FailuresNameTheDuct) {
    const std::string zero = "Unexpected zero value encountered.  Solution incomplete.";
    struct Case {
        const char* name;
        double flow;
        double height;
        double velocity;
        double loss;
        std::string message; // how it begins
    };
    const Case cases[] = {
        {"no flow", 0, 200, 5, 0.8, zero},
        {"no height", 100, 0, 5, 0.8, zero},
        {"no velocity", 100, 200, 0, 0.8, zero},
        {"no loss", 100, 200, 5, 0, zero},
        {"a loss too small for 32 bits", 100, 200, 5, 1E-60, zero},
        {"caps not met", 1, 1, 0.125, 1E-7,
         "Duct R2 can't be solved: no velocity down to 0.01 m/s keeps the loss within 0.0000001 Pa/m at a "
         "height "
         "of 1 mm."},
        {"negative loss", 100, 200, 5, -1, "Duct R2 can't be solved: no velocity down to 0.01 m/s"},
        {"no velocity to try", 100, 200, 0.01, 0.8,
         "Duct R2 can't be solved: its velocity cap of 0.01 m/s leaves no velocity"},
        {"negative velocity", 100, 200, -5, 0.8, "Duct R2 can't be solved: its velocity cap of -5 m/s"},
        {"negative flow", -100, 200, 5, 0.8, "Duct R2 can't be solved: its flow is negative."},
        {"negative height", 100, -200, 5, 0.8, "Duct R2 can't be solved: its height is negative."},
        {"no width", 0.2, 200, 20, 0.8,
         "Duct R2 can't be solved: at a velocity of 19.99 m/s and a height of 200 mm no width is left."},
        {"beyond 32 bits", 100, 200, 1E200, 0.8, "Duct R2 can't be solved: its values"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        StartProject();
        desktop.Log.clear();
        sheet.value = 1;
        AddSized(RigidColour, 100, 200, 5, 0.8);
        AddSized(RigidColour, row.flow, row.height, row.velocity, row.loss);
        AddSized(RigidColour, 100, 200, 5, 0.8);
        DrawPending = FlagSet;
        desktop.ExpectMessage(MessageAnswer::Ok);
        SolveDucts(windows);
        EXPECT_EQ(desktop.LastText().substr(0, row.message.size()), row.message);
        EXPECT_NE(desktop.LastText().find("  Solution incomplete."), std::string::npos);
        EXPECT_EQ(desktop.Messages().back().title, "Error");
        EXPECT_EQ(desktop.Messages().back().icon, MessageIcon::Critical);
        EXPECT_EQ(desktop.Log.back(), "default pointer");
        EXPECT_EQ(RunFailed, FlagSet);
        EXPECT_EQ(sheet.value, 2);
        EXPECT_EQ(Result(Ducts[1]), "175 200 3.03 0.63 225"); // solved before
        EXPECT_EQ(Ducts[2].Width, 0);
        EXPECT_EQ(Ducts[2].Velocity, row.velocity);
        EXPECT_EQ(Ducts[3].Width, 0);
        EXPECT_EQ(DrawPending, FlagClear); // redrawn
    }
}

TEST_F(SolveTest, SecondRunAfterAFailedOne) {
    AddSized(RigidColour, 100, 200, 5, 0.8);
    AddSized(RigidColour, 100, 0, 5, 0.8);
    ExpectSave();
    desktop.ExpectMessage(MessageAnswer::Ok);
    SolveProject(windows);
    EXPECT_EQ(Solved, FlagClear);
    EXPECT_FALSE(solver.pressureVisible);
    EXPECT_FALSE(std::filesystem::exists(File("plant.Gus")));
    EXPECT_EQ(Settings.MaxVelocity, 5); // stored before the zero is seen

    // The results of the first duct count as its caps now.
    Ducts[2].Height = 200;
    ExpectSave();
    desktop.ExpectMessage(MessageAnswer::Ok);
    SolveProject(windows);
    EXPECT_EQ(Solved, FlagSet);
    EXPECT_NE(ReadFile(File("plant.gsp")).find("3.03"), std::string::npos);
    EXPECT_EQ(Result(Ducts[1]), "200 200 2.63 0.45 225");
    EXPECT_EQ(Result(Ducts[2]), "175 200 3.03 0.63 225");
}

TEST_F(SolveTest, ReportThatCannotBeWrittenDoesNotUndoTheSolution) {
    AddSized(RigidColour, 100, 200, 5, 0.8);
    std::filesystem::create_directory(File("plant.Gus"));
    ExpectSave();
    desktop.ExpectMessage(MessageAnswer::Cancel);
    desktop.ExpectMessage(MessageAnswer::Ok);
    SolveProject(windows);
    EXPECT_EQ(Solved, FlagSet);
    EXPECT_EQ(desktop.LastText(), "Plenair Solution Complete");
}

} // namespace plenair
