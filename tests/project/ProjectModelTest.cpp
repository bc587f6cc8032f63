#include "project/FakeWindows.h"

namespace plenair {

TEST_F(ProjectTest, FollowOnReachesWhatCanHoldTheValue) {
    const std::string zero = "0 0 0 0 0 0 0 0";
    const struct {
        std::int16_t from;
        std::int16_t box;
        std::string connection; // Flow Width Height Length Velocity Loss Equivalent Coefficient of duct 2
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
    const auto values = [](const DuctRecord& duct) {
        std::ostringstream text;
        text << duct.Flow << ' ' << duct.Width << ' ' << duct.Height << ' ' << duct.Length << ' '
             << duct.Velocity << ' ' << duct.LossPerMetre << ' ' << duct.EquivRound << ' '
             << duct.ConnCoefficient;
        return text.str();
    };
    for (const auto& row : rows) {
        SCOPED_TRACE("box " + std::to_string(row.box) + " of duct " + std::to_string(row.from));
        StartProject();
        Add({kFlexibleColour, 0, 0, 0, 0, 8, 0, 4, 2, 3, 7, 5, 6, 1});
        Add(kConnectionColour);
        Add(kRigidColour);
        FollowOn(row.from, static_cast<SheetBox>(row.box));
        EXPECT_EQ(values(Ducts[2]), row.connection);
        EXPECT_EQ(values(Ducts[3]), row.rigid);
    }
}

} // namespace plenair
