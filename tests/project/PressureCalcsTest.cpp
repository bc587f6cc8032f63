#include "project/FakeWindows.h"
#include "project/model/DuctPath.h"

namespace {

class PathTest : public ProjectTest {
  protected:
    PathTest() {
        // 4.15 Pa, 7.41 Pa, 6 Pa, 4.5 Pa, and one of no type.
        Play("+R:0,0,0,5000,0,0.83 +C:0,0,0,0,5,0,0,0.5 +F:0,0,0,3000,0,2 +R:0,0,0,5000,0,0.9 "
             "+7:0,0,0,4000,9,9,0,9 Redraw");
        PathElements.assign(1, {});
        PathCount = 0;
    }

    // Works a path out, answers the messages that come, and gives the text of the last.
    std::string Told(const std::string& path, const std::string& answers) {
        desktop.Expect("?<" + path);
        Play(answers + " Path");
        return desktop.LastText();
    }

    // The letters of the path's elements, "-" where there is none.
    static std::string Elements() {
        const auto letterOf = [](const auto& element) {
            const std::string letter = TypeLetter(element.Colour);
            return letter.empty() ? "-" : letter;
        };
        return Joined(std::span(PathElements).subspan(1), letterOf, "");
    }
};

TEST_F(PathTest, TextsOfPathsAndTheirTotals) {
    const struct {
        std::string total;
        std::string elements;
        std::vector<const char*> paths;
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
        for (const char* path : row.paths) {
            EXPECT_EQ(Told(path, "?No"), "Total Pressure is " + row.total + " Pa.\n\nProceed with plot?");
            EXPECT_EQ(Elements(), row.elements) << path;
        }
    }
    EXPECT_NEAR(PathElements[2].PressureDrop, 7.411875, 1E-12);
    Told("", "");
    Told("  ", "");
    std::string longest = "2,3";
    for (int i = 2; i < 32767; ++i) {
        longest += ",3";
    }
    EXPECT_EQ(Told(longest, "?No"), "Total Pressure is 196603 Pa.\n\nProceed with plot?");
    EXPECT_EQ(Told(longest + ",3", "?Ok"),
              "\"2,3,3,3,3,3,3,3,3,3,3,3,...\" lists more than 32767 ducts.  The ducts "
              "of this project are numbered 1 to 5.");
}

TEST_F(PathTest, PathsThatCannotBeWorkedOutOrPlotted) {
    std::vector<std::pair<std::string, std::string>> rows = {
        // and how the message begins
        {"3,R3", "3 is F3, not R3."},
        {"c01;2", "1 is R1, not C1."},
        {"1 c3", "3 is F3, not C3."},
        {"R7", "\"7\" is no duct."},
        {"a5", "5 is of no type, not A5."},
        {"1,z2", "2 is C2, not Z2."},
        {"1,2,  , 3", "\"2,  , 3\""},
        {"1,7,2", "\"7\""},
        {"6", "The pressure of this path can't"},
        {std::string(26, '9'), '"' + std::string(24, '9') + "...\""}};
    for (const std::string whole : {"R,1", "1,R 2", "R1,,2", ",1", ";", "1, ,2", "32768", "→"}) {
        rows.emplace_back(whole, '"' + whole + '"');
    }
    Play("+R:0,0,0,1E300,0,1E300 ?<3 ?No Path");
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
    Play("| state: 6");
    EXPECT_EQ(Drawn(0), picture);
}

TEST_F(PathTest, PlotOnTheGrid) {
    // Lengths of 5, 0 and 5 m; drops of 4.5, 9 and 4.5 Pa.
    Settings.FluidTemp = (1.2925 - 24) / 0.0041; // a density of 24
    solver.width = 10000;
    solver.height = 10000;
    Play(R"(Start +R:0,0,0,5000,0,0.9 +C:0,0,0,0,1,0,0,0.75 +R:0,0,0,5000,0,0.9
            Redraw ?<1,2,3 ?Yes Path | state: 3, plot)");
    const Lines plot = Drawn(0);
    EXPECT_EQ(plot, (Lines{"1 box 0: 500,500 9500,9500", "1- line 0: 5000,500 5000,9500",
                           "1- line 0: 500,2750 9500,2750", "1- line 0: 5000,500 5000,9500",
                           "1- line 0: 500,7250 9500,7250", "1- line 0: 9500,500 9500,9500",
                           "1- line 0: 500,9500 9500,9500", "2 line 255: 500,500 5000,2750",
                           "2 line 65535: 5000,2750 5000,7250", "2 line 255: 5000,7250 9500,9500",
                           "text 5: 550,2550", "text 14: 550,7050", "text 18: 550,9300",
                           "text 5.0: 4950,9500", "text 5.0: 4950,9500", "text 10.0: 9450,9500",
                           "text R1: 2750,0", "text C2: 5000,0", "text R3: 7250,0"}));
    Play("?*1 Print"); // the same on paper
    EXPECT_EQ(printer.Log(),
              "|colour mode 2|landscape|Arial 9|style 0|width 1|box 2000,1500 14000,10500 0|style 1"
              "|line 8000,1500 8000,10500 0|line 2000,3750 14000,3750 0|line 8000,1500 8000,10500 0"
              "|line 2000,8250 14000,8250 0|line 14000,1500 14000,10500 0|line 2000,10500 14000,10500 0"
              "|style 0|width 5|line 2000,1500 8000,3750 255|line 8000,3750 8000,8250 65535"
              "|line 8000,8250 14000,10500 255|at 2000,3750|'5|at 2000,8250|'14|at 2000,10500|'18"
              "|at 8000,10500|'5.0|at 8000,10500|'5.0|at 14000,10500|'10.0|at 5000,1500|'R1|at 8000,1500|'C2"
              "|at 11000,1500|'R3|end");
    // The picture and its path stay together when another path can't take their place.
    Play("+R:0,0,0,1E-310,0,1E308");
    for (const std::string path : {"2", "0", "4"}) {
        Play("?<" + path + " ?No Path ?<" + path + " ?Yes ?Ok Path");
        EXPECT_EQ(Elements(), "RCR");
    }
    EXPECT_EQ(Drawn(0), plot);
    Play("Redraw | state: 4");
}

} // namespace
