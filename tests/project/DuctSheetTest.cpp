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
        StartProject();
        sheet.value = 1;
        sheet.colour = 1;
        Add(kRigidColour);
        Add(row.colour);
        Solved = row.solved;
        DrawPending = kFlagSet;
        sheet.SetScrollMaximum(2);
        sheet.SetScrollValue(2);
        EXPECT_EQ(sheet.Looks() + " " + sheet.caption, std::string(row.looks) + " " + row.caption);
        EXPECT_EQ(sheet.colour, row.inColour);
        EXPECT_EQ(DrawPending, kFlagClear) << "another duct ends a chain";
    }
}

TEST_F(SheetTest, StoresUpToTheFirstTextThatIsNoNumber) {
    const char* const bad[] = {"", "x", "12,5x", "1E400"};
    for (std::size_t wrong = 0; wrong <= kSheetRows.size(); ++wrong) {
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

TEST_F(SheetTest, ABoxThatIsLeftIsStoredAndFollowsOnWhereItMay) {
    const std::string zero = "0 0 0 0 0 0 0 0";
    const std::string all = "1 2 3 4 5 6 7 8";
    const struct {
        std::int16_t from; // the duct of the sheet: rigid, connection or rigid
        int box;
        std::string values[3]; // then
        bool ticked = true;
        Flag solved = kFlagClear;
    } rows[] = {{1, 1, {all, zero, "1 0 0 0 0 0 0 0"}},
                {1, 2, {all, zero, zero}},
                {1, 3, {all, zero, "0 0 3 0 0 0 0 0"}},
                {1, 4, {all, "0 0 0 4 0 0 0 0", "0 0 0 4 0 0 0 0"}},
                {1, 5, {all, "0 0 0 0 5 0 0 0", "0 0 0 0 5 0 0 0"}},
                {1, 6, {all, zero, "0 0 0 0 0 6 0 0"}},
                {1, 7, {all, zero, zero}},
                {1, 8, {all, zero, zero}}, // which is locked
                {1, 1, {all, zero, zero}, false},
                {1, 1, {all, zero, zero}, true, kFlagSet},
                {2, 1, {zero, all, zero}},
                {2, 4, {zero, all, "0 0 0 4 0 0 0 0"}},
                {3, 1, {zero, zero, all}}};
    for (const auto& row : rows) {
        StartProject();
        for (const float colour : {kRigidColour, kConnectionColour, kRigidColour}) {
            Add(colour);
        }
        Solved = row.solved;
        sheet.value = row.from;
        sheet.followOn = row.ticked;
        ShowDuctSheet(windows, row.from);
        for (const SheetRow& value : kSheetRows) {
            sheet.texts[value.Box] = std::to_string(PositionOf(value.Box) + 1);
        }
        StoreBox(windows, static_cast<SheetBox>(row.box));
        for (std::size_t duct = 1; duct <= 3; ++duct) {
            EXPECT_EQ(Values(Ducts[duct]), row.values[duct - 1]) << "box " << row.box << " of " << row.from;
        }
    }
    StartProject();
    Add({.ConnCoefficient = 8});
    Add(kConnectionColour);
    for (const int from : {0, 9, 2, 1}) {
        EXPECT_EQ(Values(Ducts[2]), zero);
        FollowOn(static_cast<std::int16_t>(from), SheetBox::ConnCoefficient);
    }
    EXPECT_EQ(Values(Ducts[2]), "0 0 0 0 0 0 0 8");
}

} // namespace
