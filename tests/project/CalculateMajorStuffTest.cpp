#include "project/FakeWindows.h"
#include "project/model/ProjectBlocks.h"

namespace {

class SolveTest : public ProjectTest {
  protected:
    // Flow, height, caps of velocity and loss.
    static void AddSized(float colour, const double (&values)[4]) {
        const auto& [flow, height, velocity, loss] = values;
        Add({.Colour = colour, .Height = height, .Velocity = velocity, .LossPerMetre = loss, .Flow = flow});
    }

    // Width, height, velocity, loss and equivalent diameter.
    static std::string Result(const DuctRecord& duct) {
        std::ostringstream text;
        text << duct.Width << ' ' << duct.Height << ' ' << duct.Velocity << ' ' << duct.LossPerMetre << ' '
             << duct.EquivRound;
        return text.str();
    }
};

TEST_F(SolveTest, WorkedExamples) {
    const struct {
        float colour;
        double values[4];
        std::string result;
        double working;
    } rows[] = {
        {kRigidColour, {100, 200, 5, 0.8}, "175 200 3.03 0.63 225", 3.40},
        {kFlexibleColour, {100, 200, 5, 0.8}, "200 200 2.63 0.73 225", 2.77},
        {0, {100, 200, 5, 0.8}, "200 200 2.63 0.73 225", 2.77}, // of no type
        {kRigidColour, {500, 300, 8, 1}, "350 300 5.03 0.83 375", 5.45},
        {kRigidColour, {100, 200, 3, 100}, "200 200 2.63 0.45 225", 2.99}, // the first candidate will do
    };
    for (const auto& row : rows) {
        StartProject();
        AddSized(row.colour, row.values);
        SolveDucts(windows);
        EXPECT_EQ(Result(Ducts[1]), row.result);
        EXPECT_NEAR(Settings.MaxVelocity, row.working, 0.006);
        EXPECT_EQ(Ducts[1].Flow, row.values[0]);
    }
}

TEST_F(SolveTest, WholeRunInItsOrder) {
    AddSized(kRigidColour, {100, 200, 5, 0.8});
    AddSized(kConnectionColour, {0, 0, 4, 0});
    Ducts.back().ConnCoefficient = 0.5F;
    AddSized(kFlexibleColour, {100, 200, 5, 0.8});
    sheet.SetScrollMaximum(3);
    const std::string inputs = ProjectText();
    Play("?Ok ?=plant.gsp ?Ok ?Ok Solve | state: 3 of plant.gsp, solved; sheet: 100 175 200 0 3.03 0.63 225 "
         "0");
    EXPECT_EQ(desktop.Log,
              (Lines{"message: Gus will begin by saving your project.", "dialog",
                     "message: Plenair Project Saved", "hourglass", "repaint 1: 100 0 200 0 5 0.8 0 0",
                     "repaint 2: 0 0 0 0 4 0 0 0.5", "repaint 3: 100 0 200 0 5 0.8 0 0", "default pointer",
                     "call", "message: Plenair Solution Complete"}));
    EXPECT_TRUE(solver.pressureVisible);
    EXPECT_EQ(Result(Ducts[3]), "200 200 2.63 0.73 225");
    EXPECT_EQ(ReadFile(File("plant.gsp")), inputs);
    EXPECT_EQ(ReadFile(File("plant.Gus")), ProjectText());
    desktop.Log.clear();
    Play("Solve | log: beep");
}

TEST_F(SolveTest, FailuresNameTheDuct) {
    const std::string zero = "Unexpected zero value encountered.";
    const std::string cant = "Duct R2 can't be solved: ";
    const struct {
        double values[4];
        std::string message; // how it begins
    } rows[] = {
        {{0, 200, 5, 0.8}, zero},
        {{100, 0, 5, 0.8}, zero},
        {{100, 200, 0, 0.8}, zero},
        {{100, 200, 5, 0}, zero},
        {{100, 200, 5, 1E-60}, zero},
        {{1, 1, 0.125, 1E-7},
         cant + "no velocity down to 0.01 m/s keeps the loss within 0.0000001 Pa/m at a height of 1 mm."},
        {{100, 200, 5, -1}, cant + "no velocity down to 0.01 m/s"},
        {{100, 200, 0.01, 0.8}, cant + "its velocity cap of 0.01 m/s leaves no velocity"},
        {{100, 200, -5, 0.8}, cant + "its velocity cap of -5 m/s"},
        {{-100, 200, 5, 0.8}, cant + "its flow is negative."},
        {{100, -200, 5, 0.8}, cant + "its height is negative."},
        {{0.2, 200, 20, 0.8}, cant + "at a velocity of 19.99 m/s and a height of 200 mm no width is left."},
        {{100, 200, 1E200, 0.8}, cant + "its values"}};
    for (const auto& row : rows) {
        StartProject();
        sheet.value = 1;
        AddSized(kRigidColour, {100, 200, 5, 0.8});
        AddSized(kRigidColour, row.values);
        AddSized(kRigidColour, {100, 200, 5, 0.8});
        Play("?Ok ?=plant.gsp ?Ok ?Ok Solve | state: 3 of plant.gsp");
        EXPECT_EQ(desktop.LastText().substr(0, row.message.size()), row.message);
        EXPECT_TRUE(desktop.LastText().ends_with("  Solution incomplete."));
        EXPECT_EQ(desktop.Log.back(), "default pointer");
        EXPECT_FALSE(solver.pressureVisible || fs::exists(File("plant.Gus")));
        EXPECT_EQ(sheet.value, 2);
        EXPECT_EQ(Result(Ducts[1]), "175 200 3.03 0.63 225"); // solved before
        EXPECT_TRUE(Ducts[2].Width == 0 && Ducts[2].Velocity == row.values[2] && Ducts[3].Width == 0);
    }
}

} // namespace
