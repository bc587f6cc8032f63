#include "platform/qt/DesktopPrinter.h"
#include "platform/qt/PrintDialog.h"
#include "windows/WindowTest.h"

#include <QDialogButtonBox>
#include <QPrinter>
#include <QProcess>

#include <sys/stat.h>

namespace {

using Texts = std::vector<std::string>;

// What comes out of the printer: PDF files, read back by other programs.
class SolverPaper : public SolverTest {
  protected:
    QByteArray Output(const QString& command, const char* name) const {
        QProcess process;
        process.startCommand(command.arg(QString::fromStdString(File(name))));
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << command.toStdString();
        return process.readAllStandardOutput();
    }

    // The lines of a page, without surplus blanks.
    Texts Text(const char* name, int page) const {
        Texts lines;
        const QString number = QString::number(page);
        const QString command = "pdftotext -layout -f " + number + " -l " + number + " %1 -";
        for (const QByteArray& line : Output(command, name).split('\n')) {
            if (!line.trimmed().isEmpty()) {
                lines.push_back(line.simplified().toStdString());
            }
        }
        return lines;
    }

    // A letter for the orientation of each page, as in "LPP"; each page has to be A4.
    std::string Pages(const char* name) const {
        std::string pages;
        for (const QByteArray& line : Output("pdfinfo -l 9999 %1", name).split('\n')) {
            if (line.startsWith("Page ") && line.contains(" size:")) {
                EXPECT_TRUE(line.contains("A4")) << line.toStdString();
                pages += line.contains(" 84") && line.indexOf(" 84") < line.indexOf(" x ") ? 'L' : 'P';
            }
        }
        return pages;
    }

    // The first page as a picture of 144 pixels to the inch, and how many of its pixels in a square around a
    // place, in parts of its width and height, have the colour.
    QImage Picture(const char* name) const {
        return QImage::fromData(Output("pdftoppm -r 144 -l 1 %1", name), "PPM");
    }
    static int Count(const QImage& page, const char* colour, double x, double y, int reach = 3) {
        const QPoint place(static_cast<int>(page.width() * x), static_cast<int>(page.height() * y));
        int count = 0;
        for (int down = -reach; down <= reach; ++down) {
            for (int across = -reach; across <= reach; ++across) {
                count += ColourAt(page, place.x() + across, place.y() + down) == colour ? 1 : 0;
            }
        }
        return count;
    }

    void Print(const char* name, MessageAnswer withData, int copies) {
        desktop.ExpectMessage(withData);
        desktop.ExpectPrinter(copies);
        PrintToFile(File(name));
        Click("cmdPrintGus");
    }

