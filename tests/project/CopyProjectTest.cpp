#include "project/CopyProject.h"
#include "platform/desktop/Clipboard.h"
#include "platform/text/SpreadsheetDocument.h"
#include "project/FakeWindows.h"
#include "project/PressureCalcs.h"

namespace {

class CopyProjectTest : public ProjectTest {
  protected:
    CopyProjectTest() {
        Desktop().Copy = [this](const ClipboardContent& content) { copied = content; };
    }

    std::string Text() const { return TabSeparated(copied.Table); }

    ClipboardContent copied;
};

TEST_F(CopyProjectTest, DuctsAndPathAsTheUserReadsNumbers) {
    CopyShown(windows);
    EXPECT_EQ(Text(), "") << "nothing is copied over what the clipboard had";
    Add({.Colour = kRigidColour, .Length = 5000, .Width = 350, .LossPerMetre = 0.83, .Flow = 1250.5});
    Add({.Colour = kConnectionColour, .ConnCoefficient = 0.5F, .Velocity = 5});
    Add({.Colour = 7, .Height = 1E20});
    const std::string heading =
        "Duct\tKind\tFlow (L/s)\tWidth (mm)\tHeight (mm)\tLength (mm)\tVelocity (m/s)\t"
        "Pa/m Loss (Pa)\tEquiv. Round Duct (mm)\tConnection Coefficient\n";
    CopyShown(windows);
    EXPECT_EQ(Text(), heading + "R1\tRigid\t1250.5\t350\t0\t5000\t0\t0.83\t0\t0\n"
                                "C2\tConnection\t0\t0\t0\t0\t5\t0\t0\t0.5\n"
                                "3\t\t0\t0\t1E+20\t0\t0\t0\t0\t0\n");
    EXPECT_EQ(copied.Picture, &solver.picGrid);
    SetNumberLocale({",", "."});
    CopyShown(windows);
    EXPECT_NE(Text().find("\t1250,5\t"), std::string::npos);
    EXPECT_NE(HtmlTable(copied.Table).find("<tr><td>R1</td><td>Rigid</td><td align=\"right\">1250,5</td>"),
              std::string::npos);
    const std::string spreadsheet = SpreadsheetDocument(copied.Table);
    EXPECT_EQ(spreadsheet.substr(14, 4), "\x85\x6C\x39\x8A"); // the sum over its kind
    EXPECT_NE(spreadsheet.find("office:value=\"1250.5\"><text:p>1250,5</text:p>"), std::string::npos);
    EXPECT_NE(spreadsheet.find("office:value-type=\"string\"><text:p>C2</text:p>"), std::string::npos);
    desktop.ExpectMessage(MessageAnswer::Yes);
    PathPressure(windows, "1,0,2");
    desktop.ExpectMessage(MessageAnswer::No);
    PathPressure(windows, "2"); // the plot on the grid is still that of the first path
    CopyShown(windows);
    EXPECT_EQ(Text(), "Position\tLabel\tLength (mm)\tPressure Drop (Pa)\tRunning Length (mm)\tRunning "
                      "Pressure (Pa)\n"
                      "1\tR1\t5000\t4,15\t5000\t4,15\n"
                      "2\t\t0\t0\t5000\t4,15\n"
                      "3\tC3\t0\t7,411875\t5000\t11,561875\n");
    EXPECT_EQ(HtmlTable({{"a<b>&"}}).find("a<b"), std::string::npos);
}

} // namespace
