#include "project/FakeWindows.h"

#include "project/DuctPath.h"
#include "project/PathPlot.h"
#include "project/PressureCalcs.h"
#include "project/Printout.h"
#include "project/RecordedPrinter.h"

namespace plenair {

namespace {

class PathTest : public ProjectTest {
  protected:
    PathTest() {
        AddElement(RigidColour, 5000, 0.83, 0, 0);   // 4.15 Pa
        AddElement(ConnectionColour, 0, 0, 0.5F, 5); // 7.41 Pa
        AddElement(FlexibleColour, 3000, 2, 0, 0);   // 6 Pa
        AddElement(RigidColour, 5000, 0.9, 0, 0);    // 4.5 Pa
        AddElement(7, 4000, 9, 9, 9);                // no type, no drop
        PathElements.assign(1, {});
        PathCount = 0;
    }

    static void AddElement(float colour, double length, double loss, float coefficient, double velocity) {
        DuctRecord& duct = Add(colour);
        duct.Length = length;
        duct.LossPerMetre = loss;
        duct.ConnCoefficient = coefficient;
        duct.Velocity = velocity;
    }

    // Works a path out without plotting it. Gives the text of the last message.
    std::string Total(const std::string& path) {
        desktop.ExpectMessage(MessageAnswer::No);
        PathPressure(windows, path);
        return desktop.LastText();
    }

    void Plot(const std::string& path) {
        desktop.ExpectMessage(MessageAnswer::Yes);
        PathPressure(windows, path);
    }

