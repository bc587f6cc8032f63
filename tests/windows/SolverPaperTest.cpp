#include "platform/qt/DesktopPrinter.h"
#include "platform/qt/PrintDialog.h"
#include "windows/WindowTest.h"

#include <QDialogButtonBox>
#include <QPrinter>
#include <QProcess>

#include <sys/stat.h>

namespace {

// What comes out of the printer: PDF files, read back by other programs.
class SolverPaper : public SolverTest {
  protected:
    void Print(const std::string& name, const std::string& answers) {
        PrintToFile(File(name));
        Play(answers + " @cmdPrintGus");
    }

    QByteArray Output(const QString& command, const std::string& name) const {
        QProcess process;
        process.startCommand(command.arg(QString::fromStdString(File(name))));
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << command.toStdString();
        return process.readAllStandardOutput();
    }

    // The lines of a page, without surplus blanks and with bars between.
    std::string Text(const std::string& name, int page) const {
        const QString number = QString::number(page);
        QByteArrayList lines;
        for (const QByteArray& line :
             Output("pdftotext -layout -f " + number + " -l " + number + " %1 -", name).split('\n')) {
            lines += line.simplified();
        }
        lines.removeAll(QByteArray());
        return lines.join('|').toStdString();
    }

    // A letter for the orientation of each page, as in "LPP", if it is A4.
    std::string Pages(const std::string& name) const {
        std::string pages;
        for (const QByteArray& line : Output("pdfinfo -l 9999 %1", name).split('\n')) {
            if (line.startsWith("Page ") && line.endsWith("(A4)")) {
                pages += line.indexOf(" 59") < line.indexOf(" 84") ? 'P' : 'L';
            }
        }
        return pages;
    }

