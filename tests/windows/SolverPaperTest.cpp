#include "platform/qt/DesktopPrinter.h"
#include "windows/SolverTest.h"

#include <QProcess>

#include <cmath>
#include <filesystem>

namespace plenair {
namespace {

// The path's plot on the grid, and what comes out of the printer: PDF files, read back by other programs.
class SolverPaper : public SolverTest {
  protected:
    // The output of a program, and nothing but it.
    static QByteArray Output(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0)
            << program.toStdString() << ": " << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }

    // A letter for the orientation of each page, as in "LPP"; each page has to be A4.
    std::string Pages(const std::string& name) const {
        std::string pages;
        for (const QByteArray& line : Output("pdfinfo", {"-l", "9999", ToQt(File(name))}).split('\n')) {
            if (line.startsWith("Page ") && line.contains(" size:")) {
                EXPECT_TRUE(line.contains("A4")) << line.toStdString();
                pages += line.contains("841.89 x 595") || line.contains("842 x 595") ? 'L' : 'P';
            }
        }
        return pages;
    }

    // The lines of a page, each without surplus blanks.
    std::vector<std::string> Text(const std::string& name, int page) const {
        const QString number = QString::number(page);
        std::vector<std::string> lines;
        for (const QByteArray& line :
             Output("pdftotext", {"-layout", "-f", number, "-l", number, ToQt(File(name)), "-"})
                 .split('\n')) {
            if (!line.trimmed().isEmpty()) {
                lines.push_back(line.simplified().toStdString());
            }
        }
        return lines;
    }

    // A page as a picture of 144 pixels to the inch.
    QImage Page(const std::string& name, int page) const {
        const QString number = QString::number(page);
        return QImage::fromData(
            Output("pdftoppm", {"-r", "144", "-f", number, "-l", number, ToQt(File(name))}), "PPM");
    }

    // How many pixels of the colour lie around a place.
    static int Count(const QImage& image, const std::string& colour, double x, double y, int reach = 3) {
        int count = 0;
        for (int down = -reach; down <= reach; ++down) {
            for (int across = -reach; across <= reach; ++across) {
                count += ColourAt(image, static_cast<int>(x) + across, static_cast<int>(y) + down) == colour
                             ? 1
                             : 0;
            }
        }
        return count;
    }

    // How often the colour ends and begins again on the way from one place to another on a row or column.
    static int Gaps(const QImage& image, const std::string& colour, QPoint from, QPoint to) {
        const QPoint step(from.x() < to.x() ? 1 : 0, from.y() < to.y() ? 1 : 0);
        int gaps = 0;
        for (QPoint at = from; at != to; at += step) {
            gaps += ColourAt(image, at.x(), at.y()) == colour &&
                            ColourAt(image, at.x() + step.x(), at.y() + step.y()) != colour
                        ? 1
                        : 0;
        }
        return gaps;
    }

    void Print(MessageAnswer withData, int copies) {
        desktop.ExpectMessage(withData);
        desktop.ExpectPrinter(copies);
        PrintToFile(File("plant.pdf"));
        ClickOn("cmdPrintGus");
    }

