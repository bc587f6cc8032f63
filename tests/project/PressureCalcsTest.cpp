#include "project/FakeWindows.h"
#include "project/model/DuctPath.h"

namespace {

class PathTest : public ProjectTest {
  protected:
    PathTest() {
        Add({.Colour = kRigidColour, .Length = 5000, .LossPerMetre = 0.83});                        // 4.15 Pa
        Add({.Colour = kConnectionColour, .ConnCoefficient = 0.5F, .Velocity = 5});                 // 7.41 Pa
        Add({.Colour = kFlexibleColour, .Length = 3000, .LossPerMetre = 2});                        // 6 Pa
        Add({.Colour = kRigidColour, .Length = 5000, .LossPerMetre = 0.9});                         // 4.5 Pa
        Add({.Colour = 7, .ConnCoefficient = 9, .Length = 4000, .Velocity = 9, .LossPerMetre = 9}); // no type
        PathElements.assign(1, {});
        PathCount = 0;
        RedrawProject(windows);
    }

    // Works a path out, answers the messages that come, and gives the text of the last.
    std::string Told(const std::string& path, const std::string& answers) {
        desktop.ExpectInput(path);
        Play(answers + " Path");
        return desktop.LastText();
    }

    // The letters of the path's elements, "-" where there is none.
    static std::string Elements() {
        std::string all;
        for (int position = 1; position <= PathCount; ++position) {
            const std::string letter = TypeLetter(PathElements[static_cast<std::size_t>(position)].Colour);
            all += letter.empty() ? "-" : letter;
        }
        return all;
    }
};

TEST_F(PathTest, TextsOfPathsAndTheirTotals) {
    const struct {
        const char* total;
        const char* elements;
        std::vector<std::string> paths;
    } rows[] = {
        {"18",
         "RCF",
         {"1,2,3", "1,2,3,", "1 2 3", "1;2;3;", "1, 2,   3", " 1,2,3 ", "1,2,3, ", "01,2,0003", "1→2→3",
          "1-2/3.", "1  2 \t 3", "1 ,2\t;\t3 , ", "R1, C2, f3", "r1 c2\tF3", "R1,2,F003", "1R2F3", "R1C2F3"}},
        {"4", "R", {"1"}},
        {"5", "R", {"4"}}, // 4.5 goes away from zero
        {"7", "C", {"2"}},
        {"12", "RRR", {"1,1,1"}},
        {"0", "-", {"0", "5"}},
        {"18", "FCR", {"3,2,1"}}};
    for (const auto& row : rows) {
        for (const std::string& path : row.paths) {
            EXPECT_EQ(Told(path, "?No"),
                      std::string("Total Pressure is ") + row.total + " Pa.\n\nProceed with plot?");
            EXPECT_EQ(Elements(), row.elements) << path;
        }
    }
    EXPECT_NEAR(PathElements[2].PressureDrop, 7.411875, 1E-12);
    Told("", "");
    Told("  ", "");
}

TEST_F(PathTest, PathsThatCannotBeWorkedOutOrPlotted) {
    Add({.Colour = kRigidColour, .Length = 1E300, .LossPerMetre = 1E300});
    const std::pair<std::string, std::string> rows[] = {
        // and how the message begins
        {"3,R3", "3 is F3, not R3."},
        {"c01;2", "1 is R1, not C1."},
        {"f5", "5 is of no type, not F5."},
        {"R7", "\"7\" is no duct."},
        {"R,1", "\"R,1\""},
        {"1,x2", "2 is C2, not X2."},
        {"1,R 2", "\"1,R 2\""},
        {"R1,,2", "\"R1,,2\""},
        {",1", "\",1\""},
        {";", "\";\""},
        {"1, ,2", "\"1, ,2\""},
        {"1,2,  , 3", "\"2,  , 3\""},
        {"1,7,2", "\"7\""},
        {std::string(25, '\x80') + "1", "\"\x80\x80"},
        {"32768", "\"32768\""},
        {"99999999999999999999999999", "\"999999999999999999999999...\""},
        {"→", "\"→\""},
        {"6", "The pressure of this path can't"},
    };
    Told("3", "?No");
    for (const auto& [path, start] : rows) {
        const std::string told = Told(path, "?Ok");
        EXPECT_EQ(told.substr(0, start.size()), start);
        EXPECT_EQ(Elements(), "F") << "the last path stays";
        EXPECT_TRUE(start[0] != '"' || told.find("numbered 1 to 6.") != told.npos);
    }
    const Lines picture = Drawn(0);
    for (const char* path : {"2", "5", "0"}) { // no length; no drop; neither
        EXPECT_TRUE(Told(path, "?Yes ?Ok").starts_with("There is nothing to plot"));
    }
    EXPECT_EQ(PlotShowing, kFlagClear);
    EXPECT_EQ(Drawn(0), picture);
}

TEST_F(PathTest, PlotOnTheGrid) {
    // Lengths of 5, 0 and 5 m; drops of 4.5, 9 and 4.5 Pa.
    Ducts[1].LossPerMetre = 0.9;
    Ducts[2] = {.Colour = kConnectionColour, .ConnCoefficient = 0.75F, .Velocity = 1};
    Settings.FluidTemp = (1.2925 - 24) / 0.0041; // a density of 24
    solver.width = 10000;
    solver.height = 10000;
    Play("Redraw ?<1,2,4 ?Yes Path | state: 5, plot");
    const Lines plot = Drawn(0);
    EXPECT_EQ(plot, (Lines{"1 box 0: 500,500 9500,9500", "1- line 0: 5000,500 5000,9500",
                           "1- line 0: 500,2750 9500,2750", "1- line 0: 5000,500 5000,9500",
                           "1- line 0: 500,7250 9500,7250", "1- line 0: 9500,500 9500,9500",
                           "1- line 0: 500,9500 9500,9500", "2 line 255: 500,500 5000,2750",
                           "2 line 65535: 5000,2750 5000,7250", "2 line 255: 5000,7250 9500,9500",
                           "text 5: 550,2550", "text 14: 550,7050", "text 18: 550,9300",
                           "text 5.0: 4950,9500", "text 5.0: 4950,9500", "text 10.0: 9450,9500",
                           "text R1: 2750,0", "text C2: 5000,0", "text R3: 7250,0"}));
    // The picture and its path stay together when another path can't take their place.
    Add({.Colour = kRigidColour, .Length = 1E-310, .LossPerMetre = 1E308});
    for (const std::string path : {"2", "0", "6"}) {
        Play("?<" + path + " ?No Path ?<" + path + " ?Yes ?Ok Path");
        EXPECT_EQ(Elements(), "RCR");
    }
    EXPECT_EQ(Drawn(0), plot);
    Play("Redraw | state: 6");
}

} // namespace
