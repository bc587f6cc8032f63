#include "project/CopyProject.h"

#include "platform/desktop/Clipboard.h"
#include "project/FakeWindows.h"
#include "project/PressureCalcs.h"

namespace plenair {
namespace {

class CopyProjectTest : public ProjectTest {
  protected:
    CopyProjectTest() {
        Desktop().Copy = [this](const ClipboardContent& content) { copied = content; };
    }

    ClipboardContent copied;
};

TEST_F(CopyProjectTest, DuctsAndPathAsTheUserReadsNumbers) {
    CopyShown(windows);
    EXPECT_EQ(copied.Text, "") << "nothing is copied over what the clipboard had";
    Add({.Colour = kRigidColour, .Length = 5000, .Width = 350, .LossPerMetre = 0.83, .Flow = 1250.5});
    Add({.Colour = kConnectionColour, .ConnCoefficient = 0.5F, .Velocity = 5});
    Add({.Colour = 7, .Height = 1E20});
    const std::string heading =
        "Duct\tKind\tFlow (L/s)\tWidth (mm)\tHeight (mm)\tLength (mm)\tVelocity (m/s)\t"
        "Pa/m Loss (Pa)\tEquiv. Round Duct (mm)\tConnection Coefficient\n";
    CopyShown(windows);
    EXPECT_EQ(copied.Text, heading + "R1\tRigid\t1250.5\t350\t0\t5000\t0\t0.83\t0\t0\n"
                                     "C2\tConnection\t0\t0\t0\t0\t5\t0\t0\t0.5\n"
                                     "3\t\t0\t0\t1E+20\t0\t0\t0\t0\t0\n");
    EXPECT_EQ(copied.Picture, &solver.picGrid);
    SetNumberLocale({",", "."});
    CopyShown(windows);
    EXPECT_NE(copied.Text.find("\t1250,5\t"), std::string::npos);
    EXPECT_NE(copied.Html.find("<tr><td>R1</td><td>Rigid</td><td align=\"right\">1250,5</td>"),
              std::string::npos);
    desktop.ExpectMessage(MessageAnswer::Yes);
    PathPressure(windows, "1,0,2");
    CopyShown(windows);
    EXPECT_EQ(copied.Text, "Position\tLabel\tLength (mm)\tPressure Drop (Pa)\tRunning Length (mm)\tRunning "
                           "Pressure (Pa)\n"
                           "1\tR1\t5000\t4,15\t5000\t4,15\n"
                           "2\t\t0\t0\t5000\t4,15\n"
                           "3\tC3\t0\t7,411875\t5000\t11,561875\n");
    EXPECT_EQ(HtmlTable({{"a<b>&"}}).find("a<b"), std::string::npos);
}

} // namespace
} // namespace plenair