    std::size_t FilesIn() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry :
             std::filesystem::directory_iterator(m_environment.Folder().Path())) {
            ++count;
        }
        return count;
    }

    // A path of a rigid duct, a connection without a length and a flexible duct: 6 m + 2 m, and 4, 2 and 2
    // Pa.
    void PlotPath() {
        DrawRow(3, "RCF");
        Ducts[1].Length = 6000;
        Ducts[1].LossPerMetre = 4.0 / 6;
        Ducts[2].ConnCoefficient = 0.5;
        Ducts[2].Velocity = std::sqrt(8 / 1.1859);
        Ducts[3].Length = 2000;
        Ducts[3].LossPerMetre = 1;
        Get("cmdCalcPressure").show();
        desktop.ExpectInput("1,2,3");
        desktop.ExpectMessage(MessageAnswer::Yes);
        ClickOn("cmdCalcPressure");
        EXPECT_EQ(desktop.LastText(), "Total Pressure is 8 Pa.\n\nProceed with plot?");
    }

    // The plot of that path in its frame: the guides dashed, the path in its colours down to the far corner.
    static void ExpectPlot(const QImage& image, double left, double top, double right, double bottom) {
        const auto x = [&](double part) { return left + (right - left) * part; };
        const auto y = [&](double part) { return top + (bottom - top) * part; };
        EXPECT_GT(Count(image, "#ff0000", x(0.375), y(0.25)), 3);
        EXPECT_GT(Count(image, "#ffff00", x(0.75), y(0.6)), 6) << "the connection's vertical step";
        EXPECT_GT(Count(image, "#0000ff", x(0.875), y(0.875)), 3);
        const auto at = [](double across, double down) {
            return QPoint(static_cast<int>(std::lround(across)), static_cast<int>(std::lround(down)));
        };
        int horizontal = 0; // the guide's row can lie a pixel beside the rounded one
        int vertical = 0;
        int frame = 0;
        for (int beside = -1; beside <= 1; ++beside) {
            horizontal = std::max(horizontal, Gaps(image, "#000000", at(x(0.05), y(0.5) + beside),
                                                   at(x(0.7), y(0.5) + beside)));
            vertical = std::max(vertical, Gaps(image, "#000000", at(x(0.75) + beside, y(0.05)),
                                               at(x(0.75) + beside, y(0.45))));
            frame += Count(image, "#000000", left, y(0.25) + 7 * beside);
        }
        EXPECT_GT(horizontal, 10) << "a dashed guide";
        EXPECT_GT(vertical, 6);
        EXPECT_GT(frame, 15) << "the frame is solid";
    }
};

TEST_F(SolverPaper, PlotOnTheGrid) {
    OpenSolver();
    PlotPath();
    const QImage plot = Grid();
    const double width = Solver().GridWidth() / 15;
    const double height = Solver().PicGrid().Height() / 15;
    ExpectPlot(plot, width * 0.05, height * 0.05, width * 0.95, height * 0.95);
    desktop.ExpectInput("2,1");
    desktop.ExpectMessage(MessageAnswer::No);
    ClickOn("cmdCalcPressure");
    EXPECT_EQ(Grid(), plot) << "No leaves the picture";
    desktop.ExpectInput("1,,2");
    desktop.ExpectMessage(MessageAnswer::Ok);
    ClickOn("cmdCalcPressure");
    EXPECT_EQ(Grid(), plot);
    desktop.ExpectInput("");
    ClickOn("cmdCalcPressure");
    ClickOn("chkLabels");
    EXPECT_NE(Grid(), plot) << "the network is back";
    EXPECT_EQ(PlotShowing, FlagClear);
}