    // The first page as a picture of 144 pixels to the inch, and how many of its pixels in a square around a
    // place, in parts of its width and height, have the colour.
    QImage Picture(const std::string& name) const {
        return QImage::fromData(Output("pdftoppm -r 144 -l 1 %1", name), "PPM");
    }
    static int Count(const QImage& page, const char* colour, double x, double y, int reach = 3) {
        int count = 0;
        for (int at = 0; at < (2 * reach + 1) * (2 * reach + 1); ++at) {
            count += ColourAt(page, static_cast<int>(page.width() * x) + at % (2 * reach + 1) - reach,
                              static_cast<int>(page.height() * y) + at / (2 * reach + 1) - reach) == colour
                         ? 1
                         : 0;
        }
        return count;
    }
};

TEST_F(SolverPaper, NetworkAndDataOfDucts) {
    OpenSolver();
    Play("#10,15 #30,15 #30,6 @optDuct(1) #10,6 @optDuct(2) #10,3 #20,3");
    Ducts[3].Length = 2500.5;
    Ducts[5].ConnCoefficient = 0.7F;
    Print("plant.pdf", "?Yes ?*1");
    ASSERT_EQ(Pages("plant.pdf"), "LPP");
    const QImage network = Picture("plant.pdf");
    EXPECT_GT(Count(network, "#ff0000", 0.5, 0.5), 6);
    EXPECT_GT(Count(network, "#ffff00", 0.25, 0.15), 6);
    EXPECT_EQ(Count(network, "#ff0000", 0.24, 0.5), 0) << "nothing before the start";
    EXPECT_GT(Count(network, "#000000", 0.25, 0.5, 7), 10) << "the mark of an end";
    EXPECT_EQ(Text("plant.pdf", 1), "C5|C4|F3|R2|R1");
    const auto duct = [](const std::string& number, const std::string& type, const std::string& length) {
        return "---|Duct Number " + number + "|---|Duct Type: " + type +
               "|Flow Rate (L/s): 0|Width (mm): 0|Height (mm): 0|Length (mm): " + length +
               "|Velocity (m/s): 0|Pressure Loss (Pa/m): 0|Equivalent Circular Diameter (mm): 0|"
               "Fitting Coefficient at Start: ";
    };
    EXPECT_EQ(Text("plant.pdf", 2), duct("R1", "Rigid", "0") + "0|" + duct("R2", "Rigid", "0") + "0|" +
                                        duct("F3", "Flexible", "2500.5") + "0|" +
                                        duct("C4", "Flexible", "0") + "0"); // so of connections too
    EXPECT_EQ(Text("plant.pdf", 3), duct("C5", "Flexible", "0") + "0.7");
}

TEST_F(SolverPaper, CopiesAreFilesOfTheirOwn) {
    OpenSolver();
    DrawRow("RRRR");
    WriteFile(File("plant-2.pdf"), "mine");
    Print("plant.pdf", "?Yes ?*2");
    EXPECT_EQ(Pages("plant.pdf"), "LP") << "no blank page after four ducts";
    EXPECT_EQ(ReadFile(File("plant-2.pdf")), "mine");
    EXPECT_EQ(Text("plant.pdf", 2), Text("plant-3.pdf", 2));
    Print("no/such/folder.pdf", "?Yes ?*2"); // ends without a word
    Print("plant.pdf", "?Cancel ?*1");
    EXPECT_EQ(Pages("plant.pdf"), "L") << "a closed question is a No; a file chosen again is replaced";
}

TEST_F(SolverPaper, TheDialogRefusesWhatIsNoFile) {
    fs::create_symlink("behind.pdf", File("link.pdf"));
    fs::create_directory(File("folder.pdf"));
    ASSERT_EQ(::mkfifo(File("pipe.pdf").c_str(), 0600), 0);
    QPrinter printer;
    dialogsExpected = true;
    for (const std::string name : {"pipe.pdf", "folder.pdf", "no/such/folder.pdf", "link.pdf"}) {
        printer.setOutputFileName(QString::fromStdString(File(name)));
        PrintDialog dialog(&printer, 0);
        const bool refused = name != "link.pdf";
        if (refused) {
            desktop.ExpectMessage(MessageAnswer::Ok);
        }
        dialog.show();
        emit dialog.findChild<QDialogButtonBox*>()->accepted();
        EXPECT_EQ(dialog.result() == QDialog::Rejected, refused) << name;
    }
    EXPECT_EQ(desktop.LastText(), File("no/such/folder.pdf") + ": No such file or directory");
    EXPECT_EQ(printer.outputFileName().toStdString(), File("behind.pdf"));
    EXPECT_TRUE(fs::is_symlink(File("link.pdf")));
}

// A path of a rigid duct, a connection without a length and a flexible duct: 6 m + 2 m, and 4, 2 and 2 Pa.
TEST_F(SolverPaper, PlotOfAPath) {
    OpenSolver();
    DrawRow("RCF");
    Duct(1) = {.Colour = kRigidColour, .Length = 6000, .LossPerMetre = 4.0 / 6};
    Duct(2) = {.Colour = kConnectionColour, .ConnCoefficient = 0.5, .Velocity = std::sqrt(8 / 1.1859)};
    Duct(3) = {.Colour = kFlexibleColour, .Length = 2000, .LossPerMetre = 1};
    Find("cmdCalcPressure").show();
    Play("?<1,2,3 ?Yes @cmdCalcPressure");
    EXPECT_GT(Count(Grid(), "#ffff00", 0.05 + 0.9 * 0.75, 0.05 + 0.9 * 0.6), 6);
    Print("plot.pdf", "?*1"); // without a question
    EXPECT_EQ(Pages("plot.pdf"), "L");
    const QImage page = Picture("plot.pdf");
    const std::tuple<const char*, double, double> marks[] = {
        {"#ff0000", 0.375, 0.25},  // the rigid duct
        {"#ffff00", 0.75, 0.6},    // the connection's vertical step
        {"#0000ff", 0.875, 0.875}, // the flexible duct
        {"#000000", 0, 0.25}};     // the frame
    for (const auto& [colour, x, y] : marks) {
        EXPECT_GT(Count(page, colour, 0.125 + 0.75 * x, 0.125 + 0.75 * y), 3) << colour;
    }
    int gaps = 0;
    for (int x = page.width() / 4; x < page.width() / 2; ++x) {
        const bool black = ColourAt(page, x, page.height() / 2 - 1) == "#000000" ||
                           ColourAt(page, x, page.height() / 2) == "#000000";
        gaps += black ? 0 : 1;
    }
    EXPECT_TRUE(gaps > 10 && gaps < page.width() / 5) << "a dashed guide: " << gaps;
    EXPECT_EQ(Text("plot.pdf", 1), "R1 C2 F3|4|6|8 6.0 8.0"); // two lengths of 6.0 lie on each other
}

} // namespace
