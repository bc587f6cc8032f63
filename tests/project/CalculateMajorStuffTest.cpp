#include "project/FakeWindows.h"
#include "project/model/ProjectBlocks.h"

namespace {

class SolveTest : public ProjectTest {
  protected:
    std::string Ask(const std::string& question) override {
        return question == "working" ? Format(Settings.MaxVelocity, "0.00") : ProjectTest::Ask(question);
    }
};

TEST_F(SolveTest, WorkedExamples) {
    Play(R"(Start +R:100,0,200,0,5,0.8 SolveDucts | ducts: R 100 175 200 0 3.03 0.63 225; working: 3.40
            Start +F:100,0,200,0,5,0.8 SolveDucts | ducts: F 100 200 200 0 2.63 0.73 225; working: 2.77
            Start +0:100,0,200,0,5,0.8 SolveDucts | ducts:  100 200 200 0 2.63 0.73 225; working: 2.77
            Start +R:500,0,300,0,8,1 SolveDucts | ducts: R 500 350 300 0 5.03 0.83 375; working: 5.45
            Start +R:100,0,200,0,3,100 SolveDucts | ducts: R 100 200 200 0 2.63 0.45 225; working: 2.99)");
}

TEST_F(SolveTest, WholeRunInItsOrder) {
    Play("+R:100,0,200,0,5,0.8 +C:0,0,0,0,4,0,0,0.5 +F:100,0,200,0,5,0.8");
    sheet.SetScrollMaximum(3);
    const std::string inputs = ProjectText();
    Play(R"(?Ok ?=plant.gsp ?Ok ?Ok Solve | state: 3 of plant.gsp, solved
            | sheet: 100 175 200 0 3.03 0.63 225 0
            | ducts: R 100 175 200 0 3.03 0.63 225, C 0 0 0 0 4 0 0 0.5, F 100 200 200 0 2.63 0.73 225)");
    EXPECT_EQ(desktop.Log, (Lines{"message: Gus will begin by saving your project.", "dialog",
                                  "progress: Save, Saving plant.gsp", "message: Plenair Project Saved",
                                  "hourglass", "repaint 1: 100 0 200 0 5 0.8 0 0",
                                  "repaint 2: 0 0 0 0 4 0 0 0.5", "repaint 3: 100 0 200 0 5 0.8 0 0",
                                  "default pointer", "progress: Solve, Writing the solution report", "call",
                                  "message: Plenair Solution Complete"}));
    EXPECT_TRUE(solver.pressureVisible && solver.repaints == 3);
    EXPECT_EQ(sheet.Looks(), "LLLLLLLL");
    EXPECT_EQ(ReadFile(File("plant.gsp")), inputs);
    EXPECT_EQ(ReadFile(File("plant.Gus")), ProjectText());
    desktop.Log.clear();
    Play("Solve | log: beep");
    Play("?Yes Clear | state: 0; sheet: 0 0 0 0 0 0 0 0");
    EXPECT_TRUE(!solver.pressureVisible && sheet.maximum == 1);
}

TEST_F(SolveTest, FailuresNameTheDuct) {
    const std::string zero = "Unexpected zero value encountered.";
    const std::string above = " m/s leaves no velocity to try. It has to be above 0.01 m/s.";
    const std::string cant = "Duct R2 can't be solved: ";
    const std::pair<std::string, std::string> rows[] = {
        // the values of a duct, and the message
        {"0 0 200 0 5 0.8", zero},
        {"100 0 0 0 5 0.8", zero},
        {"100 0 200 0 0 0.8", zero},
        {"100 0 200 0 5", zero},
        {"100 0 200 0 5 1E-60", zero},
        {"1 0 1 0 0.125 0.0000001",
         cant + "no velocity down to 0.01 m/s keeps the loss within 0.0000001 Pa/m at a height of 1 mm."},
        {"100 0 200 0 5 -1",
         cant + "no velocity down to 0.01 m/s keeps the loss within -1 Pa/m at a height of 200 mm."},
        {"100 0 200 0 0.01 0.8", cant + "its velocity cap of 0.01" + above},
        {"100 0 200 0 -5 0.8", cant + "its velocity cap of -5" + above},
        {"-100 0 200 0 5 0.8", cant + "its flow is negative."},
        {"100 0 -200 0 5 0.8", cant + "its height is negative."},
        {"0.2 0 200 0 20 0.8", cant +
                                   "at a velocity of 19.99 m/s and a height of 200 mm no width is left. It "
                                   "needs more flow, a lower height or a lower velocity cap."},
        {"100 0 200 0 1E+200 0.8",
         cant + "its values, or those of the options, lie outside of what can be calculated."}};
    for (const auto& [values, message] : rows) {
        std::string step = "+R:" + values;
        std::replace(step.begin(), step.end(), ' ', ',');
        Play("Start +R:100,0,200,0,5,0.8 " + step + " +R:100,0,200,0,5,0.8 ?Ok ?=plant.gsp ?Ok ?Ok Solve " +
             "| state: 3 of plant.gsp; ducts: R 100 175 200 0 3.03 0.63 225, R " + values +
             ", R 100 0 200 0 5 0.8");
        EXPECT_EQ(desktop.LastText(), message + "  Solution incomplete.");
        EXPECT_EQ(desktop.Log.back(), "default pointer");
        EXPECT_EQ(sheet.value, 2);
        EXPECT_FALSE(solver.pressureVisible || fs::exists(File("plant.Gus")));
    }
}

} // namespace