TEST_F(SolverPaper, NetworkAndDataOfDucts) {
    OpenSolver();
    ClickGrid(10, 15);
    ClickGrid(30, 15);
    ClickGrid(30, 6);
    ClickOn("optDuct(1)");
    ClickGrid(10, 6);
    ClickOn("optDuct(2)");
    ClickGrid(10, 3);
    ClickGrid(20, 3);
    Ducts[3] = {.Colour = FlexibleColour,
                .StartX = Ducts[3].StartX,
                .StartY = Ducts[3].StartY,
                .EndX = Ducts[3].EndX,
                .EndY = Ducts[3].EndY,
                .Length = 2500.5,
                .Width = 175,
                .Height = 200,
                .EquivRound = 225,
                .Velocity = 3.03,
                .LossPerMetre = 0.63,
                .Flow = 100};
    Ducts[5].ConnCoefficient = 0.7F;
    Print(MessageAnswer::Yes, 1);
    EXPECT_EQ(desktop.LastDialog().Flags, 12);
    ASSERT_EQ(Pages("plant.pdf"), "LPP");

    const QImage network = Page("plant.pdf", 1);
    const double width = network.width();
    const double height = network.height();
    EXPECT_GT(Count(network, "#ff0000", width * 0.5, height * 0.5), 6);
    EXPECT_GT(Count(network, "#ff0000", width * 0.75, height * 0.35), 6);
    EXPECT_GT(Count(network, "#0000ff", width * 0.5, height * 0.2), 6);
    EXPECT_GT(Count(network, "#ffff00", width * 0.25, height * 0.15), 6);
    EXPECT_EQ(Count(network, "#ff0000", width * 0.24, height * 0.5), 0) << "nothing before the start";
    EXPECT_GT(Count(network, "#000000", width * 0.25 - 5, height * 0.5 - 5, 2), 3) << "the mark's corner";
    std::string labels;
    for (const std::string& line : Text("plant.pdf", 1)) {
        labels += line + " ";
    }
    EXPECT_EQ(labels, "C5 C4 F3 R2 R1 ");

    const auto first = Text("plant.pdf", 2);
    ASSERT_EQ(first.size(), 4U * 12);
    const std::vector<std::string> third(first.begin() + 24, first.begin() + 36);
    EXPECT_EQ(third, (std::vector<std::string>{
                         "---", "Duct Number F3", "---", "Duct Type: Flexible", "Flow Rate (L/s): 100",
                         "Width (mm): 175", "Height (mm): 200", "Length (mm): 2500.5", "Velocity (m/s): 3.03",
                         "Pressure Loss (Pa/m): 0.63", "Equivalent Circular Diameter (mm): 225",
                         "Fitting Coefficient at Start: 0"}));
    const auto second = Text("plant.pdf", 3);
    ASSERT_EQ(second.size(), 12U);
    EXPECT_EQ(second[1], "Duct Number C5");
    EXPECT_EQ(second[3], "Duct Type: Flexible");
    EXPECT_EQ(second[11], "Fitting Coefficient at Start: 0.7");
    // Both pages begin at the same height, near the top of the paper.
    const auto top = [&](int page) {
        const QImage image = Page("plant.pdf", page);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (ColourAt(image, x, y) == "#000000") {
                    return y;
                }
            }
        }
        return image.height();
    };
    EXPECT_EQ(top(2), top(3));
    EXPECT_LT(top(2), 144);
}

TEST_F(SolverPaper, CopiesAreFilesOfTheirOwn) {
    OpenSolver();
    DrawRow(3, "RRRR");
    WriteFile(File("plant-2.pdf"), "mine");
    Print(MessageAnswer::Yes, 2);
    EXPECT_EQ(Pages("plant.pdf"), "LP") << "no blank page after four ducts";
    EXPECT_EQ(Pages("plant-3.pdf"), "LP");
    EXPECT_EQ(ReadFile(File("plant-2.pdf")), "mine");
    EXPECT_EQ(Text("plant.pdf", 2), Text("plant-3.pdf", 2));

    const std::size_t before = FilesIn();
    PrintToFile(File("nothing.pdf"));
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectCancel();
    ClickOn("cmdPrintGus");
    EXPECT_EQ(FilesIn(), before);
    PrintToFile(File("no/such/folder.pdf"));
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectPrinter(2);
    ClickOn("cmdPrintGus"); // ends without a word
    EXPECT_EQ(FilesIn(), before);
    Print(MessageAnswer::No, 1);
    EXPECT_EQ(Pages("plant.pdf"), "L") << "a file chosen again is replaced";
}

TEST_F(SolverPaper, PlotOnPaper) {
    OpenSolver();
    PlotPath();
    desktop.ExpectPrinter(1);
    PrintToFile(File("plot.pdf"));
    ClickOn("cmdPrintGus"); // without a question
    EXPECT_EQ(Pages("plot.pdf"), "L");
    const QImage page = Page("plot.pdf", 1);
    const double width = page.width();
    const double height = page.height();
    ExpectPlot(page, width * 0.125, height * 0.125, width * 0.875, height * 0.875);
    std::string text;
    for (const std::string& line : Text("plot.pdf", 1)) {
        text += line + " ";
    }
    EXPECT_EQ(text, "R1 C2 F3 4 6 8 6.0 8.0 ") << "two lengths of 6.0 lie on each other";
}

} // namespace
} // namespace plenair
