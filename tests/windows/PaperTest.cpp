#include "platform/desktop/CommonDialog.h"
#include "platform/qt/DesktopPrinter.h"
#include "platform/qt/PrintDialog.h"
#include "windows/WindowTest.h"

#include <QDialogButtonBox>
#include <QPrinter>
#include <QProcess>
#include <QSpinBox>

#include <sys/stat.h>

namespace {

// What comes out of the printer: PDF files, read back by other programs.
class Paper : public SolverTest {
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

    // The first page as a picture of 144 pixels to the inch.
    QImage Picture(const std::string& name) const {
        return QImage::fromData(Output("pdftoppm -r 144 -l 1 %1", name), "PPM");
    }
    // What is drawn around a place, in parts of the picture's width and height, in the ink that most of it
    // has:
    // "#ff0000 2" is a line that is two pixels wide.
    static std::string Ink(const QImage& page, double x, double y) {
        std::map<std::string, int> counts;
        for (int pixel = 0; pixel < 7 * 7; ++pixel) {
            ++counts[ColourAt(page, static_cast<int>(page.width() * x) + pixel % 7 - 3,
                              static_cast<int>(page.height() * y) + pixel / 7 - 3)];
        }
        std::string ink;
        for (const auto& [colour, count] : counts) {
            const bool isPen = colour.find_first_not_of("#0f") == colour.npos && colour != "#ffffff";
            ink += isPen && count > 3 ? (ink.empty() ? "" : ", ") + colour + " " + std::to_string(count / 7)
                                      : "";
        }
        return ink;
    }
};

// A path of a rigid duct, a connection without a length and a flexible duct: 6 m + 2 m, and 4, 2 and 2 Pa.
TEST_F(Paper, NetworkDataAndPlot) {
    OpenSolver();
    Play("#10,15 #30,15 @optDuct(2) #30,6 @optDuct(1) #10,6 #10,3 #20,3");
    Duct(1).Length = 6000;
    Duct(1).LossPerMetre = 4.0 / 6;
    Duct(2).ConnCoefficient = 0.5;
    Duct(2).Velocity = std::sqrt(8 / 1.1859);
    Duct(3).Length = 2000;
    Duct(3).LossPerMetre = 1;
    Print("plant.pdf", "?Yes ?*1");
    ASSERT_EQ(Pages("plant.pdf"), "LPP");
    EXPECT_TRUE(Output("pdfinfo %1", "plant.pdf").simplified().startsWith("Title: Plenair Creator: Plenair"));
    EXPECT_EQ(Text("plant.pdf", 1), "F5|F4|F3|C2|R1");
    EXPECT_EQ(Text("plant.pdf", 3),
              "---|Duct Number F5|---|Duct Type: Flexible|Flow Rate (L/s): 0|Width (mm): 0|"
              "Height (mm): 0|Length (mm): 0|Velocity (m/s): 0|Pressure Loss (Pa/m): 0|"
              "Equivalent Circular Diameter (mm): 0|Fitting Coefficient at Start: 0");
    // The letters of a label stand as high as their 9 points ask, and at their place.
    const QByteArray words = Output("pdftotext -bbox -l 1 %1 -", "plant.pdf");
    double left = 0, top = 0, right = 0, bottom = 0;
    std::sscanf(words.constData() + words.indexOf("<word"),
                "<word xMin=\"%lf\" yMin=\"%lf\" xMax=\"%lf\" yMax=\"%lf\"", &left, &top, &right, &bottom);
    EXPECT_NEAR(left, 315.7, 0.3);
    EXPECT_NEAR(top, 59.5, 0.3);
    EXPECT_NEAR(bottom - top, 9, 3);
    EXPECT_NEAR(right - left, 10, 3);
    Find("cmdCalcPressure").show();
    Play("?<1,2,3 ?Yes @cmdCalcPressure");
    Print("plot.pdf", "?*1"); // without a question
    EXPECT_EQ(Pages("plot.pdf"), "L");
    EXPECT_EQ(Text("plot.pdf", 1), "R1 C2 F3|4|6|8 6.0 8.0"); // two lengths of 6.0 lie on each other
    const QImage network = Picture("plant.pdf");
    const QImage plot = Picture("plot.pdf");
    EXPECT_EQ(Ink(network, 0.5, 0.5), "#ff0000 2");
    EXPECT_EQ(Ink(network, 0.75, 0.35), "#ffff00 2");
    EXPECT_EQ(Ink(network, 0.5, 0.2), "#0000ff 2");
    EXPECT_EQ(Ink(network, 0.24, 0.5), "");            // nothing before the start
    EXPECT_EQ(Ink(network, 0.2472, 0.5), "#000000 2"); // the mark of an end
    EXPECT_EQ(Ink(plot, 0.40625, 0.3125), "#ff0000 2");
    EXPECT_EQ(Ink(plot, 0.6875, 0.575), "#ffff00 3"); // the connection's vertical step
    EXPECT_EQ(Ink(plot, 0.78125, 0.78125), "#0000ff 3");
    EXPECT_EQ(Ink(plot, 0.125, 0.3125), "#000000 1"); // the frame
    std::string guide;
    for (int x = plot.width() / 4; x < plot.width() / 4 + 100; ++x) {
        guide += ColourAt(plot, x, plot.height() / 2) == "#000000" ? '-' : ' ';
    }
    EXPECT_NE(guide.find("--------     --------     --------"), guide.npos) << guide;
}

TEST_F(Paper, CopiesAreFilesOfTheirOwn) {
    OpenSolver();
    DrawRow("RRRR");
    WriteFile(File("plant-2.pdf"), "mine");
    Print("plant.pdf", "?Yes ?*2");
    EXPECT_EQ(Pages("plant.pdf"), "LP") << "no blank page after four ducts";
    EXPECT_EQ(ReadFile(File("plant-2.pdf")), "mine");
    EXPECT_EQ(Text("plant.pdf", 2), Text("plant-3.pdf", 2));
    Print("plain", "?Yes ?*2");
    EXPECT_EQ(Pages("plain-2.pdf"), "LP");
    Print("no/such/folder.pdf", "?Yes ?*2"); // ends without a word
    Print("plant.pdf", "?Cancel ?*1");
    EXPECT_EQ(Pages("plant.pdf"), "L") << "a closed question is a No; a file chosen again is replaced";
}

TEST_F(Paper, TheDialogRefusesWhatIsNoFile) {
    fs::create_symlink("behind.pdf", File("link.pdf"));
    fs::create_directory(File("folder.pdf"));
    ASSERT_EQ(::mkfifo(File("pipe.pdf").c_str(), 0600), 0);
    dialogsExpected = true;
    QPrinter any;
    EXPECT_TRUE(PrintDialog(&any, 0).findChild<QWidget*>("gbPrintRange")->isEnabled());
    CommonDialog options;
    options.Flags = kPrinterNoPageNumbers;
    for (const std::string name : {"pipe.pdf", "folder.pdf", "no/such/folder.pdf", "link.pdf", "link.pdf"}) {
        const bool refused = name != "link.pdf";
        const auto print = [&](QWidget& dialog) {
            auto* const copies = dialog.findChild<QSpinBox*>("copies");
            EXPECT_EQ(copies->value(), 1) << "whatever was wanted last time";
            EXPECT_FALSE(dialog.findChild<QWidget*>("gbPrintRange")->isEnabled());
            copies->setValue(3);
            emit dialog.findChild<QDialogButtonBox*>()->accepted();
        };
        desktop.Expect(refused ? "?Ok" : "", environment.Folder().Path());
        PrintToFile(File(name));
        bool isAccepted = false;
        WorkOn([&] { isAccepted = ShowPrintDialog(options); }, {print});
        EXPECT_EQ(isAccepted, !refused) << name;
    }
    EXPECT_EQ(options.Copies, 3);
    const std::unique_ptr<Printer> printer = MakeDesktopPrinter();
    printer->Box({0, 0}, {1000, 1000}, 0);
    printer->EndDoc();
    EXPECT_EQ(Pages("behind.pdf"), "P");
    EXPECT_EQ(InWords(desktop.Messages().back()),
              "Print: " + File("no/such/folder.pdf") + ": No such file or directory [Ok Exclamation]");
    EXPECT_TRUE(fs::is_symlink(File("link.pdf")));
}

} // namespace
