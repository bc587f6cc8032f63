#include "project/FakeWindows.h"

namespace {

class SheetTest : public ProjectTest {
  protected:
    // Flow, width, height, length, velocity, loss, equivalent diameter, coefficient.
    static std::string Values(const DuctRecord& duct) {
        std::string values;
        for (const SheetRow& row : kSheetRows) {
            values += (row.Box == SheetBox::Flow ? "" : " ") + TextOf(duct, row.Box);
        }
        return values;
    }
};

TEST_F(SheetTest, EachTypeHasItsLocks) {
    const struct {
        float colour;
        Flag solved;
        const char* looks; // o open on white, l locked, L locked on white
        const char* caption;
        ColourNumber inColour;
    } rows[] = {{kRigidColour, kFlagClear, "olooooll", "R2", 255},
                {kFlexibleColour, kFlagClear, "olooooll", "F2", 16711680},
                {kConnectionColour, kFlagClear, "llloollo", "C2", 65535},
                {7, kFlagClear, "olooooll", "2", 7},
                {3E38F, kFlagClear, "olooooll", "2", 1}, // no colour number: the one before
                {kConnectionColour, kFlagSet, "LLLLLLLL", "C2", 65535}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.colour);
        StartProject();
        sheet.value = 1;
        sheet.colour = 1;
        Add(kRigidColour);
        Add(row.colour);
        Solved = row.solved;
        DrawPending = kFlagSet;
        sheet.SetScrollMaximum(2);
        sheet.SetScrollValue(2);
        EXPECT_EQ(sheet.Looks(), row.looks);
        EXPECT_EQ(sheet.caption, row.caption);
        EXPECT_EQ(sheet.colour, row.inColour);
        EXPECT_EQ(DrawPending, kFlagClear) << "another duct ends a chain";
    }
}

TEST_F(SheetTest, StoresUpToTheFirstTextThatIsNoNumber) {
    const char* const bad[] = {"", "x", "12,5x", "1E400"};
    for (std::size_t wrong = 0; wrong <= kSheetRows.size(); ++wrong) {
        SCOPED_TRACE(wrong);
        StartProject();
        Add(kRigidColour);
        std::string stored;
        for (const SheetRow& row : kSheetRows) {
            const std::size_t at = PositionOf(row.Box);
            sheet.texts[row.Box] = at == wrong ? bad[at % 4] : std::to_string(at + 1) + ".50";
            stored += (at == 0 ? "" : " ") + (at < wrong ? std::to_string(at + 1) + ".5" : "0");
        }
        ReadDuctSheet(windows, 1);
        EXPECT_EQ(Values(Duct(1)), stored);
        ShowDuctSheet(windows, 1);
        EXPECT_EQ(sheet.AllTexts(), stored);
    }
    ClearProject();
    ReadDuctSheet(windows, 1); // a project without a duct
    EXPECT_EQ(Values(Ducts[0]), "0 0 0 0 0 0 0 0");
}

TEST_F(SheetTest, FollowOnReachesWhatCanHoldTheValue) {
    const std::string zero = "0 0 0 0 0 0 0 0";
    const struct {
        std::int16_t from;
        std::int16_t box;
        std::string connection; // the values of duct 2
        std::string rigid;      // of duct 3
    } rows[] = {{1, 1, zero, "1 0 0 0 0 0 0 0"},
                {1, 2, zero, zero},
                {1, 3, zero, "0 0 3 0 0 0 0 0"},
                {1, 4, "0 0 0 4 0 0 0 0", "0 0 0 4 0 0 0 0"},
                {1, 5, "0 0 0 0 5 0 0 0", "0 0 0 0 5 0 0 0"},
                {1, 6, zero, "0 0 0 0 0 6 0 0"},
                {1, 7, zero, zero},
                {1, 8, "0 0 0 0 0 0 0 8", zero},
                {3, 1, zero, zero},
                {0, 1, zero, zero},
                {9, 1, zero, zero}};
    for (const auto& row : rows) {
        SCOPED_TRACE("box " + std::to_string(row.box) + " of duct " + std::to_string(row.from));
        StartProject();
        Add({kFlexibleColour, 0, 0, 0, 0, 8, 0, 4, 2, 3, 7, 5, 6, 1});
        Add(kConnectionColour);
        Add(kRigidColour);
        FollowOn(row.from, static_cast<SheetBox>(row.box));
        EXPECT_EQ(Values(Ducts[2]), row.connection);
        EXPECT_EQ(Values(Ducts[3]), row.rigid);
    }
}

TEST_F(SheetTest, ABoxThatIsLeftCopiesWhereItMay) {
    const struct {
        const char* name;
        float colour; // of the duct that the sheet is on
        SheetBox box;
        bool ticked;
        Flag solved;
        const char* copied; // to the rigid duct after it
    } rows[] = {
        {"flow", kRigidColour, SheetBox::Flow, true, kFlagClear, "1 0 0 0 0 0 0 0"},
        {"not ticked", kRigidColour, SheetBox::Flow, false, kFlagClear, "0 0 0 0 0 0 0 0"},
        {"locked", kConnectionColour, SheetBox::Flow, true, kFlagClear, "0 0 0 0 0 0 0 0"},
        {"open in a connection", kConnectionColour, SheetBox::Length, true, kFlagClear, "0 0 0 4 0 0 0 0"},
        {"solved", kRigidColour, SheetBox::Flow, true, kFlagSet, "0 0 0 0 0 0 0 0"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StartProject();
        Add(row.colour);
        Add(kRigidColour);
        Solved = row.solved;
        sheet.value = 1;
        sheet.followOn = row.ticked;
        ShowDuctSheet(windows, 1);
        for (const SheetRow& value : kSheetRows) {
            sheet.texts[value.Box] = std::to_string(PositionOf(value.Box) + 1);
        }
        StoreBox(windows, row.box);
        EXPECT_EQ(Values(Ducts[1]), "1 2 3 4 5 6 7 8") << "all boxes are stored";
        EXPECT_EQ(Values(Ducts[2]), row.copied);
    }
}

} // namespace
