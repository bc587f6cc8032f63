#include "platform/desktop/CommonDialog.h"
#include "platform/qt/DesktopPrinter.h"
#include "platform/qt/PdfFile.h"
#include "platform/qt/PrintDialog.h"
#include "windows/WindowTest.h"

#include <QDialogButtonBox>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
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

    // The words of a page with the boxes around them, in points, and what inks its row and its column through
    // places in parts of its width and height.
    std::string Page(const std::string& name, int number, const std::vector<QPointF>& places) const {
        const QString only = QString(" -f %1 -l %1 ").arg(number);
        QString words = Output("pdftotext -bbox" + only + "%1 -", name);
        words = words.remove(QRegularExpression("\\.\\d+(?=\")")).section("<page", 1).section("</page", 0, 0);
        const QImage picture =
            QImage::fromData(Output("pdftoppm -r 72 -aa no -aaVector no" + only + "%1", name), "PPM");
        std::string page = words.toStdString();
        for (const QPointF place : places) {
            page += Across(picture, static_cast<int>(place.x() * picture.width()),
                           static_cast<int>(place.y() * picture.height())) +
                    "\n";
        }
        return page;
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
    Find("cmdCalcPressure").show();
    Play("?<1,2,3 ?Yes @cmdCalcPressure");
    Print("plot.pdf", "?*1"); // without a question
    EXPECT_EQ(Pages("plot.pdf"), "L");
    ExpectAsInFile("paper.txt", Page("plant.pdf", 1, {{0.3, 0.5}, {0.75, 0.35}, {0.35, 0.2}}) +
                                    Page("plant.pdf", 3, {}) +
                                    Page("plot.pdf", 1, {{0.4, 0.3}, {0.6875, 0.5}, {0.78125, 0.78125}}));
}

TEST_F(Paper, CopiesAreFilesOfTheirOwn) {
    OpenSolver();
    DrawRow("RRRR");
    WriteFile(File("plant-2.pdf"), "mine");
    Print("plant.pdf", "?Yes ?*2");
    EXPECT_EQ(Pages("plant.pdf"), "LP") << "no blank page after four ducts";
    EXPECT_EQ(ReadFile(File("plant-2.pdf")), "mine");
    EXPECT_EQ(Page("plant.pdf", 2, {}), Page("plant-3.pdf", 2, {}));
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
    EXPECT_TRUE(PrintDialog(&any, 0).testOption(QPrintDialog::PrintSelection));
    EXPECT_FALSE(PrintDialog(&any, kPrinterNoSelection).testOption(QPrintDialog::PrintSelection));
    PdfFile large(File("large.pdf"));
    const QByteArray piece(300'000, 'a');
    EXPECT_EQ(large.write(piece) + large.write("b"), 300'001);
    large.TakeName();
    EXPECT_EQ(ReadFile(File("large.pdf")), piece.toStdString() + "b");
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
    EXPECT_EQ(printer->Size(), (Extent{595 * 20, 842 * 20}));
    printer->Print("lost");
    printer->NewPage();
    printer->KillDoc();
    EXPECT_FALSE(fs::exists(File("behind.pdf")));
    printer->SetFont("Arial", 20, true);
    printer->Line({0, 0}, {3000, 9000}, 255);
    printer->SetPosition({1000, 2000});
    printer->Print("i");
    printer->NewPage();
    printer->EndDoc();
    EXPECT_EQ(Pages("behind.pdf"), "P");
    const std::string page = Page("behind.pdf", 1, {{53.0 / 595, 109.0 / 842}});
    EXPECT_NE(page.find("#000000"), page.npos) << "not in the line's ink";
    EXPECT_EQ(InWords(desktop.Messages().back()),
              "Print: " + File("no/such/folder.pdf") + ": No such file or directory [Ok Exclamation]");
    EXPECT_TRUE(fs::is_symlink(File("link.pdf")));
}

} // namespace
