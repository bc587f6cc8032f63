#include "project/FakeWindows.h"

namespace plenair {

TEST_F(ProjectTest, NewDuctTakesFractionsAndColourAndNothingElse) {
    AddSized(RigidColour, 100, 200, 5, 0.8);
    DrawColour = FlexibleColour;
    AddDuct(379, 698, 758.5F, 0, 15160, 10470);
    ASSERT_EQ(DuctCount, 2);
    ASSERT_EQ(Ducts.size(), 3U);
    const DuctRecord& duct = Ducts[2];
    EXPECT_EQ(duct.Colour, 16711680.0F);
    EXPECT_EQ(duct.StartX, 379.0 / 15160);
    EXPECT_EQ(duct.StartY, 698.0 / 10470);
    EXPECT_EQ(duct.EndX, 758.5 / 15160);
    EXPECT_EQ(duct.EndY, 0.0);
    for (const double value :
         {duct.Length, duct.Width, duct.Height, duct.EquivRound, duct.Velocity, duct.LossPerMetre, duct.Flow,
          static_cast<double>(duct.ConnCoefficient), static_cast<double>(duct.Spare)}) {
        EXPECT_EQ(value, 0.0);
    }
}

TEST_F(ProjectTest, FollowOnReachesWhatCanHoldTheValue) {
    struct Case {
        std::int16_t from;
        std::int16_t box;
        std::string connection; // Flow Width Height Length Velocity Loss Equivalent Coefficient of duct 2
        std::string rigid;      // of duct 3
    };
    const std::string zero = "0 0 0 0 0 0 0 0";
    const Case cases[] = {
        {1, 1, zero, "1 0 0 0 0 0 0 0"},
        {1, 2, zero, zero},
        {1, 3, zero, "0 0 3 0 0 0 0 0"},
        {1, 4, "0 0 0 4 0 0 0 0", "0 0 0 4 0 0 0 0"},
        {1, 5, "0 0 0 0 5 0 0 0", "0 0 0 0 5 0 0 0"},
        {1, 6, zero, "0 0 0 0 0 6 0 0"},
        {1, 7, zero, zero},
        {1, 8, "0 0 0 0 0 0 0 8", zero},
        {3, 1, zero, zero},
        {0, 1, zero, zero},
        {9, 1, zero, zero},
    };
    const auto values = [](const DuctRecord& duct) {
        std::ostringstream text;
        text << duct.Flow << ' ' << duct.Width << ' ' << duct.Height << ' ' << duct.Length << ' '
             << duct.Velocity << ' ' << duct.LossPerMetre << ' ' << duct.EquivRound << ' '
             << duct.ConnCoefficient;
        return text.str();
    };
    for (const Case& row : cases) {
        SCOPED_TRACE("box " + std::to_string(row.box) + " of duct " + std::to_string(row.from));
        StartProject();
        Add(FlexibleColour) = {.Colour = FlexibleColour,
                               .ConnCoefficient = 8,
                               .Length = 4,
                               .Width = 2,
                               .Height = 3,
                               .EquivRound = 7,
                               .Velocity = 5,
                               .LossPerMetre = 6,
                               .Flow = 1};
        Add(ConnectionColour);
        Add(RigidColour);
        FollowOn(row.from, row.box);
        EXPECT_EQ(values(Ducts[2]), row.connection);
        EXPECT_EQ(values(Ducts[3]), row.rigid);
    }
}

TEST_F(ProjectTest, ClearingOpensASolvedProject) {
    Add(RigidColour);
    Solved = FlagSet;
    ProjectName = "plant.gsp";
    ClearProject();
    EXPECT_EQ(Solved, FlagClear);
    EXPECT_EQ(ProjectName, "");
    EXPECT_EQ(DuctCount, 0);
    ASSERT_EQ(Ducts.size(), 1U);
    EXPECT_EQ(Ducts[0].Colour, 0.0F);
}

} // namespace plenair
