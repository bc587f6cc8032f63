#include "project/FakeWindows.h"

#include "flow/CalcFailure.h"
#include "platform/NumberText.h"

namespace plenair {

namespace {

class DuctSheetTest : public ProjectTest {};

} // namespace

TEST_F(DuctSheetTest, LooksFollowTypeAndState) {
    struct Case {
        const char* name;
        float colour;
        Flag solved;
        std::string looks;
    };
    const Case cases[] = {
        {"rigid", RigidColour, FlagClear, "olooooll"},
        {"flexible", FlexibleColour, FlagClear, "olooooll"},
        {"unknown", 7, FlagClear, "olooooll"},
        {"connection", ConnectionColour, FlagClear, "llloollo"},
        {"solved", RigidColour, FlagSet, "LLLLLLLL"},
        {"solved connection", ConnectionColour, FlagSet, "LLLLLLLL"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        StartProject();
        Add(row.colour);
        Solved = row.solved;
        ShowDuctSheet(windows, 1);
        EXPECT_EQ(sheet.Looks(), row.looks);
    }
}

TEST_F(DuctSheetTest, BoxesHoldShortestTextsOfTheLocale) {
    Add(ConnectionColour) = {.Colour = ConnectionColour,
                             .ConnCoefficient = 0.1F,
                             .Length = 1234567.5,
                             .Width = 0,
                             .Height = 1E20,
                             .EquivRound = 1.0 / 3,
                             .Velocity = 5,
                             .LossPerMetre = 0.8,
                             .Flow = 100};
    ShowDuctSheet(windows, 1);
    EXPECT_EQ(sheet.AllTexts(), "100 0 1E+20 1234567.5 5 0.8 0.333333333333333 0.1");
    SetNumberLocale({",", "."});
    ShowDuctSheet(windows, 1);
    EXPECT_EQ(sheet.AllTexts(), "100 0 1E+20 1234567,5 5 0,8 0,333333333333333 0,1");
    sheet.SetBoxText(4, "1.234,5");
    ReadDuctSheet(windows, 1);
    EXPECT_EQ(Ducts[1].Length, 1234.5);
    EXPECT_EQ(Ducts[1].ConnCoefficient, 0.1F);
}

TEST_F(DuctSheetTest, StoringStopsAtTextThatIsNoNumber) {
    Add(RigidColour);
    sheet.texts = {"", "1", "2", "12,5x", "4", "5", "6", "7", "8"};
    ReadDuctSheet(windows, 1);
    EXPECT_EQ(Ducts[1].Flow, 1);
    EXPECT_EQ(Ducts[1].Width, 2);
    EXPECT_EQ(Ducts[1].Height, 0);
    EXPECT_EQ(Ducts[1].Length, 0);
    sheet.SetBoxText(3, "3");
    sheet.SetBoxText(8, "1E39"); // too large for its field
    ReadDuctSheet(windows, 1);
    EXPECT_EQ(Ducts[1].EquivRound, 7);
    EXPECT_EQ(Ducts[1].ConnCoefficient, 0.0F);
}

TEST_F(DuctSheetTest, ScrollBarNamesTheDuct) {
    const auto expectLabel = [&](int duct, const std::string& caption, ColourNumber colour) {
        sheet.SetScrollValue(duct);
        EXPECT_EQ(sheet.caption, caption);
        EXPECT_EQ(sheet.colour, colour);
    };
    Add(RigidColour).Flow = 11;
    Add(FlexibleColour).Flow = 22;
    Add(ConnectionColour);
    Add(-3);
    sheet.SetScrollMaximum(4);
    EXPECT_EQ(sheet.caption, "1"); // as long as its value hasn't changed
    expectLabel(2, "F2", 16711680);
    EXPECT_EQ(sheet.texts[1], "22");
    expectLabel(1, "R1", 255);
    expectLabel(3, "C3", 65535);
    expectLabel(4, "4", 65535); // no letter, and no colour that could be shown

    // In an empty project it stands on a duct that isn't there.
    StartProject();
    sheet.SetBoxText(1, "typed");
    ChangeDuctNo(windows);
    ReadDuctSheet(windows, 4);
    EXPECT_EQ(sheet.texts[1], "typed");
    EXPECT_EQ(sheet.caption, "4");
}

TEST_F(DuctSheetTest, OnlyAVisibleSheetMarksItsDuct) {
    Add(RigidColour);
    ShowDuctSheet(windows, 1);
    EXPECT_EQ(solver.picGrid.Items().size(), GridLines);
    sheet.visible = true;
    ShowDuctSheet(windows, 1);
    EXPECT_EQ(solver.picGrid.Items().size(), GridLines + 4 + 2);
}

TEST_F(DuctSheetTest, StoredBoxFollowsOn) {
    Add(RigidColour);
    Add(ConnectionColour);
    Add(FlexibleColour);
    ShowDuctSheet(windows, 1);
    sheet.SetBoxText(1, "250");
    StoreBox(windows, 1);
    EXPECT_EQ(Ducts[1].Flow, 250);
    EXPECT_EQ(Ducts[2].Flow, 0);
    EXPECT_EQ(Ducts[3].Flow, 250);

    sheet.followOn = false;
    sheet.SetBoxText(1, "300");
    StoreBox(windows, 1);
    EXPECT_EQ(Ducts[1].Flow, 300);
    EXPECT_EQ(Ducts[3].Flow, 250);

    // Nobody has typed the zero in the locked box of the connection.
    sheet.followOn = true;
    sheet.SetScrollValue(2);
    StoreBox(windows, 1);
    EXPECT_EQ(Ducts[3].Flow, 250);
}

TEST_F(DuctSheetTest, SolvedValuesAreRoundedUpInTheirOwnUnit) {
    struct Case {
        const char* name;
        double values[5];
        std::string texts;
    };
    const Case cases[] = {
        {"sizes keep, others go up to 0.025", {175, 200, 3.01, 0.61, 225}, "175 200 3.03 0.63 225"},
        {"a height loses its decimals", {175, 200.01, 3, 0.6, 225}, "175 200 3.00 0.60 225"},
        {"the five goes away from zero", {175, 200, 3.024, 0.6001, 225}, "175 200 3.03 0.60 225"},
    };
    for (const Case& row : cases) {
        const double(&v)[5] = row.values;
        ShowSolvedValues(windows, v[0], v[1], v[2], v[3], v[4]);
        EXPECT_EQ(sheet.texts[2] + " " + sheet.texts[3] + " " + sheet.texts[5] + " " + sheet.texts[6] + " " +
                      sheet.texts[7],
                  row.texts)
            << row.name;
    }
    const std::string before = sheet.AllTexts();
    EXPECT_THROW(ShowSolvedValues(windows, 1, 2, 3, 1E9, 5), CalcFailure);
    EXPECT_EQ(sheet.AllTexts(), before);
}

} // namespace plenair