    // Colours of the path's elements, which tell them apart here.
    static std::string Elements() {
        std::string all;
        for (int position = 1; position <= PathCount; ++position) {
            const PathElement& element = PathElements[static_cast<std::size_t>(position)];
            EXPECT_EQ(element.Position, position);
            all += TypeLetter(element.Colour).empty() ? "-" : TypeLetter(element.Colour);
        }
        return all;
    }
};

} // namespace

TEST_F(PathTest, TextsOfOnePath) {
    for (const char* text : {"1,2,3", "1,2,3,", "1 2 3", "1;2;3;", "1, 2,   3", " 1,2,3 ", "1,2,3, ",
                             "01,2,0003", "1→2→3", "1-2/3."}) {
        EXPECT_EQ(Total(text).substr(0, 21), "Total Pressure is 18 ") << text;
        EXPECT_EQ(Elements(), "RCF") << text;
    }
}

TEST_F(PathTest, Totals) {
    struct Case {
        std::string path;
        std::string total;
        std::string elements;
    };
    const Case cases[] = {{"1", "4", "R"}, {"4", "5", "R"}, // 4.5 goes away from zero
                          {"2", "7", "C"}, {"1,1,1", "12", "RRR"}, {"0", "0", "-"},
                          {"5", "0", "-"}, {"3,2,1", "18", "FCR"}};
    for (const Case& row : cases) {
        EXPECT_EQ(Total(row.path), "Total Pressure is " + row.total + " Pa.\n\nProceed with plot?");
        EXPECT_EQ(Elements(), row.elements);
    }
    EXPECT_EQ(desktop.Messages().back().title, "Total Pressure Drop");
    EXPECT_EQ(desktop.Messages().back().buttons, MessageButtons::YesNo);
    EXPECT_EQ(desktop.Messages().back().icon, MessageIcon::None);
    EXPECT_EQ(PathElements[1].PressureDrop, 6.0);
    EXPECT_NEAR(PathElements[2].PressureDrop, 7.411875, 1E-12);
}

TEST_F(PathTest, PathsThatNameNoDuct) {
    struct Case {
        std::string path;
        std::string piece;
    };
    const Case cases[] = {
        {"1,,2", "\"1,,2\""},   {",1", "\",1\""},
        {";", "\";\""},         {"1, ,2", "\"1, ,2\""},
        {"1  2", "\"1  2\""},   {"1,2,  , 3", "\"2,  , 3\""},
        {"1 ,2", "\"1 ,2\""},   {"1,6,2", "\"6\""},
        {"32768", "\"32768\""}, {"99999999999999999999999999", "\"999999999999999999999999...\""},
        {"→", "\"→\""}};
    RedrawProject(windows);
    const Lines picture = Described(solver.picGrid);
    Total("3");
    for (const Case& row : cases) {
        desktop.ExpectMessage(MessageAnswer::Ok);
        PathPressure(windows, row.path);
        EXPECT_EQ(desktop.LastText().substr(0, row.piece.size()), row.piece);
        EXPECT_NE(desktop.LastText().find("numbered 1 to 5."), std::string::npos);
        EXPECT_EQ(Elements(), "F") << "the last path stays";
    }
    EXPECT_EQ(Described(solver.picGrid), picture);
    StartProject();
    desktop.ExpectMessage(MessageAnswer::Ok);
    PathPressure(windows, "1");
    EXPECT_NE(desktop.LastText().find("This project has no ducts."), std::string::npos);
}

TEST_F(PathTest, InputBox) {
    desktop.ExpectInput("");
    AskForPath(windows);
    desktop.ExpectInput("  ");
    AskForPath(windows);
    EXPECT_TRUE(desktop.Messages().empty());
    desktop.ExpectInput("3");
    desktop.ExpectMessage(MessageAnswer::No);
    AskForPath(windows);
    EXPECT_EQ(desktop.Log[0], "input: Please list duct path separated by commas.");
}

TEST_F(PathTest, ParsingConsumesItsText) {
    std::string path = "1,2,";
    ParseDuctPath(path);
    EXPECT_EQ(path, "");
    EXPECT_EQ(PathCount, 2);
    EXPECT_EQ(PathElements[2].PressureDrop, 0); // worked out later
}

TEST_F(PathTest, NothingToPlot) {
    RedrawProject(windows);
    const Lines picture = Described(solver.picGrid);
    for (const char* path : {"2", "5", "0"}) { // no length; no drop; neither
        desktop.ExpectMessage(MessageAnswer::Yes);
        desktop.ExpectMessage(MessageAnswer::Ok);
        PathPressure(windows, path);
        EXPECT_EQ(desktop.LastText().substr(0, 24), "There is nothing to plot") << path;
    }
    EXPECT_EQ(PlotShowing, FlagClear);
    EXPECT_EQ(Described(solver.picGrid), picture);
}

TEST_F(PathTest, ValuesTooLarge) {
    AddElement(RigidColour, 1E300, 1E300, 0, 0);
    desktop.ExpectMessage(MessageAnswer::Ok);
    PathPressure(windows, "6");
    EXPECT_EQ(desktop.LastText().substr(0, 24), "The pressure of this pat");
}

TEST_F(PathTest, PlotOnTheGrid) {
    // Lengths of 5, 0 and 5 m; drops of 4.5, 9 and 4.5 Pa.
    Ducts[1].LossPerMetre = 0.9;
    Ducts[2] = {.Colour = ConnectionColour, .ConnCoefficient = 0.75F, .Velocity = 1};
    Settings.FluidTemp = (1.2925 - 24) / 0.0041; // a density of 24
    solver.width = 10000;
    solver.height = 10000;
    RedrawProject(windows);
    Plot("1,2,4");
    EXPECT_EQ(PlotShowing, FlagSet);
    const Lines expected{
        "1 box 0: 500,500 9500,9500",
        "1- line 0: 5000,500 5000,9500",
        "1- line 0: 500,2750 9500,2750",
        "1- line 0: 5000,500 5000,9500",
        "1- line 0: 500,7250 9500,7250",
        "1- line 0: 9500,500 9500,9500",
        "1- line 0: 500,9500 9500,9500",
        "2 line 255: 500,500 5000,2750",
        "2 line 65535: 5000,2750 5000,7250",
        "2 line 255: 5000,7250 9500,9500",
        "text 5: 550,2550",
        "text 14: 550,7050",
        "text 18: 550,9300",
        "text 5.0: 4950,9500",
        "text 5.0: 4950,9500",
        "text 10.0: 9450,9500",
        "text R1: 2750,0",
        "text C2: 5000,0",
        "text R3: 7250,0",
    };
    Lines drawn;
    for (DrawnItem item : solver.picGrid.Items()) {
        for (double* coordinate : {&item.x1, &item.y1, &item.x2, &item.y2}) {
            *coordinate = Whole(*coordinate * 1000) / 1000; // the sums are a bit off
        }
        drawn.push_back(Described(item));
    }
    EXPECT_EQ(drawn, expected);

    RedrawProject(windows);
    EXPECT_EQ(PlotShowing, FlagClear);
    EXPECT_GT(solver.picGrid.Items().size(), GridLines);
}

TEST_F(PathTest, PlotOnPaper) {
    Plot("1,0,3");
    RecordedPrinter printer;
    desktop.ExpectPrinter(2);
    PrintShown(windows, printer);
    ASSERT_EQ(printer.Documents.size(), 2U);
    ASSERT_EQ(printer.Documents[1].size(), 1U);
    const RecordedPrinter::Page& page = printer.Documents[1][0];
    EXPECT_EQ(page.orientation, PageOrientation::Landscape);
    const Lines items = Described(page.surface);
    ASSERT_EQ(items.size(), 1U + 2 * 3 + 3 + 3 + 3 + 2);
    EXPECT_EQ(items[0], "1 box 0: 2105.125,1488.25 14735.875,10417.75");
    EXPECT_EQ(items[1].substr(0, 10), "1- line 0:");
    EXPECT_EQ(items[7].substr(0, 32), "5 line 255: 2105.125,1488.25 999");
    EXPECT_EQ(items[10].substr(0, 17), "text 4: 2105.125,");
    EXPECT_EQ(items[13].substr(0, 10), "text 5.0: ");
    EXPECT_EQ(items[13].substr(items[13].size() - 9), ",10417.75");
    EXPECT_EQ(items[17].substr(0, 9), "text F3: ");
    EXPECT_EQ(items[17].substr(items[17].size() - 8), ",1488.25");

    desktop.ExpectCancel();
    PrintShown(windows, printer);
    EXPECT_EQ(printer.Documents.size(), 2U);
}

} // namespace plenair
