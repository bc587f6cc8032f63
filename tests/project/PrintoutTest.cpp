#include "project/Printout.h"
#include "project/FakeWindows.h"
#include "project/RecordedPrinter.h"

namespace plenair {

namespace {

class PrintoutTest : public ProjectTest {
  protected:
    void AddDucts(int count) {
        for (int duct = 0; duct < count; ++duct) {
            Add(RigidColour).EndX = 1;
        }
    }

    void Print(MessageAnswer withData, int copies) {
        desktop.ExpectMessage(withData);
        desktop.ExpectPrinter(copies);
        PrintShown(windows, printer);
    }

    // Orientation and number of lines of each page of each document, as in "L0 P56".
    std::string Pages() const {
        std::string all;
        for (const RecordedPrinter::Document& document : printer.Documents) {
            all += all.empty() ? "" : "| ";
            for (const RecordedPrinter::Page& page : document) {
                all += page.orientation == PageOrientation::Landscape ? "L" : "P";
                all += std::to_string(page.text.size()) + " ";
            }
        }
        return all;
    }

    RecordedPrinter printer;
};

} // namespace

TEST_F(PrintoutTest, PagesAndCopies) {
    struct Case {
        const char* name;
        int ducts;
        MessageAnswer withData;
        int copies;
        std::string pages;
    };
    const Case cases[] = {
        {"the network alone", 3, MessageAnswer::No, 1, "L3 "},
        {"three ducts", 3, MessageAnswer::Yes, 1, "L3 P42 "},
        {"no blank page after four", 4, MessageAnswer::Yes, 1, "L4 P56 "},
        {"five take two pages", 5, MessageAnswer::Yes, 1, "L5 P56 P14 "},
        {"two copies", 5, MessageAnswer::Yes, 2, "L5 P56 P14 | L5 P56 P14 "},
        {"a closed question is a No", 1, MessageAnswer::Cancel, 1, "L1 "},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        StartProject();
        printer = {};
        AddDucts(row.ducts);
        Print(row.withData, row.copies);
        EXPECT_EQ(Pages(), row.pages);
        EXPECT_EQ(printer.Modes, std::vector<ColourMode>{ColourMode::Colour});
    }
    EXPECT_EQ(desktop.LastDialog().Flags, 12);
    EXPECT_TRUE(desktop.LastDialog().PrinterDefault);
}

TEST_F(PrintoutTest, NetworkFillsThePage) {
    Add(ConnectionColour) = {
        .Colour = ConnectionColour, .StartX = 0.25, .StartY = 0.5, .EndX = 0.75, .EndY = 1};
    Print(MessageAnswer::No, 1);
    EXPECT_EQ(Described(printer.Documents[0][0].surface),
              (Lines{"3 box 0: 4160,5903 4260,6003", "3 box 0: 12581,11856 12681,11956",
                     "3 line 65535: 4210,5953 12631,11906", "text C1: 8420,8930"}));
    EXPECT_EQ(printer.Documents[0][0].text, Lines{"Arial 9: C1"});
}

TEST_F(PrintoutTest, DataOfADuct) {
    Add(RigidColour) = {.Colour = RigidColour,
                        .Length = 3000.5,
                        .Width = 175,
                        .Height = 200,
                        .EquivRound = 225,
                        .Velocity = 3.03,
                        .LossPerMetre = 0.63,
                        .Flow = 100};
    Add(ConnectionColour).ConnCoefficient = 0.1F;
    Print(MessageAnswer::Yes, 1);
    const Lines& text = printer.Documents[0][1].text;
    ASSERT_EQ(text.size(), 28U);
    EXPECT_EQ(
        Lines(text.begin(), text.begin() + 14),
        (Lines{"Arial 12 bold: ---", "Arial 12 bold: Duct Number R1", "Arial 12 bold: ---",
               "Arial 9: ", "Arial 9: Duct Type: Rigid", "Arial 9: Flow Rate (L/s): \t100",
               "Arial 9: Width (mm): \t\t175", "Arial 9: Height (mm): \t200",
               "Arial 9: Length (mm): \t3000.5", "Arial 9: Velocity (m/s): \t3.03",
               "Arial 9: Pressure Loss (Pa/m): 0.63", "Arial 9: Equivalent Circular Diameter (mm): \t225",
               "Arial 9: Fitting Coefficient at Start: \t0", "Arial 9: "}));
    EXPECT_EQ(text[15], "Arial 12 bold: Duct Number C2");
    EXPECT_EQ(text[18], "Arial 9: Duct Type: Flexible"); // for connections too
    EXPECT_EQ(text[26], "Arial 9: Fitting Coefficient at Start: \t0.1");
}

TEST_F(PrintoutTest, CancelLeavesThePrinterAlone) {
    AddDucts(1);
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectCancel();
    PrintShown(windows, printer);
    EXPECT_EQ(desktop.Log, (Lines{"message: Do you wish to include duct data with the printout?", "dialog"}));
    EXPECT_TRUE(printer.Documents.empty() && printer.Modes.empty());
    EXPECT_EQ(printer.Killed, 0);
}

TEST_F(PrintoutTest, FailureEndsThePrintout) {
    AddDucts(2);
    printer.LinesUntilFailure = 3; // in the second copy
    Print(MessageAnswer::No, 3);
    EXPECT_EQ(Pages(), "L2 ");
    EXPECT_EQ(printer.Killed, 1);
}

} // namespace plenair