    auto FilesIn() const {
        using Files = fs::directory_iterator;
        return std::distance(Files(m_environment.Folder().Path()), Files());
    }
};

TEST_F(SolverPaper, NetworkAndDataOfDucts) {
    OpenSolver();
    Play("#10,15");
    Play("#30,15");
    Play("#30,6");
    Click("optDuct(1)");
    Play("#10,6");
    Click("optDuct(2)");
    Play("#10,3");
    Play("#20,3");
    Ducts[3].Length = 2500.5;
    Ducts[5].ConnCoefficient = 0.7F;
    Print("plant.pdf", MessageAnswer::Yes, 1);
    ASSERT_EQ(Pages("plant.pdf"), "LPP");
    const QImage network = Picture("plant.pdf");
    EXPECT_GT(Count(network, "#ff0000", 0.5, 0.5), 6);
    EXPECT_GT(Count(network, "#ffff00", 0.25, 0.15), 6);
    EXPECT_EQ(Count(network, "#ff0000", 0.24, 0.5), 0) << "nothing before the start";
    EXPECT_GT(Count(network, "#000000", 0.25, 0.5, 7), 10) << "the mark of an end";
    EXPECT_EQ(Text("plant.pdf", 1), (Texts{"C5", "C4", "F3", "R2", "R1"}));
    const Texts first = Text("plant.pdf", 2);
    ASSERT_EQ(first.size(), 4U * 12);
    EXPECT_EQ(
        Texts(first.begin() + 24, first.begin() + 36),
        (Texts{"---", "Duct Number F3", "---", "Duct Type: Flexible", "Flow Rate (L/s): 0", "Width (mm): 0",
               "Height (mm): 0", "Length (mm): 2500.5", "Velocity (m/s): 0", "Pressure Loss (Pa/m): 0",
               "Equivalent Circular Diameter (mm): 0", "Fitting Coefficient at Start: 0"}));
    const Texts second = Text("plant.pdf", 3);
    EXPECT_EQ(second.at(3), "Duct Type: Flexible"); // for connections too
    EXPECT_EQ(second.back(), "Fitting Coefficient at Start: 0.7");
}

TEST_F(SolverPaper, CopiesAreFilesOfTheirOwn) {
    OpenSolver();
    DrawRow("RRRR");
    WriteFile(File("plant-2.pdf"), "mine");
    Print("plant.pdf", MessageAnswer::Yes, 2);
    EXPECT_EQ(Pages("plant.pdf"), "LP") << "no blank page after four ducts";
    EXPECT_EQ(ReadFile(File("plant-2.pdf")), "mine");
    EXPECT_EQ(Text("plant.pdf", 2), Text("plant-3.pdf", 2));

    const auto before = FilesIn();
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectCancel();
    Click("cmdPrintGus");
    Print("no/such/folder.pdf", MessageAnswer::Yes, 2); // ends without a word
    EXPECT_EQ(FilesIn(), before);
    Print("plant.pdf", MessageAnswer::Cancel, 1);
    EXPECT_EQ(Pages("plant.pdf"), "L") << "a closed question is a No; a file chosen again is replaced";
}

TEST_F(SolverPaper, TheDialogRefusesWhatIsNoFile) {
    fs::create_symlink("behind.pdf", File("link.pdf"));
    fs::create_directory(File("folder.pdf"));
    ASSERT_EQ(::mkfifo(File("pipe.pdf").c_str(), 0600), 0);
    QPrinter printer;
    dialogsExpected = true;
    for (const std::string name : {"pipe.pdf", "folder.pdf", "no/such/folder.pdf", "link.pdf"}) {
        printer.setOutputFileName(QString::fromStdString(File(name.c_str())));
        PrintDialog dialog(&printer, 0);
        const bool refused = name != "link.pdf";
        if (refused) {
            desktop.ExpectMessage(MessageAnswer::Ok);
        }
        dialog.show();
        emit dialog.findChild<QDialogButtonBox*>()->accepted();
        EXPECT_EQ(dialog.result() == QDialog::Rejected, refused) << name;
    }
    dialogsExpected = false;
    EXPECT_EQ(desktop.LastText(), File("no/such/folder.pdf") + ": No such file or directory");
    EXPECT_EQ(printer.outputFileName().toStdString(), File("behind.pdf"));
    EXPECT_TRUE(fs::is_symlink(File("link.pdf")));
}

// A path of a rigid duct, a connection without a length and a flexible duct: 6 m + 2 m, and 4, 2 and 2 Pa.
TEST_F(SolverPaper, PlotOfAPath) {
    OpenSolver();
    DrawRow("RCF");
    Ducts[1].Length = 6000;
    Ducts[1].LossPerMetre = 4.0 / 6;
    Ducts[2].ConnCoefficient = 0.5;
    Ducts[2].Velocity = std::sqrt(8 / 1.1859);
    Ducts[3].Length = 2000;
    Ducts[3].LossPerMetre = 1;
    Find("cmdCalcPressure").show();
    desktop.ExpectInput("1,2,3");
    desktop.ExpectMessage(MessageAnswer::Yes);
    Click("cmdCalcPressure");
    EXPECT_GT(Count(Grid(), "#ffff00", 0.05 + 0.9 * 0.75, 0.05 + 0.9 * 0.6), 6);
    desktop.ExpectPrinter(1);
    PrintToFile(File("plot.pdf"));
    Click("cmdPrintGus"); // without a question
    EXPECT_EQ(Pages("plot.pdf"), "L");
    const QImage page = Picture("plot.pdf");
    const auto count = [&](const char* colour, double x, double y) {
        return Count(page, colour, 0.125 + 0.75 * x, 0.125 + 0.75 * y);
    };
    EXPECT_GT(count("#ff0000", 0.375, 0.25), 3);
    EXPECT_GT(count("#ffff00", 0.75, 0.6), 6) << "the connection's vertical step";
    EXPECT_GT(count("#0000ff", 0.875, 0.875), 3);
    EXPECT_GT(count("#000000", 0, 0.25), 5) << "the frame";
    int gaps = 0;
    for (int x = page.width() / 4; x < page.width() / 2; ++x) {
        const bool black = ColourAt(page, x, page.height() / 2 - 1) == "#000000" ||
                           ColourAt(page, x, page.height() / 2) == "#000000";
        gaps += black ? 0 : 1;
    }
    EXPECT_TRUE(gaps > 10 && gaps < page.width() / 5) << "a dashed guide: " << gaps;
    // Two lengths of 6.0 lie on each other.
    EXPECT_EQ(Text("plot.pdf", 1), (Texts{"R1 C2 F3", "4", "6", "8 6.0 8.0"}));
}

} // namespace
